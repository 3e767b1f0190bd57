// Text form and dump of the two-entity modes (tether-track and mimic-track), which share one layout and one
// interface: written once here over either class.
#pragma once

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "tarvex/dtVector.h"

namespace VcTwoEntity {

// attach id, track id, offset x y z (doubles), attach marking text, track marking text
constexpr VcText::AttachForm kForm{2, "lll", 2};

template <class Pdu>
const char* string(const Pdu& pdu, char* buffer, int size) {
  // The two ids share one cache: keep the attach id before asking for the track id.
  const DtString attach = pdu.attachId();  // NOLINT(performance-unnecessary-copy-initialization): see above
  const DtString& track = pdu.trackId();
  const DtVector64 o = pdu.offset();
  const DtString& attachMark = pdu.attachMarkingText();
  VcText::Writer out(buffer, size);
  return VcText::writeAttachForm(out, {attach.c_str(), track.c_str()}, {o.x(), o.y(), o.z()},
                                 {attachMark.c_str(), pdu.trackMarkingText().c_str()});
}

template <class Pdu>
void setFromString(Pdu& pdu, const char* text) {
  if (text == nullptr) return;
  const VcText::AttachFields f = VcText::parseAttachForm(pdu, text, kForm);
  pdu.setAttachId(f.ids[0]);
  pdu.setTrackId(f.ids[1]);
  pdu.setAttachMarkingText(f.marks[0]);
  pdu.setTrackMarkingText(f.marks[1]);
  pdu.setOffset(DtVector64(f.numbers[0], f.numbers[1], f.numbers[2]));
}

template <class Pdu>
void printData(const Pdu& pdu) {
  DtDumpString("AttachId:", pdu.attachId().c_str());
  DtDumpString("AttachId (MarkingText):", pdu.attachMarkingText().c_str());
  DtDumpString("TrackId:", pdu.trackId().c_str());
  DtDumpString("TrackId (MarkingText):", pdu.trackMarkingText().c_str());
  DtDumpString("Offset:", pdu.offset().string());
}

}  // namespace VcTwoEntity
