// Text value type. A null string (DtString()) is distinguishable from the empty text "" by isNull(), but
// compares equal to it: comparison is by text.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtString {
 public:
  DtString() = default;
  DtString(const char* text);         // NOLINT: implicit by design; a null pointer gives a null string
  DtString(const std::string& text);  // NOLINT: implicit by design
  DtString(const char* text, std::size_t length);
  explicit DtString(double value);  // the value's "%f" text

  bool isNull() const { return null_; }
  const char* c_str() const { return text_.c_str(); }
  operator const char*() const { return text_.c_str(); }  // NOLINT: implicit by design
  std::size_t length() const { return text_.size(); }
  bool empty() const { return text_.empty(); }
  const std::string& str() const { return text_; }

  DtString& operator=(const char* text);
  DtString& operator+=(const DtString& other);

  friend bool operator==(const DtString& a, const DtString& b) { return a.text_ == b.text_; }
  friend bool operator!=(const DtString& a, const DtString& b) { return !(a == b); }
  friend bool operator==(const DtString& a, const char* b) { return a.text_ == (b ? b : ""); }
  friend bool operator!=(const DtString& a, const char* b) { return !(a == b); }

 private:
  std::string text_;
  bool null_ = true;
};

TARVEX_EXPORT std::ostream& operator<<(std::ostream& out, const DtString& s);
