// The vistral Python module: connections, the controller, the drawer, the emulator and every PDU class and
// drawing object, with every byte made by the C++ library. The classes' members come from the headers
// (generated.cpp); this file binds what needs Python's own idiom: ownership, callbacks, bytes, with-blocks.
#include <pybind11/operators.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <map>
#include <sstream>

#include "convert.h"
#include "tarvex/dtException.h"
#include "tarvex/dtInteractionDecoder.h"
#include "tarvex/dtMessage.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcRemoteDrawer.h"
#include "vistralcontrol/vdcVector2D.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralDrawControlPdu.h"
#include "vistralemulator/emulatorPicture.h"
#include "vistralemulator/emulatorSnapshot.h"
#include "vistralemulator/vistralEmulator.h"
#include "wrappers.h"

namespace py = pybind11;

void bindGenerated(py::module_& m, py::class_<DtVistralControlPdu>& pduBase);
void bindControllerMembers(py::class_<vpy::Controller>& cls);

namespace vpy {
namespace {
py::object errorType;
py::object argumentTypeError;
py::object argumentValueError;
py::object pendingError;  // (type, value, traceback) of the first error kept
int callbackDepth = 0;    // Python code the library is calling, nested

// Marks Python code running inside a library call: nothing may be closed under the library's feet.
struct InCallback {
  InCallback() { ++callbackDepth; }
  ~InCallback() { --callbackDepth; }
  InCallback(const InCallback&) = delete;
  InCallback& operator=(const InCallback&) = delete;
};

const char* opt(const std::string& s) { return s.empty() ? nullptr : s.c_str(); }
}  // namespace

std::unordered_set<const DtVdcObject*>& heldByDrawer() {
  static std::unordered_set<const DtVdcObject*> held;
  return held;
}

void raise(const std::string& message) {
  PyErr_SetString(errorType.ptr(), message.c_str());
  throw py::error_already_set();
}

void raiseTypeError(const std::string& message) {
  PyErr_SetString(argumentTypeError.ptr(), message.c_str());
  throw py::error_already_set();
}

void raiseValueError(const std::string& message) {
  PyErr_SetString(argumentValueError.ptr(), message.c_str());
  throw py::error_already_set();
}

void keepPending() {
  py::error_already_set e;  // takes the error indicator
  if (!pendingError) pendingError = py::make_tuple(e.type(), e.value(), e.trace());
}

void raisePending() {
  if (!pendingError) return;
  py::tuple kept = pendingError;
  pendingError = py::object();
  PyErr_Restore(py::object(kept[0]).release().ptr(), py::object(kept[1]).release().ptr(),
                py::object(kept[2]).release().ptr());
  throw py::error_already_set();
}

std::unique_ptr<DtVistralControlPdu> pduFromBytes(const unsigned char* bytes, std::size_t length) {
  // Laid into the zero-tailed buffer that received values go through: whatever the header states, nothing
  // past the bytes given is read.
  const std::size_t kept = std::min(length, static_cast<std::size_t>(DtPdu::kMaxLength) + 1);
  char* image = DtInteractionDecoder::decodingBuffer(static_cast<RTI::ULong>(kept));
  if (kept > 0) std::memcpy(image, bytes, kept);
  std::unique_ptr<DtPdu> made(
      DtVistralControlPdu::createFromNet(reinterpret_cast<const DtNetPduHeader*>(image), nullptr, nullptr));
  if (auto* pdu = dynamic_cast<DtVistralControlPdu*>(made.get())) {
    made.release();
    return std::unique_ptr<DtVistralControlPdu>(pdu);
  }
  return nullptr;
}

std::unique_ptr<DtVistralControlPdu> copyPdu(const DtVistralControlPdu& pdu) {
  return pduFromBytes(pdu.packet(), static_cast<std::size_t>(pdu.length()));
}

// Connection ------------------------------------------------------------------------------------------------

Connection::Connection(const std::string& execution, const std::string& federate, const char* fedFile,
                       const char* backend)
    : conn_(
          std::make_unique<DtExerciseConn>(execution.c_str(), federate.c_str(), fedFile, backend, nullptr)) {
  DtVistralControlRegister(conn_.get());
}

Connection::~Connection() { close(); }

DtExerciseConn& Connection::get() const {
  if (!conn_) raise("the connection is closed");
  return *conn_;
}

void Connection::close() {
  while (!dependents_.empty()) dependents_.back()->close();  // each detaches itself
  conn_.reset();
}

void Connection::detach(Dependent* d) {
  dependents_.erase(std::remove(dependents_.begin(), dependents_.end(), d), dependents_.end());
}

int Connection::processIncoming() {
  const int n = get().processIncoming();
  raisePending();
  return n;
}

void PySender::sendPdu(const unsigned char* bytes, int length) {
  if (pendingError) return;
  InCallback inside;
  try {
    fn_(py::bytes(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length)));
  } catch (py::error_already_set& e) {
    e.restore();
    keepPending();
  }
}

