#include "vistralcontrol/vdcAttGroup.h"

#include "vdcObjectParts.h"
#include "vdcThrow.h"

DtVdcAttributeGroupObject::DtVdcAttributeGroupObject(unsigned int id,
                                                     DtVdcAttributeGroupTemplateObject* groupTemplate,
                                                     const DtVdc3DAttachPoint& attachment,
                                                     const DtVector64& enuOffset, DtVdcColor color,
                                                     bool flashing)
    : DtVdcObject(id),
      attachment_(attachment),
      enuOffset_(enuOffset),
      color_(color),
      flashing_(flashing),
      groupTemplate_(groupTemplate) {
  pdu_.setObjectId(id);
  pdu_.setAttributeGroupId(groupTemplate_ != nullptr ? groupTemplate_->id() : 0);
  pdu_.setType(DtVdcAttributeGroup);
  createAttributes();
}

DtVdcAttributeGroupObject::DtVdcAttributeGroupObject(const DtVdcAttributeGroupObject& other)
    : DtVdcObject(other),
      attachment_(other.attachment_),
      enuOffset_(other.enuOffset_),
      color_(other.color_),
      flashing_(other.flashing_),
      groupTemplate_(other.groupTemplate_),
      pdu_(other.pdu_) {
  copyAttributes(other.values_);
}

DtVdcAttributeGroupObject& DtVdcAttributeGroupObject::operator=(const DtVdcAttributeGroupObject& other) {
  if (this != &other) {
    DtVdcObject::operator=(other);
    attachment_ = other.attachment_;
    enuOffset_ = other.enuOffset_;
    color_ = other.color_;
    flashing_ = other.flashing_;
    groupTemplate_ = other.groupTemplate_;
    pdu_ = other.pdu_;
    copyAttributes(other.values_);
  }
  return *this;
}

VDC_OBJECT_PDU(DtVdcAttributeGroupObject)
VDC_OBJECT_COLOR(DtVdcAttributeGroupObject)
VDC_OBJECT_FLASHING(DtVdcAttributeGroupObject)
VDC_OBJECT_ENU_OFFSET(DtVdcAttributeGroupObject)
VDC_OBJECT_SINGLE_ATTACHMENT(DtVdcAttributeGroupObject)

void DtVdcAttributeGroupObject::updatePdu() {
  setPduAttach();
  setPduOffset();
  setPduColor();
  setPduFlashing();
}

DtVdcAttributeGroupTemplateObject* DtVdcAttributeGroupObject::attributeGroupTemplate() const {
  return groupTemplate_;
}

DtVdcAttributeValue& DtVdcAttributeGroupObject::valueAt(unsigned int attributeId, const char* function,
                                                        int line) const {
  std::unique_ptr<DtVdcAttributeValue>& slot = values_[attributeId];
  if (!slot) VDC_THROW_IN("Invalid attribute ID", function, "vdcAttGroup.cpp", line);
  return *slot;
}

namespace {
// A value the application changes goes out at the group's next update, and only then.
template <class Arg, class T>
void changeValue(DtVdcAttributeValue& v, void (DtVdcAttributeValue::*set)(Arg), const T& value) {
  (v.*set)(value);
  v.setDirty(true);
}
}  // namespace

