#include "vistralcontrol/vdcAttTemplate.h"

namespace {
// The template PDU type of each attribute kind, by kind.
constexpr DtVdcObjectType kTemplatePduType[] = {DtVdcAttributeNoValue, DtVdcAttributeSingleValue,
                                                DtVdcAttributeGraphicSingleValue,
                                                DtVdcAttributeGraphicListValue, DtVdcAttributeBitmap};
}  // namespace

DtVdcAttributeTemplateObject::DtVdcAttributeTemplateObject(unsigned int id, unsigned int templateId,
                                                           const DtString& name, DtVdcAttributeType type)
    : DtVdcObject(id), name_(name), templateId_(templateId), attributeType_(type) {
  updatePdu();
}

DtVdcAttributeTemplateObject::~DtVdcAttributeTemplateObject() = default;

DtVistralDrawControlPdu& DtVdcAttributeTemplateObject::pdu() { return pdu_; }

void DtVdcAttributeTemplateObject::updatePdu() {
  const int kind = attributeType_;
  if (kind >= 0 && kind < static_cast<int>(std::size(kTemplatePduType))) pdu_.setType(kTemplatePduType[kind]);
  pdu_.setName(name_);
  pdu_.setObjectId(id());
  pdu_.setAttributeGroupId(templateId_);
}

const DtString& DtVdcAttributeTemplateObject::name() const { return name_; }
unsigned int DtVdcAttributeTemplateObject::templateId() const { return templateId_; }
DtVdcAttributeTemplateObject::DtVdcAttributeType DtVdcAttributeTemplateObject::attributeType() const {
  return attributeType_;
}

DtVdcBarAttributeTemplateObject::DtVdcBarAttributeTemplateObject(unsigned int id, unsigned int templateId,
                                                                 const DtString& name, double minRange,
                                                                 double maxRange)
    : DtVdcAttributeTemplateObject(id, templateId, name, DtVdcAttTypeValueBar),
      minRange_(minRange),
      maxRange_(maxRange) {
  attributePdu().setRange(minRange_, maxRange_);
}

DtVdcBarAttributeTemplateObject::~DtVdcBarAttributeTemplateObject() = default;

void DtVdcBarAttributeTemplateObject::updatePdu() {
  DtVdcAttributeTemplateObject::updatePdu();
  attributePdu().setRange(minRange_, maxRange_);
}

double DtVdcBarAttributeTemplateObject::minRange() const { return minRange_; }
double DtVdcBarAttributeTemplateObject::maxRange() const { return maxRange_; }

DtVdcAttributeGroupTemplateObject::DtVdcAttributeGroupTemplateObject(unsigned int id, const DtString& name)
    : DtVdcObject(id), name_(name) {
  pdu_.setType(DtVdcAttributeGroupTemplate);
  pdu_.setName(name_);
  pdu_.setObjectId(id);
}

DtVdcAttributeGroupTemplateObject::DtVdcAttributeGroupTemplateObject(
    const DtVdcAttributeGroupTemplateObject& other)
    : DtVdcObject(other), name_(other.name_), pdu_(other.pdu_) {
  for (const auto& t : other.templates_) {
    const auto* bar = dynamic_cast<const DtVdcBarAttributeTemplateObject*>(t.get());
    enter(bar ? std::make_unique<DtVdcBarAttributeTemplateObject>(*bar)
              : std::make_unique<DtVdcAttributeTemplateObject>(*t));
  }
}

DtVdcAttributeGroupTemplateObject& DtVdcAttributeGroupTemplateObject::operator=(
    const DtVdcAttributeGroupTemplateObject& other) {
  if (this != &other) {
    DtVdcAttributeGroupTemplateObject copy(other);
    DtVdcObject::operator=(copy);
    name_ = copy.name_;
    index_.swap(copy.index_);
    templates_.swap(copy.templates_);
    pdu_ = copy.pdu_;
  }
  return *this;
}

DtVdcAttributeGroupTemplateObject::~DtVdcAttributeGroupTemplateObject() = default;

DtVistralDrawControlPdu& DtVdcAttributeGroupTemplateObject::pdu() { return pdu_; }

void DtVdcAttributeGroupTemplateObject::updatePdu() {}

const DtString& DtVdcAttributeGroupTemplateObject::name() const { return name_; }

DtVdcAttributeTemplateObject* DtVdcAttributeGroupTemplateObject::createAttributeTemplate(
    unsigned int id, const DtString& name, DtVdcAttributeType type) {
  return enter(std::make_unique<DtVdcAttributeTemplateObject>(id, this->id(), name, type));
}

DtVdcAttributeTemplateObject* DtVdcAttributeGroupTemplateObject::createAttributeTemplate(unsigned int id,
                                                                                         const DtString& name,
                                                                                         double minRange,
                                                                                         double maxRange) {
  return enter(std::make_unique<DtVdcBarAttributeTemplateObject>(id, this->id(), name, minRange, maxRange));
}

const DtVdcAttributeGroupTemplateObject::TemplateList& DtVdcAttributeGroupTemplateObject::attributeTemplates()
    const {
  return templates_;
}

DtVdcAttributeTemplateObject* DtVdcAttributeGroupTemplateObject::attributeTemplate(unsigned int id) const {
  const auto found = index_.find(id);
  return found == index_.end() ? nullptr : found->second;
}

DtVdcAttributeTemplateObject* DtVdcAttributeGroupTemplateObject::enter(
    std::unique_ptr<DtVdcAttributeTemplateObject> made) {
  DtVdcAttributeTemplateObject* entered = made.get();
  index_[entered->id()] = entered;
  templates_.push_back(std::move(made));
  return entered;
}
