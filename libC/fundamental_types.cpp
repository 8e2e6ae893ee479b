// Identities and descriptors of the fundamental types.

#include <plx/runtime.h>

#define FUNDAMENTAL_TYPE(encoded, name) \
  const char __TID_##encoded = 0;       \
  const a_type_info_impl __TI_##encoded = {PLX_TYPE_INFO_VTABLE, name, &__TID_##encoded, nullptr}

FUNDAMENTAL_TYPE(v, "void");
FUNDAMENTAL_TYPE(b, "bool");
FUNDAMENTAL_TYPE(c, "char");
FUNDAMENTAL_TYPE(a, "signed char");
FUNDAMENTAL_TYPE(h, "unsigned char");
FUNDAMENTAL_TYPE(w, "wchar_t");
FUNDAMENTAL_TYPE(s, "short");
FUNDAMENTAL_TYPE(t, "unsigned short");
FUNDAMENTAL_TYPE(i, "int");
FUNDAMENTAL_TYPE(j, "unsigned int");
FUNDAMENTAL_TYPE(l, "long");
FUNDAMENTAL_TYPE(m, "unsigned long");
FUNDAMENTAL_TYPE(x, "long long");
FUNDAMENTAL_TYPE(y, "unsigned long long");
FUNDAMENTAL_TYPE(f, "float");
FUNDAMENTAL_TYPE(d, "double");
FUNDAMENTAL_TYPE(e, "long double");
