#include "vistralcontrol/tetherVcPdu.h"

#include "tarvex/dtDump.h"
#include "vcLayout.h"
#include "vcText.h"

using VcLayout::Tether;

DtTetherVCPdu::DtTetherVCPdu(DtBufferPlaceHolder* holder) {
  initPdu(Tether::length, holder);
  setViewerCommand(DtVcTether);
}

DtTetherVCPdu::DtTetherVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                             DtPduFactory* factory) {
  initPdu(image, holder, factory);
}

DtTetherVCPdu::~DtTetherVCPdu() = default;

const DtVector64& DtTetherVCPdu::topoUpOffset() const {
  offset_ = f32VectorAt(Tether::offset);
  return offset_;
}
void DtTetherVCPdu::setTopoUpOffset(const DtVector64& offset) { setF32VectorAt(Tether::offset, offset); }

const DtTaitBryan& DtTetherVCPdu::orientation() const {
  orientation_ = eulerAt(Tether::orientation);
  return orientation_;
}
void DtTetherVCPdu::setOrientation(const DtTaitBryan& orientation) {
  setEulerAt(Tether::orientation, orientation);
}

const DtString& DtTetherVCPdu::attachId() const {
  attachId_ = designatorAt(Tether::attachId);
  return attachId_;
}
void DtTetherVCPdu::setAttachId(const DtString& id) { setDesignatorAt(Tether::attachId, id); }

const DtString& DtTetherVCPdu::markingText() const {
  markingText_ = VcText::markingText(*this, Tether::markingText, Tether::length);
  return markingText_;
}
void DtTetherVCPdu::setMarkingText(const DtString& text) {
  setTextAt(Tether::markingText, VcLayout::kNameWidth, text.c_str());
}

const char* DtTetherVCPdu::string() const {
  const DtVector64 o = topoUpOffset();
  const DtTaitBryan a = orientation();
  VcText::Writer out(textBuffer(), kTextBufferSize);
  return VcText::writeAttachForm(out, {attachId().c_str()},
                                 {o.x(), o.y(), o.z(), a.psi(), a.theta(), a.phi()}, {markingText().c_str()});
}

void DtTetherVCPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  const VcText::AttachFields f = VcText::parseAttachForm(*this, text, VcText::kOffsetAndAnglesForm);
  setAttachId(f.ids[0]);
  setTopoUpOffset(DtVector64(f.numbers[0], f.numbers[1], f.numbers[2]));
  setOrientation(DtTaitBryan(f.numbers[3], f.numbers[4], f.numbers[5]));
  setMarkingText(f.marks[0]);
}

void DtTetherVCPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpString("AttachTo:", attachId().c_str());
  DtDumpString("AttachTo (MarkingText):", markingText().c_str());
  DtDumpString("TopoUpOffset:", topoUpOffset().string());
  DtDumpString("Orientation:", orientation().string());
}
