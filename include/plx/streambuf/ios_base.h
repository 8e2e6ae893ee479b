// ios_base (1998, 27.4.2): what a stream holds that does not depend on its characters.
#ifndef PLX_IOS_BASE_H
#define PLX_IOS_BASE_H

#include <exception>
#include <string>

#include <plx/base/ios_fwd.h>
#include <plx/base/pair.h>
#include <plx/containers/lw_vector.h>
#include <plx/locale/locale_core.h>
#include <plx/streambuf/fpos.h>

namespace __zor {
struct _ios_base_access;
struct _stream_access;
struct _quick_output;
}  // namespace __zor

namespace std {

class PLX_API ios_base {
public:
  // What the streams throw, and only because exceptions() asks for it: what() is "Failure reported". Programs may throw
  // it with a text of their own. Construction throws bad_alloc.
  class PLX_API failure : public exception {
  public:
    explicit failure(const string &_text);
    failure(const failure &_other);
    failure &operator=(const failure &_other);
    virtual ~failure() PLX_NOTHROW;
    virtual const char *what() const PLX_NOTHROW;
    static void __throw(const char *_text) PLX_NORETURN;

  private:
    string _text_;
  };

  typedef int fmtflags;
  static const fmtflags boolalpha = 0x0001;
  static const fmtflags dec = 0x0002;
  static const fmtflags fixed = 0x0004;
  static const fmtflags hex = 0x0008;
  static const fmtflags internal = 0x0010;
  static const fmtflags left = 0x0020;
  static const fmtflags oct = 0x0040;
  static const fmtflags right = 0x0080;
  static const fmtflags scientific = 0x0100;
  static const fmtflags showbase = 0x0200;
  static const fmtflags showpoint = 0x0400;
  static const fmtflags showpos = 0x0800;
  static const fmtflags skipws = 0x1000;
  static const fmtflags unitbuf = 0x2000;
  static const fmtflags uppercase = 0x4000;
  static const fmtflags adjustfield = left | right | internal;
  static const fmtflags basefield = dec | hex | oct;
  static const fmtflags floatfield = fixed | scientific;

  typedef int iostate;
  static const iostate goodbit = 0;
  static const iostate badbit = 0x1;
  static const iostate eofbit = 0x2;
  static const iostate failbit = 0x4;

  typedef int openmode;
  static const openmode app = 0x01;
  static const openmode ate = 0x02;
  static const openmode binary = 0x04;
  static const openmode in = 0x08;
  static const openmode out = 0x10;
  static const openmode trunc = 0x20;

  typedef int seekdir;
  static const seekdir beg = 1;
  static const seekdir cur = 2;
  static const seekdir end = 4;

  // The older names (1998, annex D.6).
  typedef iostate io_state;
  typedef openmode open_mode;
  typedef seekdir seek_dir;
  typedef std::streamoff streamoff;
  typedef std::streampos streampos;

  // While one of these lives, cin, cout, cerr and clog are usable; <iostream> puts one into every unit.
  class PLX_API Init {
  public:
    Init();
    ~Init();
    static int init_cnt;
  };

  // Formatting. The setters return what was there before.
  fmtflags flags() const PLX_NOTHROW { return _flags_; }
  fmtflags flags(fmtflags _flags) PLX_NOTHROW {
    const fmtflags _old = _flags_;
    _flags_ = _flags;
    return _old;
  }
  fmtflags setf(fmtflags _flags) PLX_NOTHROW { return flags(_flags_ | _flags); }
  fmtflags setf(fmtflags _flags, fmtflags _mask) PLX_NOTHROW { return flags((_flags_ & ~_mask) | (_flags & _mask)); }
  void unsetf(fmtflags _mask) PLX_NOTHROW { _flags_ &= ~_mask; }
  streamsize precision() const PLX_NOTHROW { return _precision_; }
  streamsize precision(streamsize _precision) PLX_NOTHROW {
    const streamsize _old = _precision_;
    _precision_ = _precision;
    return _old;
  }
  streamsize width() const PLX_NOTHROW { return _width_; }
  streamsize width(streamsize _width) PLX_NOTHROW {
    const streamsize _old = _width_;
    _width_ = _width;
    return _old;
  }

  // Sets the locale, tells every callback (imbue_event), and returns the locale before. What a callback throws passes.
  locale imbue(const locale &_loc);
  locale getloc() const PLX_NOTHROW { return _loc_; }

  // Words of the program's own, one pair of arrays per stream. xalloc gives out indices: 0, 1, 2 ... for the process.
  // iword and pword extend the array up to the index, with zeros, which may throw bad_alloc and then changes nothing.
  // The reference is good until the array grows.
  static int xalloc() PLX_NOTHROW;
  long &iword(int _index);
  void *&pword(int _index);

  enum event { erase_event = 0, imbue_event = 1, copyfmt_event = 2 };
  typedef void (*event_callback)(event _what, ios_base &_stream, int _index);

  // Adds a callback. The last one added is called first. Throws bad_alloc.
  void register_callback(event_callback _function, int _index);

  // Standard streams and stdio share their buffers, always; returns true, before and after.
  static bool sync_with_stdio(bool _sync = true) PLX_NOTHROW;

  // Throws failure with "Failure reported". plx's own.
  static void throwfailure() PLX_NORETURN PLX_COLD;

  virtual ~ios_base();

protected:
  // Takes the default locale; basic_ios::init sets the rest.
  ios_base();

  // Calls all callbacks, last added first.
  void _call_callbacks(event _what);

  // Copies what copyfmt copies, and calls the callbacks before and after. Throws bad_alloc, with nothing changed.
  void _copy_format(const ios_base &_other);

  typedef pair<event_callback, int> _a_callback;

  locale _loc_;
  __zor::lw_vector<_a_callback> _callbacks_;  // the length is what is allocated
  unsigned int _callback_count_;              // in use
  streamsize _precision_;
  streamsize _width_;
  iostate _state_;
  fmtflags _flags_;
  iostate _exceptions_;
  __zor::lw_vector<long> _iwords_;
  __zor::lw_vector<void *> _pwords_;

  static int index;  // the next that xalloc gives out

private:
  friend struct __zor::_ios_base_access;
  friend struct __zor::_quick_output;
  ios_base(const ios_base &);
  ios_base &operator=(const ios_base &);
};

}  // namespace std

#endif
