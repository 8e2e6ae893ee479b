// ios_base::failure, the one exception of the streams.

#include <plx/streambuf/ios_base.h>

#include "../exceptions/throw_object.h"

namespace std {

// The base's message ends at the first null character; the copy here is whole. The base is given its message last, when
// nothing can be lost any more.
ios_base::failure::failure(const string &text) {
  __zor::eh_local<string> copy(text);
  __zor::eh_local<exception> base(text);
  exception::operator=(base.get());
  _text_.swap(copy.get());
}

ios_base::failure::failure(const failure &other) : exception() {
  __zor::eh_local<string> copy(other._text_);
  exception::operator=(other);
  _text_.swap(copy.get());
}

ios_base::failure &ios_base::failure::operator=(const failure &other) {
  __zor::eh_local<string> text(other._text_);
  exception::operator=(other);
  _text_.swap(text.get());
  return *this;
}

ios_base::failure::~failure() PLX_NOTHROW {}

const char *ios_base::failure::what() const PLX_NOTHROW { return _text_.c_str(); }

void ios_base::failure::__throw(const char *text) { __zor::throw_with_text<failure>(__TI_NSt8ios_base7failureE, text); }

void ios_base::throwfailure() { failure::__throw("Failure reported"); }

}  // namespace std
