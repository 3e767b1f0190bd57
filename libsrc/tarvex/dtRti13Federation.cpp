// The HLA 1.3 RTI backend: one joined federate, whose dealings with the RTI go through dtRti13Link.h, so that
// this source never includes the RTI's headers beyond what the interface does.
#include "dtFederationBackend.h"

#if TARVEX_HAVE_RTI13
#include <memory>
#include <string>

#include "dtRti13Link.h"
#include "dtTemporaryFile.h"
#include "tarvex/dtException.h"

namespace {

class Rti13Federate final : public DtFederationBackend, private DtRti13Link::Receiver {
 public:
  Rti13Federate(const std::string& execution, const std::string& federate, const DtFomSource& fom,
                void* rtiAmbassador, DtIncomingQueue& queue)
      : fom_(fom.fom), queue_(queue) {
    // The RTI takes a FED file by path only: the built-in one lives in a temporary file during the join.
    std::unique_ptr<DtTemporaryFile> builtIn;
    if (fom.path.empty())
      builtIn = std::make_unique<DtTemporaryFile>(DtBuiltInFomText, ".fed", "the built-in FOM");
    link_ = DtRti13Join(execution, federate, builtIn ? builtIn->path() : fom.path,
                        fom.path.empty() ? std::string(DtBuiltInFomName) : fom.path, rtiAmbassador, *this);
  }

  const char* name() const override { return "rti13"; }
  DtInitStatus initStatus() const override {
    return link_->createdExecution() ? DtInitCreatedExecution : DtInitJoinedExecution;
  }

  std::vector<std::unique_ptr<DtInterClassDesc>> interactionClasses() const override {
    std::vector<std::unique_ptr<DtInterClassDesc>> out;
    for (const DtFedInteractionClass& c : fom_.interactionClasses()) {
      unsigned long handle = 0;
      if (!classHandle(c, &handle)) continue;  // the execution's FOM lacks it
      auto desc = std::make_unique<DtInterClassDesc>(c.fullName, c.name,
                                                     static_cast<RTI::InteractionClassHandle>(handle));
      for (const std::string& p : c.parameters) {
        unsigned long parameter = 0;  // absent when the execution's class lacks it
        if (link_->parameterHandle(p, handle, &parameter))
          desc->addParameter(p, static_cast<RTI::ParameterHandle>(parameter));
      }
      out.push_back(std::move(desc));
    }
    return out;
  }

  RTI::ParameterHandleValuePairSet& sendSet() override { return link_->sendSet(); }
  void send(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) override {
    link_->send(cls, set);
  }
  void subscribe(RTI::InteractionClassHandle cls, bool on) override { link_->subscribe(cls, on); }
  void poll() override { link_->tick(); }

 private:
  void receive(unsigned long cls, const RTI::ParameterHandleValuePairSet& set) override {
    queue_.push(static_cast<RTI::InteractionClassHandle>(cls), set);
  }

  // RTIs differ in the names they accept: the dotted full name, or the name below the root.
  bool classHandle(const DtFedInteractionClass& c, unsigned long* handle) const {
    const std::string root = "InteractionRoot.";
    if (link_->interactionClassHandle(c.fullName, handle)) return true;
    return c.fullName.compare(0, root.size(), root) == 0 &&
           link_->interactionClassHandle(c.fullName.substr(root.size()), handle);
  }

  DtFedFile fom_;
  DtIncomingQueue& queue_;
  std::unique_ptr<DtRti13Link> link_;
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
