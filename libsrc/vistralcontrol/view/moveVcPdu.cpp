#include "vistralcontrol/moveVcPdu.h"

#include <cstdio>
#include <iterator>

#include "tarvex/dtDump.h"
#include "vcViewLayout.h"

using VcLayout::Move;

DtMoveVCPdu::DtMoveVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Move::length, "storage for the image");
  useStorage(storage_);
  initPdu(Move::length, holder);
  setViewerCommand(DtVcMove);
  setReset(false);
}

DtMoveVCPdu::DtMoveVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                         DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtMoveVCPdu::~DtMoveVCPdu() = default;

DtMoveVCPdu::Direction DtMoveVCPdu::turn() const { return static_cast<Direction>(u8At(Move::turn)); }
void DtMoveVCPdu::setTurn(Direction direction) { setU8At(Move::turn, static_cast<std::uint8_t>(direction)); }
DtMoveVCPdu::Direction DtMoveVCPdu::move() const { return static_cast<Direction>(u8At(Move::move)); }
void DtMoveVCPdu::setMove(Direction direction) { setU8At(Move::move, static_cast<std::uint8_t>(direction)); }
DtVector64 DtMoveVCPdu::position() const { return f64VectorAt(Move::position); }
void DtMoveVCPdu::setPosition(const DtVector64& position) { setF64VectorAt(Move::position, position); }
DtTaitBryan DtMoveVCPdu::orientation() const { return f64EulerAt(Move::orientation); }
void DtMoveVCPdu::setOrientation(const DtTaitBryan& orientation) {
  setF64EulerAt(Move::orientation, orientation);
}
bool DtMoveVCPdu::reset() const { return u8At(Move::reset) != 0; }
void DtMoveVCPdu::setReset(bool reset) { setU8At(Move::reset, reset ? 1 : 0); }

const char* DtMoveVCPdu::directionText(int direction) {
  static constexpr const char* kTexts[] = {"LEFT", "RIGHT", "UP", "DOWN", "FORWARDS", "BACKWARDS"};
  return direction >= 0 && direction < static_cast<int>(std::size(kTexts)) ? kTexts[direction] : nullptr;
}

const char* DtMoveVCPdu::string() const {
  const DtVector64 p = position();
  return formatText("%d %d %f %f %f", static_cast<int>(turn()), static_cast<int>(move()), p.x(), p.y(),
                    p.z());
}

void DtMoveVCPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  // Fields the text does not give are set to zero.
  int turnValue = 0, moveValue = 0;
  float x = 0, y = 0, z = 0;
  std::sscanf(text, "%d %d %f %f %f", &turnValue, &moveValue, &x, &y, &z);
  setTurn(static_cast<Direction>(turnValue));
  setMove(static_cast<Direction>(moveValue));
  setPosition(DtVector64(x, y, z));
}

void DtMoveVCPdu::printData() const {
  DtVistralControlPdu::printData();
  if (const char* text = directionText(turn())) DtDumpString("Turn Direction: ", text);
  if (const char* text = directionText(move())) DtDumpString("Move Direction: ", text);
  DtDumpString("Position:", position().string());
}
