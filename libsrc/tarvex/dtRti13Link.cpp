// The only source that includes the RTI's headers. It speaks the standard RTI 1.3 API only
// (RTI::RTIambassador, a federate ambassador, RTI::ParameterSetFactory), so that any vendor's RTI 1.3 serves,
// and it is built at the language level of those headers; where they are not the interface's types it adapts
// the parameter sets.
#include "dtRti13Link.h"

#include <unistd.h>
#include <NullFederateAmbassador.hh>
#include <RTI.hh>

#include <chrono>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

#include "dtRtiLocalPart.h"
#include "tarvex/dtException.h"

DtRti13Link::~DtRti13Link() = default;

namespace {
// How long a federate waits for the RTI to confirm a declaration before it gives up.
constexpr std::chrono::seconds kConfirmTimeout(30);
// Where the RTI refuses the private synchronization point and has no other confirmation, how long a
// declaration lets the RTI work before the call returns.
constexpr std::chrono::milliseconds kUnconfirmedSettle(250);
constexpr RTI::TickTime kWaitSlice = 0.01;
// How long after a publication the RTI is given before the first send, for the other federates' parts of it
// to take it in.
constexpr std::chrono::milliseconds kPublicationSpread(250);

std::string describe(const RTI::Exception& e) {
  return std::string(e._name ? e._name : "RTI exception") + ": " + (e._reason ? e._reason : "");
}

bool isCerti() {
#ifdef RTI_VERSION
  return std::strncmp(RTI_VERSION, "CERTI", 5) == 0;
#else
  return false;
#endif
}

// CERTI's server takes a publication or subscription before the call returns (and refuses a synchronization
// point that only its registrant belongs to); other RTIs confirm declarations with that round trip.
bool declaresBeforeReturn() { return isCerti(); }

// CERTI's local part (rtia) is a process of its own, reached through a socket.
bool localPartApart() { return isCerti(); }

#if !TARVEX_RTI13_TYPES_FROM_RTI
using Own = tarvex::RTI;

// Runs a call on one of the RTI's sets, with the RTI's index error turned into the interface's.
template <class F>
auto indexed(F call) -> decltype(call()) {
  try {
    return call();
  } catch (const RTI::ArrayIndexOutOfBounds&) {
    throw Own::ArrayIndexOutOfBounds("parameter index out of range");
  }
}

// One of the RTI's own parameter sets behind the interface's type: the send set, which encoders fill in
// place, or a set the RTI delivered, which is read-only. Values are read and written where the RTI keeps
// them.
class InterfaceSet final : public Own::ParameterHandleValuePairSet {
 public:
  explicit InterfaceSet(RTI::ParameterHandleValuePairSet& writable) : set_(writable), writable_(&writable) {}
  explicit InterfaceSet(const RTI::ParameterHandleValuePairSet& received) : set_(received) {}

  Own::ULong size() const override { return static_cast<Own::ULong>(set_.size()); }
  Own::Handle getHandle(Own::ULong i) const override {
    return indexed([&] { return static_cast<Own::Handle>(set_.getHandle(i)); });
  }
  Own::ULong getValueLength(Own::ULong i) const override {
    return indexed([&] { return static_cast<Own::ULong>(set_.getValueLength(i)); });
  }
  void getValue(Own::ULong i, char* buffer, Own::ULong& length) const override {
    RTI::ULong n = 0;
    indexed([&] { set_.getValue(i, buffer, n); });
    length = static_cast<Own::ULong>(n);
  }
  // An empty value is not asked for its bytes: some RTIs take the address of an empty vector's first element.
  char* getValuePointer(Own::ULong i, Own::ULong& length) const override {
    RTI::ULong n = 0;
    char* value = getValueLength(i) == 0 ? nullptr : indexed([&] { return set_.getValuePointer(i, n); });
    length = static_cast<Own::ULong>(n);
    return value;
  }
  Own::TransportType getTransportType() const override { return 1; }  // reliable
  Own::OrderType getOrderType() const override { return 1; }          // receive order
  Own::Region* getRegion() const override { return nullptr; }
  void add(Own::Handle handle, const char* value, Own::ULong length) override {
    writable().add(handle, value, value == nullptr ? 0 : length);
  }
  void remove(Own::Handle handle) override {
    try {
      writable().remove(handle);
    } catch (const RTI::ArrayIndexOutOfBounds&) {
      throw Own::ArrayIndexOutOfBounds("parameter handle not in the set");
    }
  }
  void moveFrom(const Own::ParameterHandleValuePairSet& other, Own::ULong& index) override {
    Own::ULong length = 0;
    const char* value = other.getValuePointer(index, length);
    add(other.getHandle(index), value, length);
    ++index;
  }
  void empty() override { writable().empty(); }
  Own::ULong start() const override { return 0; }
  Own::ULong valid(Own::ULong i) const override { return i < size() ? 1 : 0; }
  Own::ULong next(Own::ULong i) const override { return i + 1; }

