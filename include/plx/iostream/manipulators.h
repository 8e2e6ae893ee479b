// Manipulators of ios_base (1998, 27.4.5): stream << hex << showbase, stream >> noskipws. Each sets or clears flags and
// returns its stream; none throws.
#ifndef PLX_MANIPULATORS_H
#define PLX_MANIPULATORS_H

#include <plx/streambuf/ios_base.h>

namespace std {

inline ios_base &boolalpha(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::boolalpha);
  return _stream;
}
inline ios_base &noboolalpha(ios_base &_stream) PLX_NOTHROW {
  _stream.unsetf(ios_base::boolalpha);
  return _stream;
}
inline ios_base &showbase(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::showbase);
  return _stream;
}
inline ios_base &noshowbase(ios_base &_stream) PLX_NOTHROW {
  _stream.unsetf(ios_base::showbase);
  return _stream;
}
inline ios_base &showpoint(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::showpoint);
  return _stream;
}
inline ios_base &noshowpoint(ios_base &_stream) PLX_NOTHROW {
  _stream.unsetf(ios_base::showpoint);
  return _stream;
}
inline ios_base &showpos(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::showpos);
  return _stream;
}
inline ios_base &noshowpos(ios_base &_stream) PLX_NOTHROW {
  _stream.unsetf(ios_base::showpos);
  return _stream;
}
inline ios_base &skipws(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::skipws);
  return _stream;
}
inline ios_base &noskipws(ios_base &_stream) PLX_NOTHROW {
  _stream.unsetf(ios_base::skipws);
  return _stream;
}
inline ios_base &uppercase(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::uppercase);
  return _stream;
}
inline ios_base &nouppercase(ios_base &_stream) PLX_NOTHROW {
  _stream.unsetf(ios_base::uppercase);
  return _stream;
}
inline ios_base &unitbuf(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::unitbuf);
  return _stream;
}
inline ios_base &nounitbuf(ios_base &_stream) PLX_NOTHROW {
  _stream.unsetf(ios_base::unitbuf);
  return _stream;
}

// One of a field; the others of the field are cleared.
inline ios_base &internal(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::internal, ios_base::adjustfield);
  return _stream;
}
inline ios_base &left(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::left, ios_base::adjustfield);
  return _stream;
}
inline ios_base &right(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::right, ios_base::adjustfield);
  return _stream;
}
inline ios_base &dec(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::dec, ios_base::basefield);
  return _stream;
}
inline ios_base &hex(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::hex, ios_base::basefield);
  return _stream;
}
inline ios_base &oct(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::oct, ios_base::basefield);
  return _stream;
}
inline ios_base &fixed(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::fixed, ios_base::floatfield);
  return _stream;
}
inline ios_base &scientific(ios_base &_stream) PLX_NOTHROW {
  _stream.setf(ios_base::scientific, ios_base::floatfield);
  return _stream;
}

}  // namespace std

#endif
