// Whether this build is watched by the address sanitizer: pools then stand aside, so that it sees every block, and
// jumps tell it which frames they leave.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define PLX_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#define PLX_ADDRESS_SANITIZER __has_feature(address_sanitizer)
#else
#define PLX_ADDRESS_SANITIZER 0
#endif
