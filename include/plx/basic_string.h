// basic_string (1998, 21.3): one pointer to a counted representation that copies share until one of them is changed.
// A thin shell over the core in string_core.h; what is on a hot path is inline, the rest of string is instantiated in
// the library.
//
// A position above size() throws out_of_range ("Out of range exception occurred"), a length of npos or more
// length_error ("Length exception occurred"), and what needs memory bad_alloc; a member that throws has changed nothing.
// Every modifier ends the use of iterators, references and c_str() from before.
//
// Where it differs from the 1998 class on purpose: an empty pattern is never found, a constructor reports the length
// npos as out of range, and inserting nothing skips the range check. docs/deviations.md has the list.
#ifndef PLX_BASIC_STRING_H
#define PLX_BASIC_STRING_H

#include <plx/is_integer.h>
#include <plx/pointer_iterator.h>
#include <plx/string_core.h>
#include <plx/string_fwd.h>
#include <plx/string_search.h>

namespace __zor {

template <> struct plx_strings_use_only_the_standard_allocator<std::allocator<char> > { typedef int type; };

// A range as contiguous characters: those of pointers and of string iterators as they are. Of any other range a string
// is made first, since its iterators may throw, or look into the string that is about to change.
template <class String, class Iterator> class string_range {
public:
  string_range(Iterator first, Iterator last) : made_(0u, char()) {
    for (; first != last; ++first) made_.push_back(static_cast<char>(*first));
  }
  const char *data() const PLX_NOTHROW { return made_.data(); }
  unsigned int size() const PLX_NOTHROW { return made_.size(); }
  const String &text() const PLX_NOTHROW { return made_; }

private:
  String made_;
};

template <class String> class string_range<String, const char *> {
public:
  string_range(const char *first, const char *last) PLX_NOTHROW : first_(first),
                                                                  size_(static_cast<unsigned int>(last - first)) {}
  const char *data() const PLX_NOTHROW { return first_; }
  unsigned int size() const PLX_NOTHROW { return size_; }
  String text() const { return String(first_, size_); }

private:
  const char *first_;
  unsigned int size_;
};

template <class String> class string_range<String, char *> : public string_range<String, const char *> {
public:
  string_range(char *first, char *last) PLX_NOTHROW : string_range<String, const char *>(first, last) {}
};

template <class String, class C> class string_range<String, pointer_iterator<C> >
    : public string_range<String, const char *> {
public:
  string_range(pointer_iterator<C> first, pointer_iterator<C> last) PLX_NOTHROW
      : string_range<String, const char *>(first.base(), last.base()) {}
};

}  // namespace __zor

