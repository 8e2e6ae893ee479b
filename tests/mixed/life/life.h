/* Everything that begins prints +NAME, and -NAME when it ends. */
#ifndef LIFE_H
#define LIFE_H

#ifdef __cplusplus
extern "C" {
#endif
void began(const char *name);
void ended(const char *name);
void c_registers(void);
#ifdef __cplusplus
}
#include <iostream>

struct watched {
  const char *name;
  explicit watched(const char *n) : name(n) { began(name); }
  ~watched() { ended(name); }
};
template <class T> struct with_static {
  static watched object;
};
template <class T> watched with_static<T>::object("template");
inline void inline_static() { static watched object("inline"); }
void touch_other();
void touch_busy();
#endif
#endif
