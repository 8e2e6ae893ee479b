// In a static program: the host's unwinder, if the C library has taken it in.

#include "../foreign_unwinder.h"

#include "../../libC/if_linked.h"

extern "C" {
unsigned _Unwind_GetIP(void *) PLX_IF_LINKED;
unsigned _Unwind_GetCFA(void *) PLX_IF_LINKED;
void _Unwind_SetIP(void *, unsigned) PLX_IF_LINKED;
void _Unwind_SetGR(void *, int, unsigned) PLX_IF_LINKED;
void real_resume(void *) __asm__("__real__Unwind_Resume") PLX_IF_LINKED;
}

namespace __zor {

const a_foreign_unwinder *find_foreign_unwinder(const void *) {
  static const a_foreign_unwinder unwinder = {_Unwind_GetIP, _Unwind_GetCFA, _Unwind_SetIP, _Unwind_SetGR, real_resume};
  return unwinder.get_ip && unwinder.get_cfa && unwinder.set_ip && unwinder.set_gr ? &unwinder : nullptr;
}

void (*foreign_resume())(void *) { return real_resume; }

}  // namespace __zor
