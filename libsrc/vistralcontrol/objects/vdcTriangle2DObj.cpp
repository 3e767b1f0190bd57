#include "vistralcontrol/vdcTriangle2DObj.h"

#include "vdcFill.h"

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
  pdu_.setObjectId(id);
  pdu_.setType(DtVdc2DTriangle);
  updatePdu();
  // A screen shape has no world offset.
  pdu_.setOffset(DtVector64());
}

DtVdcTriangle2DObject::~DtVdcTriangle2DObject() = default;

DtVistralDrawControlPdu& DtVdcTriangle2DObject::pdu() { return pdu_; }

void DtVdcTriangle2DObject::updatePdu() {
  setPduAttach();
  setPduVertices();
  setPduScale();
  setPduColor();
  setPduFlashing();
  setPduPattern();
  setPduRotation();
  setPduFill();
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
double DtVdcTriangle2DObject::rotation() const { return rotation_; }
void DtVdcTriangle2DObject::setRotation(double rotation) { rotation_ = rotation; }
const DtVdcColor& DtVdcTriangle2DObject::color() const { return color_; }
DtVdcColor& DtVdcTriangle2DObject::color() { return color_; }
void DtVdcTriangle2DObject::setColor(const DtVdcColor& color) { color_ = color; }
bool DtVdcTriangle2DObject::fill() const { return fill_; }
void DtVdcTriangle2DObject::setFill(bool fill) { fill_ = fill; }
unsigned int DtVdcTriangle2DObject::pattern() const { return pattern_; }
void DtVdcTriangle2DObject::setPattern(unsigned int pattern) { pattern_ = pattern; }
bool DtVdcTriangle2DObject::flashing() const { return flashing_; }
void DtVdcTriangle2DObject::setFlashing(bool flashing) { flashing_ = flashing; }

// The triangle is placed at its offset; its vertices travel doubled, the scale as it is.
void DtVdcTriangle2DObject::setPduAttach() { VdcFill::attachToScreen(pdu_, offset_); }

void DtVdcTriangle2DObject::setPduVertices() {
  const DtVdcVector2D* vertices[] = {&vertex1_, &vertex2_, &vertex3_};
  for (int i = 0; i < 3; ++i)
    pdu_.setPoint(i, DtVector64(2.0 * vertices[i]->x(), 2.0 * vertices[i]->y(), 0.0));
}

void DtVdcTriangle2DObject::setPduScale() { pdu_.setScale(scale_.vector3D()); }
void DtVdcTriangle2DObject::setPduColor() { VdcFill::setColor(pdu_, color_); }
void DtVdcTriangle2DObject::setPduFlashing() { pdu_.setFlashing(flashing_); }
void DtVdcTriangle2DObject::setPduFill() { pdu_.setFill(fill_); }
void DtVdcTriangle2DObject::setPduRotation() { pdu_.setRotation(VdcFill::screenRotation(rotation_)); }
void DtVdcTriangle2DObject::setPduPattern() { pdu_.setPattern(DtNetU32(pattern_)); }
