#include "vistralcontrol/vdcTriangle3DObj.h"

#include "vdcObjectParts.h"

DtVdcTriangle3DObject::DtVdcTriangle3DObject(unsigned int id, const DtVector64& vertex1,
                                             const DtVector64& vertex2, const DtVector64& vertex3,
                                             DtVdcColor color, bool flashing)
    : DtVdcObject(id),
      vertex1_(vertex1),
      vertex2_(vertex2),
      vertex3_(vertex3),
      color_(color),
      flashing_(flashing) {
  VdcFill::startPdu(*this, pdu_, DtVdc3DTriangle);
}

VDC_OBJECT_PDU(DtVdcTriangle3DObject)
VDC_OBJECT_COLOR(DtVdcTriangle3DObject)
VDC_OBJECT_FLASHING(DtVdcTriangle3DObject)

void DtVdcTriangle3DObject::updatePdu() {
  setPduPoints();
  setPduColor();
  setPduFlashing();
}

const DtVector64& DtVdcTriangle3DObject::vertex1() const { return vertex1_; }
DtVector64& DtVdcTriangle3DObject::vertex1() { return vertex1_; }
void DtVdcTriangle3DObject::setVertex1(const DtVector64& vertex) { vertex1_ = vertex; }
const DtVector64& DtVdcTriangle3DObject::vertex2() const { return vertex2_; }
DtVector64& DtVdcTriangle3DObject::vertex2() { return vertex2_; }
void DtVdcTriangle3DObject::setVertex2(const DtVector64& vertex) { vertex2_ = vertex; }
const DtVector64& DtVdcTriangle3DObject::vertex3() const { return vertex3_; }
DtVector64& DtVdcTriangle3DObject::vertex3() { return vertex3_; }
void DtVdcTriangle3DObject::setVertex3(const DtVector64& vertex) { vertex3_ = vertex; }

void DtVdcTriangle3DObject::setPduPoints() {
  pdu_.setPoint(0, vertex1_);
  pdu_.setPoint(1, vertex2_);
  pdu_.setPoint(2, vertex3_);
}