 private:
  RTI::ParameterHandleValuePairSet& writable() const {
    if (writable_ == nullptr)
      throw Own::InvalidHandleValuePairSetContext("a received parameter set cannot be changed");
    return *writable_;
  }

  const RTI::ParameterHandleValuePairSet& set_;
  RTI::ParameterHandleValuePairSet* writable_ = nullptr;
};
#endif

class Link final : public DtRti13Link {
 public:
  Link(const std::string& execution, const std::string& federate, const std::string& fedPath,
       const std::string& fedName, void* rtiAmbassador, Receiver& receiver)
      : execution_(execution), ambassador_(*this, receiver), sendSet_(RTI::ParameterSetFactory::create(1)) {
    const DtPipeSignalGuard guard(localPartApart_);
    if (rtiAmbassador != nullptr) {
      rti_ = static_cast<RTI::RTIambassador*>(rtiAmbassador);
    } else {
      try {
        owned_.reset(new RTI::RTIambassador());
      } catch (const RTI::Exception& e) {  // CERTI's, when its local part cannot reach the server
        DT_THROW("Cannot make an RTI ambassador for " + execution + ": " + describe(e));
      }
      rti_ = owned_.get();
    }
    try {
      rti_->createFederationExecution(execution.c_str(), fedPath.c_str());
      created_ = true;
    } catch (const RTI::FederationExecutionAlreadyExists&) {
    } catch (const RTI::Exception& e) {
      DT_THROW("Cannot create federation execution " + execution + " from FED file " + fedName + ": " +
               describe(e));
    }
    try {
      self_ = rti_->joinFederationExecution(federate.c_str(), execution.c_str(), &ambassador_);
    } catch (const RTI::Exception& e) {
      DT_THROW("Cannot join federation execution " + execution + " as " + federate + ": " + describe(e));
    }
  }

  ~Link() override {
    const DtPipeSignalGuard guard(localPartApart_);
    // A federate whose local part is gone, found so before or now, has nobody left to resign to or to close.
    const bool gone = !lost_.empty() || !leave();
    if (gone && localPartApart_) {
      DtAbandonAmbassador(owned_.release());
    } else {
      owned_.reset();
    }
  }

  bool createdExecution() const override { return created_; }

  bool interactionClassHandle(const std::string& name, unsigned long* handle) const override {
    const DtPipeSignalGuard guard(localPartApart_);
    try {
      *handle = rti_->getInteractionClassHandle(name.c_str());
      return true;
    } catch (const RTI::Exception&) {
      return false;
    }
  }

  bool parameterHandle(const std::string& name, unsigned long cls, unsigned long* handle) const override {
    const DtPipeSignalGuard guard(localPartApart_);
    try {
      *handle = rti_->getParameterHandle(name.c_str(), static_cast<RTI::InteractionClassHandle>(cls));
      return true;
    } catch (const RTI::Exception&) {
      return false;
    }
  }

#if TARVEX_RTI13_TYPES_FROM_RTI
  DtRti13InterfaceSet& sendSet() override { return *sendSet_; }
#else
  DtRti13InterfaceSet& sendSet() override { return sendView_; }
#endif

  void send(unsigned long cls, const DtRti13InterfaceSet& set) override {
    const auto handle = static_cast<RTI::InteractionClassHandle>(cls);
    const DtPipeSignalGuard guard(localPartApart_);
    try {
      if (!published(handle)) {
        publish(handle);
        confirmDeclarations();
      }
      if (!publicationsKnown_) awaitPublicationsKnown();
      rti_->sendInteraction(handle, forRti(set), "");
    } catch (const RTI::Exception& e) {
      DT_THROW("Cannot send interaction class " + std::to_string(cls) + " on " + execution_ + ": " +
               describe(e));
    }
  }

