// codecvt<char, char, int> (1998, 22.2.1.5): the identity conversion between a file's bytes and a program's characters.
// A program's own facet derives from it, or from codecvt<char, char, mbstate_t>, the name that the standard has for it;
// file buffers then convert through that. Both share one identity.
#ifndef PLX_CODECVT_H
#define PLX_CODECVT_H

#include <plx/base/char_only.h>
#include <plx/base/char_traits.h>
#include <plx/locale/locale_core.h>

namespace std {

class PLX_API codecvt_base {
public:
  enum result { ok, partial, error, noconv };
};

template <class _In, class _Ex, class _State> class codecvt {
  typedef typename __zor::plx_supports_only_char_as_character_type<_In>::_type _checked_character_type;

public:
  static locale::id id;
};

template <> class PLX_API codecvt<char, char, int> : public locale::facet, public codecvt_base {
public:
  typedef char intern_type;
  typedef char extern_type;
  typedef int state_type;
  static locale::id id;

  explicit codecvt(size_t _refs = 0) PLX_NOTHROW : facet(_refs) {}

  // Each forwards to the virtual operation of its name. The class itself converts nothing: out, unshift and in return
  // noconv and set nothing.
  result out(state_type &_state, const char *_from, const char *_from_end, const char *&_from_next, char *_to,
             char *_to_end, char *&_to_next) const {
    return do_out(_state, _from, _from_end, _from_next, _to, _to_end, _to_next);
  }
  result unshift(state_type &_state, char *_to, char *_to_end, char *&_to_next) const {
    return do_unshift(_state, _to, _to_end, _to_next);
  }
  result in(state_type &_state, const char *_from, const char *_from_end, const char *&_from_next, char *_to,
            char *_to_end, char *&_to_next) const {
    return do_in(_state, _from, _from_end, _from_next, _to, _to_end, _to_next);
  }
  bool always_noconv() const { return do_always_noconv(); }
  // The bytes that in() would take to make at most `_max` characters.
  int length(state_type &_state, const char *_from, const char *_from_end, size_t _max) const {
    return do_length(_state, _from, _from_end, _max);
  }
  int max_length() const { return do_max_length(); }

protected:
  virtual ~codecvt();
  virtual result do_out(state_type &_state, const char *_from, const char *_from_end, const char *&_from_next,
                        char *_to, char *_to_end, char *&_to_next) const;
  virtual result do_unshift(state_type &_state, char *_to, char *_to_end, char *&_to_next) const;
  virtual result do_in(state_type &_state, const char *_from, const char *_from_end, const char *&_from_next, char *_to,
                       char *_to_end, char *&_to_next) const;
  virtual bool do_always_noconv() const;
  virtual int do_length(state_type &_state, const char *_from, const char *_from_end, size_t _max) const;
  virtual int do_max_length() const;
};

}  // namespace std

namespace __zor {

// Between the two: file buffers call the operations with an int, which is the first word of a mbstate_t. The rest of
// the state is null at the beginning of each call.
class PLX_API _codecvt_by_mbstate : public std::codecvt<char, char, int> {
protected:
  explicit _codecvt_by_mbstate(std::size_t _refs) PLX_NOTHROW : std::codecvt<char, char, int>(_refs) {
    _mark(_takes_mbstate);
  }
  virtual ~_codecvt_by_mbstate();
  virtual result do_out(int &_state, const char *_from, const char *_from_end, const char *&_from_next, char *_to,
                        char *_to_end, char *&_to_next) const;
  virtual result do_unshift(int &_state, char *_to, char *_to_end, char *&_to_next) const;
  virtual result do_in(int &_state, const char *_from, const char *_from_end, const char *&_from_next, char *_to,
                       char *_to_end, char *&_to_next) const;
  virtual int do_length(int &_state, const char *_from, const char *_from_end, std::size_t _max) const;

  virtual result do_out(std::mbstate_t &_state, const char *_from, const char *_from_end, const char *&_from_next,
                        char *_to, char *_to_end, char *&_to_next) const = 0;
  virtual result do_unshift(std::mbstate_t &_state, char *_to, char *_to_end, char *&_to_next) const = 0;
  virtual result do_in(std::mbstate_t &_state, const char *_from, const char *_from_end, const char *&_from_next,
                       char *_to, char *_to_end, char *&_to_next) const = 0;
  virtual int do_length(std::mbstate_t &_state, const char *_from, const char *_from_end, std::size_t _max) const = 0;
};

}  // namespace __zor

namespace std {

// The same with a mbstate_t. `id` is the one of codecvt<char, char, int>.
template <> class PLX_API codecvt<char, char, mbstate_t> : public __zor::_codecvt_by_mbstate {
public:
  typedef mbstate_t state_type;

  explicit codecvt(size_t _refs = 0) PLX_NOTHROW : __zor::_codecvt_by_mbstate(_refs) {}

  result out(state_type &_state, const char *_from, const char *_from_end, const char *&_from_next, char *_to,
             char *_to_end, char *&_to_next) const {
    return do_out(_state, _from, _from_end, _from_next, _to, _to_end, _to_next);
  }
  result unshift(state_type &_state, char *_to, char *_to_end, char *&_to_next) const {
    return do_unshift(_state, _to, _to_end, _to_next);
  }
  result in(state_type &_state, const char *_from, const char *_from_end, const char *&_from_next, char *_to,
            char *_to_end, char *&_to_next) const {
    return do_in(_state, _from, _from_end, _from_next, _to, _to_end, _to_next);
  }
  int length(state_type &_state, const char *_from, const char *_from_end, size_t _max) const {
    return do_length(_state, _from, _from_end, _max);
  }

  // How many bytes make a character: 1; 0 if that varies, -1 if it depends on the state. Nothing in plx asks.
  int encoding() const { return do_encoding(); }

protected:
  using __zor::_codecvt_by_mbstate::do_in;
  using __zor::_codecvt_by_mbstate::do_length;
  using __zor::_codecvt_by_mbstate::do_out;
  using __zor::_codecvt_by_mbstate::do_unshift;
  virtual ~codecvt();
  virtual result do_out(state_type &_state, const char *_from, const char *_from_end, const char *&_from_next,
                        char *_to, char *_to_end, char *&_to_next) const;
  virtual result do_unshift(state_type &_state, char *_to, char *_to_end, char *&_to_next) const;
  virtual result do_in(state_type &_state, const char *_from, const char *_from_end, const char *&_from_next, char *_to,
                       char *_to_end, char *&_to_next) const;
  virtual int do_length(state_type &_state, const char *_from, const char *_from_end, size_t _max) const;
  virtual int do_encoding() const;
};

// The locale's, if it was made for a mbstate_t. Otherwise the identity: of the other kind there is no telling what its
// int means.
template <> PLX_API const codecvt<char, char, mbstate_t> &use_facet<codecvt<char, char, mbstate_t> >(const locale &);

// 22.2.1.6. The name is not used: named locales convert nothing either.
template <class _In, class _Ex, class _State> class codecvt_byname : public codecvt<_In, _Ex, _State> {
public:
  explicit codecvt_byname(const char *, size_t _refs = 0) : codecvt<_In, _Ex, _State>(_refs) {}

protected:
  virtual ~codecvt_byname() {}
};

}  // namespace std

#endif
