// Text form and dump of the modes that ride with one entity at an offset with an orientation (tether, mimic,
// offset mimic), which share one layout: written once here over the class's own accessors.
#pragma once

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "tarvex/dtVector.h"

namespace VcOffsetAttach {

// The accessors that differ by name between the classes, and the offset's dump label.
template <class Pdu>
struct Access {
  const DtVector64& (Pdu::*offset)() const;
  void (Pdu::*setOffset)(const DtVector64&);
  const DtTaitBryan& (Pdu::*angles)() const;
  void (Pdu::*setAngles)(const DtTaitBryan&);
  const char* offsetLabel;
};

template <class Pdu>
const char* string(const Pdu& pdu, const Access<Pdu>& access, char* buffer, int size) {
  const DtVector64 o = (pdu.*access.offset)();
  const DtTaitBryan a = (pdu.*access.angles)();
  VcText::Writer out(buffer, size);
  return VcText::writeAttachForm(out, {pdu.attachId().c_str()},
                                 {o.x(), o.y(), o.z(), a.psi(), a.theta(), a.phi()},
                                 {pdu.markingText().c_str()});
}

template <class Pdu>
void setFromString(Pdu& pdu, const Access<Pdu>& access, const char* text) {
  if (text == nullptr) return;
  const VcText::AttachFields f = VcText::parseAttachForm(pdu, text, VcText::kOffsetAndAnglesForm);
  pdu.setAttachId(f.ids[0]);
  (pdu.*access.setOffset)(DtVector64(f.numbers[0], f.numbers[1], f.numbers[2]));
  (pdu.*access.setAngles)(DtTaitBryan(f.numbers[3], f.numbers[4], f.numbers[5]));
  pdu.setMarkingText(f.marks[0]);
}

template <class Pdu>
void printData(const Pdu& pdu, const Access<Pdu>& access) {
  DtDumpString("AttachTo:", pdu.attachId().c_str());
  DtDumpString("AttachTo (MarkingText):", pdu.markingText().c_str());
  DtDumpString(access.offsetLabel, (pdu.*access.offset)().string());
  DtDumpString("Orientation:", (pdu.*access.angles)().string());
}

}  // namespace VcOffsetAttach
