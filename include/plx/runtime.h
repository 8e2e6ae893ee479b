/* The contract between plx and generated C: every record, flag, kind number, entry point and global that code
 * emitted by a compiler reads, writes or calls. Valid C89 and C++98; 32-bit x86 Linux on glibc only.
 *
 * The steps that use these records are told in docs/protocol.md. Where no other source is named, an entry here is
 * plx's own contract. All entry points have C linkage. Nothing is thread-aware: all state is process-wide.
 *
 * Names with two leading underscores are the contract's and stay as they are.
 */
#ifndef PLX_RUNTIME_H
#define PLX_RUNTIME_H

#include <setjmp.h>
#include <stddef.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#pragma GCC visibility push(default)
#define PLX_NORETURN __attribute__((__noreturn__))
#else
#define PLX_NORETURN
#endif

/* Fails to compile when `condition` is false; usable at file scope in C89 and C++98. */
#define PLX_LAYOUT_ASSERT(name, condition) typedef char plx_layout_assert_##name[(condition) ? 1 : -1]

/* ------------------------------------------------------------------------------------------------------------
 * Routines that generated code hands to the runtime
 * ------------------------------------------------------------------------------------------------------------ */

/* A destructor. `flags` is 2 for a complete object and 0 for a subobject. */
typedef void (*a_destructor)(void *object, int flags);

/* A constructor without arguments of its own; the eight that follow the element are always zero. */
typedef void (*a_constructor)(void *element, int, int, int, int, int, int, int, int);

/* A copy constructor. */
typedef void (*a_copy_constructor)(void *element, const void *source);

/* A routine whose parameters the place of its use decides. */
typedef void (*a_routine)(void);

/* ------------------------------------------------------------------------------------------------------------
 * Type descriptors
 * ------------------------------------------------------------------------------------------------------------ */

typedef struct a_type_info_impl a_type_info_impl;

/* Flags of a base-class list element. Bits not named here are not examined. */
#define PLX_BASE_VIRTUAL 0x01   /* `offset` locates a pointer to the base subobject */
#define PLX_BASE_LAST 0x02      /* this element ends the list */
#define PLX_BASE_PUBLIC 0x04    /* the base is accessible for conversion */
#define PLX_BASE_AMBIGUOUS 0x08 /* neither a conversion target nor a path to one */

/* One direct base of a class; elements are consecutive, in declaration order. */
typedef struct a_base_class_spec {
  const a_type_info_impl *base; /* the base class's descriptor */
  short offset;                 /* bytes from the derived object to the base, or to the pointer to a virtual base */
  unsigned char flags;          /* PLX_BASE_... */
} a_base_class_spec;

/* A type descriptor. It is a std::type_info, so typeid may hand it out as it is. Emit it constant.
 *
 * Two descriptors denote the same type when they are the same object, or when their identities are equal and not
 * null. Two different descriptors without identity are different types. */
struct a_type_info_impl {
  const void *virtual_table;      /* PLX_TYPE_INFO_VTABLE */
  const char *name;               /* the qualified name as written in source, such as "std::length_error" */
  const char *identity;           /* address of the type's one identity object, or null for a type without one */
  const a_base_class_spec *bases; /* the direct bases, or null for a type without bases */
};

/* The first slot of the virtual table of a class that generated code defines. */
typedef struct a_virtual_table_slot {
  short offset; /* address of the subobject that uses this table, minus the start of the complete object */
  short unused;
  const a_type_info_impl *type; /* the complete object's descriptor */
} a_virtual_table_slot;

PLX_LAYOUT_ASSERT(base_size, sizeof(a_base_class_spec) == 8);
PLX_LAYOUT_ASSERT(base_offset, offsetof(a_base_class_spec, offset) == 4);
PLX_LAYOUT_ASSERT(base_flags, offsetof(a_base_class_spec, flags) == 6);
PLX_LAYOUT_ASSERT(type_size, sizeof(a_type_info_impl) == 16);
PLX_LAYOUT_ASSERT(type_name, offsetof(a_type_info_impl, name) == 4);
PLX_LAYOUT_ASSERT(type_identity, offsetof(a_type_info_impl, identity) == 8);
PLX_LAYOUT_ASSERT(type_bases, offsetof(a_type_info_impl, bases) == 12);
PLX_LAYOUT_ASSERT(slot_type, offsetof(a_virtual_table_slot, type) == 4);

