// The objects that the dynamic linker loaded, and whose code may be remembered. An object that can be unloaded, and
// does not tell, would leave plans behind for whatever is loaded at its addresses next; so only two sorts of object are
// remembered: those that the program started with, which stay to its end, and those with the start-up object of C++
// (program/start.cpp), whose end forgets.

#include <dlfcn.h>
#include <link.h>
#include <string.h>

#include "../plan.h"

namespace __zor {
namespace {

const unsigned most_objects = 64;  // loaded later; what is beyond works, unremembered

const link_map *last_of_start;  // of the dynamic linker's list, which grows at its end
void *later_objects[most_objects];
unsigned later_count;

const ElfW(Dyn) * find_dynamic(const ElfW(Dyn) * at, int tag) {
  while (at->d_tag != tag && at->d_tag != DT_NULL) ++at;
  return at->d_tag == tag ? at : nullptr;
}

const char *base_name(const char *path) {
  const char *slash = strrchr(path, '/');
  return slash ? slash + 1 : path;
}

// Whether one object names another among those that it is linked with.
bool needs(const link_map *one, const link_map *other) {
  const ElfW(Dyn) *texts = find_dynamic(one->l_ld, DT_STRTAB);
  for (const ElfW(Dyn) *at = one->l_ld; texts && (at = find_dynamic(at, DT_NEEDED)); ++at) {
    const char *name = reinterpret_cast<const char *>(texts->d_un.d_ptr + at->d_un.d_val);
    if (strcmp(base_name(name), base_name(other->l_name)) == 0) return true;
  }
  return false;
}

void *map_of(const void *address) {
  an_object object;
  return find_object(reinterpret_cast<unsigned>(address), object) ? object.map : nullptr;
}

}  // namespace

bool find_object(unsigned address, an_object &object) {
  dl_find_object found;
  if (_dl_find_object(reinterpret_cast<void *>(address), &found) != 0) return false;
  object.range = {static_cast<const byte *>(found.dlfo_map_start), static_cast<const byte *>(found.dlfo_map_end)};
  object.index = static_cast<const byte *>(found.dlfo_eh_frame);
  object.map = found.dlfo_link_map;
  return true;
}

// The program itself is the first of the list; its own start comes when all that it was linked with is there. Behind
// these there may be what constructors of C have loaded in the meantime: nobody up to there needs the first of them.
void note_object(const void *image) {
  void *map = map_of(image);
  if (map != _r_debug.r_map) {
    if (later_count < most_objects) later_objects[later_count++] = map;
    return;
  }
  const link_map *last = _r_debug.r_map;
  for (const link_map *at = last->l_next; at; at = at->l_next) {
    const link_map *user = _r_debug.r_map;
    while (user != last->l_next && !needs(user, at)) user = user->l_next;
    if (user != last->l_next) last = at;
  }
  last_of_start = last;
}

void forget_object(const void *image) {
  void *map = map_of(image);
  for (unsigned i = 0; i < later_count; ++i)
    if (later_objects[i] == map) later_objects[i--] = later_objects[--later_count];
  forget_plans();
}

bool may_remember(void *map) {
  for (const link_map *at = _r_debug.r_map; at && last_of_start; at = at->l_next) {
    if (at == map) return true;
    if (at == last_of_start) break;
  }
  for (unsigned i = 0; i < later_count; ++i)
    if (later_objects[i] == map) return true;
  return false;
}

}  // namespace __zor