namespace std {

template <class C, class T, class A> class PLX_API basic_string {
  typedef typename __zor::plx_supports_only_char_as_character_type<C>::type checked_character_type;
  typedef typename __zor::plx_strings_use_only_the_standard_allocator<A>::type checked_allocator;
  typedef __zor::b_str_ref b_str_ref;
  typedef __zor::string_search<T> search;

public:
  typedef T traits_type;
  typedef typename T::char_type value_type;
  typedef A allocator_type;
  typedef typename A::size_type size_type;
  typedef typename A::difference_type difference_type;
  typedef typename A::reference reference;
  typedef typename A::const_reference const_reference;
  typedef typename A::pointer pointer;
  typedef typename A::const_pointer const_pointer;
  typedef __zor::pointer_iterator<C> iterator;
  typedef __zor::pointer_iterator<const C> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  static const size_type npos = static_cast<size_type>(-1);

  // Construction, copying, destruction. A copy shares, unless a reference into the source's characters may be in use.

  basic_string() PLX_NOTHROW : rep_(empty_rep()) {}
  explicit basic_string(const A &) PLX_NOTHROW : rep_(empty_rep()) {}
  basic_string(const basic_string &other) : rep_(share(other.rep_)) {}
  basic_string(const basic_string &other, size_type pos, size_type n = npos, const A & = A())
      : rep_(__zor::string_part(other.rep_, pos, n)) {}
  basic_string(const C *text, size_type n, const A & = A()) : rep_(__zor::string_make(text, n)) {}
  basic_string(const C *text, const A & = A()) : rep_(__zor::string_make(text, length_of(text))) {}
  basic_string(size_type n, C c, const A &allocator = A()) { _initialize_storage(n, c, allocator); }
  template <class Iterator> basic_string(Iterator first, Iterator last, const A & = A())
      : rep_(made_from(first, last, typename __zor::is_integer<Iterator>::type())) {}
#if __cplusplus >= 201103L
  basic_string(basic_string &&other) noexcept : rep_(other.rep_) { other.rep_ = empty_rep(); }
#endif
  ~basic_string() PLX_NOTHROW { release(rep_); }

  basic_string &operator=(const basic_string &other) {
    if (rep_ != other.rep_) {
      b_str_ref *acquired = share(other.rep_);
      release(rep_);
      rep_ = acquired;
    }
    return *this;
  }
#if __cplusplus >= 201103L
  basic_string &operator=(basic_string &&other) noexcept {
    swap(other);
    return *this;
  }
#endif
  basic_string &operator=(const C *text) { return assign(text, length_of(text)); }
  basic_string &operator=(C c) { return assign(&c, 1); }

  // Iterators. What gives a way to change characters makes the string's representation private and unshareable, until
  // the next modifier.

  iterator begin() { return iterator(exposed()); }
  const_iterator begin() const PLX_NOTHROW { return const_iterator(rep_->data); }
  iterator end() { return iterator(exposed() + rep_->length); }
  const_iterator end() const PLX_NOTHROW { return const_iterator(rep_->data + rep_->length); }
  reverse_iterator rbegin() { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }
#if __cplusplus >= 201103L
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
#endif

  // Size. The capacity reported counts the place of the terminating null character; size() never exceeds it.

  size_type size() const PLX_NOTHROW { return rep_->length; }
  size_type length() const PLX_NOTHROW { return rep_->length; }
  size_type max_size() const PLX_NOTHROW { return npos - 1; }
  void resize(size_type n, C c) { __zor::string_resize(rep_, n, c); }
  void resize(size_type n) { __zor::string_resize(rep_, n, C()); }
  size_type capacity() const PLX_NOTHROW { return rep_->capacity; }
  void reserve(size_type n = 0) { __zor::string_reserve(rep_, n); }
  void clear() PLX_NOTHROW {
    if (__zor::string_is_private(rep_)) {
      rep_->count = 1;
      rep_->length = 0;
      rep_->data[0] = C();
    } else {
      --rep_->count;
      rep_ = empty_rep();
    }
  }
  bool empty() const PLX_NOTHROW { return rep_->length == 0; }

  // Characters. The const operator[] does not check; the other accepts size() as well.

  const_reference operator[](size_type pos) const PLX_NOTHROW { return rep_->data[pos]; }
  reference operator[](size_type pos) {
    if (!__zor::string_is_unshareable(rep_) || pos > rep_->length) __zor::string_expose_at(rep_, pos);
    return rep_->data[pos];
  }
  const_reference at(size_type pos) const {
    if (pos >= rep_->length) __zor::string_out_of_range();
    return rep_->data[pos];
  }
  reference at(size_type pos) {
    if (pos >= rep_->length) __zor::string_out_of_range();
    return exposed()[pos];
  }
#if __cplusplus >= 201103L
  reference front() { return exposed()[0]; }
  const_reference front() const noexcept { return rep_->data[0]; }
  reference back() { return exposed()[rep_->length - 1]; }
  const_reference back() const noexcept { return rep_->data[rep_->length - 1]; }
#endif

  // Appending.

  basic_string &operator+=(const basic_string &other) { return append(other); }
  basic_string &operator+=(const C *text) { return append(text, T::length(text)); }
  basic_string &operator+=(C c) {
    push_back(c);
    return *this;
  }
  basic_string &append(const basic_string &other) { return append(other.rep_->data, other.rep_->length); }
  basic_string &append(const basic_string &other, size_type pos, size_type n) {
    return append(other.from(pos), other.clipped(pos, n));
  }
  basic_string &append(const C *text, size_type n) {
    __zor::string_append(rep_, text, n);
    return *this;
  }
  basic_string &append(const C *text) { return append(text, T::length(text)); }
  basic_string &append(size_type n, C c) {
    __zor::string_append_filled(rep_, n, c);
    return *this;
  }
  template <class Iterator> basic_string &append(Iterator first, Iterator last) {
    return append_range(first, last, typename __zor::is_integer<Iterator>::type());
  }
  void push_back(C c) {
    b_str_ref *rep = rep_;
    const size_type n = rep->length + 1;
    if (rep->count == 1 && (n < rep->capacity || __zor::string_widen(rep, n))) {
      C *place = rep->data + n;
      rep->length = n;
      place[-1] = c;
      place[0] = C();
    } else {
      __zor::string_append_one(rep_, c);
    }
  }
#if __cplusplus >= 201103L
  void pop_back() { erase(rep_->length - 1, 1); }
#endif

  // Assignment.

  basic_string &assign(const basic_string &other) { return *this = other; }
  basic_string &assign(const basic_string &other, size_type pos, size_type n) {
    return assign(other.from(pos), other.clipped(pos, n));
  }
  basic_string &assign(const C *text, size_type n) {
    __zor::string_assign(rep_, text, n);
    return *this;
  }
  basic_string &assign(const C *text) { return assign(text, T::length(text)); }
  basic_string &assign(size_type n, C c) {
    __zor::string_assign_filled(rep_, n, c);
    return *this;
  }
  template <class Iterator> basic_string &assign(Iterator first, Iterator last) {
    return assign_range(first, last, typename __zor::is_integer<Iterator>::type());
  }

  // Insertion. An empty sequence is inserted without a look at the position.

  basic_string &insert(size_type pos, const basic_string &other) {
    return insert(pos, other.rep_->data, other.rep_->length);
  }
  basic_string &insert(size_type pos, const basic_string &other, size_type other_pos, size_type n) {
    return insert(pos, other.from(other_pos), other.clipped(other_pos, n));
  }
  basic_string &insert(size_type pos, const C *text, size_type n) {
    __zor::string_insert(rep_, pos, text, n);
    return *this;
  }
  basic_string &insert(size_type pos, const C *text) { return insert(pos, text, length_of(text)); }
  basic_string &insert(size_type pos, size_type n, C c) {
    __zor::string_insert_filled(rep_, pos, n, c);
    return *this;
  }
  iterator insert(iterator at, C c) {
    const size_type pos = index_of(at);
    __zor::string_insert_filled(rep_, pos, 1, c);
    return iterator(exposed() + pos);
  }
  void insert(iterator at, size_type n, C c) { __zor::string_insert_filled(rep_, index_of(at), n, c); }
  template <class Iterator> void insert(iterator at, Iterator first, Iterator last) {
    insert_range(index_of(at), first, last, typename __zor::is_integer<Iterator>::type());
  }

  // Erasure.

  basic_string &erase(size_type pos = 0, size_type n = npos) {
    __zor::string_erase(rep_, pos, n);
    return *this;
  }
  iterator erase(iterator at) {
    const size_type pos = index_of(at);
    __zor::string_erase(rep_, pos, 1);
    return iterator(exposed() + pos);
  }
  iterator erase(iterator first, iterator last) {
    const size_type pos = index_of(first);
    __zor::string_erase(rep_, pos, static_cast<size_type>(last - first));
    return iterator(exposed() + pos);
  }

  // Replacement.

  basic_string &replace(size_type pos, size_type n1, const basic_string &other) {
    return replace(pos, n1, other.rep_->data, other.rep_->length);
  }
  basic_string &replace(size_type pos, size_type n1, const basic_string &other, size_type other_pos, size_type n2) {
    return replace(pos, n1, other.from(other_pos), other.clipped(other_pos, n2));
  }
  basic_string &replace(size_type pos, size_type n1, const C *text, size_type n2) {
    __zor::string_replace(rep_, pos, n1, text, n2);
    return *this;
  }
  basic_string &replace(size_type pos, size_type n1, const C *text) { return replace(pos, n1, text, length_of(text)); }
  basic_string &replace(size_type pos, size_type n1, size_type n2, C c) {
    __zor::string_replace_filled(rep_, pos, n1, n2, c);
    return *this;
  }
  basic_string &replace(iterator first, iterator last, const basic_string &other) {
    return replace(index_of(first), count_of(first, last), other);
  }
  basic_string &replace(iterator first, iterator last, const C *text, size_type n) {
    return replace(index_of(first), count_of(first, last), text, n);
  }
  basic_string &replace(iterator first, iterator last, const C *text) {
    return replace(index_of(first), count_of(first, last), text, length_of(text));
  }
  basic_string &replace(iterator first, iterator last, size_type n, C c) {
    return replace(index_of(first), count_of(first, last), n, c);
  }
  template <class Iterator> basic_string &replace(iterator first1, iterator last1, Iterator first2, Iterator last2) {
    return replace_range(index_of(first1), count_of(first1, last1), first2, last2,
                         typename __zor::is_integer<Iterator>::type());
  }

  // Copies characters out; writes no terminator.
  size_type copy(C *to, size_type n, size_type pos = 0) const {
    const C *source = from(pos);
    n = clipped(pos, n);
    T::copy(to, source, n);
    return n;
  }

  void swap(basic_string &other) PLX_NOTHROW {
    b_str_ref *rep = rep_;
    rep_ = other.rep_;
    other.rep_ = rep;
  }

  const C *c_str() const PLX_NOTHROW { return rep_->data; }
  const C *data() const PLX_NOTHROW { return rep_->data; }
  A get_allocator() const PLX_NOTHROW { return rep_->allocator; }

  // Searching.

  size_type find(const basic_string &other, size_type pos = 0) const PLX_NOTHROW {
    return search::find(rep_, other.rep_->data, pos, other.rep_->length);
  }
  size_type find(const C *text, size_type pos, size_type n) const PLX_NOTHROW {
    return search::find(rep_, text, pos, n);
  }
  size_type find(const C *text, size_type pos = 0) const PLX_NOTHROW {
    return search::find(rep_, text, pos, T::length(text));
  }
  size_type find(C c, size_type pos = 0) const PLX_NOTHROW {
    if (pos >= rep_->length) return npos;
    const C *found = T::find(rep_->data + pos, rep_->length - pos, c);
    return found ? static_cast<size_type>(found - rep_->data) : npos;
  }

  size_type rfind(const basic_string &other, size_type pos = npos) const PLX_NOTHROW {
    return search::rfind(rep_, other.rep_->data, pos, other.rep_->length);
  }
  size_type rfind(const C *text, size_type pos, size_type n) const PLX_NOTHROW {
    return search::rfind(rep_, text, pos, n);
  }
  size_type rfind(const C *text, size_type pos = npos) const PLX_NOTHROW {
    return search::rfind(rep_, text, pos, T::length(text));
  }
  size_type rfind(C c, size_type pos = npos) const PLX_NOTHROW { return search::rfind(rep_, &c, pos, 1); }

  size_type find_first_of(const basic_string &set, size_type pos = 0) const PLX_NOTHROW {
    return search::find_first_of(rep_, set.rep_->data, pos, set.rep_->length);
  }
  size_type find_first_of(const C *set, size_type pos, size_type n) const PLX_NOTHROW {
    return search::find_first_of(rep_, set, pos, n);
  }
  size_type find_first_of(const C *set, size_type pos = 0) const PLX_NOTHROW {
    return search::find_first_of(rep_, set, pos, T::length(set));
  }
  size_type find_first_of(C c, size_type pos = 0) const PLX_NOTHROW { return find(c, pos); }

  size_type find_last_of(const basic_string &set, size_type pos = npos) const PLX_NOTHROW {
    return search::find_last_of(rep_, set.rep_->data, pos, set.rep_->length);
  }
  size_type find_last_of(const C *set, size_type pos, size_type n) const PLX_NOTHROW {
    return search::find_last_of(rep_, set, pos, n);
  }
  size_type find_last_of(const C *set, size_type pos = npos) const PLX_NOTHROW {
    return search::find_last_of(rep_, set, pos, T::length(set));
  }
  size_type find_last_of(C c, size_type pos = npos) const PLX_NOTHROW { return rfind(c, pos); }

  size_type find_first_not_of(const basic_string &set, size_type pos = 0) const PLX_NOTHROW {
    return search::find_first_not_of(rep_, set.rep_->data, pos, set.rep_->length);
  }
  size_type find_first_not_of(const C *set, size_type pos, size_type n) const PLX_NOTHROW {
    return search::find_first_not_of(rep_, set, pos, n);
  }
  size_type find_first_not_of(const C *set, size_type pos = 0) const PLX_NOTHROW {
    return search::find_first_not_of(rep_, set, pos, T::length(set));
  }
  size_type find_first_not_of(C c, size_type pos = 0) const PLX_NOTHROW {
    return search::find_first_not_of(rep_, &c, pos, 1);
  }

  size_type find_last_not_of(const basic_string &set, size_type pos = npos) const PLX_NOTHROW {
    return search::find_last_not_of(rep_, set.rep_->data, pos, set.rep_->length);
  }
  size_type find_last_not_of(const C *set, size_type pos, size_type n) const PLX_NOTHROW {
    return search::find_last_not_of(rep_, set, pos, n);
  }
  size_type find_last_not_of(const C *set, size_type pos = npos) const PLX_NOTHROW {
    return search::find_last_not_of(rep_, set, pos, T::length(set));
  }
  size_type find_last_not_of(C c, size_type pos = npos) const PLX_NOTHROW {
    return search::find_last_not_of(rep_, &c, pos, 1);
  }

  basic_string substr(size_type pos = 0, size_type n = npos) const { return basic_string(*this, pos, n); }

  // Comparison: negative, 0 or positive.

  int compare(const basic_string &other) const PLX_NOTHROW {
    return compared(rep_->data, rep_->length, other.rep_->data, other.rep_->length);
  }
  int compare(size_type pos, size_type n, const basic_string &other) const {
    const C *part = from(pos);
    return compared(part, clipped(pos, n), other.rep_->data, other.rep_->length);
  }
  int compare(size_type pos, size_type n, const basic_string &other, size_type other_pos, size_type other_n) const {
    const C *part = from(pos);
    const C *other_part = other.from(other_pos);
    return compared(part, clipped(pos, n), other_part, other.clipped(other_pos, other_n));
  }
  int compare(const C *text) const PLX_NOTHROW { return compared(rep_->data, rep_->length, text, T::length(text)); }
  int compare(size_type pos, size_type n, const C *text) const { return compare(pos, n, text, T::length(text)); }
  int compare(size_type pos, size_type n, const C *text, size_type text_n) const {
    const C *part = from(pos);
    return compared(part, clipped(pos, n), text, text_n);
  }

private:
  // Once it is set, one reference is its own: it is never freed.
  static b_str_ref *nullbuf;

  struct adopt {};
  basic_string(b_str_ref *rep, adopt) PLX_NOTHROW : rep_(rep) {}

  static b_str_ref *empty_rep() PLX_NOTHROW {
    if (!nullbuf) __zor::string_make_null(nullbuf);
    ++nullbuf->count;
    return nullbuf;
  }
  static b_str_ref *share(b_str_ref *rep) {
    if (__zor::string_is_unshareable(rep)) return __zor::string_make(rep->data, rep->length);
    ++rep->count;
    return rep;
  }
  static void release(b_str_ref *rep) PLX_NOTHROW {
    if (__zor::string_is_private(rep))
      __zor::string_free(rep);
    else
      --rep->count;
  }
  C *exposed() {
    if (__builtin_expect(!__zor::string_is_unshareable(rep_), false)) __zor::string_expose(rep_);
    return rep_->data;
  }

  void _initialize_storage(size_type n, C c, const A &) { rep_ = __zor::string_make_filled(n, c); }

  static size_type length_of(const C *text) PLX_NOTHROW { return text ? T::length(text) : 0; }
  const C *from(size_type pos) const {
    if (pos > rep_->length) __zor::string_out_of_range();
    return rep_->data + pos;
  }
  size_type clipped(size_type pos, size_type n) const PLX_NOTHROW {
    return n < rep_->length - pos ? n : rep_->length - pos;
  }
  static int compared(const C *left, size_type left_n, const C *right, size_type right_n) PLX_NOTHROW {
    const int order = T::compare(left, right, left_n < right_n ? left_n : right_n);
    return order != 0 ? order : left_n < right_n ? -1 : left_n != right_n;
  }

  size_type index_of(iterator at) const PLX_NOTHROW { return static_cast<size_type>(at.base() - rep_->data); }
  static size_type count_of(iterator first, iterator last) PLX_NOTHROW { return static_cast<size_type>(last - first); }

  // Ranges: two integers are a count and a character, anything else a sequence.

  template <class N> static b_str_ref *made_from(N n, N c, __zor::yes) {
    return __zor::string_make_filled(static_cast<size_type>(n), static_cast<C>(c));
  }
  template <class Iterator> static b_str_ref *made_from(Iterator first, Iterator last, __zor::no) {
    const __zor::string_range<basic_string, Iterator> range(first, last);
    const basic_string made(range.text());
    return share(made.rep_);
  }
  template <class N> basic_string &append_range(N n, N c, __zor::yes) {
    return append(static_cast<size_type>(n), static_cast<C>(c));
  }
  template <class Iterator> basic_string &append_range(Iterator first, Iterator last, __zor::no) {
    const __zor::string_range<basic_string, Iterator> range(first, last);
    return append(range.data(), range.size());
  }
  template <class N> basic_string &assign_range(N n, N c, __zor::yes) {
    return assign(static_cast<size_type>(n), static_cast<C>(c));
  }
  template <class Iterator> basic_string &assign_range(Iterator first, Iterator last, __zor::no) {
    const __zor::string_range<basic_string, Iterator> range(first, last);
    return assign(range.data(), range.size());
  }
  template <class N> void insert_range(size_type pos, N n, N c, __zor::yes) {
    insert(pos, static_cast<size_type>(n), static_cast<C>(c));
  }
  template <class Iterator> void insert_range(size_type pos, Iterator first, Iterator last, __zor::no) {
    const __zor::string_range<basic_string, Iterator> range(first, last);
    insert(pos, range.data(), range.size());
  }
  template <class N> basic_string &replace_range(size_type pos, size_type n1, N n2, N c, __zor::yes) {
    return replace(pos, n1, static_cast<size_type>(n2), static_cast<C>(c));
  }
  template <class Iterator>
  basic_string &replace_range(size_type pos, size_type n1, Iterator first, Iterator last, __zor::no) {
    const __zor::string_range<basic_string, Iterator> range(first, last);
    return replace(pos, n1, range.data(), range.size());
  }

  b_str_ref *rep_;

  template <class C2, class T2, class A2>
  friend basic_string<C2, T2, A2> operator+(const basic_string<C2, T2, A2> &, const basic_string<C2, T2, A2> &);
  template <class C2, class T2, class A2>
  friend basic_string<C2, T2, A2> operator+(const C2 *, const basic_string<C2, T2, A2> &);
  template <class C2, class T2, class A2>
  friend basic_string<C2, T2, A2> operator+(C2, const basic_string<C2, T2, A2> &);
  template <class C2, class T2, class A2>
  friend basic_string<C2, T2, A2> operator+(const basic_string<C2, T2, A2> &, const C2 *);
  template <class C2, class T2, class A2>
  friend basic_string<C2, T2, A2> operator+(const basic_string<C2, T2, A2> &, C2);
};

template <class C, class T, class A> const typename basic_string<C, T, A>::size_type basic_string<C, T, A>::npos;
template <class C, class T, class A> __zor::b_str_ref *basic_string<C, T, A>::nullbuf;

template <class C, class T, class A>
inline basic_string<C, T, A> operator+(const basic_string<C, T, A> &left, const basic_string<C, T, A> &right) {
  typedef basic_string<C, T, A> made;
  return made(__zor::string_join(left.data(), left.size(), right.data(), right.size()), typename made::adopt());
}
template <class C, class T, class A>
inline basic_string<C, T, A> operator+(const C *left, const basic_string<C, T, A> &right) {
  typedef basic_string<C, T, A> made;
  return made(__zor::string_join(left, T::length(left), right.data(), right.size()), typename made::adopt());
}
template <class C, class T, class A>
inline basic_string<C, T, A> operator+(C left, const basic_string<C, T, A> &right) {
  typedef basic_string<C, T, A> made;
  return made(__zor::string_join(&left, 1, right.data(), right.size()), typename made::adopt());
}
template <class C, class T, class A>
inline basic_string<C, T, A> operator+(const basic_string<C, T, A> &left, const C *right) {
  typedef basic_string<C, T, A> made;
  return made(__zor::string_join(left.data(), left.size(), right, T::length(right)), typename made::adopt());
}
template <class C, class T, class A>
inline basic_string<C, T, A> operator+(const basic_string<C, T, A> &left, C right) {
  typedef basic_string<C, T, A> made;
  return made(__zor::string_join(left.data(), left.size(), &right, 1), typename made::adopt());
}
#if __cplusplus >= 201103L
template <class C, class T, class A>
inline basic_string<C, T, A> operator+(basic_string<C, T, A> &&left, const basic_string<C, T, A> &right) {
  return static_cast<basic_string<C, T, A> &&>(left.append(right));
}
template <class C, class T, class A>
inline basic_string<C, T, A> operator+(basic_string<C, T, A> &&left, const C *right) {
  return static_cast<basic_string<C, T, A> &&>(left.append(right));
}
template <class C, class T, class A> inline basic_string<C, T, A> operator+(basic_string<C, T, A> &&left, C right) {
  return static_cast<basic_string<C, T, A> &&>(left += right);
}
#endif

template <class C, class T, class A>
inline bool operator==(const basic_string<C, T, A> &left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return left.size() == right.size() && T::compare(left.data(), right.data(), left.size()) == 0;
}
template <class C, class T, class A>
inline bool operator==(const C *left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return right == left;
}
template <class C, class T, class A>
inline bool operator==(const basic_string<C, T, A> &left, const C *right) PLX_NOTHROW {
  const typename basic_string<C, T, A>::size_type n = T::length(right);
  return left.size() == n && T::compare(left.data(), right, n) == 0;
}

template <class C, class T, class A>
inline bool operator!=(const basic_string<C, T, A> &left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return !(left == right);
}
template <class C, class T, class A>
inline bool operator!=(const C *left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return !(right == left);
}
template <class C, class T, class A>
inline bool operator!=(const basic_string<C, T, A> &left, const C *right) PLX_NOTHROW {
  return !(left == right);
}

template <class C, class T, class A>
inline bool operator<(const basic_string<C, T, A> &left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return left.compare(right) < 0;
}
template <class C, class T, class A>
inline bool operator<(const C *left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return right.compare(left) > 0;
}
template <class C, class T, class A>
inline bool operator<(const basic_string<C, T, A> &left, const C *right) PLX_NOTHROW {
  return left.compare(right) < 0;
}

template <class C, class T, class A>
inline bool operator>(const basic_string<C, T, A> &left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return left.compare(right) > 0;
}
template <class C, class T, class A>
inline bool operator>(const C *left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return right.compare(left) < 0;
}
template <class C, class T, class A>
inline bool operator>(const basic_string<C, T, A> &left, const C *right) PLX_NOTHROW {
  return left.compare(right) > 0;
}

template <class C, class T, class A>
inline bool operator<=(const basic_string<C, T, A> &left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return left.compare(right) <= 0;
}
template <class C, class T, class A>
inline bool operator<=(const C *left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return right.compare(left) >= 0;
}
template <class C, class T, class A>
inline bool operator<=(const basic_string<C, T, A> &left, const C *right) PLX_NOTHROW {
  return left.compare(right) <= 0;
}

template <class C, class T, class A>
inline bool operator>=(const basic_string<C, T, A> &left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return left.compare(right) >= 0;
}
template <class C, class T, class A>
inline bool operator>=(const C *left, const basic_string<C, T, A> &right) PLX_NOTHROW {
  return right.compare(left) <= 0;
}
template <class C, class T, class A>
inline bool operator>=(const basic_string<C, T, A> &left, const C *right) PLX_NOTHROW {
  return left.compare(right) >= 0;
}

template <class C, class T, class A>
inline void swap(basic_string<C, T, A> &left, basic_string<C, T, A> &right) PLX_NOTHROW {
  left.swap(right);
}

__extension__ extern template class PLX_API basic_string<char, char_traits<char>, allocator<char> >;

}  // namespace std

#endif
