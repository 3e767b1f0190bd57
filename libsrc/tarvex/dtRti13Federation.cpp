// The HLA 1.3 RTI backend: one joined federate, whose dealings with the RTI go through dtRti13Link.h, so that
// this source never includes the RTI's headers beyond what the interface does.
#include "dtFederationBackend.h"

#if TARVEX_HAVE_RTI13
#include <memory>
#include <string>

#include "dtRti13Link.h"
#include "dtServerWatch.h"
#include "dtTemporaryFile.h"
#include "tarvex/dtException.h"

namespace {

class Rti13Federate final : public DtFederationBackend, private DtRti13Link::Receiver {
 public:
  Rti13Federate(const std::string& execution, const std::string& federate, const DtFomSource& fom,
                void* rtiAmbassador, DtIncomingQueue& queue)
      : fom_(fom.fom), queue_(queue), execution_(execution), watch_(execution) {
    // A federate of an RTI that has a local part of its own would join a federation of its own.
    const std::string absent = watch_.probe();
    if (!absent.empty()) DT_THROW("Cannot join federation execution " + execution + ": " + absent);
    // The RTI takes a FED file by path only: the built-in one lives in a temporary file during the join.
    std::unique_ptr<DtTemporaryFile> builtIn;
    if (fom.path.empty())
      builtIn = std::make_unique<DtTemporaryFile>(DtBuiltInFomText, ".fed", "the built-in FOM");
    link_ = DtRti13Join(watch_.urlForRti(execution), federate, builtIn ? builtIn->path() : fom.path,
                        fom.path.empty() ? std::string(DtBuiltInFomName) : fom.path, rtiAmbassador, *this);
  }

  const char* name() const override { return "rti13"; }
  DtInitStatus initStatus() const override {
    return link_->createdExecution() ? DtInitCreatedExecution : DtInitJoinedExecution;
  }

  std::vector<std::unique_ptr<DtInterClassDesc>> interactionClasses() const override {
    return DtClassesWithRtiHandles(fom_, *link_, "InteractionRoot.");
  }

  RTI::ParameterHandleValuePairSet& sendSet() override { return link_->sendSet(); }
  void send(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) override {
    link_->send(cls, set);
  }
  void subscribe(RTI::InteractionClassHandle cls, bool on) override { link_->subscribe(cls, on); }
  // What arrived is queued before the server's absence is reported, so none of it is lost.
  void poll() override {
    link_->tick();
    const std::string gone = watch_.check();
    if (!gone.empty()) DT_THROW("Lost federation execution " + execution_ + ": " + gone);
  }
  std::string lostReason() const override {
    return link_->lostReason().empty() ? watch_.lost() : link_->lostReason();
  }

 private:
  void receive(unsigned long cls, const RTI::ParameterHandleValuePairSet& set) override {
    queue_.push(static_cast<RTI::InteractionClassHandle>(cls), set);
  }

  DtFedFile fom_;
  DtIncomingQueue& queue_;
  std::unique_ptr<DtRti13Link> link_;
  std::string execution_;
  DtServerWatch watch_;
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
