// The in-process federation: every connection of this process that names the same execution joins one
// federation object, which hands each sent interaction straight to the incoming queues of the other members
// that subscribe to its class.
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dtFederationBackend.h"
#include "tarvex/dtParameterSet.h"

DtFederationBackend::~DtFederationBackend() = default;

namespace {
class InProcessFederate;

class Federation {
 public:
  Federation(std::string name, DtFedFile fom) : name_(std::move(name)), fom_(std::move(fom)) {}
  Federation(const Federation&) = delete;
  Federation& operator=(const Federation&) = delete;
  ~Federation();

  // Executions by name. Entries are removed by the federation itself when its last member leaves.
  static std::map<std::string, std::weak_ptr<Federation>>& executions() {
    static std::map<std::string, std::weak_ptr<Federation>> theExecutions;
    return theExecutions;
  }

  const DtFedFile& fom() const { return fom_; }
  void join(InProcessFederate* member) { members_.push_back(member); }
  void resign(InProcessFederate* member);
  void deliver(const InProcessFederate* sender, RTI::InteractionClassHandle cls,
               const RTI::ParameterHandleValuePairSet& set) const;

 private:
  std::string name_;
  DtFedFile fom_;
  std::vector<InProcessFederate*> members_;
};

// Class handles are positions in the FOM's list of interaction classes, from 1; parameter handles are
// positions in a class's list of parameters, from 1, inherited ones first, so a parameter keeps its handle in
// subclasses.
class InProcessFederate final : public DtFederationBackend {
 public:
  InProcessFederate(std::shared_ptr<Federation> federation, DtInitStatus status, DtIncomingQueue& queue)
      : federation_(std::move(federation)),
        status_(status),
        queue_(queue),
        subscribed_(federation_->fom().interactionClasses().size() + 1, false) {
    federation_->join(this);
  }
  ~InProcessFederate() override { federation_->resign(this); }

  const char* name() const override { return "inprocess"; }
  DtInitStatus initStatus() const override { return status_; }

  std::vector<std::unique_ptr<DtInterClassDesc>> interactionClasses() const override {
    std::vector<std::unique_ptr<DtInterClassDesc>> out;
    RTI::InteractionClassHandle handle = 0;
    for (const DtFedInteractionClass& c : federation_->fom().interactionClasses()) {
      auto desc = std::make_unique<DtInterClassDesc>(c.fullName, c.name, ++handle);
      RTI::ParameterHandle parameter = 0;
      for (const std::string& p : c.parameters) desc->addParameter(p, ++parameter);
      out.push_back(std::move(desc));
    }
    return out;
  }

  RTI::ParameterHandleValuePairSet& sendSet() override { return sendSet_; }

  void send(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) override {
    federation_->deliver(this, cls, set);
  }

  void subscribe(RTI::InteractionClassHandle cls, bool on) override {
    if (cls < subscribed_.size()) subscribed_[cls] = on;
  }

  void poll() override {}  // deliveries are already queued

  bool subscribes(RTI::InteractionClassHandle cls) const {
    return cls < subscribed_.size() && subscribed_[cls];
  }
  DtIncomingQueue& queue() const { return queue_; }

 private:
  std::shared_ptr<Federation> federation_;
  DtInitStatus status_;
  DtIncomingQueue& queue_;
  std::vector<bool> subscribed_;
  DtParameterSet sendSet_;
};

Federation::~Federation() { executions().erase(name_); }

void Federation::resign(InProcessFederate* member) {
  for (auto it = members_.begin(); it != members_.end(); ++it) {
    if (*it == member) {
      members_.erase(it);
      return;
    }
  }
}

void Federation::deliver(const InProcessFederate* sender, RTI::InteractionClassHandle cls,
                         const RTI::ParameterHandleValuePairSet& set) const {
  for (InProcessFederate* member : members_)
    if (member != sender && member->subscribes(cls)) member->queue().push(cls, set);
}

// The members share the federation; it goes away with the last of them.
struct SharedFederation {
  std::shared_ptr<Federation> federation;
  DtInitStatus status;
};

SharedFederation joinOrCreate(const std::string& execution, const DtFomSource& source) {
  auto& executions = Federation::executions();
  const auto found = executions.find(execution);
  if (found != executions.end()) {
    if (std::shared_ptr<Federation> existing = found->second.lock()) return {existing, DtInitJoinedExecution};
  }
  auto federation = std::make_shared<Federation>(execution, source.fom);
  executions[execution] = federation;
  return {federation, DtInitCreatedExecution};
}
}  // namespace

std::unique_ptr<DtFederationBackend> DtJoinInProcessFederation(const std::string& execution,
                                                               const std::string& /*federate*/,
                                                               const DtFomSource& fom,
                                                               void* /*rtiAmbassador*/,
                                                               DtIncomingQueue& queue) {
  SharedFederation shared = joinOrCreate(execution, fom);
  return std::make_unique<InProcessFederate>(std::move(shared.federation), shared.status, queue);
}
