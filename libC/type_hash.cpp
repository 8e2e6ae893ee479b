// type_info::hash_code (2011, 18.7.1). The records of one class may be of both formats, with the name as it is encoded
// in one and as in source in the other, so the code is that of the name as in source.

#include <typeinfo>

#include "foreign.h"
#include "uncaught_report.h"

using namespace __zor;

std::size_t std::type_info::hash_code() const noexcept {
  const auto *record = reinterpret_cast<const a_type_info_impl *>(this);
  char text[256];
  const char *name = text;
  if (is_foreign(record))
    foreign_readable_name(record, text, sizeof text);
  else
    name = record->name;
  // FNV-1a.
  size_t code = 2166136261u;
  for (size_t i = 0; i < sizeof text - 1 && name[i]; ++i)
    code = (code ^ static_cast<unsigned char>(name[i])) * 16777619u;
  return code;
}
