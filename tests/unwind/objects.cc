// Loads and unloads the objects that are named: objects MODE FILE...; prints what crosses their borders.
#include <dlfcn.h>
#include <malloc.h>
#include <cstdlib>

#define NUMBER 50
#include "objects.h"

#ifdef LINKED
extern "C" const services plugin;
#endif

static int mode;
static void *open(const char *file) {
  void *const handle = dlopen(file, RTLD_NOW | mode);
  if (!handle) std::printf("%s\n", dlerror()), std::exit(1);
  return handle;
}
static const services *services_of(void *handle) { return static_cast<const services *>(dlsym(handle, "plugin")); }

static void cross(const services *to) {
  for (int kind = 0; kind < kinds; ++kind)
    std::printf("%d:%d,%d,%d ", kind, catch_one(to->throw_one, kind), to->catch_one(throw_one, kind),
                to->catch_one(to->throw_one, kind));
  shared_base *const made = to->make();
  std::printf("cast %d types %d%d\n", dynamic_cast<both *>(made) ? dynamic_cast<side *>(made) != 0 : -1,
              to->is_type(typeid(wrapped<shared_error>), false), to->is_type(hidden_type(), true));
  delete made;
}

// C that tells nobody of its end: frames of different layout at the same addresses.
static void (*pass)(thrower, int);
static void pass_on(int kind) { pass(throw_one, kind); }

int main(int, char **argv) {
  mode = argv[1][0] == 'g' ? RTLD_GLOBAL : RTLD_LOCAL;
  std::setvbuf(stdout, 0, _IONBF, 0);
#ifdef LINKED
  cross(&plugin);
#endif
  // One after the other, where the one before was; then all at once.
  void *handles[10], *last = 0;
  int again = 0;
  for (int round = 0; round < 2; ++round)
    for (char **file = argv + 2; *file; ++file) {
      void *const handle = open(*file);
      *(void **)&pass = dlsym(handle, "pass");
      if (services_of(handle))
        cross(services_of(handle));
      else
        std::printf("%d %d ", catch_one(pass_on, 4), catch_one(pass_on, 5));
      void *const address = dlsym(handle, pass ? "pass" : "plugin");
      again += address == last;
      last = address;
      dlclose(handle);
      std::printf("closed\n");
    }
  if (again == 0) std::printf("none was loaded where another was\n");
  int count = 0;
  for (char **file = argv + 2; *file; ++file) handles[count++] = open(*file);
  for (int i = 0; i < count; ++i)
    for (int k = 0; k < count; ++k) {
      const services *const to = services_of(handles[i]), *const from = services_of(handles[k]);
      for (int kind = 0; kind < kinds && to && from; ++kind) std::printf("%d ", to->catch_one(from->throw_one, kind));
    }
  dlclose(handles[0]);
  std::printf("closed\n");

  // Thousands of times, without a trace.
  if (FILE *const nowhere = std::freopen("/dev/null", "w", stdout)) std::setvbuf(nowhere, 0, _IONBF, 0);
  int before = 0;
  for (int i = 0; i < 2000; ++i) {
    void *const handle = open(argv[2]);
    services_of(handle)->catch_one(throw_one, i % 2 * 3);
    delete services_of(handle)->make();
    dlclose(handle);
    if (i == 100) before = mallinfo().uordblks;
  }
  if (mallinfo().uordblks > before + 1000)
    std::fprintf(stderr, "grew by %d\n", mallinfo().uordblks - before), std::exit(2);
  return 0;
}