  void subscribe(unsigned long cls, bool on) override {
    const auto handle = static_cast<RTI::InteractionClassHandle>(cls);
    const DtPipeSignalGuard guard(localPartApart_);
    try {
      if (on) {
        rti_->subscribeInteractionClass(handle, RTI::RTI_TRUE);
        // A federate that listens to a class answers in it too: published now, the class is known across
        // the federation by the time the first answer goes out.
        if (!published(handle)) publish(handle);
      } else {
        rti_->unsubscribeInteractionClass(handle);
      }
      confirmDeclarations();
    } catch (const RTI::Exception& e) {
      DT_THROW("Cannot " + std::string(on ? "subscribe to" : "unsubscribe from") + " interaction class " +
               std::to_string(cls) + " on " + execution_ + ": " + describe(e));
    }
  }

  // Taking what has arrived needs nothing but a live RTI: when it fails, the federation is gone (OpenRTI
  // reports a lost server here), and no later call can succeed.
  void tick() override {
    if (!lost_.empty()) DT_THROW("Lost federation execution " + execution_ + ": " + lost_);
    const DtPipeSignalGuard guard(localPartApart_);
    try {
      rti_->tick();
    } catch (const RTI::Exception& e) {
      lost_ = describe(e);
      DT_THROW("Lost federation execution " + execution_ + ": " + lost_);
    }
    rethrowFromCallbacks();
  }

  const std::string& lostReason() const override { return lost_; }

 private:
  // Receives on the RTI's behalf inside tick(): interactions go to the receiver, and the synchronization
  // points of confirmDeclarations() are followed. Nothing may leave a callback towards the RTI, so a failure
  // waits in failure_ until the tick returns.
  class Ambassador final : public NullFederateAmbassador {
   public:
    Ambassador(Link& owner, Receiver& receiver) : owner_(owner), receiver_(receiver) {}
    ~Ambassador() noexcept override {}  // some RTIs let the base's destructor throw
    void receiveInteraction(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set,
                            const RTI::FedTime& /*time*/, const char* /*tag*/,
                            RTI::EventRetractionHandle /*retraction*/) noexcept override {
      deliver(cls, set);
    }
    void receiveInteraction(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set,
                            const char* /*tag*/) noexcept override {
      deliver(cls, set);
    }
    void synchronizationPointRegistrationFailed(const char* label) noexcept override {
      if (owner_.label_ == label) owner_.refused_ = true;
    }
    void announceSynchronizationPoint(const char* label, const char* /*tag*/) noexcept override {
      if (owner_.label_ == label) owner_.announced_ = true;
    }
    void federationSynchronized(const char* label) noexcept override {
      if (owner_.label_ == label) owner_.synchronized_ = true;
    }

   private:
    void deliver(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) noexcept {
      try {
#if TARVEX_RTI13_TYPES_FROM_RTI
        receiver_.receive(cls, set);
#else
        receiver_.receive(cls, InterfaceSet(set));
#endif
      } catch (...) {
        if (!owner_.failure_) owner_.failure_ = std::current_exception();
      }
    }

    Link& owner_;
    Receiver& receiver_;
  };

  // False when the RTI could not take the resignation: it can no longer serve this federate.
  bool leave() {
    try {
      rti_->resignFederationExecution(RTI::DELETE_OBJECTS_AND_RELEASE_ATTRIBUTES);
    } catch (const RTI::RTIinternalError&) {
      return false;
    } catch (...) {  // leaving must not fail; the RTI drops a federate that is gone
    }
    try {
      rti_->destroyFederationExecution(execution_.c_str());
    } catch (...) {  // others are still joined, or one of them destroyed it first
    }
    return true;
  }

  bool published(RTI::InteractionClassHandle h) const {
    for (RTI::InteractionClassHandle x : published_)
      if (x == h) return true;
    return false;
  }

  void publish(RTI::InteractionClassHandle h) {
    rti_->publishInteractionClass(h);
    published_.push_back(h);
    lastPublication_ = std::chrono::steady_clock::now();
    publicationsKnown_ = false;
  }

