#include "vistralemulator/vistralEmulator.h"

#include <algorithm>
#include <cstring>

#include "emulatorApply.h"
#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtInteractionDecoder.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/modelessVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralDrawControlPdu.h"
#include "vistralemulator/emulatorLiveView.h"

namespace {
const DtString kEveryViewer("0:0:0");

// Folds one image into the running digest, eight bytes at a step, read in the same order on any host.
std::uint64_t digestImage(std::uint64_t digest, const unsigned char* bytes, int length) {
  constexpr std::uint64_t kPrime = 0x9E3779B97F4A7C15ULL;
  std::uint64_t h = (digest ^ static_cast<std::uint64_t>(length)) * kPrime;
  for (int at = 0; at < length; at += 8) {
    std::uint64_t word = 0;
    for (int i = at; i < std::min(length, at + 8); ++i) word = (word << 8) | bytes[i];
    h = (h ^ word) * kPrime;
    h ^= h >> 29;
  }
  return h;
}
}  // namespace

DtVistralEmulator::DtVistralEmulator(DtExerciseConn* conn, const DtString& viewerId)
    : viewerId_(viewerId), conn_(conn) {
  listen();
}

DtVistralEmulator::DtVistralEmulator(const char* executionName, const DtString& viewerId, const char* fedFile)
    : viewerId_(viewerId),
      execution_(executionName != nullptr ? executionName : ""),
      fedFile_(fedFile != nullptr ? fedFile : ""),
      ownedConn_(
          std::make_unique<DtExerciseConn>(executionName, viewerId.c_str(), fedFile, nullptr, nullptr)) {
  conn_ = ownedConn_.get();
  listen();
}

DtVistralEmulator::DtVistralEmulator(const DtString& viewerId) : viewerId_(viewerId) {
  state_.viewerId = viewerId_.str();
}

void DtVistralEmulator::listen() {
  state_.viewerId = viewerId_.str();
  if (conn_ == nullptr) return;
  DtVistralControlRegister(conn_);
  DtVistralControlInteraction::addCallback(conn_, &DtVistralEmulator::received, this);
}

DtVistralEmulator::~DtVistralEmulator() {
  if (conn_ != nullptr)
    DtVistralControlInteraction::removeCallback(conn_, &DtVistralEmulator::received, this);
}

int DtVistralEmulator::processIncoming() {
  const int handled = conn_ != nullptr ? conn_->processIncoming() : 0;
  // A change not yet shown is handed over once the view takes a copy again, even when nothing new came.
  if (liveView_ != nullptr && unpublished_ && liveView_->publish(state_)) unpublished_ = false;
  return handled;
}

bool DtVistralEmulator::rejoin() {
  if (execution_.empty())
    DT_THROW("Viewer " + viewerId_.str() + " joined no execution itself, so it cannot rejoin one");
  if (ownedConn_ && !ownedConn_->lost())
    DT_THROW("Viewer " + viewerId_.str() + " is still joined to " + execution_);
  if (ownedConn_) {
    // The lost federate goes first, with what it holds of the RTI.
    DtVistralControlInteraction::removeCallback(conn_, &DtVistralEmulator::received, this);
    ownedConn_.reset();
    conn_ = nullptr;
  }
  try {
    ownedConn_ =
        std::make_unique<DtExerciseConn>(execution_.c_str(), viewerId_.c_str(),
                                         fedFile_.empty() ? nullptr : fedFile_.c_str(), nullptr, nullptr);
  } catch (const DtException&) {
    return false;  // the server is not back yet
  }
  conn_ = ownedConn_.get();
  listen();
  return true;
}

void DtVistralEmulator::setLiveView(DtEmulatorLiveView* view) {
  liveView_ = view;
  unpublished_ = view != nullptr;
}

void DtVistralEmulator::received(DtVistralControlInteraction* inter, void* usr) {
  auto* self = static_cast<DtVistralEmulator*>(usr);
  // An interaction whose value was not a control PDU carries none: taken and ignored, as applyImage() does.
  if (const DtVistralControlPdu* pdu = inter->vcPdu()) {
    self->apply(*pdu);
  } else {
    self->takeUnreadable();
  }
}

void DtVistralEmulator::takeUnreadable() {
  ++state_.counters.received;
  ++state_.counters.ignored;
  unpublished_ = liveView_ != nullptr;
}

void DtVistralEmulator::applyImage(const unsigned char* bytes, std::size_t length) {
  // Laid into the zero-tailed buffer that received values go through, as a decoder hands them over: whatever
  // the image's header states, nothing past the bytes given is read. No header states more than its maximum.
  const std::size_t kept = std::min(length, static_cast<std::size_t>(DtPdu::kMaxLength) + 1);
  char* image = DtInteractionDecoder::decodingBuffer(static_cast<RTI::ULong>(kept));
  if (kept > 0) std::memcpy(image, bytes, kept);
  std::unique_ptr<DtPdu> made(
      DtVistralControlPdu::createFromNet(reinterpret_cast<const DtNetPduHeader*>(image), nullptr, nullptr));
  if (const auto* pdu = dynamic_cast<const DtVistralControlPdu*>(made.get())) {
    apply(*pdu);
  } else {
    takeUnreadable();
  }
}

void DtVistralEmulator::apply(const DtVistralControlPdu& pdu) {
  ++state_.counters.received;
  if (liveView_ != nullptr) {
    liveView_->logPdu(pdu);
    unpublished_ = true;
  }
  // Only what the viewer acts on goes into the digest, so that a replay which leaves other viewers' reports
  // out arrives at the same one.
  if (take(pdu)) {
    state_.counters.digest = digestImage(state_.counters.digest, pdu.packet(), pdu.length());
  } else {
    ++state_.counters.ignored;
  }
}

bool DtVistralEmulator::take(const DtVistralControlPdu& pdu) {
  using namespace vistralemulator;
  // Draw PDUs carry whatever viewer id their object was given: a viewer draws them all.
  if (const auto* draw = dynamic_cast<const DtVistralDrawControlPdu*>(&pdu)) {
    applyDraw(state_, *draw);
    return true;
  }
  const DtString& addressed = pdu.viewerId();
  const int command = pdu.viewerCommand();
  // Status forms are other viewers' reports, not commands.
  if ((addressed != viewerId_ && addressed != kEveryViewer) || pdu.statusCommand()) return false;
  if (command == DtVcRequestState) {
    answer();
  } else if (const auto* options = dynamic_cast<const DtOptionsPdu*>(&pdu)) {
    applyOptions(state_, *options);
  } else if (const auto* move = dynamic_cast<const DtMoveVCPdu*>(&pdu)) {
    applyMove(state_, *move);
  } else if (const auto* modeless = dynamic_cast<const DtModelessVCPdu*>(&pdu)) {
    applyModeless(state_, *modeless);
  } else {
    return isMode(command) && applyMode(state_, pdu);
  }
  return true;
}

std::unique_ptr<DtVistralControlPdu> DtVistralEmulator::stateReport() const {
  std::unique_ptr<DtVistralControlPdu> report = vistralemulator::modeReport(state_);
  if (report) {
    report->setViewerId(viewerId_);
    report->setSenderId(viewerId_);
  }
  return report;
}

void DtVistralEmulator::answer() {
  const std::unique_ptr<DtVistralControlPdu> report = stateReport();
  if (!report) return;
  // Without a federation the answer is only counted; a connection that refuses it has not answered.
  DtVistralControlInteraction inter;
  inter.setVcPdu(*report);
  if (conn_ == nullptr || conn_->sendInteraction(inter)) ++state_.counters.answered;
}
