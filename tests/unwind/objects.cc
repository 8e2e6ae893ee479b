// Loads and unloads the objects that are named: objects MODE FILE...; prints what crosses their borders.
#include <dlfcn.h>
#include <malloc.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#define NUMBER 50
#include "objects.h"

#ifdef LINKED
extern "C" const services plugin;
#endif

static void *open(const char *file, int mode) {
  void *const handle = dlopen(file, RTLD_NOW | mode);
  if (!handle) std::printf("%s\n", dlerror()), std::exit(1);
  return handle;
}

static void cross(const services *to) {
  for (int kind = 0; kind < 8; ++kind) {
    int results[3] = {0, 0, 0};
    try { results[0] = catch_one(to->throw_one, kind); } catch (...) { results[0] = 1; }
    try { results[1] = to->catch_one(throw_one, kind); } catch (...) { results[1] = 1; }
    // There and back, with a frame of each on the way.
    try { results[2] = to->catch_one(to->throw_one, kind); } catch (...) { results[2] = 1; }
    std::printf("%d:%d,%d,%d ", kind, results[0], results[1], results[2]);
  }
  shared_base *const made = to->make();
  std::printf("cast %d types %d%d\n", dynamic_cast<both *>(made) ? dynamic_cast<side *>(made) != 0 : -1,
              to->is_type(typeid(wrapped<shared_error>), false), to->is_type(typeid(internal), true));
  delete made;
}

typedef void (*passer)(thrower, int);

int main(int, char **argv) {
  const int mode = argv[1][0] == 'g' ? RTLD_GLOBAL : RTLD_LOCAL;
  std::setvbuf(stdout, 0, _IONBF, 0);
#ifdef LINKED
  cross(&plugin);
#endif
  // One after the other, where the one before was; then all at once.
  void *handles[10];
  void *last = 0;
  int again = 0;
  for (int round = 0; round < 2; ++round) {
    for (char **file = argv + 2; *file; ++file) {
      void *const handle = open(*file, mode);
      if (const services *to = static_cast<const services *>(dlsym(handle, "plugin"))) {
        cross(to);
      } else {
        // C that tells nobody of its end: frames of different layout at the same addresses.
        const passer pass = reinterpret_cast<passer>(dlsym(handle, "pass"));
        for (int kind = 4; kind < 6; ++kind) {
          try { pass(throw_one, kind); } catch (wrapped<internal> &) { std::printf("passed "); } catch (...) { std::printf("left "); }
        }
      }
      void *const address = dlsym(handle, dlsym(handle, "plugin") ? "plugin" : "pass");
      again += address == last;
      last = address;
      dlclose(handle);
      std::printf("closed\n");
    }
  }
  if (again == 0) std::printf("none was loaded where another was\n");
  int count = 0;
  for (char **file = argv + 2; *file; ++file) handles[count++] = open(*file, mode);
  for (int i = 0; i < count; ++i)
    if (const services *to = static_cast<const services *>(dlsym(handles[i], "plugin")))
      for (int k = 0; k < count; ++k)
        if (const services *from = static_cast<const services *>(dlsym(handles[k], "plugin")))
          for (int kind = 0; kind < 8; ++kind) {
            try { std::printf("%d ", to->catch_one(from->throw_one, kind)); } catch (...) { std::printf("left "); }
          }
  std::printf("\n");
  dlclose(handles[0]);
  std::printf("closed\n");

  // Thousands of times, without a trace.
  if (FILE *const nowhere = std::freopen("/dev/null", "w", stdout)) std::setvbuf(nowhere, 0, _IONBF, 0);
  int before = 0;
  for (int i = 0; i < 2000; ++i) {
    void *const handle = open(argv[2], mode);
    static_cast<const services *>(dlsym(handle, "plugin"))->catch_one(throw_one, i % 2 * 3);
    delete static_cast<const services *>(dlsym(handle, "plugin"))->make();
    dlclose(handle);
    if (i == 100) before = mallinfo().uordblks;
  }
  if (mallinfo().uordblks > before + 1000) std::fprintf(stderr, "grew by %d\n", mallinfo().uordblks - before), std::exit(2);
  return 0;
}