/* The virtual table of std::type_info; its name is the C++ ABI's. Its address plus two words is what the first
 * field of every descriptor holds. */
extern const void *const _ZTVSt9type_info[];
#define PLX_TYPE_INFO_VTABLE ((const void *)(_ZTVSt9type_info + 2))

/* ------------------------------------------------------------------------------------------------------------
 * Records of the exception protocol
 * ------------------------------------------------------------------------------------------------------------ */

typedef struct an_eh_stack_entry an_eh_stack_entry;
typedef struct a_throw_stack_entry a_throw_stack_entry;

/* Flags of a specification element; the first three are also those of a throw. */
#define PLX_TYPE_POINTER 0x01  /* a pointer to the named type */
#define PLX_TYPE_CONST 0x02    /* the pointed-to type is const */
#define PLX_TYPE_VOLATILE 0x04 /* the pointed-to type is volatile; these two bits are compared as a pair */
#define PLX_TYPE_ELLIPSIS 0x10 /* catch (...): every exception matches */
#define PLX_TYPE_LAST 0x20     /* this element ends the list */

/* One catch clause of a try block, or one type of an exception specification. Lists are contiguous arrays. */
typedef struct an_exception_type_specification {
  const a_type_info_impl *type; /* the named type, for a pointer the pointed-to type; unused with ELLIPSIS */
  unsigned char flags;          /* PLX_TYPE_... */
} an_exception_type_specification;

/* Flags of a region record. */
#define PLX_REGION_INDIRECT 0x01    /* the slot holds the address of a pointer to the object */
#define PLX_REGION_CONDITIONAL 0x02 /* the object exists only if a 32-bit flag variable is not zero, see below */
#define PLX_REGION_DEALLOCATE 0x04  /* the routine frees the memory of an unfinished new-expression */
#define PLX_REGION_ARRAY 0x08       /* `object_index` selects an array record */
#define PLX_REGION_SUBOBJECT 0x40   /* the destructor's second argument is 0, not 2 */
#define PLX_REGION_CLEAR 0x80       /* store a null word at the address, call nothing */

/* The region number that ends every chain and says that nothing needs destruction. */
#define PLX_NO_REGION 0xFFFF

/* One object of a function that needs destruction. Its index in the region table is its region number.
 *
 * A CONDITIONAL record is followed by a carrier record, whose object_index names the slot of the object-address
 * array that holds the flag variable's address. */
typedef struct a_region_record {
  a_routine routine;           /* a_destructor, or the deallocation function */
  unsigned short object_index; /* slot of the object-address array, or with ARRAY of the array table */
  unsigned short next_region;  /* the region to go on with */
  unsigned char flags;         /* PLX_REGION_... */
} a_region_record;

/* An array among a function's objects. */
typedef struct an_array_record {
  unsigned short object_index; /* slot of the object-address array */
  unsigned int size;           /* the element size in bytes, or what a sized deallocation takes */
  unsigned int count;          /* elements */
} an_array_record;

/* An array under construction or destruction; a kind-4 entry points to it. Written by the array helpers only. */
typedef struct an_array_alloc_eh_info {
  void *array;           /* the first element */
  unsigned int count;    /* elements */
  unsigned int size;     /* bytes of one element */
  unsigned int progress; /* elements constructed, or destructor calls started */
  int is_construction;   /* 1 construction, 0 destruction */
  int free_memory;       /* not zero: an exception frees the memory */
  a_destructor destructor;
  a_routine deallocation; /* void (*)(void *), or with the next field void (*)(void *, size_t); null: delete[] */
  int sized_deallocation;
} an_array_alloc_eh_info;

/* Kinds of an eh stack entry. */
#define PLX_EH_TRY_BLOCK 0
#define PLX_EH_FUNCTION 1
#define PLX_EH_SPECIFICATION 2
#define PLX_EH_IN_PROGRESS 3
#define PLX_EH_ARRAY 4

