// Output iterators that insert into a container (1998, 24.4.2).
#ifndef PLX_INSERT_ITERATORS_H
#define PLX_INSERT_ITERATORS_H

#include <plx/iterator_base.h>
#include <plx/type_properties.h>

namespace std {

template <class Container> class back_insert_iterator : public iterator<output_iterator_tag, void, void, void, void> {
public:
  typedef Container container_type;

  explicit back_insert_iterator(Container &target) : container(__zor::address_of(target)) {}
  back_insert_iterator &operator=(typename Container::const_reference value) {
    container->push_back(value);
    return *this;
  }
  back_insert_iterator &operator*() { return *this; }
  back_insert_iterator &operator++() { return *this; }
  back_insert_iterator operator++(int) { return *this; }

protected:
  Container *container;
};

template <class Container> inline back_insert_iterator<Container> back_inserter(Container &target) {
  return back_insert_iterator<Container>(target);
}

template <class Container> class front_insert_iterator : public iterator<output_iterator_tag, void, void, void, void> {
public:
  typedef Container container_type;

  explicit front_insert_iterator(Container &target) : container(__zor::address_of(target)) {}
  front_insert_iterator &operator=(typename Container::const_reference value) {
    container->push_front(value);
    return *this;
  }
  front_insert_iterator &operator*() { return *this; }
  front_insert_iterator &operator++() { return *this; }
  front_insert_iterator operator++(int) { return *this; }

protected:
  Container *container;
};

template <class Container> inline front_insert_iterator<Container> front_inserter(Container &target) {
  return front_insert_iterator<Container>(target);
}

// Inserts before a place, each element after the one before.
template <class Container> class insert_iterator : public iterator<output_iterator_tag, void, void, void, void> {
public:
  typedef Container container_type;

  insert_iterator(Container &target, typename Container::iterator place)
      : container(__zor::address_of(target)), iter(place) {}
  insert_iterator &operator=(typename Container::const_reference value) {
    iter = container->insert(iter, value);
    ++iter;
    return *this;
  }
  insert_iterator &operator*() { return *this; }
  insert_iterator &operator++() { return *this; }
  insert_iterator &operator++(int) { return *this; }

protected:
  Container *container;
  typename Container::iterator iter;
};

template <class Container, class Iterator>
inline insert_iterator<Container> inserter(Container &target, Iterator place) {
  return insert_iterator<Container>(target, typename Container::iterator(place));
}

}  // namespace std

#endif
