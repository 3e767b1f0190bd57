// Watches the RTI server that an execution name points at. Some RTIs (OpenRTI) keep a federate running on
// its own local part of the RTI when the server goes away, answering every call as before: only the server's
// address tells that the federation is gone. The watch asks that address, without blocking, whether anyone
// still listens there.
#pragma once

#include <chrono>
#include <string>

class DtServerWatch {
 public:
  // execution: "rti://HOST[:PORT]/NAME", also behind "hla1516e+"; any other name has no server to watch, and
  // check() then never reports a loss. PORT defaults to the RTI server's usual 14321.
  explicit DtServerWatch(const std::string& execution);
  ~DtServerWatch();
  DtServerWatch(const DtServerWatch&) = delete;
  DtServerWatch& operator=(const DtServerWatch&) = delete;

  // Call often (each poll); at most one probe is under way and one starts every interval. Empty while the
  // server answers; why it is taken for gone once it refuses a connection or leaves one unanswered too long.
  std::string check();
  // What check() last reported.
  const std::string& lost() const { return lost_; }
  // The "HOST:PORT" watched, or empty when there is none.
  const std::string& address() const { return address_; }

 private:
  void finishProbe();

  std::string address_;
  std::string host_;
  int port_ = 0;
  int socket_ = -1;  // the probe under way
  std::chrono::steady_clock::time_point started_;
  std::chrono::steady_clock::time_point next_;
  std::string lost_;
};