/* An entry of the eh stack. Generated code builds it in its own frame and may leave off what its kind does not use. */
struct an_eh_stack_entry {
  an_eh_stack_entry *next; /* the next outer entry, null at the bottom */
  unsigned char kind;      /* PLX_EH_... */
  union {
    struct {
      jmp_buf jump_buffer; /* filled by _setjmp; setjmp does as well, but notes more than a try block needs */
      const an_exception_type_specification *clause_list; /* the catch clauses */
      a_throw_stack_entry *handled_exception;             /* null while the body runs; the runtime sets it */
      unsigned short try_region;                          /* __eh_curr_region at the try */
    } try_block;
    struct {
      const a_region_record *region_table;
      void **object_addresses;
      const an_array_record *array_table;
      unsigned short saved_region; /* __eh_curr_region at entry */
    } function;
    struct {
      const an_exception_type_specification *allowed_list; /* null: throw () */
    } specification;
    struct {
      an_array_alloc_eh_info *info;
    } array;
  } body;
};

/* One throw. Only the runtime writes it; it is here for debuggers and for tests. */
struct a_throw_stack_entry {
  a_throw_stack_entry *next;        /* the previously pushed entry */
  const a_type_info_impl *type;     /* the thrown type, for a pointer the pointed-to type */
  a_destructor destructor;          /* null for a type without destructor */
  unsigned char flags;              /* PLX_TYPE_POINTER, _CONST, _VOLATILE */
  char *qualifier_string;           /* handed to the derived-to-base conversion */
  void *object;                     /* storage of the thrown object */
  void *pointer_slot;               /* the adjusted value of a thrown pointer that was caught */
  an_eh_stack_entry *catch_context; /* innermost idle try block when the entry was pushed */
  a_throw_stack_entry *source;      /* of a rethrow: the entry whose object is thrown again */
  int reference_count;              /* entries that still refer to the object */
  unsigned char is_rethrow;
  unsigned char released;  /* this entry has given up its reference */
  unsigned char destroyed; /* the destructor has run, or is not to run */
  unsigned char handled;   /* a handler, std::unexpected or termination was chosen */
  unsigned char started;   /* the marker was pushed */
  unsigned char thrown;    /* __throw was entered: the object is complete */
  unsigned char access_value;
  an_eh_stack_entry marker; /* kind 3; its body belongs to the runtime */
};

PLX_LAYOUT_ASSERT(specification_size, sizeof(an_exception_type_specification) == 8);
PLX_LAYOUT_ASSERT(region_size, sizeof(a_region_record) == 12);
PLX_LAYOUT_ASSERT(region_object_index, offsetof(a_region_record, object_index) == 4);
PLX_LAYOUT_ASSERT(region_next_region, offsetof(a_region_record, next_region) == 6);
PLX_LAYOUT_ASSERT(region_flags, offsetof(a_region_record, flags) == 8);
PLX_LAYOUT_ASSERT(array_record_size, sizeof(an_array_record) == 12);
PLX_LAYOUT_ASSERT(array_info_size, sizeof(an_array_alloc_eh_info) == 36);
PLX_LAYOUT_ASSERT(entry_kind, offsetof(an_eh_stack_entry, kind) == 4);
PLX_LAYOUT_ASSERT(entry_body, offsetof(an_eh_stack_entry, body) == 8);
PLX_LAYOUT_ASSERT(entry_size, sizeof(an_eh_stack_entry) == 20 + sizeof(jmp_buf));
PLX_LAYOUT_ASSERT(entry_saved_region, offsetof(an_eh_stack_entry, body.function.saved_region) == 20);
PLX_LAYOUT_ASSERT(throw_object, offsetof(a_throw_stack_entry, object) == 20);
PLX_LAYOUT_ASSERT(throw_reference_count, offsetof(a_throw_stack_entry, reference_count) == 36);
PLX_LAYOUT_ASSERT(throw_marker, offsetof(a_throw_stack_entry, marker) == 48);

/* ------------------------------------------------------------------------------------------------------------
 * State that generated code shares with the runtime
 * ------------------------------------------------------------------------------------------------------------ */

extern an_eh_stack_entry *__curr_eh_stack_entry; /* innermost entry, null when there is none */
extern unsigned short __eh_curr_region;          /* current region of the innermost function with a kind-1 entry */
extern int __catch_clause_number;                /* 1-based clause chosen by the last throw */
extern void *__caught_object_address;            /* where the chosen handler reads the object */
extern FILE *__f_debug;                          /* where assertion messages go; initially stderr */
extern void (*__default_terminate_routine)(void);
extern void (*__default_unexpected_routine)(void);
extern int __ZOR_PLX_3_3_eh;                     /* marker of this exception model and version; nobody reads it */
extern const char *__PLX_Library_Version_String; /* the library's name, version and build date, for people */

