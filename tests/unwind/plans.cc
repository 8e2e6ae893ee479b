// The memory of plans (unwind/plans.cpp) against a map, with more addresses than it keeps: what it answers is the plan
// of the address that was asked for, also after plans gave way, and what it keeps it does not make again at once.
#include "unwind/plans.cpp"

#include <stdio.h>

#include "tests/random.h"

namespace __zor {
static unsigned made;
bool make_plan(unsigned address, bool interrupted, a_plan &plan, a_frame_rules &rules) {
  ++made;
  plan = {};
  plan.rules = address % 7 ? nullptr : &rules;
  rules.arguments_size = address;
  plan.landing_pad = address * 3 + interrupted;
  return address % 64 != 5;  // some may not stay
}
}  // namespace __zor
using namespace __zor;

int main() {
  unsigned wrong = 0;
  for (int round = 0; round < 3; ++round) {
    const unsigned sizes[] = {100, 5000, 33000, 120000};
    for (unsigned size : sizes) {
      for (unsigned i = 0; i < 3 * size; ++i) {
        const unsigned address = 0x8000000 + random_below(size) * (round ? 4096 : 5);
        const unsigned before = made;
        const a_plan *plan = find_plan(address);
        wrong += plan->address != address || plan->landing_pad != address * 3;
        wrong += plan->rules ? plan->rules->arguments_size != address : address % 7 == 0;
        wrong += is_remembered(plan) != (address % 64 != 5);
        const unsigned first = made;
        wrong += find_plan(address)->landing_pad != address * 3 || (made != first) != (address % 64 == 5) ||
                 first > before + 1;
      }
    }
    // A round over fewer than it keeps: each is made at most once.
    forget_plans();
    made = 0;
    for (unsigned i = 0; i < 60000; ++i) find_plan(0x9000000 + i % 30000 * 64);
    wrong += made != 30000;
    find_plan_of_interrupted(0x9000000);
    wrong += made != 30001;
  }
  printf("%u wrong\n", wrong);
  return wrong != 0;
}
