// The HLA Evolved (IEEE 1516-2010) backend: one joined federate, whose dealings with the RTI go through
// dtRti1516eLink.h, so that this source never includes the RTI's headers.
//
// Execution names of this edition:
//   hla1516e:<execution>                 the RTI's own default connection (for example CERTI's rtig, found by
//   hla1516e:///<execution>              its environment)
//   hla1516e+<scheme>://<host>/<execution>  the RTI's local settings designator "<scheme>://<host>", for
//                                        example hla1516e+rti://127.0.0.1:14321/Exec (OpenRTI's rtinode) or
//                                        hla1516e+thread:///Exec (OpenRTI in this process)
// With the backend named ("rti1516e"), any other name is the execution's, on the RTI's default connection.
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "dtFederationBackend.h"
#include "dtRti1516eLink.h"
#include "dtServerWatch.h"
#include "dtTemporaryFile.h"
#include "tarvex/dtException.h"
#include "tarvex/dtParameterSet.h"

namespace {
constexpr char kScheme[] = "hla1516e";
constexpr std::size_t kSchemeLength = sizeof(kScheme) - 1;
}  // namespace

bool DtNamesRti1516e(const std::string& execution) {
  return execution.compare(0, kSchemeLength, kScheme) == 0 && execution.size() > kSchemeLength &&
         (execution[kSchemeLength] == ':' || execution[kSchemeLength] == '+');
}

#if TARVEX_HAVE_RTI1516E
namespace {
[[noreturn]] void badName(const std::string& name) {
  DT_THROW("Execution name " + name +
           " is not of the form hla1516e:<execution> or hla1516e+<scheme>://<host>/<execution>");
}

// Where the RTI is and what the execution is called, from the execution name.
DtRti1516eTarget targetOf(const std::string& name) {
  DtRti1516eTarget target;
  if (!DtNamesRti1516e(name)) {
    target.execution = name;
    return target;
  }
  const std::string rest = name.substr(kSchemeLength + 1);
  if (name[kSchemeLength] == ':') {
    target.execution = rest.compare(0, 3, "///") == 0 ? rest.substr(3) : rest;
  } else {
    const auto scheme = rest.find("://");
    const auto slash = scheme == std::string::npos ? scheme : rest.find('/', scheme + 3);
    if (scheme == 0 || slash == std::string::npos) badName(name);
    target.localSettings = rest.substr(0, slash);
    target.execution = rest.substr(slash + 1);
  }
  if (target.execution.empty() || target.execution.find('/') != std::string::npos) badName(name);
  return target;
}

class Rti1516eFederate final : public DtFederationBackend, private DtRti1516eLink::Receiver {
 public:
  Rti1516eFederate(const std::string& execution, const std::string& federate, const DtFomSource& fom,
                   void* rtiAmbassador, DtIncomingQueue& queue)
      : fom_(fom.fom), queue_(queue), execution_(execution), watch_(execution) {
    DtRti1516eTarget target = targetOf(execution);
    // A federate of an RTI that has a local part of its own would join a federation of its own.
    const std::string absent = watch_.probe();
    if (!absent.empty()) DT_THROW("Cannot join federation execution " + execution + ": " + absent);
    // The RTI takes FOM modules by path: the built-in one lives in a temporary file during the join.
    std::unique_ptr<DtTemporaryFile> builtIn;
    if (fom.modules.empty()) {
      builtIn = std::make_unique<DtTemporaryFile>(DtBuiltInFomModuleText, ".xml", "the built-in FOM module");
      target.fomModules.push_back(builtIn->path());
      target.fomName = DtBuiltInFomModuleName;
    } else {
      target.fomModules = fom.modules;
      target.fomName = fom.path;
    }
    target.localSettings = watch_.urlForRti(target.localSettings);
    link_ = DtRti1516eJoin(target, federate, rtiAmbassador, *this);
  }

  const char* name() const override { return "rti1516e"; }
  DtInitStatus initStatus() const override {
    return link_->createdExecution() ? DtInitCreatedExecution : DtInitJoinedExecution;
  }

  std::vector<std::unique_ptr<DtInterClassDesc>> interactionClasses() const override {
    return DtClassesWithRtiHandles(fom_, *link_, "HLAinteractionRoot.");
  }

  RTI::ParameterHandleValuePairSet& sendSet() override { return sendSet_; }

  // The values go to the RTI where the set keeps them.
  void send(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) override {
    values_.clear();
    for (RTI::ULong i = 0; i < set.size(); ++i) {
      RTI::ULong length = 0;
      const char* data = set.getValuePointer(i, length);
      values_.push_back(DtRti1516eValue{set.getHandle(i), data, length});
    }
    link_->send(cls, values_.data(), values_.size());
  }

  void subscribe(RTI::InteractionClassHandle cls, bool on) override { link_->subscribe(cls, on); }
  // What arrived is queued before the server's absence is reported, so none of it is lost.
  void poll() override {
    link_->evoke();
    const std::string gone = watch_.check();
    if (!gone.empty()) DT_THROW("Lost federation execution " + execution_ + ": " + gone);
  }
  std::string lostReason() const override {
    return link_->lostReason().empty() ? watch_.lost() : link_->lostReason();
  }

 private:
  void receive(unsigned long cls, const DtRti1516eValue* values, std::size_t count) override {
    queue_.pushClass(static_cast<RTI::InteractionClassHandle>(cls));
    for (std::size_t i = 0; i < count; ++i)
      queue_.pushValue(static_cast<RTI::Handle>(values[i].parameter), values[i].data, values[i].length);
  }

  DtFedFile fom_;
  DtIncomingQueue& queue_;
  std::unique_ptr<DtRti1516eLink> link_;
  std::string execution_;
  DtServerWatch watch_;
  DtParameterSet sendSet_;
  std::vector<DtRti1516eValue> values_;
};
}  // namespace

std::unique_ptr<DtFederationBackend> DtJoinRti1516eFederation(const std::string& execution,
                                                              const std::string& federate,
                                                              const DtFomSource& fom, void* rtiAmbassador,
                                                              DtIncomingQueue& queue) {
  return std::make_unique<Rti1516eFederate>(execution, federate, fom, rtiAmbassador, queue);
}

#else

std::unique_ptr<DtFederationBackend> DtJoinRti1516eFederation(const std::string& /*execution*/,
                                                              const std::string& /*federate*/,
                                                              const DtFomSource& /*fom*/,
                                                              void* /*rtiAmbassador*/,
                                                              DtIncomingQueue& /*queue*/) {
  return nullptr;  // no HLA Evolved RTI in this build; the connection reports it
}

#endif