/* ------------------------------------------------------------------------------------------------------------
 * Throwing and handling
 * ------------------------------------------------------------------------------------------------------------ */

/* Starts a throw: returns storage for an object of `size` bytes, 8-byte aligned, in which the caller constructs it
 * before it calls __throw. `flags` holds PLX_TYPE_POINTER, _CONST, _VOLATILE. Never returns null: when exception
 * memory is exhausted, std::terminate runs. The _dtor form is for a type with a destructor. */
void *__throw_setup(const a_type_info_impl *type, int size, unsigned char flags);
void *__throw_setup_dtor(const a_type_info_impl *type, int size, unsigned char flags, a_destructor destructor);

/* Pushes the in-progress marker of the exception that was set up last. Optional, before its construction: then an
 * exception that escapes the construction terminates. */
void __exception_started(void);

/* Throws the exception that was set up last: finds a handler, unwinds, jumps. Returns (0) only if the runtime itself
 * is broken. */
int __throw(void);

/* throw; in a handler. std::terminate runs when no exception is being handled. */
void __rethrow(void) PLX_NORETURN;

/* __exception_caught, then __rethrow. */
void __internal_rethrow(void) PLX_NORETURN;

/* Called by a handler once its parameter is initialised: pops the marker at the head of the eh stack. Assertion 849
 * when the head is no marker. */
void __exception_caught(void);

/* Called at a handler's end: destroys the current exception and frees what is finished. Assertion 1387 when there
 * is none. */
void __free_thrown_object(void);

/* Empties the eh stack; part of exit. */
void __eh_exit_processing(void);

/* Named by generated code so that variables of a try stay in memory; a call is assertion 1449. */
void __suppress_optim_on_vars_in_try(void) PLX_NORETURN;

/* Calls std::unexpected. */
void __call_unexpected(void) PLX_NORETURN;

/* Marks the process as terminating, then calls std::terminate. */
void __call_terminate(void) PLX_NORETURN;

/* For C, the names of <exception> (1998, 18.6): terminate and unexpected run their handler and do not return, the set_
 * functions return the handler before; null is accepted. uncaught_exception is true while an exception is in flight
 * and for ever once termination began. */
typedef void (*a_handler)(void);
#ifndef __cplusplus
void _ZSt9terminatev(void) PLX_NORETURN;
void _ZSt10unexpectedv(void) PLX_NORETURN;
a_handler _ZSt13set_terminatePFvvE(a_handler handler);
a_handler _ZSt14set_unexpectedPFvvE(a_handler handler);
unsigned char _ZSt18uncaught_exceptionv(void);
#endif

/* ------------------------------------------------------------------------------------------------------------
 * Dynamic memory (1998, 18.4.1; the names are the C++ ABI's)
 * ------------------------------------------------------------------------------------------------------------ */

#ifndef __cplusplus
void *_Znwj(unsigned int bytes);                             /* operator new: throws std::bad_alloc */
void *_Znaj(unsigned int bytes);                             /* operator new[] */
void *_ZnwjRKSt9nothrow_t(unsigned int bytes, const void *); /* nothrow forms: null on failure */
void *_ZnajRKSt9nothrow_t(unsigned int bytes, const void *);
void _ZdlPv(void *block); /* operator delete: null is accepted */
void _ZdaPv(void *block); /* operator delete[] */
a_handler _ZSt15set_new_handlerPFvvE(a_handler handler);
#endif

void __default_new_handler(void) PLX_NORETURN; /* throws std::bad_alloc */

/* Zeroes `n` bytes at `p` and returns `p`. */
void *__memzero(void *p, int n);

/* ------------------------------------------------------------------------------------------------------------
 * Arrays
 *
 * `count` elements of `size` bytes each. All that allocate or are told to write a cookie put 8 bytes before the
 * first element: the total in bytes, and the complement of the count. All forms that construct return the first
 * element, or null when the allocation function returned null. The forms that take a destructor undo what they
 * constructed when a constructor throws, last element first, and free what they allocated.
 * ------------------------------------------------------------------------------------------------------------ */

extern unsigned int __array_new_prefix_size; /* 8 */

/* The bytes before the first element of an array with a cookie. */
typedef struct an_array_cookie {
  unsigned int total;          /* count times size */
  unsigned int inverted_count; /* ~count */
} an_array_cookie;

