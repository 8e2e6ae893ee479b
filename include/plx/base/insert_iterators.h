// Output iterators that insert into a container (1998, 24.4.2).
#ifndef PLX_INSERT_ITERATORS_H
#define PLX_INSERT_ITERATORS_H

#include <plx/base/iterator_base.h>
#include <plx/base/type_properties.h>

namespace std {

template <class _Container> class back_insert_iterator : public iterator<output_iterator_tag, void, void, void, void> {
public:
  typedef _Container container_type;

  explicit back_insert_iterator(_Container &_target) : container(__zor::_address_of(_target)) {}
  back_insert_iterator &operator=(typename _Container::const_reference _value) {
    container->push_back(_value);
    return *this;
  }
  back_insert_iterator &operator*() { return *this; }
  back_insert_iterator &operator++() { return *this; }
  back_insert_iterator operator++(int) { return *this; }

protected:
  _Container *container;
};

template <class _Container> inline back_insert_iterator<_Container> back_inserter(_Container &_target) {
  return back_insert_iterator<_Container>(_target);
}

template <class _Container> class front_insert_iterator : public iterator<output_iterator_tag, void, void, void, void> {
public:
  typedef _Container container_type;

  explicit front_insert_iterator(_Container &_target) : container(__zor::_address_of(_target)) {}
  front_insert_iterator &operator=(typename _Container::const_reference _value) {
    container->push_front(_value);
    return *this;
  }
  front_insert_iterator &operator*() { return *this; }
  front_insert_iterator &operator++() { return *this; }
  front_insert_iterator operator++(int) { return *this; }

protected:
  _Container *container;
};

template <class _Container> inline front_insert_iterator<_Container> front_inserter(_Container &_target) {
  return front_insert_iterator<_Container>(_target);
}

// Inserts before a place, each element after the one before.
template <class _Container> class insert_iterator : public iterator<output_iterator_tag, void, void, void, void> {
public:
  typedef _Container container_type;

  insert_iterator(_Container &_target, typename _Container::iterator _place)
      : container(__zor::_address_of(_target)), iter(_place) {}
  insert_iterator &operator=(typename _Container::const_reference _value) {
    iter = container->insert(iter, _value);
    ++iter;
    return *this;
  }
  insert_iterator &operator*() { return *this; }
  insert_iterator &operator++() { return *this; }
  insert_iterator &operator++(int) { return *this; }

protected:
  _Container *container;
  typename _Container::iterator iter;
};

template <class _Container, class _Iterator>
inline insert_iterator<_Container> inserter(_Container &_target, _Iterator _place) {
  return insert_iterator<_Container>(_target, typename _Container::iterator(_place));
}

}  // namespace std

#endif
