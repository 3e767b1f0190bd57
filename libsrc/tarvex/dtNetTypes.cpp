#include "tarvex/dtNetTypes.h"

#include <cstring>

void DtNetGlobalObjectDesignator::assign(unsigned char* field, const char* name) {
  const std::size_t n = name ? strnlen(name, kWidth) : 0;
  if (n > 0) std::memcpy(field, name, n);
  std::memset(field + n, 0, kWidth - n);
}

DtString DtNetGlobalObjectDesignator::read(const unsigned char* field) {
  const auto* text = reinterpret_cast<const char*>(field);
  return DtString(text, strnlen(text, kWidth));
}
