// DIS over UDP as a federation: the ViewControl class's one parameter, a whole PDU, is one datagram each way.
// The class table is the FOM's, so that a connection looks and registers the same on every backend; only the
// ViewControl class travels, since a datagram carries no class name, only the PDU.
#include <memory>
#include <string>
#include <vector>

#include "dtFederationBackend.h"
#include "tarvex/dtDisSocket.h"
#include "tarvex/dtMessage.h"
#include "tarvex/dtParameterSet.h"

namespace {
// How much one poll takes at most, so that a flood can neither keep processIncoming() from returning nor fill
// the incoming queue beyond a few megabytes; the rest waits in the socket for the next poll.
constexpr int kDatagramsPerPoll = 4096;
constexpr std::size_t kBytesPerPoll = std::size_t{4} << 20;

const char* reasonText(DtDisSocket::Verdict v) {
  switch (v) {
    case DtDisSocket::Verdict::TooShort:
      return "shorter than a PDU header";
    case DtDisSocket::Verdict::OtherKind:
      return "a PDU of another kind";
    case DtDisSocket::Verdict::OtherExercise:
      return "a PDU of another exercise";
    case DtDisSocket::Verdict::BadLength:
      return "a PDU whose length is not the datagram's";
    case DtDisSocket::Verdict::Accepted:
      break;
  }
  return "accepted";
}

class DisNetwork final : public DtFederationBackend {
 public:
  DisNetwork(const DtDisAddress& address, const DtFomSource& fom, DtIncomingQueue& queue)
      : fom_(fom.fom),
        queue_(queue),
        sender_(DtDisSocket::sender(address)),
        receiver_(DtDisSocket::receiver(address)),
        buffer_(DtDisBinding::kMaxDatagram + 1) {
    findViewControl(fom.mapper);
  }

  const char* name() const override { return "dis"; }
  DtInitStatus initStatus() const override { return DtInitJoinedExecution; }

  std::vector<std::unique_ptr<DtInterClassDesc>> interactionClasses() const override {
    return DtClassesByPosition(fom_);
  }

  RTI::ParameterHandleValuePairSet& sendSet() override { return sendSet_; }

  void send(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) override {
    static_cast<void>(trySend(cls, set));
  }

  bool trySend(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) override {
    if (cls != class_ || class_ == 0) return refuseClass(cls);
    for (RTI::ULong i = 0; i < set.size(); ++i) {
      if (set.getHandle(i) != parameter_) continue;
      RTI::ULong length = 0;
      const char* bytes = set.getValuePointer(i, length);
      if (sender_.sendPdu(bytes, length)) return true;
      ++statistics_.sendFailures;
      return false;
    }
    return false;  // no PDU to send
  }

  void subscribe(RTI::InteractionClassHandle cls, bool on) override {
    if (cls == class_) subscribed_ = on;
  }

  void poll() override {
    std::size_t bytes = 0;
    for (int i = 0; i < kDatagramsPerPoll && bytes < kBytesPerPoll; ++i) {
      DtDisSocket::Endpoint from;
      const long size = receiver_.receive(buffer_.data(), buffer_.size(), &from);
      if (size < 0) return;
      take(buffer_.data(), static_cast<std::size_t>(size), from);
      bytes += static_cast<std::size_t>(size);
    }
  }

  DtDatagramStatistics datagramStatistics() const override { return statistics_; }

 private:
  // The class and parameter that travel, by the connection's names for them, with the handles the connection
  // gives them.
  void findViewControl(const DtFomMapper* mapper) {
    const char* className =
        mapper != nullptr ? mapper->fomInteractionClass(DtDisBinding::kClassName) : DtDisBinding::kClassName;
    for (const auto& c : interactionClasses()) {
      if (c->name() != className && c->fullName() != className) continue;
      const char* parameterName = mapper != nullptr
                                      ? mapper->fomParameter(c->name().c_str(), DtDisBinding::kParameterName)
                                      : DtDisBinding::kParameterName;
      RTI::ParameterHandle parameter = 0;
      if (!c->findParameter(parameterName, &parameter)) continue;
      class_ = c->handle();
      parameter_ = parameter;
      return;
    }
    DtWarn.message("%s: the FOM has no class %s with a parameter %s, so nothing travels over DIS\n",
                   receiver_.address().name.c_str(), className, DtDisBinding::kParameterName);
  }

  bool refuseClass(RTI::InteractionClassHandle cls) {
    if (!warnedOtherClass_) {
      warnedOtherClass_ = true;
      DtWarn.message("%s: only %s travels over DIS; interactions of class handle %lu are not sent\n",
                     receiver_.address().name.c_str(), DtDisBinding::kClassName,
                     static_cast<unsigned long>(cls));
    }
    return false;
  }

  void take(const unsigned char* bytes, std::size_t size, const DtDisSocket::Endpoint& from) {
    if (from == sender_.local()) {
      ++statistics_.ownEchoes;
      return;
    }
    const DtDisSocket::Verdict verdict = DtDisSocket::check(bytes, size, receiver_.address().exercise);
    if (verdict != DtDisSocket::Verdict::Accepted) return drop(verdict, size, from);
    if (!subscribed_ || class_ == 0) return;  // no one listens: nothing to deliver
    ++statistics_.delivered;
    queue_.push(class_, parameter_, reinterpret_cast<const char*>(bytes), static_cast<RTI::ULong>(size));
  }

  void drop(DtDisSocket::Verdict verdict, std::size_t size, const DtDisSocket::Endpoint& from) {
    switch (verdict) {
      case DtDisSocket::Verdict::TooShort:
        ++statistics_.tooShort;
        break;
      case DtDisSocket::Verdict::OtherKind:
        ++statistics_.otherKind;
        break;
      case DtDisSocket::Verdict::OtherExercise:
        ++statistics_.otherExercise;
        break;
      case DtDisSocket::Verdict::BadLength:
        ++statistics_.badLength;
        break;
      case DtDisSocket::Verdict::Accepted:
        return;
    }
    if (warning_.allow())
      DtWarn.message("%s: dropped a datagram of %zu bytes from %s: %s (%lu dropped since the last warning)\n",
                     receiver_.address().name.c_str(), size, from.text().c_str(), reasonText(verdict),
                     warning_.occurrences());
  }

  DtFedFile fom_;
  DtIncomingQueue& queue_;
  DtDisSocket sender_;
  DtDisSocket receiver_;
  std::vector<unsigned char> buffer_;  // one datagram, and a byte more to see one that is too large
  DtParameterSet sendSet_;
  RTI::InteractionClassHandle class_ = 0;  // 0: the FOM has none that travels
  RTI::Handle parameter_ = 0;
  bool subscribed_ = false;
  bool warnedOtherClass_ = false;
  DtDatagramStatistics statistics_;
  DtWarningLimit warning_;
};
}  // namespace

std::unique_ptr<DtFederationBackend> DtJoinDisNetwork(const std::string& execution,
                                                      const std::string& /*federate*/, const DtFomSource& fom,
                                                      void* /*rtiAmbassador*/, DtIncomingQueue& queue) {
  return std::make_unique<DisNetwork>(DtDisAddress::parse(execution), fom, queue);
}