void DtVdcAttributeGroupObject::setBmpAttributeValue(unsigned int attributeId, const DtString& value) {
  changeValue(valueAt(attributeId, __PRETTY_FUNCTION__, 292), &DtVdcAttributeValue::setTextValue, value);
}
DtString DtVdcAttributeGroupObject::bmpAttributeValue(unsigned int attributeId) const {
  return valueAt(attributeId, __PRETTY_FUNCTION__, 307).textValue();
}
void DtVdcAttributeGroupObject::setNumericAttributeValue(unsigned int attributeId, double value) {
  changeValue(valueAt(attributeId, __PRETTY_FUNCTION__, 324), &DtVdcAttributeValue::setXValue, value);
}
double DtVdcAttributeGroupObject::numericAttributeValue(unsigned int attributeId) const {
  return valueAt(attributeId, __PRETTY_FUNCTION__, 339).xValue();
}
void DtVdcAttributeGroupObject::setValueBarAttributeValue(unsigned int attributeId, double value) {
  changeValue(valueAt(attributeId, __PRETTY_FUNCTION__, 356), &DtVdcAttributeValue::setXValue, value);
}
double DtVdcAttributeGroupObject::valueBarAttributeValue(unsigned int attributeId) const {
  return valueAt(attributeId, __PRETTY_FUNCTION__, 371).xValue();
}
void DtVdcAttributeGroupObject::setGraphAttributeValueX(unsigned int attributeId, double value) {
  changeValue(valueAt(attributeId, __PRETTY_FUNCTION__, 388), &DtVdcAttributeValue::setXValue, value);
}
double DtVdcAttributeGroupObject::graphAttributeValueX(unsigned int attributeId) const {
  return valueAt(attributeId, __PRETTY_FUNCTION__, 403).xValue();
}
void DtVdcAttributeGroupObject::setGraphAttributeValueY(unsigned int attributeId, double value) {
  changeValue(valueAt(attributeId, __PRETTY_FUNCTION__, 420), &DtVdcAttributeValue::setYValue, value);
}
double DtVdcAttributeGroupObject::graphAttributeValueY(unsigned int attributeId) const {
  return valueAt(attributeId, __PRETTY_FUNCTION__, 435).yValue();
}

DtVdcAttributeGroupObject::ValueMap& DtVdcAttributeGroupObject::attributeValueMap() { return values_; }

void DtVdcAttributeGroupObject::updateAttributePdu(unsigned int attributeId) {
  DtVdcAttributeValue& v = valueAt(attributeId, __PRETTY_FUNCTION__, 238);
  const DtVdcAttributeTemplateObject* t =
      groupTemplate_ != nullptr ? groupTemplate_->attributeTemplate(attributeId) : nullptr;
  if (t == nullptr) return;
  DtVdcAttributeUpdatePdu& out = v.attributeUpdatePdu();
  switch (t->attributeType()) {
    case DtVdcAttributeTemplateObject::DtVdcAttTypeNoValue:
      // A label has nothing to send.
      v.setDirty(false);
      break;
    case DtVdcAttributeTemplateObject::DtVdcAttTypeSingleValue:
    case DtVdcAttributeTemplateObject::DtVdcAttTypeValueBar:
      if (v.dirty()) out.setValueX(v.xValue());
      break;
    case DtVdcAttributeTemplateObject::DtVdcAttTypeGraphPoint:
      if (v.dirty()) {
        out.setValueX(v.xValue());
        out.setValueY(v.yValue());
      }
      break;
    case DtVdcAttributeTemplateObject::DtVdcAttTypeBitmap:
      if (v.dirty()) out.setText(v.textValue());
      break;
    default:
      break;
  }
}

void DtVdcAttributeGroupObject::updateAllAttributePdus() {
  for (const auto& entry : values_) updateAttributePdu(entry.first);
}

void DtVdcAttributeGroupObject::createAttributes() {
  if (groupTemplate_ == nullptr) return;
  for (const auto& t : groupTemplate_->attributeTemplates()) {
    auto value = std::make_unique<DtVdcAttributeValue>();
    DtVdcAttributeUpdatePdu& out = value->attributeUpdatePdu();
    out.setObjectId(t->id());
    out.setGroupId(id());
    switch (t->attributeType()) {
      case DtVdcAttributeTemplateObject::DtVdcAttTypeBitmap:
        out.setType(DtVdcAttributeValueSetText);
        break;
      case DtVdcAttributeTemplateObject::DtVdcAttTypeNoValue:
      case DtVdcAttributeTemplateObject::DtVdcAttTypeSingleValue:
      case DtVdcAttributeTemplateObject::DtVdcAttTypeValueBar:
      case DtVdcAttributeTemplateObject::DtVdcAttTypeGraphPoint:
        out.setType(DtVdcAttributeValueSet);
        break;
      default:
        break;
    }
    values_[t->id()] = std::move(value);
  }
}

void DtVdcAttributeGroupObject::destroyAttributes() { values_.clear(); }

void DtVdcAttributeGroupObject::copyAttributes(const ValueMap& values) {
  ValueMap copies;
  for (const auto& [attributeId, value] : values)
    copies[attributeId] = value ? std::make_unique<DtVdcAttributeValue>(*value) : nullptr;
  values_.swap(copies);
}