  // An RTI may tell other federates' parts of it of a publication only after it has confirmed it here, and
  // route to their subscribers only once they have answered (OpenRTI's servers do): a send right after a
  // new publication could miss a subscriber. The first send after one lets the RTI work for a bounded time
  // from the publication on.
  void awaitPublicationsKnown() {
    const auto until = lastPublication_ + kPublicationSpread;
    while (std::chrono::steady_clock::now() < until) rti_->tick(kWaitSlice, kWaitSlice);
    publicationsKnown_ = true;
    rethrowFromCallbacks();
  }

  void rethrowFromCallbacks() {
    if (!failure_) return;
    std::exception_ptr failure = failure_;
    failure_ = nullptr;
    std::rethrow_exception(failure);
  }

#if TARVEX_RTI13_TYPES_FROM_RTI
  const RTI::ParameterHandleValuePairSet& forRti(const DtRti13InterfaceSet& set) { return set; }
#else
  // The send set is the RTI's own already; any other set is copied into one.
  const RTI::ParameterHandleValuePairSet& forRti(const DtRti13InterfaceSet& set) {
    if (&set == &sendView_) return *sendSet_;
    if (!otherSet_) otherSet_.reset(RTI::ParameterSetFactory::create(set.size()));
    otherSet_->empty();
    for (Own::ULong i = 0; i < set.size(); ++i) {
      Own::ULong length = 0;
      const char* value = set.getValuePointer(i, length);
      otherSet_->add(set.getHandle(i), value, length);
    }
    return *otherSet_;
  }
#endif

  // Publications and subscriptions take effect in the RTI some time after the call returns, and an
  // interaction sent before then can be lost. A synchronization point that only this federate belongs to
  // makes a round trip through the RTI behind them, so once it is reached the RTI has them. An RTI that
  // refuses such a point has answered all the same; after that each declaration gets a bounded settle.
  void confirmDeclarations() {
    if (declaresBeforeReturn_) return;
    if (refused_) {
      const auto until = std::chrono::steady_clock::now() + kUnconfirmedSettle;
      while (std::chrono::steady_clock::now() < until) rti_->tick(kWaitSlice, kWaitSlice);
      rethrowFromCallbacks();
      return;
    }
    label_ = "vistral.declared." + std::to_string(self_) + "." + std::to_string(++confirmations_);
    announced_ = synchronized_ = false;
    const std::unique_ptr<RTI::FederateHandleSet> onlyUs(RTI::FederateHandleSetFactory::create(1));
    onlyUs->add(self_);
    rti_->registerFederationSynchronizationPoint(label_.c_str(), "", *onlyUs);
    if (waitFor(announced_)) {
      rti_->synchronizationPointAchieved(label_.c_str());
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
        DT_THROW("The RTI did not confirm synchronization point " + label_ + " on " + execution_);
      rti_->tick(kWaitSlice, kWaitSlice);
    }
    return true;
  }

  const bool localPartApart_ = localPartApart();
  std::string execution_;
  Ambassador ambassador_;
  std::unique_ptr<RTI::RTIambassador> owned_;
  RTI::RTIambassador* rti_ = nullptr;
  RTI::FederateHandle self_ = 0;
  bool created_ = false;
  std::unique_ptr<RTI::ParameterHandleValuePairSet> sendSet_;
#if !TARVEX_RTI13_TYPES_FROM_RTI
  InterfaceSet sendView_{*sendSet_};
  std::unique_ptr<RTI::ParameterHandleValuePairSet> otherSet_;
#endif
  std::vector<RTI::InteractionClassHandle> published_;
  std::chrono::steady_clock::time_point lastPublication_;
  bool publicationsKnown_ = true;
  const bool declaresBeforeReturn_ = declaresBeforeReturn();
  std::string label_;
  unsigned long confirmations_ = 0;
  bool announced_ = false;
  bool synchronized_ = false;
  bool refused_ = false;
  std::exception_ptr failure_;
  std::string lost_;
};
}  // namespace

std::unique_ptr<DtRti13Link> DtRti13Join(const std::string& execution, const std::string& federate,
                                         const std::string& fedPath, const std::string& fedName,
                                         void* rtiAmbassador, DtRti13Link::Receiver& receiver) {
  return std::unique_ptr<DtRti13Link>(
      new Link(execution, federate, fedPath, fedName, rtiAmbassador, receiver));
}
