#include "vistralcontrol/orbitVcPdu.h"

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vcViewLayout.h"

using VcLayout::Orbit;

namespace {
constexpr VcText::AttachForm kForm{1, "fffffff", 1};
}  // namespace

DtOrbitVCPdu::DtOrbitVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Orbit::length, "storage for the image");
  useStorage(storage_);
  initPdu(Orbit::length, holder);
  setViewerCommand(DtVcOrbit);
}

DtOrbitVCPdu::DtOrbitVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                           DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtOrbitVCPdu::~DtOrbitVCPdu() = default;

float DtOrbitVCPdu::radius() const { return f32At(Orbit::radius); }
void DtOrbitVCPdu::setRadius(float radius) { setF32At(Orbit::radius, radius); }
float DtOrbitVCPdu::azimuthRate() const { return f32At(Orbit::azimuthRate); }
void DtOrbitVCPdu::setAzimuthRate(float rate) { setF32At(Orbit::azimuthRate, rate); }
float DtOrbitVCPdu::heading() const { return f32At(Orbit::heading); }
void DtOrbitVCPdu::setHeading(float heading) { setF32At(Orbit::heading, heading); }
float DtOrbitVCPdu::pitch() const { return f32At(Orbit::pitch); }
void DtOrbitVCPdu::setPitch(float pitch) { setF32At(Orbit::pitch, pitch); }
float DtOrbitVCPdu::headingOffset() const { return f32At(Orbit::headingOffset); }
void DtOrbitVCPdu::setHeadingOffset(float offset) { setF32At(Orbit::headingOffset, offset); }
float DtOrbitVCPdu::pitchOffset() const { return f32At(Orbit::pitchOffset); }
void DtOrbitVCPdu::setPitchOffset(float offset) { setF32At(Orbit::pitchOffset, offset); }
float DtOrbitVCPdu::roll() const { return f32At(Orbit::roll); }
void DtOrbitVCPdu::setRoll(float roll) { setF32At(Orbit::roll, roll); }

const DtString& DtOrbitVCPdu::attachId() const {
  attachId_ = designatorAt(Orbit::attachId);
  return attachId_;
}
void DtOrbitVCPdu::setAttachId(const DtString& id) { setDesignatorAt(Orbit::attachId, id); }

const DtString& DtOrbitVCPdu::markingText() const {
  markingText_ = VcText::markingText(*this, Orbit::markingText, Orbit::length);
  return markingText_;
}
void DtOrbitVCPdu::setMarkingText(const DtString& text) {
  setTextAt(Orbit::markingText, VcLayout::kNameWidth, text.c_str());
}

const char* DtOrbitVCPdu::string() const {
  VcText::Writer out(textBuffer(), kTextBufferSize);
  return VcText::writeAttachForm(
      out, {attachId().c_str()},
      {radius(), azimuthRate(), heading(), pitch(), headingOffset(), pitchOffset(), roll()},
      {markingText().c_str()});
}

void DtOrbitVCPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  const VcText::AttachFields f = VcText::parseAttachForm(*this, text, kForm);
  setAttachId(f.ids[0]);
  setRadius(static_cast<float>(f.numbers[0]));
  setAzimuthRate(static_cast<float>(f.numbers[1]));
  setHeading(static_cast<float>(f.numbers[2]));
  setPitch(static_cast<float>(f.numbers[3]));
  setHeadingOffset(static_cast<float>(f.numbers[4]));
  setPitchOffset(static_cast<float>(f.numbers[5]));
  setRoll(static_cast<float>(f.numbers[6]));
  setMarkingText(f.marks[0]);
}

void DtOrbitVCPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpString("AttachTo:", attachId().c_str());
  DtDumpString("AttachTo (MarkingText):", markingText().c_str());
  DtDumpFloat("Radius:", radius());
  DtDumpFloat("AzimuthRate:", azimuthRate());
  DtDumpFloat("Heading:", heading());
  DtDumpFloat("Pitch:", pitch());
  DtDumpFloat("HeadingOff:", headingOffset());
  DtDumpFloat("PitchOff:", pitchOffset());
  DtDumpFloat("Roll:", roll());
}
