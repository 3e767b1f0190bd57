#include "vistralcontrol/vdcLine3DObj.h"

#include "vdcObjectParts.h"

DtVdcLine3DObject::DtVdcLine3DObject(unsigned int id, const DtVdc3DAttachPoint& start,
                                     const DtVdc3DAttachPoint& end, int numSegments,
                                     const DtVector64& enuOffset, DtVdcColor color, DtVdcSegmentStyle style,
                                     DtVdcSegmentArrowStyle arrowStyle, unsigned int thickness,
                                     unsigned int pattern, bool flashing, bool checkLos, bool projected)
    : DtVdcObject(id),
      start_(start),
      end_(end),
      enuOffset_(enuOffset),
      flashing_(flashing),
      checkLos_(checkLos),
      projected_(projected),
      segments_(VdcFill::equalSegments(numSegments, color, pattern, thickness, style, arrowStyle)) {
  VdcFill::startPdu(*this, pdu_, DtVdc3DLine);
}

VDC_OBJECT_PDU(DtVdcLine3DObject)
VDC_OBJECT_FLASHING(DtVdcLine3DObject)
VDC_OBJECT_ENU_OFFSET(DtVdcLine3DObject)
VDC_LINE_SEGMENTS(DtVdcLine3DObject)

void DtVdcLine3DObject::updatePdu() {
  setPduAttach();
  setPduOffset();
  setPduFlashing();
  setPduCheckLos();
  setPduProjected();
  VdcFill::updateSegments(*this);
}

const DtVdc3DAttachPoint& DtVdcLine3DObject::startAttachment() const { return start_; }
DtVdc3DAttachPoint& DtVdcLine3DObject::startAttachment() { return start_; }
void DtVdcLine3DObject::setStartAttachment(const DtVdc3DAttachPoint& attachment) { start_ = attachment; }
const DtVdc3DAttachPoint& DtVdcLine3DObject::endAttachment() const { return end_; }
DtVdc3DAttachPoint& DtVdcLine3DObject::endAttachment() { return end_; }
void DtVdcLine3DObject::setEndAttachment(const DtVdc3DAttachPoint& attachment) { end_ = attachment; }
bool DtVdcLine3DObject::checkLos() const { return checkLos_; }
void DtVdcLine3DObject::setCheckLos(bool check) { checkLos_ = check; }
bool DtVdcLine3DObject::projected() const { return projected_; }
void DtVdcLine3DObject::setProjected(bool projected) { projected_ = projected; }

void DtVdcLine3DObject::setPduAttach() { VdcFill::attachPair(pdu_, start_, end_); }
void DtVdcLine3DObject::setPduCheckLos() { pdu_.setCheckLos(checkLos_); }
void DtVdcLine3DObject::setPduProjected() { pdu_.setProjected(projected_); }
