// The memory of plans: a hash table by return address that grows with the program, up to a bound. Beyond it the oldest
// plan makes room for each new one, so that a program with more throwing calls than that pays for some of them again
// and not for all. A plan stays where it is when the table grows: other plans point to it.
//
// Nothing here needs memory to be right: without it a plan is made for the moment.

#include "plan.h"

#include <stdlib.h>

#include <new>

#include <plx/base/config.h>

namespace __zor {
namespace {

const unsigned first_plans = 32;
const unsigned chunk_plans = 256;
const unsigned first_rules = 4;
const unsigned most_plans = first_plans + 128 * chunk_plans;  // 2.5 MB

// Small, and side by side: the first throw touches few pages, and not the heap.
a_plan *initial_index[4 * first_plans];
a_plan initial_plans[first_plans];
a_frame_rules initial_rules[first_rules];
unsigned known_initial_rules;

a_plan *chunks[(most_plans - first_plans) / chunk_plans];

a_plan **index_ = initial_index;
unsigned index_mask = 4 * first_plans - 1;
unsigned known_plans;  // in use, from the first on
unsigned oldest_plan;  // the next to give way, once all are in use

a_plan momentary_plan;
a_frame_rules momentary_rules;

a_plan *plan_number(unsigned number) {
  if (number < first_plans) return &initial_plans[number];
  number -= first_plans;
  return &chunks[number / chunk_plans][number % chunk_plans];
}

// Return addresses differ in all bits; the product's upper ones depend on each.
unsigned slot_of(unsigned address) { return (address * 2654435769u) >> 8 & index_mask; }

void enter(a_plan *plan) {
  unsigned slot = slot_of(plan->address);
  while (index_[slot]) slot = (slot + 1) & index_mask;
  index_[slot] = plan;
}

void leave(a_plan *plan) {
  unsigned slot = slot_of(plan->address);
  while (index_[slot] != plan) slot = (slot + 1) & index_mask;
  // What comes behind may have been pushed there by this one.
  for (unsigned next = slot;;) {
    next = (next + 1) & index_mask;
    a_plan *moved = index_[next];
    if (!moved) break;
    const unsigned home = slot_of(moved->address);
    if (((next - home) & index_mask) < ((next - slot) & index_mask)) continue;
    index_[slot] = moved;
    slot = next;
  }
  index_[slot] = nullptr;
}

void grow_index() {
  const unsigned slots = 2 * (index_mask + 1);
  auto **wider = static_cast<a_plan **>(calloc(slots, sizeof(a_plan *)));
  if (!wider) return;
  if (index_ != initial_index) free(index_);
  index_ = wider;
  index_mask = slots - 1;
  for (unsigned i = 0; i < known_plans; ++i) enter(plan_number(i));
}

// A copy that stays, or null.
a_frame_rules *keep_rules() {
  void *place =
      known_initial_rules < first_rules ? &initial_rules[known_initial_rules++] : malloc(sizeof(a_frame_rules));
  return place ? new (place) a_frame_rules(momentary_rules) : nullptr;
}

void drop_rules(a_frame_rules *rules) {
  if (rules < initial_rules || rules >= initial_rules + first_rules) free(rules);
}

// A plan to fill that is not in the index, or null.
a_plan *take_plan() {
  if (known_plans < most_plans) {
    if (known_plans >= first_plans) {
      a_plan *&chunk = chunks[(known_plans - first_plans) / chunk_plans];
      if (!chunk) chunk = static_cast<a_plan *>(calloc(chunk_plans, sizeof(a_plan)));
      if (!chunk) return nullptr;
    }
    if (2 * (known_plans + 1) > index_mask) grow_index();
    // A table that could not grow still needs an end to every search.
    if (known_plans + 1 >= index_mask) return nullptr;
    return plan_number(known_plans++);
  }
  a_plan *plan = plan_number(oldest_plan);
  oldest_plan = (oldest_plan + 1) % most_plans;
  leave(plan);
  drop_rules(plan->rules);
  return plan;
}

PLX_NOINLINE a_plan *new_plan(unsigned address) {
  const bool may_stay = make_plan(address, false, momentary_plan, momentary_rules);
  momentary_plan.address = address;
  momentary_plan.caller = &momentary_plan;
  if (!may_stay) return &momentary_plan;
  a_frame_rules *rules = nullptr;
  if (momentary_plan.rules) {
    rules = keep_rules();
    if (!rules) return &momentary_plan;
  }
  a_plan *plan = take_plan();
  if (!plan) {
    drop_rules(rules);
    return &momentary_plan;
  }
  *plan = momentary_plan;
  plan->caller = plan;
  plan->rules = rules;
  enter(plan);
  return plan;
}

}  // namespace

a_plan *find_plan(unsigned address) {
  for (unsigned slot = slot_of(address); a_plan *plan = index_[slot]; slot = (slot + 1) & index_mask)
    if (plan->address == address) return plan;
  return new_plan(address);
}

a_plan *find_plan_of_interrupted(unsigned address) {
  make_plan(address, true, momentary_plan, momentary_rules);
  momentary_plan.address = 1;  // no return address, and not the 0 that ends a stack
  momentary_plan.caller = &momentary_plan;
  return &momentary_plan;
}

bool is_remembered(const a_plan *plan) { return plan != &momentary_plan; }

void forget_plans() {
  for (unsigned i = 0; i < known_plans; ++i) {
    a_plan *plan = plan_number(i);
    drop_rules(plan->rules);
    plan->rules = nullptr;
    plan->address = 0;
  }
  known_plans = oldest_plan = known_initial_rules = 0;
  for (unsigned slot = 0; slot <= index_mask; ++slot) index_[slot] = nullptr;
}

}  // namespace __zor
