#include "vistralcontrol/vdcTriangle2DObj.h"

#include "vdcObjectParts.h"

DtVdcTriangle2DObject::DtVdcTriangle2DObject(unsigned int id, const DtVdcVector2D& vertex1,
                                             const DtVdcVector2D& vertex2, const DtVdcVector2D& vertex3,
                                             const DtVdcVector2D& offset, const DtVdcVector2D& scale,
                                             double rotation, DtVdcColor color, bool fill,
                                             unsigned int pattern, bool flashing)
    : DtVdcObject(id),
      vertex1_(vertex1),
      vertex2_(vertex2),
      vertex3_(vertex3),
      offset_(offset),
      scale_(scale),
      color_(color),
      fill_(fill),
      pattern_(pattern),
      rotation_(rotation),
      flashing_(flashing) {
  VdcFill::startScreenPdu(*this, pdu_, DtVdc2DTriangle);
}

VDC_OBJECT_PDU(DtVdcTriangle2DObject)
VDC_OBJECT_COLOR(DtVdcTriangle2DObject)
VDC_OBJECT_FLASHING(DtVdcTriangle2DObject)
VDC_OBJECT_SCREEN_STYLE(DtVdcTriangle2DObject)

void DtVdcTriangle2DObject::updatePdu() {
  setPduAttach();
  setPduVertices();
  setPduScale();
  VdcFill::updateScreenStyle(*this);
}

const DtVdcVector2D& DtVdcTriangle2DObject::vertex1() const { return vertex1_; }
DtVdcVector2D& DtVdcTriangle2DObject::vertex1() { return vertex1_; }
void DtVdcTriangle2DObject::setVertex1(const DtVdcVector2D& vertex) { vertex1_ = vertex; }
const DtVdcVector2D& DtVdcTriangle2DObject::vertex2() const { return vertex2_; }
DtVdcVector2D& DtVdcTriangle2DObject::vertex2() { return vertex2_; }
void DtVdcTriangle2DObject::setVertex2(const DtVdcVector2D& vertex) { vertex2_ = vertex; }
const DtVdcVector2D& DtVdcTriangle2DObject::vertex3() const { return vertex3_; }
DtVdcVector2D& DtVdcTriangle2DObject::vertex3() { return vertex3_; }
void DtVdcTriangle2DObject::setVertex3(const DtVdcVector2D& vertex) { vertex3_ = vertex; }
const DtVdcVector2D& DtVdcTriangle2DObject::offset() const { return offset_; }
DtVdcVector2D& DtVdcTriangle2DObject::offset() { return offset_; }
void DtVdcTriangle2DObject::setOffset(const DtVdcVector2D& offset) { offset_ = offset; }
const DtVdcVector2D& DtVdcTriangle2DObject::scale() const { return scale_; }
DtVdcVector2D& DtVdcTriangle2DObject::scale() { return scale_; }
void DtVdcTriangle2DObject::setScale(const DtVdcVector2D& scale) { scale_ = scale; }

// The triangle is placed at its offset; its vertices travel doubled, the scale as it is.
void DtVdcTriangle2DObject::setPduAttach() { VdcFill::attachToScreen(pdu_, offset_); }

void DtVdcTriangle2DObject::setPduVertices() {
  const DtVdcVector2D* vertices[] = {&vertex1_, &vertex2_, &vertex3_};
  for (int i = 0; i < 3; ++i)
    pdu_.setPoint(i, DtVector64(2.0 * vertices[i]->x(), 2.0 * vertices[i]->y(), 0.0));
}

void DtVdcTriangle2DObject::setPduScale() { pdu_.setScale(scale_.vector3D()); }
