// The HLA 1.3 RTI backend: one joined federate, whose dealings with the RTI go through dtRti13Link.h, so that
// this source never includes the RTI's headers beyond what the interface does.
#include "dtFederationBackend.h"

#if TARVEX_HAVE_RTI13
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "dtRti13Link.h"
#include "tarvex/dtException.h"

namespace {

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

class Rti13Federate final : public DtFederationBackend, private DtRti13Link::Receiver {
 public:
  Rti13Federate(const std::string& execution, const std::string& federate, const DtFomSource& fom,
                void* rtiAmbassador, DtIncomingQueue& queue)
      : fom_(fom.fom), queue_(queue) {
    const FedFileForRti fed(fom);
    link_ = DtRti13Join(execution, federate, fed.path(),
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
