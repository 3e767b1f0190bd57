// A ready-made custom sender that writes each PDU as one UDP datagram to a DIS address, for applications that
// keep their own federation connection and want a DIS copy of what they send too:
//
//   DtDisRemoteControlSender dis("dis://239.1.2.3:3000?ttl=4");
//   controller.setCustomSender(&dis);
//
// The address takes the form and options of a dis:// execution name (tarvex/dtDisSocket.h); the sender only
// sends, so listen= has no effect. A send the network refuses is warned about (at most once a second) and
// counted; it never blocks.
#pragma once

#include <cstdint>
#include <string>

#include "tarvex/dtDisSocket.h"
#include "vistralcontrol/vistralExport.h"
#include "vistralcontrol/vistralRemoteController.h"

class VISTRAL_EXPORT DtDisRemoteControlSender : public DtCustomRemoteControlSender {
 public:
  // A malformed address, or one that cannot be sent to, throws DtException.
  explicit DtDisRemoteControlSender(const std::string& address);
  ~DtDisRemoteControlSender() override;

  void sendPdu(const unsigned char* bytes, int length) override;

  // PDUs sent, and sends the network refused.
  std::uint64_t sent() const { return sent_; }
  std::uint64_t failures() const { return failures_; }
  // Why the last refused send was refused; empty when none was.
  const std::string& lastError() const { return socket_.lastError(); }
  const DtDisAddress& address() const { return socket_.address(); }

 private:
  DtDisSocket socket_;
  std::uint64_t sent_ = 0;
  std::uint64_t failures_ = 0;
};
