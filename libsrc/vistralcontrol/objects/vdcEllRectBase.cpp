#include "vistralcontrol/vdcEllRectBase.h"

#include "vdcObjectParts.h"

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
  VdcFill::startScreenPdu(*this, pdu_, type);
}

VDC_OBJECT_PDU(DtVdcEllRectBase)
VDC_OBJECT_COLOR(DtVdcEllRectBase)
VDC_OBJECT_FLASHING(DtVdcEllRectBase)
VDC_OBJECT_SCREEN_STYLE(DtVdcEllRectBase)

void DtVdcEllRectBase::updatePdu() {
  setPduAttach();
  setPduScale();
  VdcFill::updateScreenStyle(*this);
}

const DtVdcVector2D& DtVdcEllRectBase::position() const { return position_; }
DtVdcVector2D& DtVdcEllRectBase::position() { return position_; }
void DtVdcEllRectBase::setPosition(const DtVdcVector2D& position) { position_ = position; }
const DtVdcVector2D& DtVdcEllRectBase::size() const { return size_; }
DtVdcVector2D& DtVdcEllRectBase::size() { return size_; }
void DtVdcEllRectBase::setSize(const DtVdcVector2D& size) { size_ = size; }

void DtVdcEllRectBase::setPduAttach() { VdcFill::attachToScreen(pdu_, position_); }
// The PDU carries the size doubled.
void DtVdcEllRectBase::setPduScale() { pdu_.setScale(DtVector64(2.0 * size_.x(), 2.0 * size_.y(), 0.0)); }
