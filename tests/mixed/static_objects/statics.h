/* The static objects of three C++ files and one C file tell of their construction and destruction here.
 */
#ifndef STATICS_H
#define STATICS_H

#ifdef __cplusplus
extern "C" {
#endif
void built(const char *name);
void gone(const char *name);
void c_records_one(void);
void c_records_function(void);
void c_registers_atexit(void);
#ifdef __cplusplus
}

struct watched {
  const char *name;
  explicit watched(const char *n) : name(n) { built(n); }
  ~watched() { gone(name); }
};
void touch_one();
void touch_two();
void touch_two_later();

template <class T> struct with_static {
  static watched object;
};
template <class T> watched with_static<T>::object("template");

inline watched &inline_static() {
  static watched object("inline");
  return object;
}
#endif

#endif
