#include "vistralcontrol/vdcPolyObjectPdu.h"

#include <cstdio>

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vdcPduClass.h"

using VdcLayout::kHalfWay;
using VdcLayout::kPoly;
using VdcLayout::kWholeWay;

namespace {
// The poly object's own fields are read from the character after this blank of the whole line. It is one
// field later than where string() puts them (the pattern follows the 19th blank); senders and receivers
// have always read the line so.
constexpr int kFieldsAfterBlank = 20;
}  // namespace

DtVdcPolyObjectPduBase::~DtVdcPolyObjectPduBase() = default;

VDC_DRAW_PDU_CLASS_OWN_STORAGE(
    DtVdcPolyObjectPdu, DtVdcPolyObjectPduBase, VdcLayout::kPolyLength, DtVcDrawPolyObject,
    VdcLayout::kPolyLength, kCurrentParamVersion, if (holder == nullptr) {
      setRelativeLocations(kWholeWay);
      setPattern(VdcLayout::kPolyDefaultPattern);
    })
VDC_DRAW_PDU_CLASS_OWN_STORAGE(DtVdcPolyObjectPduV0, DtVdcPolyObjectPduBase, VdcLayout::kPolyLength,
                               DtVcDrawPolyObject, VdcLayout::kPolyLength, 0,
                               if (holder == nullptr) setRelativeLocations(kHalfWay))

void DtVdcPolyObjectPduBase::setFill(bool fill) const {
  // Declared const so that a shape held by const reference can still be filled.
  auto* self = const_cast<DtVdcPolyObjectPduBase*>(this);
  self->setFlagBits(VdcLayout::kFillBit, fill ? VdcLayout::kFillBit : 0);
}

bool DtVdcPolyObjectPduBase::fill() const { return flagBits(VdcLayout::kFillBit) != 0; }

void DtVdcPolyObjectPduBase::setPattern(DtNetU32 pattern) {
  setU32At(VdcLayout::of(*this, kPoly).pattern, pattern);
}

DtNetU32 DtVdcPolyObjectPduBase::pattern() const { return u32At(VdcLayout::of(*this, kPoly).pattern); }

void DtVdcPolyObjectPduBase::setScale(const DtVector64& scale) {
  setF32VectorAt(VdcLayout::of(*this, kPoly).scale, scale);
}

DtVector64 DtVdcPolyObjectPduBase::scale() const { return f32VectorAt(VdcLayout::of(*this, kPoly).scale); }

void DtVdcPolyObjectPduBase::setRotation(const DtTaitBryan& rotation) {
  setEulerAt(VdcLayout::of(*this, kPoly).rotation, rotation);
}

DtTaitBryan DtVdcPolyObjectPduBase::rotation() const { return eulerAt(VdcLayout::of(*this, kPoly).rotation); }

const char* DtVdcPolyObjectPduBase::string() const {
  DtVdcAttachablePdu::string();
  const DtVector64 s = scale();
  const DtTaitBryan r = rotation();
  VcText::Writer out = VcText::Writer::continuing(textBuffer(), kTextBufferSize);
  out.append(" %u %u %f %f %f %f %f %f", unsigned{pattern()}, fill() ? 1U : 0U, s.x(), s.y(), s.z(), r.psi(),
             r.theta(), r.phi());
  return out.text();
}

void DtVdcPolyObjectPduBase::setFromString(const char* text) {
  if (text == nullptr) return;
  DtVdcAttachablePdu::setFromString(text);
  // Fields the text does not give are zero.
  unsigned patternValue = 0, fillValue = 0;
  float v[6] = {};
  std::sscanf(VcText::afterBlank(text, kFieldsAfterBlank), "%u %u %f %f %f %f %f %f", &patternValue,
              &fillValue, &v[0], &v[1], &v[2], &v[3], &v[4], &v[5]);
  setFill(fillValue != 0);
  setPattern(patternValue);
  setScale(DtVector64(v[0], v[1], v[2]));
  setRotation(DtTaitBryan(v[3], v[4], v[5]));
}

void DtVdcPolyObjectPduBase::printData() const {
  DtVdcAttachablePdu::printData();
  DtDumpHexWord("Fill", fill() ? 1 : 0);
  DtDumpHexWord("Pattern", pattern());
  DtDumpString("Scale", scale().string());
  DtDumpString("Rotation", rotation().string());
}
