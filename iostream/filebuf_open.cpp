// basic_filebuf<char>: opening and closing.

#include <errno.h>

#include <plx/iostream/filebuf.h>

#include "../libC/eh_tools.h"
#include "filebuf_convert.h"
#include "stdio_file.h"

using namespace __zor;

namespace std {

namespace {

// 1998, 27.8.1.3, table 92. Any other combination is refused.
const struct a_mode {
  ios_base::openmode mode;
  char c_mode[4];
} modes[] = {{ios_base::out, "w"},
             {ios_base::out | ios_base::app, "a"},
             {ios_base::out | ios_base::trunc, "w"},
             {ios_base::in, "r"},
             {ios_base::in | ios_base::out, "r+"},
             {ios_base::in | ios_base::out | ios_base::trunc, "w+"},
             {ios_base::out | ios_base::binary, "wb"},
             {ios_base::out | ios_base::app | ios_base::binary, "ab"},
             {ios_base::out | ios_base::trunc | ios_base::binary, "wb"},
             {ios_base::in | ios_base::binary, "rb"},
             {ios_base::in | ios_base::out | ios_base::binary, "r+b"},
             {ios_base::in | ios_base::out | ios_base::trunc | ios_base::binary, "w+b"}};

const char *c_mode_of(ios_base::openmode mode) {
  for (const a_mode &row : modes)
    if (row.mode == mode) return row.c_mode;
  return nullptr;
}

// Gives the file back, a standard one only flushed. Returns whether all was written.
bool release(FILE *file) { return (is_standard_file(file) ? synchronise(file) : fclose(file)) == 0; }

}  // namespace

template <class C, class T> basic_filebuf<C, T>::basic_filebuf()
    : _file_(nullptr), _mode_(0), _refills_(0), _write_error_(false) {}

template <class C, class T> basic_filebuf<C, T>::basic_filebuf(FILE *file)
    : _file_(file), _mode_(0), _refills_(0), _write_error_(false) {}

template <class C, class T> basic_filebuf<C, T> *basic_filebuf<C, T>::open(const char *path, ios_base::openmode mode) {
  if (_file_) return nullptr;
  // The end of a file is also there without truncating it. With both bits there is no row: that makes no sense.
  ios_base::openmode key = mode;
  if ((mode & ios_base::ate) && !(mode & ios_base::trunc)) key = (mode | ios_base::in) & ~ios_base::ate;
  const char *c_mode = c_mode_of(key);
  if (!c_mode) return nullptr;
  _mode_ = static_cast<short>(mode);
  FILE *file = fopen(path, c_mode);
  if (!file && errno == ENOENT &&
      (mode & (ios_base::in | ios_base::out | ios_base::ate)) == (ios_base::out | ios_base::ate)) {
    // It is made. One that is there and may not be read would be emptied.
    c_mode = c_mode_of(mode & ~ios_base::ate);
    if (c_mode) file = fopen(path, c_mode);
  }
  if (!file) return nullptr;
  if ((mode & ios_base::ate) && fseek(file, 0, SEEK_END) != 0) {
    fclose(file);
    return nullptr;
  }
  _file_ = file;
  _refills_ = 0;
  _write_error_ = false;
  return this;
}

template <class C, class T> basic_filebuf<C, T> *basic_filebuf<C, T>::close() {
  if (!_file_) return nullptr;
  FILE *const file = _file_;
  bool ended = true;
  if (conversions && eh_guard([&] { ended = end_conversion(*this); })) ended = false;
  // Gone even when it could not be written whole: the C library has freed it.
  _file_ = nullptr;
  return release(file) && ended && !_write_error_ ? this : nullptr;
}

template basic_filebuf<char>::basic_filebuf();
template basic_filebuf<char>::basic_filebuf(FILE *);
template basic_filebuf<char> *basic_filebuf<char>::open(const char *, ios_base::openmode);
template basic_filebuf<char> *basic_filebuf<char>::close();

}  // namespace std
