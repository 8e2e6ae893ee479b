/* The classes and functions that both halves of the test know, each in its own language.
 */
#ifndef WORLDS_H
#define WORLDS_H

#ifdef __cplusplus
extern "C" {
#endif
void note(const char *format, ...);
int check(int condition, const char *file, int line, const char *text);
#define WORLDS_CHECK(condition) check((condition) ? 1 : 0, __FILE__, __LINE__, #condition)

/* Thrown by C. The C++ half has the same classes:
 *
 *   struct first { int one; };  struct second { int two; };  struct joined : first, second { int three; };
 *   struct secret : private first {};   struct shared { int tag; };
 */
void c_throws(int what);

/* C functions that call back into C++ with things to destroy in between. */
typedef void (*callback)(int);
void c_with_objects(callback next, int argument);
void c_with_array(callback next, int argument);
void c_new_expression(int fail_at);
void c_construct_cpp_array(int fail_at);

/* C catches what `next` throws and tells what it saw. */
void c_catches(callback next, int argument);
void c_catches_only_pointers(callback next, int argument);
void c_handler_throws_anew(callback first, callback second);
void c_handler_calls(callback first, callback in_handler);

/* C++ that C calls. */
void cpp_construct(void *place, int number);
void cpp_destroy(void *place, int flags);
void cpp_element_construct(void *element, int, int, int, int, int, int, int, int);
#ifdef __cplusplus
}
#endif

#endif
