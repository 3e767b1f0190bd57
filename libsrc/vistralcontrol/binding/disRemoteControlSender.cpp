#include "vistralcontrol/disRemoteControlSender.h"

#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlPdu.h"

#include <string_view>

// The DIS network carries exactly what the binding puts in the ViewControl interaction.
static_assert(DtVistralControlPdu::kPduKind == DtDisBinding::kPduKind, "DIS carries the control PDU's kind");
static_assert(std::string_view(DtVistralControlInteraction::kClassName) == DtDisBinding::kClassName,
              "DIS carries the ViewControl class");

DtDisRemoteControlSender::DtDisRemoteControlSender(const std::string& address)
    : socket_(DtDisSocket::sender(DtDisAddress::parse(address))) {}

DtDisRemoteControlSender::~DtDisRemoteControlSender() = default;

void DtDisRemoteControlSender::sendPdu(const unsigned char* bytes, int length) {
  if (bytes == nullptr || length <= 0) return;
  if (socket_.sendPdu(bytes, static_cast<std::size_t>(length)))
    ++sent_;
  else
    ++failures_;
}
