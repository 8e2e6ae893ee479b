// locale (1998, 22.1.1): a handle to a counted, shared implementation, which owns a name and a table of facets indexed
// by their identities; use_facet and has_facet (22.1.2).
//
//     locale      locale               imp
//     +-----+     +-----+              name       "C"            the facet table, slot 0 unused
//     | imp | --> | imp | -----------> refcount   2              +---+---+---+---+
//     +-----+     +-----+              facets     ------------>  | 0 | f | 0 | f | ...   null: not present
//                                      _quick_                   +---+---+---+---+
//
// A facet made with refs == 0 belongs to the tables that hold it, is counted, and is deleted with the last of them; any
// other is its owner's, and never counted or deleted here. No count is atomic.
#ifndef PLX_LOCALE_CORE_H
#define PLX_LOCALE_CORE_H

#include <stdexcept>
#include <string>

#include <plx/containers/lw_vector.h>
#include <plx/locale/locale_fwd.h>

namespace std {

class PLX_API locale {
public:
  class facet;
  class id;
  class imp;

  typedef int category;
  static const category none = 0;
  static const category collate = 0x10;
  static const category ctype = 0x20;
  static const category monetary = 0x40;
  static const category numeric = 0x80;
  static const category time = 0x100;
  static const category messages = 0x200;
  static const category all = 0x3F0;

  // The default locale: the classic one, until a program sets another by global(). The first call may throw bad_alloc.
  locale();

  inline locale(const locale &_other) PLX_NOTHROW;

  // All categories of one of the C library's locales; "" is the environment's. Throws runtime_error with
  // "Invalid locale name\n" when `_name` is null or unknown. The C library's locale is switched for the time of the
  // call. Only the punctuation of numbers and money depends on the name.
  explicit locale(const char *_name);

  // A copy of `_other`, under its name, with the given categories from the named locale, or from `_one`. codecvt and
  // the facets of time are never replaced. Fails as above.
  locale(const locale &_other, const char *_name, category _categories);
  locale(const locale &_other, const locale &_one, category _categories);

  // A copy of `_other`, without a name, that holds `_facet` under _Facet::id; with a null `_facet` just a copy. _Facet
  // may be const, as in what use_facet returned: locales change no facet, they only count it.
  template <class _Facet> locale(const locale &_other, _Facet *_facet)
      : _imp_(_with(_other, const_cast<facet *>(static_cast<const facet *>(_facet)), _Facet::id)) {}

  inline ~locale() PLX_NOTHROW;
  const locale &operator=(const locale &_other) PLX_NOTHROW;

  // A copy of this locale, without a name, that has _Facet from `_other`. Throws runtime_error when `_other` has none.
  template <class _Facet> locale combine(const locale &_other) const {
    return locale(_combined(*this, _other, _Facet::id));
  }

  // The name it was made from: "C", "" for the environment's, "*" for one that was given single facets.
  basic_string<char, char_traits<char>, allocator<char> > name() const;

  // The same implementation, or whole locales of the same name.
  bool operator==(const locale &_other) const PLX_NOTHROW;
  bool operator!=(const locale &_other) const PLX_NOTHROW { return !(*this == _other); }

  // Whether `_left` sorts before `_right`, by collate.
  template <class _Ct, class _T, class _A>
  bool operator()(const basic_string<_Ct, _T, _A> &_left, const basic_string<_Ct, _T, _A> &_right) const {
    return _before(_left.data(), _left.data() + _left.size(), _right.data(), _right.data() + _right.size());
  }

  // Makes `_loc` the default of later locale() and of streams made later; returns the default before. The C library's
  // locale becomes that of `_loc`'s name, if it has one.
  static locale global(const locale &_loc);

  // locale("C"), made at the first call.
  static const locale &classic();

  // Replaces the facet of one identity, or those of whole categories, by the source's; what the source lacks stays.
  // plx's own: all handles that share this implementation see the change.
  void set_imp(imp *_source, const id &_id);
  void set_cat(imp *_source, category _categories);

  imp *_get_imp() const PLX_NOTHROW { return _imp_; }  // never null
  inline void _release() PLX_NOTHROW;                  // what the destructor does

private:
  explicit locale(imp *_adopted) PLX_NOTHROW : _imp_(_adopted) {}
  static imp *_with(const locale &_other, facet *_facet, const id &_id);
  static imp *_combined(const locale &_base, const locale &_other, const id &_id);
  bool _before(const char *_lo1, const char *_hi1, const char *_lo2, const char *_hi2) const;
  static void _free(imp *_unused) PLX_NOTHROW;
  static void _end_of_classic(void *_classic, int) PLX_NOTHROW;

  imp *_imp_;
  static imp *global_;
};

// The base of every facet.
class PLX_API locale::facet {
public:
  // What a class of the library wants known of the objects of classes derived from it.
  enum _facet_mark { _takes_mbstate = 1 };
  bool _has_mark(_facet_mark _m) const PLX_NOTHROW { return _marks_ == _m; }

protected:
  // refs == 0: the locales that hold it own it. Otherwise it is the program's.
  explicit facet(size_t _refs = 0) PLX_NOTHROW : _deletable_(_refs == 0), _marks_(0), _refcount_(0) {}
  virtual ~facet();

