// ios_base: its life, locale, callbacks and the program's words.

#include "../containers/cleanup_by_hand.h"

#include <plx/streambuf/ios_base.h>

namespace std {

const ios_base::fmtflags ios_base::boolalpha, ios_base::dec, ios_base::fixed, ios_base::hex, ios_base::internal,
    ios_base::left, ios_base::oct, ios_base::right, ios_base::scientific, ios_base::showbase, ios_base::showpoint,
    ios_base::showpos, ios_base::skipws, ios_base::unitbuf, ios_base::uppercase, ios_base::adjustfield,
    ios_base::basefield, ios_base::floatfield;
const ios_base::iostate ios_base::goodbit, ios_base::badbit, ios_base::eofbit, ios_base::failbit;
const ios_base::openmode ios_base::app, ios_base::ate, ios_base::binary, ios_base::in, ios_base::out, ios_base::trunc;
const ios_base::seekdir ios_base::beg, ios_base::cur, ios_base::end;

int ios_base::index = 0;

ios_base::ios_base() : _callback_count_(0) {}

// What a callback throws here has nowhere to go, and must keep neither the older ones nor the rest from being released.
ios_base::~ios_base() {
  const auto call_all = [this]() PLX_NOINLINE {
    for (unsigned int i = _callback_count_; i-- > 0;)
      __zor::eh_guard([&] { _callbacks_[i].first(erase_event, *this, _callbacks_[i].second); });
  };
  if (_callback_count_) call_all();
  _pwords_.resize(0, nullptr);
  _iwords_.resize(0, 0);
  _callbacks_.resize(0, _a_callback());
}

void ios_base::_call_callbacks(event what) {
  for (unsigned int i = _callback_count_; i-- > 0;) _callbacks_[i].first(what, *this, _callbacks_[i].second);
}

locale ios_base::imbue(const locale &loc) {
  __zor::eh_local<locale> old(_loc_);
  _loc_ = loc;
  _call_callbacks(imbue_event);
  return *old;
}

int ios_base::xalloc() PLX_NOTHROW { return index++; }

// A negative index asks for more than there is, which the array refuses.
static unsigned int length_for(unsigned int slot) { return slot + 1 != 0 ? slot + 1 : slot; }

long &ios_base::iword(int i) {
  const unsigned int slot = static_cast<unsigned int>(i);
  if (slot >= _iwords_.size()) _iwords_.resize(length_for(slot), 0);
  return _iwords_[slot];
}

void *&ios_base::pword(int i) {
  const unsigned int slot = static_cast<unsigned int>(i);
  if (slot >= _pwords_.size()) _pwords_.resize(length_for(slot), nullptr);
  return _pwords_[slot];
}

void ios_base::register_callback(event_callback function, int i) {
  if (_callback_count_ == _callbacks_.size())
    _callbacks_.resize(_callback_count_ + 5, _a_callback(static_cast<event_callback>(nullptr), 0));
  _callbacks_[_callback_count_++] = _a_callback(function, i);
}

namespace {

template <class Vector, class Value> void copy_words(Vector &to, const Vector &from, const Value &none) {
  to.resize(from.size(), none);
  for (unsigned int i = 0; i < from.size(); ++i) to[i] = from[i];
}

}  // namespace

void ios_base::_copy_format(const ios_base &other) {
  // Everything that can fail comes first.
  __zor::eh_local<__zor::lw_vector<_a_callback>> callbacks;
  __zor::eh_local<__zor::lw_vector<long>> iwords;
  __zor::eh_local<__zor::lw_vector<void *>> pwords;
  copy_words(*callbacks, other._callbacks_, _a_callback());
  copy_words(*iwords, other._iwords_, 0L);
  copy_words(*pwords, other._pwords_, static_cast<void *>(nullptr));
  _call_callbacks(erase_event);
  callbacks->swap(_callbacks_);
  iwords->swap(_iwords_);
  pwords->swap(_pwords_);
  _callback_count_ = other._callback_count_;
  _loc_ = other._loc_;
  _precision_ = other._precision_;
  _width_ = other._width_;
  _flags_ = other._flags_;
}

// Buffers over the standard files keep nothing of their own, so there is nothing to switch.
bool ios_base::sync_with_stdio(bool) PLX_NOTHROW { return true; }

}  // namespace std
