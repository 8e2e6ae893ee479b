// What reading ahead counts on in the C library's FILE (iostream/read_ahead.cpp): _IO_USER_BUF is the bit 1 of a buffer
// that fclose leaves alone, _IO_UNBUFFERED is the bit 2; without the first a buffer from malloc is freed, once; and a
// buffer that is exchanged while it is empty loses no character.
#include <malloc.h>
#include <stdio.h>
#include <stdlib.h>

#include "../harness.h"

int main() {
  char own[64];
  FILE *f = tmpfile();
  for (int c = 0; c < 100000; ++c) putc(c % 251, f);
  rewind(f);
  CHECK_INT(getc(f), 0);
  CHECK((f->_flags & 3) == 0);
  setvbuf(f, own, _IOFBF, sizeof own);
  CHECK((f->_flags & 3) == 1);
  setvbuf(f, 0, _IONBF, 0);
  CHECK((f->_flags & 2) == 2);
  fclose(f);

  const int before = static_cast<int>(mallinfo2().uordblks);
  f = tmpfile();
  for (int c = 0; c < 100000; ++c) putc(c % 251, f);
  rewind(f);
  int at = 0, wrong = 0;
  while (at == 0 || f->_IO_read_ptr != f->_IO_read_end) wrong += getc(f) != at++ % 251;
  const off64_t offset = f->_offset;
  CHECK(setvbuf(f, static_cast<char *>(malloc(1 << 15)), _IOFBF, 1 << 15) == 0 && (f->_flags & 1));
  f->_flags &= ~1;
  f->_offset = offset;
  CHECK_INT(ftell(f), at);
  while (at < 100000) wrong += getc(f) != at++ % 251;
  CHECK(wrong == 0 && getc(f) == EOF && f->_IO_buf_end - f->_IO_buf_base == 1 << 15);
  fclose(f);
  CHECK_INT(static_cast<int>(mallinfo2().uordblks), before);
  return TEST_RESULT();
}
