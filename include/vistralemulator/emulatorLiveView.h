// What an emulated viewer shows, served over HTTP while it runs: a page with the live picture, the mode and
// its fields, the options, the objects and a log of the last PDUs; the snapshot as /state.json; the picture
// as /picture.svg and /picture.png. The server runs on threads of its own and reads only copies of the state
// that the emulator's thread hands over; nothing it is sent changes the emulator.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "vistralemulator/emulatorState.h"
#include "vistralemulator/vistralEmulatorExport.h"

class DtVistralControlPdu;

// An HTTP server showing one emulated viewer live in a browser (DtVistralEmulator::setLiveView).
class VISTRAL_EMULATOR_EXPORT DtEmulatorLiveView {
 public:
  // Listens on address, "HOST:PORT" or a bare "PORT" (then on the loopback address 127.0.0.1); port 0 takes
  // any free port. page is the HTML text served at "/". Throws std::invalid_argument for an address it cannot
  // read and std::runtime_error when it cannot listen there.
  DtEmulatorLiveView(const std::string& address, std::string page);
  // Tells open pages that the viewer has gone, then stops serving.
  ~DtEmulatorLiveView();
  DtEmulatorLiveView(const DtEmulatorLiveView&) = delete;
  DtEmulatorLiveView& operator=(const DtEmulatorLiveView&) = delete;

  // The address and port it listens on, and the page's URL ("http://127.0.0.1:8080/").
  const std::string& host() const;
  int port() const;
  std::string url() const;

  // From the emulator's thread: logs a PDU taken (its bytes are copied; its text form is made when a page
  // asks), and hands over a copy of the state. A copy comes at most once per interval; publish() returns
  // false, and takes nothing, when the last one is more recent than that.
  void logPdu(const DtVistralControlPdu& pdu);
  bool publish(const DtEmulatorState& state);
  // How long publish() waits between copies (default 50 ms: a page is current within 100 ms of a change).
  void setInterval(std::chrono::milliseconds interval);

  // The number of copies handed over so far; pages see it as the state's version.
  std::uint64_t version() const;
  // The PDUs the log keeps, the newest last.
  static constexpr std::size_t kLogSize = 100;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};
