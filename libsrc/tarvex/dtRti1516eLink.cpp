// The only source that includes the RTI's HLA Evolved headers. It speaks the standard IEEE 1516-2010 C++ API
// only (rti1516e::RTIambassadorFactory, RTIambassador, NullFederateAmbassador, ParameterHandleValueMap,
// VariableLengthData), so that any vendor's 1516e RTI serves, and it is built at the language level of those
// headers. Callbacks are evoked: they run on the caller's thread inside evoke() and the waits below.
#include "dtRti1516eLink.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/RTIambassadorFactory.h>

#include <chrono>
#include <exception>
#include <string>
#include <vector>

#include "dtRtiLocalPart.h"
#include "tarvex/dtException.h"

DtRti1516eLink::~DtRti1516eLink() = default;

namespace {
// How long a federate waits for the RTI to confirm a declaration before it gives up.
constexpr std::chrono::seconds kConfirmTimeout(30);
// Where the RTI refuses the private synchronization point, how long a declaration lets the RTI work before
// the call returns.
constexpr std::chrono::milliseconds kUnconfirmedSettle(250);
constexpr double kWaitSlice = 0.01;
// How long after a publication the RTI is given before the first send, for the other federates' parts of it
// to take it in.
constexpr std::chrono::milliseconds kPublicationSpread(250);
// CERTI's local part (rtia) is a process of its own, reached through a socket.
#if __has_include(<RTI/certiRTI1516.h>)
constexpr bool kLocalPartApart = true;
#else
constexpr bool kLocalPartApart = false;
#endif

// Callbacks one evoke() runs at most, so that a flood cannot keep processIncoming() from returning.
constexpr int kCallbacksPerEvoke = 100000;

// The API's strings are wide; the library's are UTF-8.
std::wstring wide(const std::string& s) {
  std::wstring out;
  out.reserve(s.size());
  for (std::size_t i = 0; i < s.size();) {
    const auto c = static_cast<unsigned char>(s[i]);
    const int extra = c < 0x80 ? 0 : (c >> 5) == 0x6 ? 1 : (c >> 4) == 0xE ? 2 : (c >> 3) == 0x1E ? 3 : -1;
    if (extra < 0 || i + static_cast<std::size_t>(extra) >= s.size()) {
      out += L'\xFFFD';  // not UTF-8: kept visible rather than dropped
      ++i;
      continue;
    }
    unsigned long code = extra == 0 ? c : c & (0x3Fu >> extra);
    for (int k = 1; k <= extra; ++k) code = (code << 6) | (static_cast<unsigned char>(s[i + k]) & 0x3Fu);
    out += static_cast<wchar_t>(code);
    i += static_cast<std::size_t>(extra) + 1;
  }
  return out;
}

std::string narrow(const std::wstring& w) {
  std::string out;
  out.reserve(w.size());
  for (const wchar_t wc : w) {
    const auto c = static_cast<unsigned long>(wc);
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (c < 0x800) {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      out += static_cast<char>(0xE0 | (c >> 12));
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | ((c >> 18) & 0x07));
      out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

std::string describe(const rti1516e::Exception& e) { return narrow(e.what()); }

class Link final : public DtRti1516eLink {
 public:
  Link(const DtRti1516eTarget& target, const std::string& federate, void* rtiAmbassador, Receiver& receiver)
      : execution_(target.execution), ambassador_(*this, receiver) {
    const DtPipeSignalGuard guard(kLocalPartApart);
    if (rtiAmbassador != nullptr) {
      rti_ = static_cast<rti1516e::RTIambassador*>(rtiAmbassador);
    } else {
      try {
        rti1516e::RTIambassadorFactory factory;
        owned_.reset(factory.createRTIambassador().release());
      } catch (const rti1516e::Exception& e) {
        DT_THROW("Cannot make an RTI ambassador: " + describe(e));
      }
      rti_ = owned_.get();
    }
    try {
      rti_->connect(ambassador_, rti1516e::HLA_EVOKED, wide(target.localSettings));
    } catch (const rti1516e::Exception& e) {
      if (kLocalPartApart) DtAbandonAmbassador(owned_.release());  // it could not reach its local part
      DT_THROW("Cannot connect to the RTI" +
               (target.localSettings.empty() ? std::string() : " at " + target.localSettings) + ": " +
               describe(e));
    }
    try {
      join(target, federate);
    } catch (...) {
      if (!leave() && kLocalPartApart) DtAbandonAmbassador(owned_.release());
      throw;
    }
  }

  ~Link() override {
    const DtPipeSignalGuard guard(kLocalPartApart);
    // A federate whose local part is gone, found so before or now, has nobody left to resign to or to close.
    const bool gone = !leave();
    if (gone && kLocalPartApart) DtAbandonAmbassador(owned_.release());
    owned_.reset();
  }

  bool createdExecution() const override { return created_; }

  bool interactionClassHandle(const std::string& name, unsigned long* handle) override {
    rti1516e::InteractionClassHandle h;
    const DtPipeSignalGuard guard(kLocalPartApart);
    try {
      h = rti_->getInteractionClassHandle(wide(name));
    } catch (const rti1516e::Exception&) {
      return false;
    }
    for (std::size_t i = 0; i < classes_.size(); ++i) {
      if (classes_[i] == h) {
        *handle = i + 1;
        return true;
      }
    }
    classes_.push_back(h);
    *handle = classes_.size();
    return true;
  }

  bool parameterHandle(const std::string& name, unsigned long cls, unsigned long* handle) override {
    if (cls == 0 || cls > classes_.size()) return false;
    rti1516e::ParameterHandle h;
    const DtPipeSignalGuard guard(kLocalPartApart);
    try {
      h = rti_->getParameterHandle(classes_[cls - 1], wide(name));
    } catch (const rti1516e::Exception&) {
      return false;
    }
    for (std::size_t i = 0; i < parameters_.size(); ++i) {
      if (parameters_[i].cls == cls && parameters_[i].handle == h) {
        *handle = i + 1;
        return true;
      }
    }
    parameters_.push_back(Parameter{cls, h});
    *handle = parameters_.size();
    return true;
  }

  void send(unsigned long cls, const DtRti1516eValue* values, std::size_t count) override {
    const rti1516e::InteractionClassHandle& handle = classFor(cls);
    const DtPipeSignalGuard guard(kLocalPartApart);
    try {
      if (!published(cls)) {
        publish(cls);
        confirmDeclarations();
      }
      if (!publicationsKnown_) awaitPublicationsKnown();
      fill(cls, values, count);
      rti_->sendInteraction(handle, sendMap_, kTag);
    } catch (const rti1516e::Exception& e) {
      DT_THROW("Cannot send interaction class " + std::to_string(cls) + " on " + execution_ + ": " +
               describe(e));
    }
  }

  void subscribe(unsigned long cls, bool on) override {
    const rti1516e::InteractionClassHandle& handle = classFor(cls);
    const DtPipeSignalGuard guard(kLocalPartApart);
    try {
      if (on) {
        rti_->subscribeInteractionClass(handle);
        // A federate that listens to a class answers in it too: published now, the class is known across
        // the federation by the time the first answer goes out.
        if (!published(cls)) publish(cls);
      } else {
        rti_->unsubscribeInteractionClass(handle);
      }
      confirmDeclarations();
    } catch (const rti1516e::Exception& e) {
      DT_THROW("Cannot " + std::string(on ? "subscribe to" : "unsubscribe from") + " interaction class " +
               std::to_string(cls) + " on " + execution_ + ": " + describe(e));
    }
  }

  void evoke() override {
    if (lost_.empty()) {
      const DtPipeSignalGuard guard(kLocalPartApart);
      try {
        for (int n = 0; n < kCallbacksPerEvoke && lost_.empty() && rti_->evokeCallback(0.0); ++n) {
        }
      } catch (const rti1516e::Exception& e) {
        if (lost_.empty()) lost_ = describe(e);
      }
    }
    if (!lost_.empty()) DT_THROW("Lost federation execution " + execution_ + ": " + lost_);
    rethrowFromCallbacks();
  }

  const std::string& lostReason() const override { return lost_; }

 private:
  struct Parameter {
    unsigned long cls;
    rti1516e::ParameterHandle handle;
  };

  // Receives on the RTI's behalf inside evoke() and the waits: interactions go to the receiver, and the
  // synchronization points of confirmDeclarations() are followed. Nothing may leave a callback towards the
  // RTI, so a failure waits in failure_ until the call that evoked it returns.
  class Ambassador final : public rti1516e::NullFederateAmbassador {
   public:
    Ambassador(Link& owner, Receiver& receiver) : owner_(owner), receiver_(receiver) {}
    ~Ambassador() noexcept override {}
    void receiveInteraction(rti1516e::InteractionClassHandle cls,
                            const rti1516e::ParameterHandleValueMap& values,
                            const rti1516e::VariableLengthData& /*tag*/, rti1516e::OrderType /*sent*/,
                            rti1516e::TransportationType /*transport*/,
                            rti1516e::SupplementalReceiveInfo /*info*/) noexcept override {
      deliver(cls, values);
    }
    void receiveInteraction(rti1516e::InteractionClassHandle cls,
                            const rti1516e::ParameterHandleValueMap& values,
                            const rti1516e::VariableLengthData& /*tag*/, rti1516e::OrderType /*sent*/,
                            rti1516e::TransportationType /*transport*/, const rti1516e::LogicalTime& /*time*/,
                            rti1516e::OrderType /*received*/,
                            rti1516e::SupplementalReceiveInfo /*info*/) noexcept override {
      deliver(cls, values);
    }
    void receiveInteraction(rti1516e::InteractionClassHandle cls,
                            const rti1516e::ParameterHandleValueMap& values,
                            const rti1516e::VariableLengthData& /*tag*/, rti1516e::OrderType /*sent*/,
                            rti1516e::TransportationType /*transport*/, const rti1516e::LogicalTime& /*time*/,
                            rti1516e::OrderType /*received*/,
                            rti1516e::MessageRetractionHandle /*retraction*/,
                            rti1516e::SupplementalReceiveInfo /*info*/) noexcept override {
      deliver(cls, values);
    }
    void synchronizationPointRegistrationFailed(
        const std::wstring& label, rti1516e::SynchronizationPointFailureReason /*why*/) noexcept override {
      if (owner_.label_ == label) owner_.refused_ = true;
    }
    void announceSynchronizationPoint(const std::wstring& label,
                                      const rti1516e::VariableLengthData& /*tag*/) noexcept override {
      if (owner_.label_ == label) owner_.announced_ = true;
    }
    void federationSynchronized(const std::wstring& label,
                                const rti1516e::FederateHandleSet& /*failed*/) noexcept override {
      if (owner_.label_ == label) owner_.synchronized_ = true;
    }
    void connectionLost(const std::wstring& fault) noexcept override {
      owner_.lost_ = fault.empty() ? "connection to the RTI lost" : narrow(fault);
    }

   private:
    void deliver(rti1516e::InteractionClassHandle cls,
                 const rti1516e::ParameterHandleValueMap& values) noexcept {
      try {
        owner_.deliver(cls, values, receiver_);
      } catch (...) {
        if (!owner_.failure_) owner_.failure_ = std::current_exception();
      }
    }

    Link& owner_;
    Receiver& receiver_;
  };

  void join(const DtRti1516eTarget& target, const std::string& federate) {
    std::vector<std::wstring> modules;
    for (const std::string& m : target.fomModules) modules.push_back(wide(m));
    try {
      rti_->createFederationExecution(wide(execution_), modules);
      created_ = true;
    } catch (const rti1516e::FederationExecutionAlreadyExists&) {
    } catch (const rti1516e::Exception& e) {
      DT_THROW("Cannot create federation execution " + execution_ + " from FOM " + target.fomName + ": " +
               describe(e));
    }
    try {
      // A federate joining an execution that others made brings its modules, which the RTI merges.
      self_ = rti_->joinFederationExecution(wide(federate), wide(federate), wide(execution_),
                                            created_ ? std::vector<std::wstring>() : modules);
      joined_ = true;
    } catch (const rti1516e::Exception& e) {
      DT_THROW("Cannot join federation execution " + execution_ + " as " + federate + ": " + describe(e));
    }
  }

  // Resigns and, when no one else is joined, destroys the execution; then disconnects. Leaving must not fail.
  // False when the RTI can no longer serve this federate, found so before or now.
  bool leave() noexcept {
    if (!lost_.empty()) return false;  // nobody left to resign to
    if (joined_) {
      try {
        rti_->resignFederationExecution(rti1516e::DELETE_OBJECTS_THEN_DIVEST);
      } catch (const rti1516e::RTIinternalError&) {
        return false;
      } catch (...) {  // the RTI drops a federate that is gone
      }
      try {
        rti_->destroyFederationExecution(wide(execution_));
      } catch (...) {  // others are still joined, or one of them destroyed it first
      }
      joined_ = false;
    }
    try {
      rti_->disconnect();
    } catch (const rti1516e::RTIinternalError&) {
      return false;
    } catch (...) {
    }
    return true;
  }

  const rti1516e::InteractionClassHandle& classFor(unsigned long cls) const {
    if (cls == 0 || cls > classes_.size())
      DT_THROW("Interaction class " + std::to_string(cls) + " is not a class of execution " + execution_);
    return classes_[cls - 1];
  }

  bool published(unsigned long cls) const {
    for (const unsigned long x : published_)
      if (x == cls) return true;
    return false;
  }

  void publish(unsigned long cls) {
    rti_->publishInteractionClass(classFor(cls));
    published_.push_back(cls);
    lastPublication_ = std::chrono::steady_clock::now();
    publicationsKnown_ = false;
  }

  // An RTI may tell other federates' parts of it of a publication only after it has confirmed it here, and
  // route to their subscribers only once they have answered (OpenRTI's servers do): a send right after a
  // new publication could miss a subscriber. The first send after one lets the RTI work for a bounded time
  // from the publication on.
  void awaitPublicationsKnown() {
    const auto until = lastPublication_ + kPublicationSpread;
    while (std::chrono::steady_clock::now() < until) rti_->evokeMultipleCallbacks(kWaitSlice, kWaitSlice);
    publicationsKnown_ = true;
    rethrowFromCallbacks();
  }

  // The values point into the caller's bytes for the call: the map keeps its nodes from one send to the
  // next, so a send of the same parameters as the last one costs no heap traffic.
  void fill(unsigned long cls, const DtRti1516eValue* values, std::size_t count) {
    bool reuse = sendMap_.size() == count;
    for (std::size_t i = 0; reuse && i < count; ++i) {
      const auto it = sendMap_.find(parameterFor(cls, values[i].parameter));
      if (it == sendMap_.end()) {
        reuse = false;
      } else {
        it->second.setDataPointer(const_cast<char*>(values[i].data), values[i].length);
      }
    }
    if (reuse) return;
    sendMap_.clear();
    for (std::size_t i = 0; i < count; ++i)
      sendMap_[parameterFor(cls, values[i].parameter)].setDataPointer(const_cast<char*>(values[i].data),
                                                                      values[i].length);
  }

  const rti1516e::ParameterHandle& parameterFor(unsigned long cls, unsigned long parameter) const {
    if (parameter == 0 || parameter > parameters_.size() || parameters_[parameter - 1].cls != cls)
      DT_THROW("Parameter " + std::to_string(parameter) + " is not a parameter of interaction class " +
               std::to_string(cls) + " on " + execution_);
    return parameters_[parameter - 1].handle;
  }

  void deliver(rti1516e::InteractionClassHandle handle, const rti1516e::ParameterHandleValueMap& values,
               Receiver& receiver) {
    unsigned long cls = 0;
    for (std::size_t i = 0; i < classes_.size() && cls == 0; ++i)
      if (classes_[i] == handle) cls = i + 1;
    if (cls == 0) return;  // a class this federate never asked for
    received_.clear();
    for (const auto& value : values) {
      for (std::size_t i = 0; i < parameters_.size(); ++i) {
        if (parameters_[i].cls != cls || !(parameters_[i].handle == value.first)) continue;
        received_.push_back(
            DtRti1516eValue{i + 1, static_cast<const char*>(value.second.data()), value.second.size()});
        break;
      }
    }
    receiver.receive(cls, received_.data(), received_.size());
  }

  void rethrowFromCallbacks() {
    if (!failure_) return;
    std::exception_ptr failure = failure_;
    failure_ = nullptr;
    std::rethrow_exception(failure);
  }

  // Publications and subscriptions take effect in the RTI some time after the call returns, and an
  // interaction sent before then can be lost. A synchronization point that only this federate belongs to
  // makes a round trip through the RTI behind them, so once it is reached the RTI has them. An RTI that
  // refuses such a point has answered all the same; after that each declaration gets a bounded settle.
  void confirmDeclarations() {
    if (refused_) {
      const auto until = std::chrono::steady_clock::now() + kUnconfirmedSettle;
      while (std::chrono::steady_clock::now() < until) rti_->evokeMultipleCallbacks(kWaitSlice, kWaitSlice);
      rethrowFromCallbacks();
      return;
    }
    label_ = L"vistral.declared." + self_.toString() + L"." + std::to_wstring(++confirmations_);
    announced_ = synchronized_ = false;
    rti1516e::FederateHandleSet onlyUs;
    onlyUs.insert(self_);
    rti_->registerFederationSynchronizationPoint(label_, kTag, onlyUs);
    if (waitFor(announced_)) {
      rti_->synchronizationPointAchieved(label_);
      waitFor(synchronized_);
    }
    label_.clear();
    rethrowFromCallbacks();
  }

  // False when the RTI refused the point instead.
  bool waitFor(const bool& flag) {
    const auto deadline = std::chrono::steady_clock::now() + kConfirmTimeout;
    while (!flag) {
      if (refused_) return false;
      if (std::chrono::steady_clock::now() > deadline)
        DT_THROW("The RTI did not confirm synchronization point " + narrow(label_) + " on " + execution_);
      rti_->evokeMultipleCallbacks(kWaitSlice, kWaitSlice);
    }
    return true;
  }

  std::string execution_;
  Ambassador ambassador_;
  std::unique_ptr<rti1516e::RTIambassador> owned_;
  rti1516e::RTIambassador* rti_ = nullptr;
  rti1516e::FederateHandle self_;
  bool created_ = false;
  bool joined_ = false;
  std::vector<rti1516e::InteractionClassHandle> classes_;  // the class numbered n is at n - 1
  std::vector<Parameter> parameters_;                      // likewise
  std::vector<unsigned long> published_;
  std::chrono::steady_clock::time_point lastPublication_;
  bool publicationsKnown_ = true;
  rti1516e::ParameterHandleValueMap sendMap_;
  std::vector<DtRti1516eValue> received_;
  // The user-supplied tag of interactions and synchronization points. Some RTIs refuse an empty one ("Calling
  // sendIntercation with Tag NULL"); receivers make nothing of it.
  const rti1516e::VariableLengthData kTag{"vistral", 7};
  std::wstring label_;
  unsigned long confirmations_ = 0;
  bool announced_ = false;
  bool synchronized_ = false;
  bool refused_ = false;
  std::exception_ptr failure_;
  std::string lost_;
};
}  // namespace

std::unique_ptr<DtRti1516eLink> DtRti1516eJoin(const DtRti1516eTarget& target, const std::string& federate,
                                               void* rtiAmbassador, DtRti1516eLink::Receiver& receiver) {
  return std::unique_ptr<DtRti1516eLink>(new Link(target, federate, rtiAmbassador, receiver));
}
