// The flush that waits. Each operation on cin owes its tied stream, cout, a flush: a prompt has to be seen before the
// program waits for the answer. While stdio holds characters of stdin ready nobody waits, so the flush waits as well,
// until stdin is refilled: a program that reads and writes in turns then makes one system call for each block of its
// input, not one for each value.
//
// C functions that refill stdin pay as well: before the C library refills a line-buffered stdin it flushes a
// line-buffered stdout, so that is what the two are while a flush is owed.
#pragma once

#include <stdio.h>

#include <plx/iostream/filebuf.h>

namespace __zor {

// The buffer over stdout that is owed a flush, or null.
extern std::filebuf *owed_flush;

// Whether the flush of `to` that an operation on `from` asks for is put off; both are exactly filebufs.
bool owe_flush(std::filebuf &from, std::filebuf &to) PLX_NOTHROW;

// Files buffer again as they did. What is waiting in stdout is left there.
void forget_owed_flush() PLX_NOTHROW;

// Flushes; what stdout refuses the buffer keeps in mind.
void pay_owed_flush() PLX_NOTHROW;

}  // namespace __zor
