#include "vistralcontrol/pivotVcPdu.h"

#include <cstdio>

#include "tarvex/dtDump.h"
#include "vcViewLayout.h"

using VcLayout::Pivot;

DtPivotVCPdu::DtPivotVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Pivot::length, "storage for the image");
  useStorage(storage_);
  initPdu(Pivot::length, holder);
  setViewerCommand(DtVcPivot);
}

DtPivotVCPdu::DtPivotVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                           DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtPivotVCPdu::~DtPivotVCPdu() = default;

float DtPivotVCPdu::radius() const { return f32At(Pivot::radius); }
void DtPivotVCPdu::setRadius(float radius) { setF32At(Pivot::radius, radius); }
float DtPivotVCPdu::bodyHeading() const { return f32At(Pivot::bodyHeading); }
void DtPivotVCPdu::setBodyHeading(float heading) { setF32At(Pivot::bodyHeading, heading); }
float DtPivotVCPdu::pitch() const { return f32At(Pivot::pitch); }
void DtPivotVCPdu::setPitch(float pitch) { setF32At(Pivot::pitch, pitch); }
float DtPivotVCPdu::headingOffset() const { return f32At(Pivot::headingOffset); }
void DtPivotVCPdu::setHeadingOffset(float offset) { setF32At(Pivot::headingOffset, offset); }
float DtPivotVCPdu::pitchOffset() const { return f32At(Pivot::pitchOffset); }
void DtPivotVCPdu::setPitchOffset(float offset) { setF32At(Pivot::pitchOffset, offset); }
float DtPivotVCPdu::roll() const { return f32At(Pivot::roll); }
void DtPivotVCPdu::setRoll(float roll) { setF32At(Pivot::roll, roll); }

const DtVector64& DtPivotVCPdu::pivotPoint() const {
  pivotPoint_ = f64VectorAt(Pivot::pivotPoint);
  return pivotPoint_;
}
void DtPivotVCPdu::setPivotPoint(const DtVector64& point) { setF64VectorAt(Pivot::pivotPoint, point); }

const char* DtPivotVCPdu::string() const {
  const DtVector64 p = pivotPoint();
  return formatText("%f %f %f %f %f %f %f %f %f", radius(), bodyHeading(), pitch(), headingOffset(),
                    pitchOffset(), roll(), p.x(), p.y(), p.z());
}

void DtPivotVCPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  // Fields the text does not give are set to zero.
  float radiusValue = 0, heading = 0, pitchValue = 0, headingOff = 0, pitchOff = 0, rollValue = 0;
  float x = 0, y = 0, z = 0;
  std::sscanf(text, "%f %f %f %f %f %f %f %f %f", &radiusValue, &heading, &pitchValue, &headingOff, &pitchOff,
              &rollValue, &x, &y, &z);
  setPivotPoint(DtVector64(x, y, z));
  setRadius(radiusValue);
  setBodyHeading(heading);
  setPitch(pitchValue);
  setHeadingOffset(headingOff);
  setPitchOffset(pitchOff);
  setRoll(rollValue);
}

void DtPivotVCPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpString("Pivot point:", pivotPoint().string());
  DtDumpFloat("Radius:", radius());
  DtDumpFloat("BodyHeading:", bodyHeading());
  DtDumpFloat("pitch:", pitch());
  DtDumpFloat("HeadingOff:", headingOffset());
  DtDumpFloat("PitchOff:", pitchOffset());
  DtDumpFloat("Roll:", roll());
}
