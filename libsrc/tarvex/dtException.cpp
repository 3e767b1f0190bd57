#include "tarvex/dtException.h"

DtException::DtException(const std::string& message, const char* function, const char* file, int line)
    : message_(message),
      text_("DtException: " + message + " (" + (function ? function : "?") + ", " + (file ? file : "?") +
            ":" + std::to_string(line) + ")") {}

DtException::DtException(const std::string& message) : message_(message), text_("DtException: " + message) {}
