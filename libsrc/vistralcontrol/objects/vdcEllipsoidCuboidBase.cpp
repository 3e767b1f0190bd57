#include "vistralcontrol/vdcEllipsoidCuboidBase.h"

#include "vdcFill.h"

DtVdcEllipsoidCuboidBase::DtVdcEllipsoidCuboidBase(unsigned int id, DtVdcObjectType type,
                                                   const DtVdc3DAttachPoint& attachment,
                                                   const DtVector64& size, const DtVector64& enuOffset,
                                                   const DtTaitBryan& rotation, DtVdcColor color,
                                                   bool flashing)
    : DtVdcObject(id),
      attachment_(attachment),
      size_(size),
      enuOffset_(enuOffset),
      color_(color),
      rotation_(rotation),
      flashing_(flashing) {
  pdu_.setObjectId(id);
  pdu_.setType(type);
  updatePdu();
}

DtVdcEllipsoidCuboidBase::~DtVdcEllipsoidCuboidBase() = default;

DtVistralDrawControlPdu& DtVdcEllipsoidCuboidBase::pdu() { return pdu_; }

void DtVdcEllipsoidCuboidBase::updatePdu() {
  setPduAttach();
  setPduScale();
  setPduOffset();
  setPduColor();
  setPduFlashing();
  setPduRotation();
}

const DtVdc3DAttachPoint& DtVdcEllipsoidCuboidBase::attachment() const { return attachment_; }
DtVdc3DAttachPoint& DtVdcEllipsoidCuboidBase::attachment() { return attachment_; }
void DtVdcEllipsoidCuboidBase::setAttachment(const DtVdc3DAttachPoint& attachment) {
  attachment_ = attachment;
}
const DtVector64& DtVdcEllipsoidCuboidBase::enuOffset() const { return enuOffset_; }
DtVector64& DtVdcEllipsoidCuboidBase::enuOffset() { return enuOffset_; }
void DtVdcEllipsoidCuboidBase::setEnuOffset(const DtVector64& offset) { enuOffset_ = offset; }
const DtTaitBryan& DtVdcEllipsoidCuboidBase::rotation() const { return rotation_; }
DtTaitBryan& DtVdcEllipsoidCuboidBase::rotation() { return rotation_; }
void DtVdcEllipsoidCuboidBase::setRotation(const DtTaitBryan& rotation) { rotation_ = rotation; }
const DtVdcColor& DtVdcEllipsoidCuboidBase::color() const { return color_; }
DtVdcColor& DtVdcEllipsoidCuboidBase::color() { return color_; }
void DtVdcEllipsoidCuboidBase::setColor(const DtVdcColor& color) { color_ = color; }
bool DtVdcEllipsoidCuboidBase::flashing() const { return flashing_; }
void DtVdcEllipsoidCuboidBase::setFlashing(bool flashing) { flashing_ = flashing; }

void DtVdcEllipsoidCuboidBase::setPduAttach() { VdcFill::attachSingle(pdu_, attachment_); }
// The PDU carries the size doubled.
void DtVdcEllipsoidCuboidBase::setPduScale() { pdu_.setScale(size_ * 2.0); }
void DtVdcEllipsoidCuboidBase::setPduOffset() { pdu_.setOffset(enuOffset_); }
void DtVdcEllipsoidCuboidBase::setPduColor() { VdcFill::setColor(pdu_, color_); }
void DtVdcEllipsoidCuboidBase::setPduFlashing() { pdu_.setFlashing(flashing_); }
void DtVdcEllipsoidCuboidBase::setPduRotation() { pdu_.setRotation(rotation_); }
