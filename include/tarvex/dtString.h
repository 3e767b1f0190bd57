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
  // The first length bytes of text; a null text gives a null string.
  DtString(const char* text, std::size_t length);
  explicit DtString(double value);  // the value's "%f" text

  // Made as a null string, from a null pointer, or assigned one.
  bool isNull() const { return null_; }
  // The text, never a null pointer (a null string reads "").
  const char* c_str() const { return text_.c_str(); }
  operator const char*() const { return text_.c_str(); }  // NOLINT: implicit by design
  // The text's length in bytes, and whether it is empty (a null string is).
  std::size_t length() const { return text_.size(); }
  bool empty() const { return text_.empty(); }
  // The text as a std::string.
  const std::string& str() const { return text_; }

  // A null pointer makes the string null.
  DtString& operator=(const char* text);
  // Appends the other text; the result is null only when both were.
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
