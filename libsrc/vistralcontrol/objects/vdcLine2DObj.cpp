#include "vistralcontrol/vdcLine2DObj.h"

#include "vdcObjectParts.h"

DtVdcLine2DObject::DtVdcLine2DObject(unsigned int id, const DtVdcVector2D& start, const DtVdcVector2D& end,
                                     int numSegments, DtVdcColor color, DtVdcSegmentStyle style,
                                     DtVdcSegmentArrowStyle arrowStyle, unsigned int thickness,
                                     unsigned int pattern, bool flashing)
    : DtVdcObject(id),
      start_(start),
      end_(end),
      flashing_(flashing),
      segments_(VdcFill::equalSegments(numSegments, color, pattern, thickness, style, arrowStyle)) {
  VdcFill::startScreenPdu(*this, pdu_, DtVdc2DLine);
}

VDC_OBJECT_PDU(DtVdcLine2DObject)
VDC_OBJECT_FLASHING(DtVdcLine2DObject)
VDC_LINE_SEGMENTS(DtVdcLine2DObject)

void DtVdcLine2DObject::updatePdu() {
  setPduAttach();
  setPduFlashing();
  VdcFill::updateSegments(*this);
}

const DtVdcVector2D& DtVdcLine2DObject::startPosition() const { return start_; }
DtVdcVector2D& DtVdcLine2DObject::startPosition() { return start_; }
void DtVdcLine2DObject::setStartPosition(const DtVdcVector2D& position) { start_ = position; }
const DtVdcVector2D& DtVdcLine2DObject::endPosition() const { return end_; }
DtVdcVector2D& DtVdcLine2DObject::endPosition() { return end_; }
void DtVdcLine2DObject::setEndPosition(const DtVdcVector2D& position) { end_ = position; }

void DtVdcLine2DObject::setPduAttach() { VdcFill::attachToScreen(pdu_, start_, end_); }
