// Message streams: DtInfo (standard output), DtWarn (standard error) and DtDumpStream, where printData()
// dumps go (standard output). Each can be pointed at any std::ostream, for tests and for applications that
// log elsewhere. They are constant-initialised, so they work during static initialisation too.
#pragma once

#include <ostream>

#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtMessageStream {
 public:
  // Where a stream writes while it is pointed nowhere else.
  enum class Default { StandardOutput, StandardError };
  // A stream writing to its default.
  constexpr explicit DtMessageStream(Default d) : default_(d) {}
  DtMessageStream(const DtMessageStream&) = delete;
  DtMessageStream& operator=(const DtMessageStream&) = delete;

  // Where the stream writes now; setStream points it at out (which must outlive its use), resetStream back at
  // its default.
  std::ostream& stream() const;
  void setStream(std::ostream& out) { stream_ = &out; }
  void resetStream() { stream_ = nullptr; }

  // printf-style message; the text is written as it is formatted, with no newline added.
  void message(const char* format, ...) const
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;

  // Writes value as std::ostream would.
  template <typename T>
  const DtMessageStream& operator<<(const T& value) const {
    stream() << value;
    return *this;
  }

 private:
  Default default_;
  std::ostream* stream_ = nullptr;
};

TARVEX_EXPORT extern DtMessageStream DtInfo;
TARVEX_EXPORT extern DtMessageStream DtWarn;
TARVEX_EXPORT extern DtMessageStream DtDumpStream;

// Points a message stream at another std::ostream for the lifetime of the guard.
class TARVEX_EXPORT DtStreamRedirect {
 public:
  // Points target at out until the guard goes, then back where it pointed before.
  DtStreamRedirect(DtMessageStream& target, std::ostream& out);
  ~DtStreamRedirect();
  DtStreamRedirect(const DtStreamRedirect&) = delete;
  DtStreamRedirect& operator=(const DtStreamRedirect&) = delete;

 private:
  DtMessageStream& target_;
  std::ostream* saved_;
};
