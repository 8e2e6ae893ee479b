// Where a debugger can stop at every throw, rethrow and catch: `catch throw` and its like look for probes of these
// names before they look for functions. A probe is one nop and a note that is not loaded: its address, and where two
// words stand at that moment, the object and the type. SystemTap's <sys/sdt.h> describes the note.
#pragma once

namespace __zor {

// `object` and `type` are words in memory that the code around reads anyway, so that nothing is loaded for the note.
// The empty section tells a debugger how far the object was moved.
#define PLX_PROBE(name, object, type)                                            \
  __asm__ volatile(                                                              \
      "990:\tnop\n\t"                                                            \
      ".pushsection .note.stapsdt, \"\", @note\n\t"                              \
      ".balign 4\n\t"                                                            \
      ".long 992f - 991f, 994f - 993f, 3\n"                                      \
      "991:\t.asciz \"stapsdt\"\n"                                               \
      "992:\t.balign 4\n"                                                        \
      "993:\t.long 990b, _.stapsdt.base, 0\n\t"                                  \
      ".asciz \"libstdcxx\"\n\t"                                                 \
      ".asciz \"" name                                                           \
      "\"\n\t"                                                                   \
      ".asciz \"4@%0 4@%1\"\n"                                                   \
      "994:\t.balign 4\n\t"                                                      \
      ".popsection\n\t"                                                          \
      ".ifndef _.stapsdt.base\n\t"                                               \
      ".pushsection .stapsdt.base, \"aG\", @progbits, .stapsdt.base, comdat\n\t" \
      ".weak _.stapsdt.base\n\t"                                                 \
      ".hidden _.stapsdt.base\n"                                                 \
      "_.stapsdt.base:\t.space 1\n\t"                                            \
      ".size _.stapsdt.base, 1\n\t"                                              \
      ".popsection\n\t"                                                          \
      ".endif"                                                                   \
      :                                                                          \
      : "m"(object), "m"(type))

}  // namespace __zor
