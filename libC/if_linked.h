// References that take nothing into a static program: what they name is there, and its address not null, when something
// else asked for it. In the shared object everything is there.
#pragma once

#define PLX_IF_LINKED __attribute__((__weak__))
