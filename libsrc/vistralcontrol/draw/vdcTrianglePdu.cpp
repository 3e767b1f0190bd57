#include "vistralcontrol/vdcTrianglePdu.h"

#include <cstdio>

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vdcPduClass.h"

using VdcLayout::kHalfWay;
using VdcLayout::kTriangle;

namespace {
// The points follow the 27th blank of the whole line: after the attachable and poly-object fields.
constexpr int kFieldsAfterBlank = 27;
static_assert(DtVdcTrianglePduBase::kNumPoints == VdcLayout::kTrianglePoints, "three corners");

bool cornerIndex(int index) { return index >= 0 && index < DtVdcTrianglePduBase::kNumPoints; }
}  // namespace

VDC_DRAW_PDU_BASE(DtVdcTrianglePduBase, VdcLayout::longest(kTriangle))

VDC_DRAW_PDU_CLASS(DtVdcTrianglePdu, DtVdcTrianglePduBase, DtVcDrawTriangle, kTriangle.current.length,
                   kCurrentParamVersion, if (holder == nullptr) setRelativeLocations(kHalfWay))
VDC_DRAW_PDU_CLASS(DtVdcTrianglePduV0, DtVdcTrianglePduBase, DtVcDrawTriangle, kTriangle.v0.length, 0,
                   if (holder == nullptr) setRelativeLocations(kHalfWay))

void DtVdcTrianglePduBase::setPoint(int index, const DtVector64& point) {
  if (cornerIndex(index))
    setF64VectorAt(VdcLayout::of(*this, kTriangle).points + index * VdcLayout::kPointSize, point);
}

DtVector64 DtVdcTrianglePduBase::point(int index) const {
  return cornerIndex(index)
             ? f64VectorAt(VdcLayout::of(*this, kTriangle).points + index * VdcLayout::kPointSize)
             : DtVector64();
}

const char* DtVdcTrianglePduBase::string() const {
  DtVdcPolyObjectPduBase::string();
  const DtVector64 p0 = point(0);
  const DtVector64 p1 = point(1);
  const DtVector64 p2 = point(2);
  VcText::Writer out = VcText::Writer::continuing(textBuffer(), kTextBufferSize);
  out.append(" %f %f %f %f %f %f %f %f %f", p0.x(), p0.y(), p0.z(), p1.x(), p1.y(), p1.z(), p2.x(), p2.y(),
             p2.z());
  return out.text();
}

void DtVdcTrianglePduBase::setFromString(const char* text) {
  if (text == nullptr) return;
  DtVdcPolyObjectPduBase::setFromString(text);
  // Coordinates the text does not give are zero.
  float v[3 * kNumPoints] = {};
  std::sscanf(VcText::afterBlank(text, kFieldsAfterBlank), "%f %f %f %f %f %f %f %f %f", &v[0], &v[1], &v[2],
              &v[3], &v[4], &v[5], &v[6], &v[7], &v[8]);
  const float* c = v;
  for (int i = 0; i < kNumPoints; ++i, c += 3) setPoint(i, DtVector64(c[0], c[1], c[2]));
}

void DtVdcTrianglePduBase::printData() const {
  DtVdcPolyObjectPduBase::printData();
  for (int i = 0; i < kNumPoints; ++i) {
    DtDumpInteger("Point:", i + 1);
    DtDumpString("location:", point(i).string());
  }
}
