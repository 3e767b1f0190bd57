#include "vdcObjectParts.h"

namespace VdcFill {

void startPdu(DtVdcObject& object, DtVistralDrawControlPdu& pdu, DtVdcObjectType type) {
  pdu.setObjectId(object.id());
  pdu.setType(type);
  object.updatePdu();
}

void startScreenPdu(DtVdcObject& object, DtVdcAttachablePdu& pdu, DtVdcObjectType type) {
  startPdu(object, pdu, type);
  pdu.setOffset(DtVector64());
}

std::vector<DtVdcLineSegment> equalSegments(int count, const DtVdcColor& color, unsigned int pattern,
                                            unsigned int thickness, DtVdcLineSegment::DtVdcSegmentStyle style,
                                            DtVdcLineSegment::DtVdcSegmentArrowStyle arrowStyle) {
  if (count < 1) return {};
  return std::vector<DtVdcLineSegment>(
      static_cast<std::size_t>(count),
      DtVdcLineSegment(1.0 / count, color, pattern, thickness, style, arrowStyle));
}

}  // namespace VdcFill
