// messages<char> (1998, 22.2.7.1): texts from the C library's message catalogs. No locale holds it until a program
// installs one: locale(loc, new messages<char>).
#ifndef PLX_MESSAGES_H
#define PLX_MESSAGES_H

#include <plx/base/char_only.h>
#include <plx/locale/locale_core.h>

namespace std {

class PLX_API messages_base {
public:
  typedef int catalog;
};

template <class _Ct> class messages {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;

public:
  static locale::id id;
};

template <> class PLX_API messages<char> : public locale::facet, public messages_base {
public:
  typedef char char_type;
  typedef string string_type;
  static locale::id id;

  explicit messages(size_t _refs = 0) PLX_NOTHROW : facet(_refs) {}

  // Each forwards to the virtual operation of its name.

  // Opens a catalog as catopen does: a path, or a name that is looked for along NLSPATH for the C library's locale.
  // Texts are as the catalog has them, whatever the locale that is given. Negative when there is none such.
  catalog open(const string &_name, const locale &_loc) const { return do_open(_name, _loc); }
  // The text, or `_instead` when there is none, or `_c` is no open catalog. Throws bad_alloc.
  string get(catalog _c, int _set, int _id, const string &_instead) const { return do_get(_c, _set, _id, _instead); }
  // Ends the use of a catalog. Nothing happens when it is not open.
  void close(catalog _c) const { do_close(_c); }

protected:
  virtual ~messages();
  virtual catalog do_open(const string &_name, const locale &_loc) const;
  virtual string do_get(catalog _c, int _set, int _id, const string &_instead) const;
  virtual void do_close(catalog _c) const;
};

// 22.2.7.2. The name is not used: a catalog is found by the C library's locale.
template <class _Ct> class messages_byname : public messages<_Ct> {
public:
  explicit messages_byname(const char *, size_t _refs = 0) PLX_NOTHROW : messages<_Ct>(_refs) {}

protected:
  virtual ~messages_byname() {}
};

}  // namespace std

#endif
