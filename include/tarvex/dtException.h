// The toolkit's exception. Its text is "DtException: <message> (<function>, <file>:<line>)".
#pragma once

#include <exception>
#include <string>

#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtException : public std::exception {
 public:
  // Where it was thrown from (DT_THROW fills these in).
  DtException(const std::string& message, const char* function, const char* file, int line);
  // Without a place: the text is "DtException: <message>".
  explicit DtException(const std::string& message);

  // The whole text, and the message alone.
  const char* what() const noexcept override { return text_.c_str(); }
  const std::string& message() const { return message_; }

 private:
  std::string message_;
  std::string text_;
};

// Throws a DtException naming the calling function, its source file and line.
#define DT_THROW(message) throw DtException((message), __PRETTY_FUNCTION__, __FILE__, __LINE__)
