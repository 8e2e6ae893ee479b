// What the fuzzers share: the words of which good inputs are made, null at the end.
#ifndef TESTS_FUZZ_CHECK_H
#define TESTS_FUZZ_CHECK_H

#include <stdint.h>

#include "../locale/reading.h"

extern const char *const fuzz_words[];
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

#endif
