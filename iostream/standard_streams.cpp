// cin, cout, cerr and clog, and who builds and destroys them: ios_base::Init, counted, of which every unit that
// includes <iostream> has one. The library has three of its own, registered before the program's first, so the streams
// live until everything that was registered after it has been destroyed.
//
// After that there is still code that may print: older objects, and the C library's own exit functions. It finds
// streams that work, over buffers that nobody destroys; what these write, stdio flushes in the end.

#include <new>

#include <plx/iostream/filebuf.h>
#include <plx/iostream/istream.h>
#include <plx/iostream/ostream.h>
#include <plx/runtime.h>

using std::filebuf;
using std::ios_base;
using std::istream;
using std::ostream;

extern "C" {
PLX_API filebuf *__vexil_fin, *__vexil_fout, *__vexil_ferr;

// The objects, by their mangled names, are raw storage: no constructor of theirs runs by itself. A program for a fixed
// address holds copies, which are the ones that the library must use.
extern PLX_API char cin_storage[sizeof(istream)] __asm__("_ZSt3cin");
extern PLX_API char cout_storage[sizeof(ostream)] __asm__("_ZSt4cout");
extern PLX_API char cerr_storage[sizeof(ostream)] __asm__("_ZSt4cerr");
extern PLX_API char clog_storage[sizeof(ostream)] __asm__("_ZSt4clog");
alignas(istream) char cin_storage[sizeof(istream)];
alignas(ostream) char cout_storage[sizeof(ostream)];
alignas(ostream) char cerr_storage[sizeof(ostream)];
alignas(ostream) char clog_storage[sizeof(ostream)];
}

int ios_base::Init::init_cnt = 0;

namespace {

istream &in() { return *reinterpret_cast<istream *>(cin_storage); }
ostream &out() { return *reinterpret_cast<ostream *>(cout_storage); }
ostream &err() { return *reinterpret_cast<ostream *>(cerr_storage); }
ostream &log() { return *reinterpret_cast<ostream *>(clog_storage); }

alignas(filebuf) char last_buffers[3][sizeof(filebuf)];
bool last_streams_live;

void build(filebuf *over_stdin, filebuf *over_stdout, filebuf *over_stderr) {
  new (cout_storage) ostream(over_stdout);
  new (cin_storage) istream(over_stdin);
  new (cerr_storage) ostream(over_stderr);
  in().tie(&out());
  err().tie(&out());
  err().setf(ios_base::unitbuf);
  new (clog_storage) ostream(over_stderr);
  log().tie(&out());
}

// Nobody is left to hear of a failure.
void flush(ostream &stream) {
  stream.exceptions(ios_base::goodbit);
  stream.flush();
}

void destroy() {
  flush(out());
  flush(err());
  flush(log());
  in().~istream();
  log().~ostream();
  err().~ostream();
  out().~ostream();
}

a_needed_destruction records[3];

void give_up_share(void *init, int) { static_cast<ios_base::Init *>(init)->~Init(); }

}  // namespace

ios_base::Init::Init() {
  if (init_cnt == 0) {
    if (last_streams_live) destroy();
    last_streams_live = false;
    __vexil_fin = new filebuf(stdin);
    __vexil_fout = new filebuf(stdout);
    __vexil_ferr = new filebuf(stderr);
    build(__vexil_fin, __vexil_fout, __vexil_ferr);
  }
  ++init_cnt;
  // The library's share comes with the first object, and is registered before it: programs that use no standard stream
  // have no streams, no locale and no block of theirs.
  static bool shared;
  if (shared) return;
  shared = true;
  for (a_needed_destruction &record : records) {
    ++init_cnt;
    record = {nullptr, &record, give_up_share};
    __record_needed_destruction(&record);
  }
}

ios_base::Init::~Init() {
  if (--init_cnt != 0) return;
  destroy();
  delete __vexil_fin;
  delete __vexil_fout;
  delete __vexil_ferr;
  build(new (last_buffers[0]) filebuf(stdin), new (last_buffers[1]) filebuf(stdout),
        new (last_buffers[2]) filebuf(stderr));
  last_streams_live = true;
}
