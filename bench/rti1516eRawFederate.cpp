// The raw federate of the RTI benchmark on HLA Evolved: the standard 1516e API used directly, as an
// application without the library would.
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/RTIambassadorFactory.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "rtiRawFederate.h"

namespace {
std::wstring wide(const std::string& s) { return std::wstring(s.begin(), s.end()); }

std::runtime_error failure(const std::string& what, const rti1516e::Exception& e) {
  const std::wstring text = e.what();
  std::string narrow;
  for (const wchar_t c : text) narrow += c < 0x80 ? static_cast<char>(c) : '?';
  return std::runtime_error(what + ": " + narrow);
}

class Raw final : public RawFederate, private rti1516e::NullFederateAmbassador {
 public:
  Raw(const std::string& settings, const std::string& execution, const std::string& name)
      : execution_(execution) {
    try {
      rti1516e::RTIambassadorFactory factory;
      rti_.reset(factory.createRTIambassador().release());
      rti_->connect(*this, rti1516e::HLA_EVOKED, wide(settings));
      rti_->joinFederationExecution(wide(name), wide(name), wide(execution));
      class_ = rti_->getInteractionClassHandle(L"HLAinteractionRoot.ViewControl");
      parameter_ = rti_->getParameterHandle(class_, L"ViewControlPdu");
    } catch (const rti1516e::Exception& e) {
      throw failure("Cannot join " + execution + " as " + name, e);
    }
  }
  ~Raw() noexcept override {
    try {
      rti_->resignFederationExecution(rti1516e::NO_ACTION);
      rti_->disconnect();
    } catch (...) {  // the RTI drops a federate that is gone
    }
  }

  void subscribe() override {
    try {
      rti_->subscribeInteractionClass(class_);
    } catch (const rti1516e::Exception& e) {
      throw failure("Cannot subscribe on " + execution_, e);
    }
  }

  void publish(const unsigned char* bytes, unsigned long length) override {
    try {
      rti_->publishInteractionClass(class_);
      values_[parameter_] = rti1516e::VariableLengthData(bytes, length);
    } catch (const rti1516e::Exception& e) {
      throw failure("Cannot publish on " + execution_, e);
    }
  }

  void send() override { rti_->sendInteraction(class_, values_, tag_); }
  void send(const unsigned char* bytes, unsigned long length) override {
    rti1516e::ParameterHandleValueMap values;
    values[parameter_] = rti1516e::VariableLengthData(bytes, length);
    rti_->sendInteraction(class_, values, tag_);
  }
  void tick() override {
    while (rti_->evokeCallback(0.0)) {
    }
  }
  long received() const override { return received_; }
  long receivedBytes() const override { return bytes_; }

 private:
  void receiveInteraction(rti1516e::InteractionClassHandle /*cls*/,
                          const rti1516e::ParameterHandleValueMap& values,
                          const rti1516e::VariableLengthData& /*tag*/, rti1516e::OrderType /*sent*/,
                          rti1516e::TransportationType /*transport*/,
                          rti1516e::SupplementalReceiveInfo /*info*/) noexcept override {
    ++received_;
    if (!values.empty()) bytes_ += static_cast<long>(values.begin()->second.size());
  }

  std::string execution_;
  std::unique_ptr<rti1516e::RTIambassador> rti_;
  rti1516e::InteractionClassHandle class_;
  rti1516e::ParameterHandle parameter_;
  rti1516e::ParameterHandleValueMap values_;
  const rti1516e::VariableLengthData tag_{"vistral", 7};
  long received_ = 0;
  long bytes_ = 0;
};
}  // namespace

std::unique_ptr<RawFederate> RawFederate::join1516e(const std::string& localSettings,
                                                    const std::string& execution, const std::string& name) {
  return std::unique_ptr<RawFederate>(new Raw(localSettings, execution, name));
}