/* A count that tells the deletion functions to read the cookie; an inconsistent one aborts. */
#define PLX_COUNT_FROM_COOKIE ((unsigned int)-1)

/* Construct in place, or with a null `array` allocate by operator new[] first. */
void *__vec_new(void *array, unsigned int count, unsigned int size, a_constructor constructor);
void *__vec_new_eh(void *array, unsigned int count, unsigned int size, a_constructor constructor,
                   a_destructor destructor);

/* Copy element by element from `source`; a null `constructor` copies nothing. */
void *__vec_cctor(void *array, unsigned int count, unsigned int size, a_copy_constructor constructor,
                  const void *source);
void *__vec_cctor_eh(void *array, unsigned int count, unsigned int size, a_copy_constructor constructor,
                     const void *source, a_destructor destructor);

/* Allocate with the given function, void *(*)(size_t), or with null by operator new[]; construct; on failure free
 * with `deallocation`, whose second parameter, with `sized`, is the bytes of the elements freed plus 8. */
void *__array_new(unsigned int count, unsigned int size, a_constructor constructor, a_destructor destructor,
                  a_routine allocation, a_routine deallocation, int sized);

/* Write the cookie in front of `array`, which the caller owns, and construct. */
void *__placement_array_new(void *array, unsigned int count, unsigned int size, a_constructor constructor,
                            a_destructor destructor);

/* Destroy last to first, then free if asked. A null array does nothing. When a destructor throws, the remaining
 * elements are destroyed, the memory is freed if asked, and the exception goes on. */
void __vec_delete(void *array, unsigned int count, unsigned int size, a_destructor destructor, int free_memory);
void __array_delete(void *array, unsigned int count, unsigned int size, a_destructor destructor, a_routine deallocation,
                    int sized);

/* One call of a routine for the whole array, as void (*)(void *array, unsigned int count). */
void *__zor_fast_vec_new(void *array, unsigned int count, unsigned int size, a_routine initialiser);
void __zor_fast_vec_delete(void *array, unsigned int count, unsigned int size, a_routine finaliser, int free_memory);

/* Destroys and frees what a kind-4 entry stands for; called by __throw. */
void __cleanup_vec_new_or_delete(an_eh_stack_entry *entry);

/* Aborts: a pointer that was deleted as an array is none. */
void _array_pointer_not_from_vec_new(void) PLX_NORETURN;

PLX_LAYOUT_ASSERT(cookie_size, sizeof(an_array_cookie) == 8);

/* ------------------------------------------------------------------------------------------------------------
 * Static objects and exit
 * ------------------------------------------------------------------------------------------------------------ */

typedef struct a_needed_destruction a_needed_destruction;

/* A static object to be destroyed at exit. `next` is zero while the record is not registered. */
struct a_needed_destruction {
  a_needed_destruction *next;
  void *object; /* null: the destructor is called without arguments */
  a_destructor destructor;
};

PLX_LAYOUT_ASSERT(needed_destruction_size, sizeof(a_needed_destruction) == 12);

extern int __dtor_processing_scheduled; /* not zero once __call_dtors was registered with atexit */

void __record_needed_destruction(a_needed_destruction *record); /* aborts on a record that is registered */
int __zor_std_atexit(void (*function)(void));                   /* 0, or -1 when there is no memory */

/* Run and unlink every record, newest first; also what is registered meanwhile. What throws out of a destructor
 * terminates. All three are the same. */
void __process_needed_destructions(void);
void __std__needed_destruction_list(void);
void __call_dtors(void);

/* Runs the records that belong to a shared object about to be unloaded: the record, its object or its destructor
 * lies in [start2, start2 + size2), or its object or destructor lies in [start1, start1 + size1). */
void __process_shared_object_destruction(const void *start1, unsigned int size1, const void *start2,
                                         unsigned int size2);

void __call_ctors(void);                   /* registers __call_dtors with atexit, once */
void _main(void);                          /* first call of main; a second one aborts */
void __pliv_exit(int status) PLX_NORETURN; /* empties the eh stack, runs the records, exits */
#ifndef __cplusplus
void _Z4exiti(int status) PLX_NORETURN; /* the C++ exit(int): __pliv_exit */
#endif
void __pure_virtual_called(void) PLX_NORETURN;            /* aborts */
void __already_marked_for_destruction(void) PLX_NORETURN; /* aborts */
void __main_called_more_than_once(void) PLX_NORETURN;     /* aborts */