// Controller ------------------------------------------------------------------------------------------------

Controller::Controller(Connection* conn, py::object sender, const std::string& target) : conn_(conn) {
  if (conn != nullptr) {
    ctl_ = std::make_unique<DtVistralRemoteController>(&conn->get(), DtString(target));
    conn->attach(this);
  } else {
    sender_ = std::make_unique<PySender>(std::move(sender));
    ctl_ = std::make_unique<DtVistralRemoteController>(sender_.get(), DtString(target));
  }
  if (conn != nullptr && !sender.is_none()) {
    sender_ = std::make_unique<PySender>(std::move(sender));
    ctl_->setCustomSender(sender_.get());
  }
}

Controller::Controller(const std::string& execution, const std::string& federate, const char* fedFile,
                       const char* backend, const std::string& target)
    : owned_(std::make_unique<Connection>(execution, federate, fedFile, backend)), conn_(owned_.get()) {
  ctl_ = std::make_unique<DtVistralRemoteController>(&conn_->get(), DtString(target));
  conn_->attach(this);
}

Controller::~Controller() { close(); }

DtVistralRemoteController& Controller::get() const {
  if (!ctl_) raise("the controller is closed");
  return *ctl_;
}

void Controller::close() {
  if (ctl_) {
    for (auto& e : callbacks_) ctl_->removeViewModeChangeCallback(&trampoline, e.get(), DtString(e->viewer));
    ctl_.reset();
  }
  callbacks_.clear();
  if (conn_ != nullptr) conn_->detach(this);
  conn_ = nullptr;
  owned_.reset();
}

void Controller::trampoline(const DtVistralControlPdu& pdu, void* usr) {
  auto* entry = static_cast<Entry*>(usr);
  // Callbacks after a failed one still run; only the first error is raised.
  InCallback inside;
  try {
    entry->fn(py::cast(copyPdu(pdu)));
  } catch (py::error_already_set& e) {
    e.restore();
    keepPending();
  } catch (const std::exception& e) {
    PyErr_SetString(PyExc_RuntimeError, e.what());
    keepPending();
  }
}

void Controller::addCallback(py::object fn, const std::string& viewer) {
  if (!PyCallable_Check(fn.ptr())) raiseTypeError("callback must be callable");
  callbacks_.push_back(std::make_unique<Entry>(Entry{std::move(fn), viewer}));
  get().addViewModeChangeCallback(&trampoline, callbacks_.back().get(), DtString(viewer));
}

bool Controller::removeCallback(const py::object& fn, const std::string& viewer) {
  for (auto it = callbacks_.begin(); it != callbacks_.end(); ++it) {
    if ((*it)->fn.equal(fn) && (*it)->viewer == viewer) {
      get().removeViewModeChangeCallback(&trampoline, it->get(), DtString(viewer));
      callbacks_.erase(it);
      return true;
    }
  }
  return false;
}

int Controller::processIncoming() {
  get();
  if (conn_ == nullptr) raise("the controller sends through its sender only and hears nothing");
  return conn_->processIncoming();
}

namespace {

// Drawer ----------------------------------------------------------------------------------------------------

// Owns the C++ drawer and the Python objects of what it holds, so that an object handed to it stays the same
// Python object, and comes back as such from remove().
class Drawer : public Dependent {
 public:
  Drawer(Connection* conn, py::object sender, const std::string& senderId, const std::string& receiver,
         unsigned firstId)
      : conn_(conn) {
    if (conn != nullptr) {
      drawer_ = std::make_unique<DtVistralRemoteDrawer>(&conn->get(), DtString(receiver), firstId);
      conn->attach(this);
    } else {
      sender_ = std::make_unique<PySender>(std::move(sender));
      drawer_ = std::make_unique<DtVistralRemoteDrawer>(sender_.get(), DtString(senderId), DtString(receiver),
                                                        firstId);
    }
  }
  ~Drawer() override { close(); }

