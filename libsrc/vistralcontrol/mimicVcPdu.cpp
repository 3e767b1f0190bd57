#include "vistralcontrol/mimicVcPdu.h"

#include "tarvex/dtDump.h"
#include "vcLayout.h"
#include "vcText.h"

using VcLayout::Tether;

DtMimicVCPdu::DtMimicVCPdu(DtBufferPlaceHolder* holder) {
  initPdu(Tether::length, holder);
  setViewerCommand(DtVcMimic);
}

DtMimicVCPdu::DtMimicVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                           DtPduFactory* factory) {
  initPdu(image, holder, factory);
}

DtMimicVCPdu::~DtMimicVCPdu() = default;

const DtVector64& DtMimicVCPdu::offset() const {
  offset_ = f32VectorAt(Tether::offset);
  return offset_;
}
void DtMimicVCPdu::setOffset(const DtVector64& offset) { setF32VectorAt(Tether::offset, offset); }

const DtTaitBryan& DtMimicVCPdu::bodyOrientation() const {
  orientation_ = eulerAt(Tether::orientation);
  return orientation_;
}
void DtMimicVCPdu::setBodyOrientation(const DtTaitBryan& orientation) {
  setEulerAt(Tether::orientation, orientation);
}

const DtString& DtMimicVCPdu::attachId() const {
  attachId_ = designatorAt(Tether::attachId);
  return attachId_;
}
void DtMimicVCPdu::setAttachId(const DtString& id) { setDesignatorAt(Tether::attachId, id); }

const DtString& DtMimicVCPdu::markingText() const {
  markingText_ = VcText::markingText(*this, Tether::markingText, Tether::length);
  return markingText_;
}
void DtMimicVCPdu::setMarkingText(const DtString& text) {
  setTextAt(Tether::markingText, VcLayout::kNameWidth, text.c_str());
}

const char* DtMimicVCPdu::string() const {
  const DtVector64 o = offset();
  const DtTaitBryan a = bodyOrientation();
  VcText::Writer out(textBuffer(), kTextBufferSize);
  return VcText::writeAttachForm(out, {attachId().c_str()},
                                 {o.x(), o.y(), o.z(), a.psi(), a.theta(), a.phi()}, {markingText().c_str()});
}

void DtMimicVCPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  const VcText::AttachFields f = VcText::parseAttachForm(*this, text, VcText::kOffsetAndAnglesForm);
  setAttachId(f.ids[0]);
  setOffset(DtVector64(f.numbers[0], f.numbers[1], f.numbers[2]));
  setBodyOrientation(DtTaitBryan(f.numbers[3], f.numbers[4], f.numbers[5]));
  setMarkingText(f.marks[0]);
}

void DtMimicVCPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpString("AttachTo:", attachId().c_str());
  DtDumpString("AttachTo (MarkingText):", markingText().c_str());
  DtDumpString("Offset:", offset().string());
  DtDumpString("Orientation:", bodyOrientation().string());
}

// The mimic constructor has already built a mimic PDU; this one builds it again under its own command.
DtOffsetMimicVCPdu::DtOffsetMimicVCPdu(DtBufferPlaceHolder* holder) : DtMimicVCPdu(holder) {
  initPdu(Tether::length, holder);
  setViewerCommand(DtVcOffsetMimic);
}

DtOffsetMimicVCPdu::DtOffsetMimicVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                       DtPduFactory* factory)
    : DtMimicVCPdu(image, holder, factory) {}

DtOffsetMimicVCPdu::~DtOffsetMimicVCPdu() = default;
