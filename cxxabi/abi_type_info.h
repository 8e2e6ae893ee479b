// The type records that a C++ compiler emits (C++ ABI, 2.9.5), with what catching and casting ask of them. The names
// and fields are the ABI's; the virtual operations after the destructor are ours.
#pragma once

#include <typeinfo>

namespace __cxxabiv1 {

class __class_type_info;
class __pbase_type_info;

class PLX_API abi_type_info : public std::type_info {
public:
  using std::type_info::type_info;
  ~abi_type_info() override;
  virtual const __class_type_info *as_class() const;
  virtual const __pbase_type_info *as_any_pointer() const;  // also pointers to members
  virtual bool is_function() const;

  // The type's encoded name, as the C++ ABI writes it. A star before it is g++'s mark of a type that no other file
  // knows.
  const char *encoded_name() const { return _name_ + (*_name_ == '*'); }
  // Two characters, a class's length and first letter, tell most names apart without a call. A
  // marked type is not the same for having the same text.
  bool has_same_name(const abi_type_info *other) const {
    return _name_ == other->_name_ ||
           (_name_[0] == other->_name_[0] && _name_[1] == other->_name_[1] && _name_[0] != '*' && is_same_text(other));
  }

private:
  bool is_same_text(const abi_type_info *other) const;
};

class PLX_API __fundamental_type_info : public abi_type_info {
public:
  ~__fundamental_type_info() override;
};

class PLX_API __array_type_info : public abi_type_info {
public:
  ~__array_type_info() override;
};

class PLX_API __function_type_info : public abi_type_info {
public:
  ~__function_type_info() override;
  bool is_function() const override;
};

class PLX_API __enum_type_info : public abi_type_info {
public:
  ~__enum_type_info() override;
};

// A class without bases. base_search.h walks over the bases of the other two.
class PLX_API __class_type_info : public abi_type_info {
public:
  ~__class_type_info() override;
  const __class_type_info *as_class() const override;
};

// A class with one base: public, not virtual, at offset 0.
class PLX_API __si_class_type_info : public __class_type_info {
public:
  ~__si_class_type_info() override;

  const __class_type_info *__base_type;
};

struct __base_class_type_info {
  const __class_type_info *__base_type;
  long __offset_flags;
  enum { __virtual_mask = 1, __public_mask = 2, __offset_shift = 8 };
};

// Any other class.
class PLX_API __vmi_class_type_info : public __class_type_info {
public:
  ~__vmi_class_type_info() override;

  unsigned int __flags;
  enum { __non_diamond_repeat_mask = 1 };  // some class is more than one subobject
  unsigned int __base_count;
  __base_class_type_info __base_info[1];
};

class PLX_API __pbase_type_info : public abi_type_info {
public:
  ~__pbase_type_info() override;
  const __pbase_type_info *as_any_pointer() const override;
  virtual const abi_type_info *member_of() const;  // the class of a pointer to member, else null

  unsigned int __flags;
  const abi_type_info *__pointee;
  enum {
    __const_mask = 0x1,
    __volatile_mask = 0x2,
    __restrict_mask = 0x4,
    __incomplete_mask = 0x8,
    __incomplete_class_mask = 0x10,
    __noexcept_mask = 0x40
  };
};

class PLX_API __pointer_type_info : public __pbase_type_info {
public:
  ~__pointer_type_info() override;
};

class PLX_API __pointer_to_member_type_info : public __pbase_type_info {
public:
  ~__pointer_to_member_type_info() override;
  const abi_type_info *member_of() const override;

  const abi_type_info *__context;
};

}  // namespace __cxxabiv1