  DtVistralRemoteDrawer& get() const {
    if (!drawer_) raise("the drawer is closed");
    return *drawer_;
  }
  // Removes every object still held, ascending by id, as the drawer's own end would, and hands each back to
  // Python.
  void close() override {
    if (drawer_) {
      std::vector<unsigned> ids;
      for (auto& kv : held_) ids.push_back(kv.first);
      std::sort(ids.begin(), ids.end());
      for (unsigned id : ids) {
        DtVdcObject* obj = drawer_->remove(id);
        heldByDrawer().erase(obj);
      }
      held_.clear();
      drawer_.reset();
    }
    if (conn_ != nullptr) conn_->detach(this);
    conn_ = nullptr;
  }
  void add(const py::object& pyObj) {
    auto& d = get();
    auto* obj = pyObj.cast<DtVdcObject*>();
    if (heldByDrawer().count(obj) != 0) raise("the object is already held by a drawer");
    const unsigned id = obj->id();
    auto old = held_.find(id);
    heldByDrawer().insert(obj);
    d.add(obj);
    if (old != held_.end()) {
      // The drawer dropped the object it held under that id without deleting it: Python owns it again.
      heldByDrawer().erase(old->second.cast<DtVdcObject*>());
    }
    held_[id] = pyObj;
    raisePending();
  }
  py::object remove(unsigned id) {
    auto it = held_.find(id);
    if (it == held_.end()) return py::none();
    DtVdcObject* obj = get().remove(id);
    heldByDrawer().erase(obj);
    py::object out = it->second;
    held_.erase(it);
    raisePending();
    return out;
  }
  py::object lookup(unsigned id) const {
    auto it = held_.find(id);
    return it == held_.end() ? py::none() : it->second;
  }
  void update(const py::object& idOrObj) {
    if (PyLong_Check(idOrObj.ptr())) {
      const unsigned id = checkedInt<unsigned>(py::reinterpret_borrow<py::int_>(idOrObj), "object_id");
      if (held_.count(id) == 0) raise("no object with id " + std::to_string(id) + " is held");
      get().update(id);
    } else {
      get().update(idOrObj.cast<DtVdcObject*>());
    }
    raisePending();
  }
  std::vector<unsigned> ids() const {
    std::vector<unsigned> out;
    for (auto& kv : held_) out.push_back(kv.first);
    std::sort(out.begin(), out.end());
    return out;
  }
  std::size_t size() const { return held_.size(); }

 private:
  Connection* conn_ = nullptr;
  std::unique_ptr<PySender> sender_;
  std::unique_ptr<DtVistralRemoteDrawer> drawer_;
  std::map<unsigned, py::object> held_;
};

// Emulator --------------------------------------------------------------------------------------------------

class Emulator : public Dependent {
 public:
  Emulator(Connection* conn, const std::string& viewer) : conn_(conn) {
    emu_ = conn != nullptr ? std::make_unique<DtVistralEmulator>(&conn->get(), DtString(viewer))
                           : std::make_unique<DtVistralEmulator>(DtString(viewer));
    if (conn != nullptr) conn->attach(this);
  }
  Emulator(const std::string& execution, const std::string& viewer, const char* fedFile)
      : emu_(std::make_unique<DtVistralEmulator>(execution.c_str(), DtString(viewer), fedFile)) {}
  ~Emulator() override { close(); }
  DtVistralEmulator& get() const {
    if (!emu_) raise("the emulator is closed");
    return *emu_;
  }
  void close() override {
    emu_.reset();
    if (conn_ != nullptr) conn_->detach(this);
    conn_ = nullptr;
  }
  int processIncoming() {
    if (conn_ != nullptr) return conn_->processIncoming();
    const int n = get().processIncoming();
    raisePending();
    return n;
  }

