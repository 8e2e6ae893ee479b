// Weak references: they take nothing into a static program, and are null unless something else did. In the shared
// object everything is there.
#pragma once

#define PLX_IF_LINKED __attribute__((__weak__))
