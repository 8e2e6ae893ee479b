// The standard streams (1998, 27.3). They are built before the first static object of any unit that includes this, and
// what static objects print until the last of them is destroyed arrives.
#ifndef PLX_STANDARD_STREAMS_H
#define PLX_STANDARD_STREAMS_H

#include <plx/iostream/filebuf.h>
#include <plx/iostream/istream.h>
#include <plx/iostream/ostream.h>

// The buffers over stdin, stdout and stderr. plx's own; null until the streams are built.
extern "C" {
extern PLX_API std::filebuf *__vexil_fin;
extern PLX_API std::filebuf *__vexil_fout;
extern PLX_API std::filebuf *__vexil_ferr;
}

namespace std {

// cin, cerr and clog are tied to cout. cerr has unitbuf set; clog has not, and shares cerr's buffer.
extern PLX_API istream cin;
extern PLX_API ostream cout;
extern PLX_API ostream cerr;
extern PLX_API ostream clog;

// There are none: they are named only so that whoever uses one is told why.
extern wistream wcin;
extern wostream wcout;
extern wostream wcerr;
extern wostream wclog;

static ios_base::Init __vexil_ios_init;

}  // namespace std

#endif
