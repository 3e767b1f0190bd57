// The Python-side owners of the library's long-lived objects: a connection, a controller, a drawer and an
// emulator each sit in a wrapper that can be closed early (a with-block's end) and that refuses use once
// closed, so that no Python call ever reaches a resigned connection. Errors raised by Python code that the
// library calls back (callbacks, custom senders) are kept here and raised once the library has returned.
#pragma once

#include <pybind11/pybind11.h>

#include <memory>
#include <string>
#include <vector>

#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace vpy {
namespace py = pybind11;

// Raises vistral.Error (or the given subclass) with the message.
[[noreturn]] void raise(const std::string& message);
// Keeps the first error raised by Python code that the library called; later ones are dropped.
void keepPending();
// Raises the kept error, if any, and forgets it.
void raisePending();

// Something that uses a connection and must let go of it before the connection resigns.
class Dependent {
 public:
  virtual ~Dependent() = default;
  virtual void close() = 0;
};

class Connection {
 public:
  Connection(const std::string& execution, const std::string& federate, const char* fedFile,
             const char* backend);
  ~Connection();
  DtExerciseConn& get() const;
  bool closed() const { return conn_ == nullptr; }
  // Closes every dependent, then resigns.
  void close();
  void attach(Dependent* d) { dependents_.push_back(d); }
  void detach(Dependent* d);
  // processIncoming, then raises what a callback raised.
  int processIncoming();

 private:
  std::unique_ptr<DtExerciseConn> conn_;
  std::vector<Dependent*> dependents_;
};

// Hands each PDU's bytes to a Python callable.
class PySender : public DtCustomRemoteControlSender {
 public:
  explicit PySender(py::object fn) : fn_(std::move(fn)) {}
  void sendPdu(const unsigned char* bytes, int length) override;

 private:
  py::object fn_;
};

class Controller : public Dependent {
 public:
  // One of: a connection, a Python sender, or the names of a connection of its own.
  Controller(Connection* conn, py::object sender, const std::string& target);
  Controller(const std::string& execution, const std::string& federate, const char* fedFile,
             const char* backend, const std::string& target);
  ~Controller() override;
  DtVistralRemoteController& get() const;
  void close() override;
  void addCallback(py::object fn, const std::string& viewer);
  bool removeCallback(const py::object& fn, const std::string& viewer);
  int processIncoming();

  struct Entry {
    py::object fn;
    std::string viewer;
  };

 private:
  static void trampoline(const DtVistralControlPdu& pdu, void* usr);
  std::unique_ptr<Connection> owned_;  // made from names given to the controller
  Connection* conn_ = nullptr;
  std::unique_ptr<PySender> sender_;
  std::unique_ptr<DtVistralRemoteController> ctl_;
  std::vector<std::unique_ptr<Entry>> callbacks_;
};

// A PDU object of the right class for an image; null when the bytes are no control PDU.
std::unique_ptr<DtVistralControlPdu> pduFromBytes(const unsigned char* bytes, std::size_t length);
// An independent copy of a PDU, of its own class.
std::unique_ptr<DtVistralControlPdu> copyPdu(const DtVistralControlPdu& pdu);

}  // namespace vpy