 private:
  Connection* conn_ = nullptr;
  std::unique_ptr<DtVistralEmulator> emu_;
};

// close() and the end of a with-block, refused inside a callback: the library is still using the object.
template <class W>
void bindWith(py::class_<W>& cls, const char* doc) {
  auto close = [](W& self) {
    if (callbackDepth > 0)
      raise("cannot close from inside a callback; close after process_incoming() returns");
    self.close();
    raisePending();
  };
  cls.def("close", close, doc);
  cls.def("__enter__", [](py::object self) { return self; });
  cls.def("__exit__", [close](W& self, py::args) {
    close(self);
    return false;
  });
}

Connection* connArg(const py::object& conn) {
  if (conn.is_none()) return nullptr;
  if (!py::isinstance<Connection>(conn)) typeError("connection", "a vistral.Connection or None", conn);
  return &conn.cast<Connection&>();
}

py::bytes asBytes(const std::string& s) { return py::bytes(s); }

// The C++ loop that the Python benchmark sets against its own: count orbit commands on one controller.
double orbitLoop(Controller& ctl, int count) {
  auto& c = ctl.get();
  const DtString attach("tank-1");
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < count; ++i) {
    const float radius = 100.0f + static_cast<float>(i % 50);
    const float heading = 0.5f;
    c.setOrbitMode(&attach, &radius, &heading, nullptr, nullptr);
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace
}  // namespace vpy

PYBIND11_MODULE(_vistral, m) {
  using namespace vpy;
  m.doc() = "Steer, draw on and check remote Vistral viewers; every byte comes from the C++ library.";

  py::object error = py::reinterpret_steal<py::object>(PyErr_NewExceptionWithDoc(
      "vistral.Error", "Every error the module raises: the library's own, and bad arguments.", nullptr,
      nullptr));
  m.attr("Error") = error;
  errorType = error;
  auto subclass = [&](const char* name, PyObject* builtin, const char* doc) {
    py::tuple bases = py::make_tuple(error, py::handle(builtin));
    py::object type = py::reinterpret_steal<py::object>(
        PyErr_NewExceptionWithDoc((std::string("vistral.") + name).c_str(), doc, bases.ptr(), nullptr));
    m.attr(name) = type;
    return type;
  };
  argumentTypeError = subclass("ArgumentTypeError", PyExc_TypeError, "An argument of the wrong type.");
  argumentValueError =
      subclass("ArgumentValueError", PyExc_ValueError, "An argument out of its field's range.");
  py::register_exception_translator([](std::exception_ptr p) {
    try {
      if (p) std::rethrow_exception(p);
    } catch (const DtException& e) {
      PyErr_SetString(errorType.ptr(), e.what());
    }
  });
  // Cleared before the interpreter goes, so that no Python object outlives it in a static.
  auto atexit = py::module_::import("atexit");
  atexit.attr("register")(py::cpp_function([]() {
    pendingError = py::object();
    errorType = py::object();
    argumentTypeError = py::object();
    argumentValueError = py::object();
  }));

  py::class_<DtVistralControlPdu> pdu(m, "VistralControlPdu",
                                      "The control PDU (kind 202): base class of every view and draw PDU.");
  pdu.def("__bytes__", [](const DtVistralControlPdu& p) {
    return py::bytes(reinterpret_cast<const char*>(p.packet()), static_cast<std::size_t>(p.length()));
  });
  pdu.def_property_readonly("length", &DtVistralControlPdu::length, "The header's length field, in bytes.");
  pdu.def("__len__", [](const DtVistralControlPdu& p) { return p.length(); });
  pdu.def("__str__", [](const DtVistralControlPdu& p) { return std::string(p.string()); });
  pdu.def("__repr__", [](py::handle self) {
    const auto& p = self.cast<const DtVistralControlPdu&>();
    return "<vistral." + std::string(py::str(py::type::handle_of(self).attr("__name__"))) + " " +
           std::string(p.string()) + ">";
  });
  pdu.def("__eq__", [](const DtVistralControlPdu& a, const py::object& b) -> py::object {
    if (!py::isinstance<DtVistralControlPdu>(b)) return py::reinterpret_borrow<py::object>(Py_NotImplemented);
    const auto& o = b.cast<const DtVistralControlPdu&>();
    return py::bool_(a.length() == o.length() &&
                     std::memcmp(a.packet(), o.packet(), static_cast<std::size_t>(a.length())) == 0);
  });
  pdu.attr("__hash__") = py::none();
  pdu.def(
      "set_from_string",
      [](DtVistralControlPdu& p, const std::string& text) { p.setFromString(text.c_str()); }, py::arg("text"),
      "Reads the text form; what cannot be parsed is ignored.");
  pdu.def(
      "dump",
      [](const DtVistralControlPdu& p) {
        std::ostringstream out;
        DtDumpStream.setStream(out);
        try {
          p.printData();
        } catch (...) {
          DtDumpStream.resetStream();
          throw;
        }
        DtDumpStream.resetStream();
        return out.str();
      },
      "The labelled dump of every field, as text.");
  pdu.def(
      "copy", [](const DtVistralControlPdu& p) { return copyPdu(p); }, "An independent copy.");
  pdu.def_static(
      "from_bytes",
      [](const py::bytes& b) -> py::object {
        const std::string s = b;
        auto made = pduFromBytes(reinterpret_cast<const unsigned char*>(s.data()), s.size());
        if (!made) raiseValueError("not a control PDU (kind 202) of any known command");
        return py::cast(std::move(made));
      },
      py::arg("data"), "The PDU of the right class for a received image.");

  bindGenerated(m, pdu);
  auto color = py::reinterpret_borrow<py::class_<DtVdcColor>>(m.attr("VdcColor"));
  color.def(py::self == py::self);
  color.def(py::self != py::self);
  color.def("__repr__", [](const DtVdcColor& c) {
    return "VdcColor(" + std::to_string(c.red()) + ", " + std::to_string(c.green()) + ", " +
           std::to_string(c.blue()) + ", " + std::to_string(c.alpha()) + ")";
  });
  auto vec2 = py::reinterpret_borrow<py::class_<DtVdcVector2D>>(m.attr("VdcVector2D"));
  vec2.def("__repr__", [](const DtVdcVector2D& v) {
    return "VdcVector2D(" + std::string(py::repr(py::float_(v.x()))) + ", " +
           std::string(py::repr(py::float_(v.y()))) + ")";
  });

  m.def(
      "new_pdu",
      [](const py::object& command) -> py::object {
        const auto c = Arg<DtViewerCommand>::in(command, "command");
        std::unique_ptr<DtVistralControlPdu> made(DtNewVistralControlPdu(c));
        if (!made) raiseValueError("no PDU class has command " + std::to_string(static_cast<int>(c)));
        return py::cast(std::move(made));
      },
      py::arg("command"), "An empty PDU for a command number (view-control first, then draw-control).");
  m.def(
      "from_bytes",
      [](const py::bytes& b) {
        return py::module_::import("vistral").attr("VistralControlPdu").attr("from_bytes")(b);
      },
      py::arg("data"), "The PDU of the right class for a received image.");

  py::class_<Connection> conn(
      m, "Connection",
      "One federate joined to one federation execution. The execution name's form picks "
      "the network (a URL for an RTI); backend names one outright.");
  conn.def(py::init([](const std::string& execution, const std::string& federate, const std::string& fedFile,
                       const std::string& backend) {
             return std::make_unique<Connection>(execution, federate, opt(fedFile), opt(backend));
           }),
           py::arg("execution_name"), py::arg("federate_name") = "vistral-python", py::kw_only(),
           py::arg("fed_file") = "", py::arg("backend") = "");
  bindWith(conn, "Closes what uses the connection, then resigns.");
  conn.def_property_readonly("closed", &Connection::closed);
  conn.def("process_incoming", &Connection::processIncoming,
           "Delivers what has arrived; raises what a callback raised. Returns the interactions handled.");
  conn.def_property_readonly(
      "execution_name", [](const Connection& c) { return std::string(c.get().executionName().c_str()); });
  conn.def_property_readonly("federate_name",
                             [](const Connection& c) { return std::string(c.get().federateName().c_str()); });
  conn.def_property_readonly("backend_name",
                             [](const Connection& c) { return std::string(c.get().backendName()); });
  conn.def_property_readonly(
      "created_execution", [](const Connection& c) { return c.get().initStatus() == DtInitCreatedExecution; },
      "Whether this connection created the execution (rather than joining it).");
  conn.def_property_readonly(
      "lost", [](const Connection& c) { return c.get().lost(); },
      "Whether process_incoming() found the federation lost (an RTI server gone); it raises then.");
  conn.def_property_readonly(
      "lost_reason", [](const Connection& c) { return std::string(c.get().lostReason().c_str()); },
      "The RTI's reason for the loss; empty while joined.");
  conn.def_property_readonly("pending_incoming",
                             [](const Connection& c) { return c.get().pendingIncoming(); });
  conn.def(
      "send",
      [](Connection& c, const DtVistralControlPdu& p) {
        DtVistralControlInteraction inter;
        inter.setVcPdu(p);
        if (!c.get().sendInteraction(inter)) raise("the connection's FOM has no ViewControl class");
      },
      py::arg("pdu"), "Sends the PDU as it is, inside a ViewControl interaction.");
  conn.def_static("rti_backend_built_in", &DtExerciseConn::rtiBackendBuiltIn);

  py::class_<Controller> ctl(m, "RemoteController",
                             "Steers one target viewer: one operation per command; arguments left None are "
                             "marked ignore.");
  ctl.def(py::init([](const py::object& connection, const std::string& target, const py::object& sender,
                      const std::string& execution, const std::string& federate, const std::string& fedFile,
                      const std::string& backend) {
            Connection* c = connArg(connection);
            if (c == nullptr && sender.is_none() && execution.empty())
              raiseTypeError("give a connection, a sender or an execution_name");
            if (!sender.is_none() && !PyCallable_Check(sender.ptr()))
              raiseTypeError("sender must be callable (it is given each PDU's bytes)");
            if (c == nullptr && sender.is_none())
              return std::make_unique<Controller>(execution, federate, opt(fedFile), opt(backend), target);
            return std::make_unique<Controller>(c, sender, target);
          }),
          py::arg("connection") = py::none(), py::arg("target") = "0:0:0", py::kw_only(),
          py::arg("sender") = py::none(), py::arg("execution_name") = "",
          py::arg("federate_name") = "vistral-python", py::arg("fed_file") = "", py::arg("backend") = "",
          py::keep_alive<1, 2>());
  bindWith(ctl, "Removes its callbacks and lets go of the connection (resigning one of its own).");
  ctl.def("add_callback", &Controller::addCallback, py::arg("callback"), py::arg("viewer") = "0:0:0",
          "Calls callback(pdu) for each PDU heard from the viewer (\"0:0:0\": from any).");
  ctl.def("remove_callback", &Controller::removeCallback, py::arg("callback"), py::arg("viewer") = "0:0:0");
  ctl.def("process_incoming", &Controller::processIncoming,
          "Processes the controller's connection; raises what a callback raised.");
  ctl.def(
      "send",
      [](Controller& c, const DtVistralControlPdu& p) {
        c.get().send(p);
        raisePending();
      },
      py::arg("pdu"), "Sends the PDU to the target viewer as this controller.");
  bindControllerMembers(ctl);
  m.attr("SEND_TO_ALL") = "0:0:0";
  m.def("_orbit_loop", &orbitLoop, py::arg("controller"), py::arg("count"),
        "For the benchmark: seconds taken by count orbit commands sent from a C++ loop.");

  py::class_<Drawer> drw(
      m, "RemoteDrawer",
      "A retained overlay scene: holds drawing objects by id and sends what becomes of them.");
  drw.def(py::init([](const py::object& connection, const std::string& receiver, unsigned firstId,
                      const py::object& sender, const std::string& senderId) {
            Connection* c = connArg(connection);
            if (c == nullptr && sender.is_none()) raiseTypeError("give a connection or a sender");
            if (c == nullptr && !PyCallable_Check(sender.ptr()))
              raiseTypeError("sender must be callable (it is given each PDU's bytes)");
            return std::make_unique<Drawer>(c, sender, senderId, receiver, firstId);
          }),
          py::arg("connection") = py::none(), py::arg("receiver_id") = "0:0:0", py::arg("first_id") = 1,
          py::kw_only(), py::arg("sender") = py::none(), py::arg("sender_id") = "vistral-python",
          py::keep_alive<1, 2>());
  bindWith(drw, "Removes every object still held (on the viewer too) and lets go.");
  drw.def("next_id", [](Drawer& d) { return d.get().nextId(); });
  drw.def("add", &Drawer::add, py::arg("obj"), "Holds the object and sends it.");
  drw.def("remove", &Drawer::remove, py::arg("object_id"),
          "Removes the object and hands it back; None if not held.");
  drw.def("lookup", &Drawer::lookup, py::arg("object_id"));
  drw.def("__getitem__", [](const Drawer& d, unsigned id) {
    py::object o = d.lookup(id);
    if (o.is_none()) throw py::key_error(std::to_string(id));
    return o;
  });
  drw.def("__contains__", [](const Drawer& d, unsigned id) { return !d.lookup(id).is_none(); });
  drw.def("__len__", &Drawer::size);
  drw.def("ids", &Drawer::ids, "The ids held, ascending.");
  drw.def("update", &Drawer::update, py::arg("obj"), "Re-sends a held object (by id or object).");
  auto cmd = [](void (DtVistralRemoteDrawer::*f)(unsigned)) {
    return [f](Drawer& d, const py::int_& id) {
      (d.get().*f)(checkedInt<unsigned>(id, "object_id"));
      raisePending();
    };
  };
  auto cmd2 = [](void (DtVistralRemoteDrawer::*f)(unsigned, unsigned), const char* second) {
    return [f, second](Drawer& d, const py::int_& a, const py::int_& b) {
      (d.get().*f)(checkedInt<unsigned>(a, "object_id"), checkedInt<unsigned>(b, second));
      raisePending();
    };
  };
  drw.def("show", cmd(&DtVistralRemoteDrawer::show), py::arg("object_id"));
  drw.def("hide", cmd(&DtVistralRemoteDrawer::hide), py::arg("object_id"));
  drw.def("add_to_layer", cmd2(&DtVistralRemoteDrawer::addToLayer, "layer_id"), py::arg("object_id"),
          py::arg("layer_id"));
  drw.def("remove_from_layer", cmd2(&DtVistralRemoteDrawer::removeFromLayer, "layer_id"),
          py::arg("object_id"), py::arg("layer_id"));
  drw.def("show_attribute", cmd2(&DtVistralRemoteDrawer::showAttribute, "attribute_id"), py::arg("group_id"),
          py::arg("attribute_id"));
  drw.def("hide_attribute", cmd2(&DtVistralRemoteDrawer::hideAttribute, "attribute_id"), py::arg("group_id"),
          py::arg("attribute_id"));
  drw.def(
      "send",
      [](Drawer& d, DtVistralDrawControlPdu& p) {
        d.get().sendDrawControlPdu(p);
        raisePending();
      },
      py::arg("pdu"), "Stamps the drawer's sender id into the draw PDU and sends it.");

  py::class_<Emulator> emu(
      m, "Emulator", "A headless stand-in for a viewer: takes the PDUs addressed to it and keeps its state.");
  emu.def(py::init([](const py::object& connection, const std::string& viewer, const std::string& execution,
                      const std::string& fedFile) {
            Connection* c = connArg(connection);
            if (c == nullptr && !execution.empty())
              return std::make_unique<Emulator>(execution, viewer, opt(fedFile));
            return std::make_unique<Emulator>(c, viewer);
          }),
          py::arg("connection") = py::none(), py::arg("viewer_id") = "vistral-1", py::kw_only(),
          py::arg("execution_name") = "", py::arg("fed_file") = "", py::keep_alive<1, 2>());
  bindWith(emu, "Leaves the federation (resigning a connection of its own).");
  emu.def("process_incoming", &Emulator::processIncoming);
  emu.def(
      "apply", [](Emulator& e, const DtVistralControlPdu& p) { e.get().apply(p); }, py::arg("pdu"),
      "Takes one PDU as if it had arrived.");
  emu.def(
      "apply_bytes",
      [](Emulator& e, const py::bytes& b) {
        const std::string s = b;
        e.get().applyImage(reinterpret_cast<const unsigned char*>(s.data()), s.size());
      },
      py::arg("data"), "Takes a received image through the library's receive path.");
  emu.def_property_readonly("viewer_id",
                            [](const Emulator& e) { return std::string(e.get().viewerId().c_str()); });
  emu.def_property_readonly(
      "state_json", [](const Emulator& e) { return DtEmulatorSnapshotJson(e.get().state()); },
      "The whole state as JSON text.");
  emu.def_property_readonly(
      "state",
      [](const Emulator& e) {
        return py::module_::import("json").attr("loads")(DtEmulatorSnapshotJson(e.get().state()));
      },
      "The whole state as dicts and lists: the same data as state_json.");
  emu.def(
      "state_report", [](const Emulator& e) { return e.get().stateReport(); },
      "The status PDU of the current mode, as the emulator would answer a request.");
  emu.def(
      "svg", [](const Emulator& e) { return asBytes(DtEmulatorPictureSvg(e.get().state())); },
      "The picture as SVG bytes.");
  emu.def(
      "png", [](const Emulator& e) { return asBytes(DtEmulatorPicturePng(e.get().state())); },
      "The picture as PNG bytes.");
}
