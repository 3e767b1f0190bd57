#include "tarvex/dtMessage.h"

#include <cstdarg>
#include <cstdio>
#include <iostream>
#include <vector>

DtMessageStream DtInfo(DtMessageStream::Default::StandardOutput);
DtMessageStream DtWarn(DtMessageStream::Default::StandardError);
DtMessageStream DtDumpStream(DtMessageStream::Default::StandardOutput);

std::ostream& DtMessageStream::stream() const {
  if (stream_ != nullptr) return *stream_;
  return default_ == Default::StandardError ? std::cerr : std::cout;
}

void DtMessageStream::message(const char* format, ...) const {
  char small[512];
  va_list args;
  va_start(args, format);
  va_list again;
  va_copy(again, args);
  const int needed = std::vsnprintf(small, sizeof small, format, args);
  va_end(args);
  if (needed < 0) {
    va_end(again);
    return;
  }
  if (static_cast<std::size_t>(needed) < sizeof small) {
    stream() << small;
  } else {
    std::vector<char> big(static_cast<std::size_t>(needed) + 1);
    std::vsnprintf(big.data(), big.size(), format, again);
    stream() << big.data();
  }
  va_end(again);
  stream().flush();
}

DtStreamRedirect::DtStreamRedirect(DtMessageStream& target, std::ostream& out)
    : target_(target), saved_(&target.stream()) {
  target_.setStream(out);
}

DtStreamRedirect::~DtStreamRedirect() { target_.setStream(*saved_); }