/* ------------------------------------------------------------------------------------------------------------
 * Run-time type information
 * ------------------------------------------------------------------------------------------------------------ */

/* typeid of a polymorphic object, by the address of its virtual table; null throws std::bad_typeid. */
const a_type_info_impl *__get_typeid(const a_virtual_table_slot *table);

/* dynamic_cast down from the complete object, by the first slot of the object's virtual table. A null target gives
 * the complete object. Returns null when the target is no accessible, unambiguous base of the dynamic type; the _ref
 * form throws std::bad_cast then.
 *
 * In C++ code the name belongs to the C++ ABI, whose function of that name has other parameters. */
#ifndef __cplusplus
void *__dynamic_cast(void *object, const a_virtual_table_slot *slot, const a_type_info_impl *target);
#endif
void *__dynamic_cast_ref(void *object, const a_virtual_table_slot *slot, const a_type_info_impl *target);

/* Converts from a class to one of its bases. `object` may be null: then only the result counts and *converted stays
 * null. With a `mode` other than 0 a direct base is accessible when the next character of *string is 'Y' (a null
 * string: never), and every base is a path; with 0 the public bit decides. Returns not zero on success. */
int __derived_to_base_conversion(void *object, void **converted, const a_type_info_impl *from,
                                 const a_type_info_impl *to, char **string, int mode);

void __throw_bad_cast(void) PLX_NORETURN;   /* throws std::bad_cast with "Bad Cast Exception" */
void __throw_bad_typeid(void) PLX_NORETURN; /* throws std::bad_typeid */

/* ------------------------------------------------------------------------------------------------------------
 * Types that the library itself names
 *
 * Each type has an identity object, __TID_ and the type's encoded name in the C++ ABI, and a descriptor, __TI_ and
 * the same name. Only the address of an identity object means anything.
 *
 * A class that a C++ compiler emitted has no identity object: its identity is its name object, _ZTS and the encoded
 * name, so generated C that wants to catch or throw such a class names that as the identity.
 * ------------------------------------------------------------------------------------------------------------ */

#define PLX_DECLARE_TYPE(encoded)    \
  extern const char __TID_##encoded; \
  extern const a_type_info_impl __TI_##encoded

PLX_DECLARE_TYPE(v); /* void */
PLX_DECLARE_TYPE(b); /* bool */
PLX_DECLARE_TYPE(c); /* char */
PLX_DECLARE_TYPE(a); /* signed char */
PLX_DECLARE_TYPE(h); /* unsigned char */
PLX_DECLARE_TYPE(w); /* wchar_t */
PLX_DECLARE_TYPE(s); /* short */
PLX_DECLARE_TYPE(t); /* unsigned short */
PLX_DECLARE_TYPE(i); /* int */
PLX_DECLARE_TYPE(j); /* unsigned int */
PLX_DECLARE_TYPE(l); /* long */
PLX_DECLARE_TYPE(m); /* unsigned long */
PLX_DECLARE_TYPE(x); /* long long */
PLX_DECLARE_TYPE(y); /* unsigned long long */
PLX_DECLARE_TYPE(f); /* float */
PLX_DECLARE_TYPE(d); /* double */
PLX_DECLARE_TYPE(e); /* long double */

PLX_DECLARE_TYPE(St9exception);    /* std::exception */
PLX_DECLARE_TYPE(St11logic_error); /* std::logic_error, and so on */
PLX_DECLARE_TYPE(St12domain_error);
PLX_DECLARE_TYPE(St16invalid_argument);
PLX_DECLARE_TYPE(St12length_error);
PLX_DECLARE_TYPE(St12out_of_range);
PLX_DECLARE_TYPE(St13runtime_error);
PLX_DECLARE_TYPE(St11range_error);
PLX_DECLARE_TYPE(St14overflow_error);
PLX_DECLARE_TYPE(St15underflow_error);
PLX_DECLARE_TYPE(St9bad_alloc);
PLX_DECLARE_TYPE(St8bad_cast);
PLX_DECLARE_TYPE(St10bad_typeid);
PLX_DECLARE_TYPE(St13bad_exception);
PLX_DECLARE_TYPE(NSt8ios_base7failureE); /* std::ios_base::failure */

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#ifdef __cplusplus
}
#endif

#endif
