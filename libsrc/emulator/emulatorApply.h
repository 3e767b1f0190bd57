// How the emulator applies each family of control PDUs to its state, and builds its state report.
#pragma once

#include <memory>

#include "vistralcontrol/vistralControlPdu.h"
#include "vistralemulator/emulatorState.h"

class DtModelessVCPdu;
class DtMoveVCPdu;
class DtOptionsPdu;
class DtVistralDrawControlPdu;

namespace vistralemulator {

// Whether the command is a viewing mode that the emulator can be in (0 to 9 and 12).
bool isMode(int command);
// A mode command: switches to the mode and takes the fields whose ignore bits are clear. Returns false when
// the PDU's class does not carry that mode.
bool applyMode(DtEmulatorState& state, const DtVistralControlPdu& pdu);
void applyModeless(DtEmulatorState& state, const DtModelessVCPdu& pdu);
void applyMove(DtEmulatorState& state, const DtMoveVCPdu& pdu);
void applyOptions(DtEmulatorState& state, const DtOptionsPdu& pdu);
std::unique_ptr<DtVistralControlPdu> modeReport(const DtEmulatorState& state);

void applyDraw(DtEmulatorState& state, const DtVistralDrawControlPdu& pdu);

}  // namespace vistralemulator
