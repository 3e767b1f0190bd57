#include "vistralcontrol/vdcEllRectBase.h"

#include "vdcFill.h"

DtVdcEllRectBase::DtVdcEllRectBase(unsigned int id, DtVdcObjectType type, const DtVdcVector2D& position,
                                   const DtVdcVector2D& size, double rotation, DtVdcColor color, bool fill,
                                   unsigned int pattern, bool flashing)
    : DtVdcObject(id),
      position_(position),
      size_(size),
      color_(color),
      pattern_(pattern),
      fill_(fill),
      rotation_(rotation),
      flashing_(flashing) {
  pdu_.setObjectId(id);
  pdu_.setType(type);
  updatePdu();
  // A screen shape has no world offset.
  pdu_.setOffset(DtVector64());
}

DtVdcEllRectBase::~DtVdcEllRectBase() = default;

DtVistralDrawControlPdu& DtVdcEllRectBase::pdu() { return pdu_; }

void DtVdcEllRectBase::updatePdu() {
  setPduAttach();
  setPduScale();
  setPduColor();
  setPduFlashing();
  setPduPattern();
  setPduRotation();
  setPduFill();
}

const DtVdcVector2D& DtVdcEllRectBase::position() const { return position_; }
DtVdcVector2D& DtVdcEllRectBase::position() { return position_; }
void DtVdcEllRectBase::setPosition(const DtVdcVector2D& position) { position_ = position; }
const DtVdcVector2D& DtVdcEllRectBase::size() const { return size_; }
DtVdcVector2D& DtVdcEllRectBase::size() { return size_; }
void DtVdcEllRectBase::setSize(const DtVdcVector2D& size) { size_ = size; }
double DtVdcEllRectBase::rotation() const { return rotation_; }
void DtVdcEllRectBase::setRotation(double rotation) { rotation_ = rotation; }
const DtVdcColor& DtVdcEllRectBase::color() const { return color_; }
DtVdcColor& DtVdcEllRectBase::color() { return color_; }
void DtVdcEllRectBase::setColor(const DtVdcColor& color) { color_ = color; }
bool DtVdcEllRectBase::fill() const { return fill_; }
void DtVdcEllRectBase::setFill(bool fill) { fill_ = fill; }
unsigned int DtVdcEllRectBase::pattern() const { return pattern_; }
void DtVdcEllRectBase::setPattern(unsigned int pattern) { pattern_ = pattern; }
bool DtVdcEllRectBase::flashing() const { return flashing_; }
void DtVdcEllRectBase::setFlashing(bool flashing) { flashing_ = flashing; }

void DtVdcEllRectBase::setPduAttach() { VdcFill::attachToScreen(pdu_, position_); }
// The PDU carries the size doubled.
void DtVdcEllRectBase::setPduScale() { pdu_.setScale(DtVector64(2.0 * size_.x(), 2.0 * size_.y(), 0.0)); }
void DtVdcEllRectBase::setPduColor() { VdcFill::setColor(pdu_, color_); }
void DtVdcEllRectBase::setPduFlashing() { pdu_.setFlashing(flashing_); }
void DtVdcEllRectBase::setPduFill() { pdu_.setFill(fill_); }
void DtVdcEllRectBase::setPduRotation() { pdu_.setRotation(VdcFill::screenRotation(rotation_)); }
void DtVdcEllRectBase::setPduPattern() { pdu_.setPattern(DtNetU32(pattern_)); }
