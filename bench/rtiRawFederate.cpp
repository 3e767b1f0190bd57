#include "rtiRawFederate.h"

#include <NullFederateAmbassador.hh>
#include <RTI.hh>

#include <memory>
#include <stdexcept>
#include <string>

namespace {
std::runtime_error failure(const std::string& what, const RTI::Exception& e) {
  return std::runtime_error(what + ": " + (e._name ? e._name : "RTI exception") + ": " +
                            (e._reason ? e._reason : ""));
}

class Raw final : public RawFederate, private NullFederateAmbassador {
 public:
  Raw(const std::string& execution, const std::string& name) : execution_(execution) {
    try {
      rti_.joinFederationExecution(name.c_str(), execution.c_str(), this);
      // RTIs differ in the names they accept: the dotted full name, or the name below the root.
      try {
        class_ = rti_.getInteractionClassHandle("InteractionRoot.ViewControl");
      } catch (const RTI::Exception&) {
        class_ = rti_.getInteractionClassHandle("ViewControl");
      }
      parameter_ = rti_.getParameterHandle("ViewControlPdu", class_);
    } catch (const RTI::Exception& e) {
      throw failure("Cannot join " + execution + " as " + name, e);
    }
  }
  ~Raw() noexcept override {
    try {
      rti_.resignFederationExecution(RTI::DELETE_OBJECTS_AND_RELEASE_ATTRIBUTES);
    } catch (...) {  // the RTI drops a federate that is gone
    }
  }

  void subscribe() override {
    try {
      rti_.subscribeInteractionClass(class_, RTI::RTI_TRUE);
    } catch (const RTI::Exception& e) {
      throw failure("Cannot subscribe on " + execution_, e);
    }
  }

  void publish(const unsigned char* bytes, unsigned long length) override {
    try {
      rti_.publishInteractionClass(class_);
      set_.reset(RTI::ParameterSetFactory::create(1));
      set_->add(parameter_, reinterpret_cast<const char*>(bytes), static_cast<RTI::ULong>(length));
    } catch (const RTI::Exception& e) {
      throw failure("Cannot publish on " + execution_, e);
    }
  }

  void send() override { rti_.sendInteraction(class_, *set_, ""); }
  void send(const unsigned char* bytes, unsigned long length) override {
    set_->empty();
    set_->add(parameter_, reinterpret_cast<const char*>(bytes), static_cast<RTI::ULong>(length));
    rti_.sendInteraction(class_, *set_, "");
  }
  void tick() override { rti_.tick(); }
  long received() const override { return received_; }
  long receivedBytes() const override { return bytes_; }

 private:
  void receiveInteraction(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set,
                          const RTI::FedTime& /*time*/, const char* tag,
                          RTI::EventRetractionHandle /*retraction*/) noexcept override {
    receiveInteraction(cls, set, tag);
  }
  void receiveInteraction(RTI::InteractionClassHandle /*cls*/, const RTI::ParameterHandleValuePairSet& set,
                          const char* /*tag*/) noexcept override {
    ++received_;
    if (set.size() > 0) bytes_ += static_cast<long>(set.getValueLength(0));
  }

  std::string execution_;
  RTI::RTIambassador rti_;
  RTI::InteractionClassHandle class_ = 0;
  RTI::ParameterHandle parameter_ = 0;
  std::unique_ptr<RTI::ParameterHandleValuePairSet> set_;
  long received_ = 0;
  long bytes_ = 0;
};
}  // namespace

std::unique_ptr<RawFederate> RawFederate::join(const std::string& execution, const std::string& name) {
  return std::unique_ptr<RawFederate>(new Raw(execution, name));
}
