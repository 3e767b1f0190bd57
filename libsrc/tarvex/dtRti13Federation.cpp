// The HLA 1.3 RTI backend: one joined federate through the standard RTI 1.3 API only (RTI::RTIambassador, a
// federate ambassador, RTI::ParameterSetFactory), so that any vendor's RTI 1.3 serves.
#include "dtFederationBackend.h"

#if TARVEX_HAVE_RTI13
#include <unistd.h>
#include <NullFederateAmbassador.hh>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tarvex/dtException.h"

namespace {
// How long a connection waits for the RTI to confirm a declaration before it gives up.
constexpr std::chrono::seconds kConfirmTimeout(30);
constexpr RTI::TickTime kWaitSlice = 0.01;

std::string describe(const RTI::Exception& e) {
  return std::string(e._name ? e._name : "RTI exception") + ": " + (e._reason ? e._reason : "");
}

// The FOM handed to the RTI as a file: the one named, or the built-in one written to a temporary file that
// lives as long as the create call needs it.
class FedFileForRti {
 public:
  explicit FedFileForRti(const DtFomSource& source) {
    if (!source.path.empty()) {
      path_ = source.path;
      return;
    }
    char name[] = "/tmp/vistral-fom-XXXXXX.fed";
    const int fd = mkstemps(name, 4);
    if (fd < 0) DT_THROW("Cannot write the built-in FOM to a temporary file for the RTI");
    const std::string text = DtBuiltInFomText;
    const bool written = write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    close(fd);
    path_ = name;
    temporary_ = true;
    if (!written) DT_THROW("Cannot write the built-in FOM to " + path_);
  }
  ~FedFileForRti() {
    if (temporary_) std::remove(path_.c_str());
  }
  FedFileForRti(const FedFileForRti&) = delete;
  FedFileForRti& operator=(const FedFileForRti&) = delete;
  const char* path() const { return path_.c_str(); }

 private:
  std::string path_;
  bool temporary_ = false;
};

class Rti13Federate final : public DtFederationBackend {
 public:
  Rti13Federate(const std::string& execution, const std::string& federate, const DtFomSource& fom,
                void* rtiAmbassador, DtIncomingQueue& queue)
      : execution_(execution), fom_(fom.fom), queue_(queue), ambassador_(*this) {
    if (rtiAmbassador != nullptr) {
      rti_ = static_cast<RTI::RTIambassador*>(rtiAmbassador);
    } else {
      owned_ = std::make_unique<RTI::RTIambassador>();
      rti_ = owned_.get();
    }
    createOrFindExecution(fom);
    try {
      self_ = rti_->joinFederationExecution(federate.c_str(), execution.c_str(), &ambassador_);
    } catch (const RTI::Exception& e) {
      DT_THROW("Cannot join federation execution " + execution + " as " + federate + ": " + describe(e));
    }
    sendSet_.reset(RTI::ParameterSetFactory::create(1));
  }

  ~Rti13Federate() override {
    try {
      rti_->resignFederationExecution(RTI::DELETE_OBJECTS_AND_RELEASE_ATTRIBUTES);
    } catch (...) {  // leaving must not fail; the RTI drops a federate that is gone
    }
    try {
      rti_->destroyFederationExecution(execution_.c_str());
    } catch (...) {  // others are still joined, or one of them destroyed it first
    }
  }

  const char* name() const override { return "rti13"; }
  DtInitStatus initStatus() const override { return status_; }

  std::vector<std::unique_ptr<DtInterClassDesc>> interactionClasses() const override {
    std::vector<std::unique_ptr<DtInterClassDesc>> out;
    for (const DtFedInteractionClass& c : fom_.interactionClasses()) {
      RTI::InteractionClassHandle handle = 0;
      if (!classHandle(c, &handle)) continue;  // the execution's FOM lacks it
      auto desc = std::make_unique<DtInterClassDesc>(c.fullName, c.name, handle);
      for (const std::string& p : c.parameters) {
        try {
          desc->addParameter(p, rti_->getParameterHandle(p.c_str(), handle));
        } catch (const RTI::Exception&) {  // not a parameter of the execution's class
        }
      }
      out.push_back(std::move(desc));
    }
    return out;
  }

  RTI::ParameterHandleValuePairSet& sendSet() override { return *sendSet_; }

  void send(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) override {
    try {
      if (!contains(published_, cls)) {
        rti_->publishInteractionClass(cls);
        published_.push_back(cls);
        confirmDeclarations();
      }
      rti_->sendInteraction(cls, set, "");
    } catch (const RTI::Exception& e) {
      DT_THROW("Cannot send interaction class " + std::to_string(cls) + " on " + execution_ + ": " +
               describe(e));
    }
  }

  void subscribe(RTI::InteractionClassHandle cls, bool on) override {
    try {
      if (on) {
        rti_->subscribeInteractionClass(cls, RTI::RTI_TRUE);
      } else {
        rti_->unsubscribeInteractionClass(cls);
      }
      confirmDeclarations();
    } catch (const RTI::Exception& e) {
      DT_THROW("Cannot " + std::string(on ? "subscribe to" : "unsubscribe from") + " interaction class " +
               std::to_string(cls) + " on " + execution_ + ": " + describe(e));
    }
  }

  void poll() override {
    try {
      rti_->tick();
    } catch (const RTI::Exception& e) {
      DT_THROW("Cannot take interactions from the RTI for " + execution_ + ": " + describe(e));
    }
  }

