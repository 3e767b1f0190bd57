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
  // Asks the address now, waiting at most as long as check() lets a probe go unanswered: empty when the
  // server accepts (or there is no address to ask), else why it is taken for absent. An RTI that keeps its
  // federates on a local part of its own lets them join even with no server there, into a federation of
  // their own.
  std::string probe() const;
  // The URL to hand the RTI for a federate that joins through this server now: url as it is, unless a watch
  // of this process found the server gone before; then with a query that makes the RTI give the federate a
  // local part of its own. OpenRTI keeps one local part per server URL for all federates of a process, and
  // one whose server went away serves on alone, as a federation of its own, for as long as the process
  // lives: a federate that joined there would never meet the others again.
  std::string urlForRti(const std::string& url) const;
  // What check() last reported.
  const std::string& lost() const { return lost_; }
  // The "HOST:PORT" watched, or empty when there is none.
  const std::string& address() const { return address_; }

 private:
  void finishProbe();
  void noteLoss(const std::string& why);

  std::string address_;
  std::string host_;
  int port_ = 0;
  int socket_ = -1;  // the probe under way
  std::chrono::steady_clock::time_point started_;
  std::chrono::steady_clock::time_point next_;
  std::string lost_;
};