  void _mark(_facet_mark _m) PLX_NOTHROW { _marks_ = static_cast<unsigned char>(_m); }

private:
  facet(const facet &);
  void operator=(const facet &);
  friend class locale::imp;

  bool _deletable_;
  unsigned char _marks_;
  unsigned int _refcount_;  // implementations that hold it, if deletable
};

// The identity of a facet class, a static member of it. Numbers are handed out from 1 on, at the first use of each.
class PLX_API locale::id {
public:
#if __cplusplus >= 201103L
  constexpr id() noexcept : _value_(0) {}
#else
  id() {}  // leaves the zero of a static object: a facet may be installed before the id's own initialisation
#endif
  unsigned int init() const PLX_NOTHROW;  // the number, handed out now if there was none

  unsigned int _get_value() const PLX_NOTHROW { return _value_; }  // 0: none yet

private:
  id(const id &);
  void operator=(const id &);

  mutable unsigned int _value_;
};

// What locales share.
class PLX_API locale::imp {
public:
  // The categories of the locale `_name`, which the C library must have been switched to.
  imp(const char *_name, int _categories);
  imp(const imp &_source);
  ~imp();

  // The facet in a slot, or null.
  facet *_get(unsigned int _id) const PLX_NOTHROW { return _id < _facets_.size() ? _facets_[_id] : 0; }

  // Facets of the library that the table holds as they are, for callers that know what those do.
  enum _quick {
    _quick_ctype = 1,     // exactly a ctype<char> with the classic table
    _quick_codecvt = 2,   // exactly a codecvt<char, char, int>
    _quick_num_put = 4,   // exactly a num_put, a ctype<char>, and a numpunct without grouping, point '.'
    _quick_num_get = 8,   // exactly a num_get, such a numpunct, and the quick ctype
    _named_whole = 0x100  // all categories of the locale `_name_`, nothing replaced
  };
  unsigned int _get_quick() const PLX_NOTHROW { return _quick_; }

  const basic_string<char, char_traits<char>, allocator<char> > &_get_name() const PLX_NOTHROW { return _name_; }

  // For the library. Facets are counted here, and deleted with the last count, when they may be.
  void _store(facet *_facet, const id &_id);  // instead of the one before
  void _set_name(const char *_name);
  void _look() PLX_NOTHROW;  // sets `_quick_` from the table, which has changed
  void _note_named_whole() PLX_NOTHROW { _quick_ |= _named_whole; }
  static void _take(facet *_facet) PLX_NOTHROW;
  static void _give_back(facet *_facet) PLX_NOTHROW;

private:
  imp &operator=(const imp &);
  friend class locale;

  basic_string<char, char_traits<char>, allocator<char> > _name_;
  unsigned int _refcount_;  // handles; the default locale's own is not counted while it is the classic one
  __zor::lw_vector<facet *> _facets_;
  unsigned int _quick_;
};

typedef char _locale_layout[sizeof(locale) == 4 && sizeof(locale::imp) == 20 && sizeof(locale::facet) == 12 ? 1 : -1];

inline locale::locale(const locale &_other) PLX_NOTHROW : _imp_(_other._imp_) { ++_imp_->_refcount_; }

inline void locale::_release() PLX_NOTHROW {
  if (--_imp_->_refcount_ == 0) _free(_imp_);
}
inline locale::~locale() PLX_NOTHROW { _release(); }

}  // namespace std

namespace __zor {

// The facet, whose identity may have had no number yet. Throws bad_cast with "Facet not present\n" when there is none.
PLX_API std::locale::facet &_locale_missing_facet(const std::locale::imp *_imp,
                                                  const std::locale::id &_id) PLX_COLD PLX_REGPARM;

}  // namespace __zor

namespace std {

// The locale's facet of class _Facet, valid as long as any locale holds it. Throws bad_cast with "Facet not present\n"
// when the locale has none (22.1.2).
template <class _Facet> inline const _Facet &use_facet(const locale &_loc) {
  // Slot 0 is always null: an identity without a number takes the long way too.
  locale::facet *_found = _loc._get_imp()->_get(_Facet::id._get_value());
  if (__builtin_expect(!_found, 0)) _found = &__zor::_locale_missing_facet(_loc._get_imp(), _Facet::id);
  return static_cast<const _Facet &>(*_found);
}

// Whether use_facet would find one.
template <class _Facet> inline bool has_facet(const locale &_loc) PLX_NOTHROW {
  return _loc._get_imp()->_get(_Facet::id.init()) != 0;
}

}  // namespace std

// Writes the text and a newline to standard error, then ends the process with exit(1). plx's own.
extern "C" PLX_API void __vexil_report_error(const char *_text) PLX_NORETURN;

#endif