 private:
  // Receives on the RTI's behalf inside tick(): interactions are queued for processIncoming(), and the
  // synchronization points of confirmDeclarations() are followed.
  class Ambassador final : public NullFederateAmbassador {
   public:
    explicit Ambassador(Rti13Federate& owner) : owner_(owner) {}
    void receiveInteraction(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set,
                            const RTI::FedTime& /*time*/, const char* /*tag*/,
                            RTI::EventRetractionHandle /*retraction*/) override {
      owner_.queue_.push(cls, set);
    }
    void receiveInteraction(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set,
                            const char* /*tag*/) override {
      owner_.queue_.push(cls, set);
    }
    void synchronizationPointRegistrationFailed(const char* label) override {
      if (owner_.label_ == label) owner_.syncFailed_ = true;
    }
    void announceSynchronizationPoint(const char* label, const char* /*tag*/) override {
      if (owner_.label_ == label) owner_.announced_ = true;
    }
    void federationSynchronized(const char* label) override {
      if (owner_.label_ == label) owner_.synchronized_ = true;
    }

   private:
    Rti13Federate& owner_;
  };

  static bool contains(const std::vector<RTI::InteractionClassHandle>& v, RTI::InteractionClassHandle h) {
    for (RTI::InteractionClassHandle x : v)
      if (x == h) return true;
    return false;
  }

  void createOrFindExecution(const DtFomSource& fom) {
    const FedFileForRti fed(fom);
    try {
      rti_->createFederationExecution(execution_.c_str(), fed.path());
      status_ = DtInitCreatedExecution;
    } catch (const RTI::FederationExecutionAlreadyExists&) {
      status_ = DtInitJoinedExecution;
    } catch (const RTI::Exception& e) {
      DT_THROW("Cannot create federation execution " + execution_ + " from FED file " +
               (fom.path.empty() ? std::string(DtBuiltInFomName) : fom.path) + ": " + describe(e));
    }
  }

  // RTIs differ in the names they accept: the dotted full name, or the name below the root.
  bool classHandle(const DtFedInteractionClass& c, RTI::InteractionClassHandle* handle) const {
    const std::string root = "InteractionRoot.";
    std::vector<std::string> names{c.fullName};
    if (c.fullName.compare(0, root.size(), root) == 0) names.push_back(c.fullName.substr(root.size()));
    for (const std::string& n : names) {
      try {
        *handle = rti_->getInteractionClassHandle(n.c_str());
        return true;
      } catch (const RTI::Exception&) {
      }
    }
    return false;
  }

  // Publications and subscriptions take effect in the RTI some time after the call returns, and an
  // interaction sent before then can be lost. A synchronization point that only this federate belongs to
  // makes a round trip through the RTI behind them, so once it is reached the RTI has them.
  void confirmDeclarations() {
    label_ = "vistral.declared." + std::to_string(self_) + "." + std::to_string(++confirmations_);
    announced_ = synchronized_ = syncFailed_ = false;
    const std::unique_ptr<RTI::FederateHandleSet> onlyUs(RTI::FederateHandleSetFactory::create(1));
    onlyUs->add(self_);
    rti_->registerFederationSynchronizationPoint(label_.c_str(), "", *onlyUs);
    waitFor(announced_);
    rti_->synchronizationPointAchieved(label_.c_str());
    waitFor(synchronized_);
    label_.clear();
  }

  void waitFor(const bool& flag) {
    const auto deadline = std::chrono::steady_clock::now() + kConfirmTimeout;
    while (!flag) {
      if (syncFailed_) DT_THROW("The RTI refused synchronization point " + label_ + " on " + execution_);
      if (std::chrono::steady_clock::now() > deadline)
        DT_THROW("The RTI did not confirm synchronization point " + label_ + " on " + execution_);
      rti_->tick(kWaitSlice, kWaitSlice);
    }
  }

  std::string execution_;
  DtFedFile fom_;
  DtIncomingQueue& queue_;
  Ambassador ambassador_;
  std::unique_ptr<RTI::RTIambassador> owned_;
  RTI::RTIambassador* rti_ = nullptr;
  RTI::FederateHandle self_ = 0;
  DtInitStatus status_ = DtInitJoinedExecution;
  std::unique_ptr<RTI::ParameterHandleValuePairSet> sendSet_;
  std::vector<RTI::InteractionClassHandle> published_;
  std::string label_;
  unsigned long confirmations_ = 0;
  bool announced_ = false;
  bool synchronized_ = false;
  bool syncFailed_ = false;
};
}  // namespace

std::unique_ptr<DtFederationBackend> DtJoinRti13Federation(const std::string& execution,
                                                           const std::string& federate,
                                                           const DtFomSource& fom, void* rtiAmbassador,
                                                           DtIncomingQueue& queue) {
  return std::make_unique<Rti13Federate>(execution, federate, fom, rtiAmbassador, queue);
}

#else

std::unique_ptr<DtFederationBackend> DtJoinRti13Federation(const std::string& /*execution*/,
                                                           const std::string& /*federate*/,
                                                           const DtFomSource& /*fom*/,
                                                           void* /*rtiAmbassador*/,
                                                           DtIncomingQueue& /*queue*/) {
  return nullptr;  // no RTI in this build; the connection reports it
}

#endif
