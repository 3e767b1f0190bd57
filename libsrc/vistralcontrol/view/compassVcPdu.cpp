#include "vistralcontrol/compassVcPdu.h"

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vcViewLayout.h"

using VcLayout::Compass;

namespace {
constexpr VcText::AttachForm kForm{1, "ffffff", 1};
}  // namespace

DtCompassVCPdu::DtCompassVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Compass::length, "storage for the image");
  useStorage(storage_);
  initPdu(Compass::length, holder);
  setViewerCommand(DtVcCompass);
}

DtCompassVCPdu::DtCompassVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                               DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtCompassVCPdu::~DtCompassVCPdu() = default;

float DtCompassVCPdu::radius() const { return f32At(Compass::radius); }
void DtCompassVCPdu::setRadius(float radius) { setF32At(Compass::radius, radius); }
float DtCompassVCPdu::bodyHeading() const { return f32At(Compass::bodyHeading); }
void DtCompassVCPdu::setBodyHeading(float heading) { setF32At(Compass::bodyHeading, heading); }
float DtCompassVCPdu::pitch() const { return f32At(Compass::pitch); }
void DtCompassVCPdu::setPitch(float pitch) { setF32At(Compass::pitch, pitch); }
float DtCompassVCPdu::headingOffset() const { return f32At(Compass::headingOffset); }
void DtCompassVCPdu::setHeadingOffset(float offset) { setF32At(Compass::headingOffset, offset); }
float DtCompassVCPdu::pitchOffset() const { return f32At(Compass::pitchOffset); }
void DtCompassVCPdu::setPitchOffset(float offset) { setF32At(Compass::pitchOffset, offset); }
float DtCompassVCPdu::roll() const { return f32At(Compass::roll); }
void DtCompassVCPdu::setRoll(float roll) { setF32At(Compass::roll, roll); }

const DtString& DtCompassVCPdu::attachId() const {
  attachId_ = designatorAt(Compass::attachId);
  return attachId_;
}
void DtCompassVCPdu::setAttachId(const DtString& id) { setDesignatorAt(Compass::attachId, id); }

const DtString& DtCompassVCPdu::markingText() const {
  markingText_ = VcText::markingText(*this, Compass::markingText, Compass::length);
  return markingText_;
}
void DtCompassVCPdu::setMarkingText(const DtString& text) {
  setTextAt(Compass::markingText, VcLayout::kNameWidth, text.c_str());
}

const char* DtCompassVCPdu::string() const {
  VcText::Writer out(textBuffer(), kTextBufferSize);
  return VcText::writeAttachForm(out, {attachId().c_str()},
                                 {radius(), bodyHeading(), pitch(), headingOffset(), pitchOffset(), roll()},
                                 {markingText().c_str()});
}

void DtCompassVCPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  const VcText::AttachFields f = VcText::parseAttachForm(*this, text, kForm);
  setAttachId(f.ids[0]);
  setRadius(static_cast<float>(f.numbers[0]));
  setBodyHeading(static_cast<float>(f.numbers[1]));
  setPitch(static_cast<float>(f.numbers[2]));
  setHeadingOffset(static_cast<float>(f.numbers[3]));
  setPitchOffset(static_cast<float>(f.numbers[4]));
  setRoll(static_cast<float>(f.numbers[5]));
  setMarkingText(f.marks[0]);
}

void DtCompassVCPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpString("AttachTo:", attachId().c_str());
  DtDumpString("AttachTo (MarkingText):", markingText().c_str());
  DtDumpFloat("Radius:", radius());
  DtDumpFloat("BodyHeading:", bodyHeading());
  DtDumpFloat("pitch:", pitch());
  DtDumpFloat("HeadingOff:", headingOffset());
  DtDumpFloat("PitchOff:", pitchOffset());
  DtDumpFloat("Roll:", roll());
}
