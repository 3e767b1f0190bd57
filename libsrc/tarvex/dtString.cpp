#include "tarvex/dtString.h"

#include <cstdio>
#include <ostream>

DtString::DtString(const char* text) : text_(text ? text : ""), null_(text == nullptr) {}

DtString::DtString(const std::string& text) : text_(text), null_(false) {}

DtString::DtString(const char* text, std::size_t length)
    : text_(text ? std::string(text, length) : std::string()), null_(text == nullptr) {}

DtString::DtString(double value) : null_(false) {
  char buffer[400];
  std::snprintf(buffer, sizeof buffer, "%f", value);
  text_ = buffer;
}

DtString& DtString::operator=(const char* text) {
  text_ = text ? text : "";
  null_ = text == nullptr;
  return *this;
}

DtString& DtString::operator+=(const DtString& other) {
  text_ += other.text_;
  null_ = null_ && other.null_;
  return *this;
}

std::ostream& operator<<(std::ostream& out, const DtString& s) { return out << s.str(); }
