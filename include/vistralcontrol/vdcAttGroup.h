// An attribute panel in the world: one instance of a group template, placed at an attach point, with one
// value per attribute of the template. Changing a value marks it dirty; the drawer's update sends the panel's
// PDU and one attribute-update PDU per dirty value.
#pragma once

#include <map>
#include <memory>

#include "tarvex/dtString.h"
#include "tarvex/dtVector.h"
#include "vistralcontrol/vdc3DAttachPoint.h"
#include "vistralcontrol/vdcAttTemplate.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"
#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcObject.h"

// One attribute's current value and the PDU that carries it.
class VISTRAL_EXPORT DtVdcAttributeValue {
 public:
  // The value as text (bitmaps) or numbers (x for one number or a bar, x and y for a graph point).
  const DtString& textValue() const { return textValue_; }
  void setTextValue(const DtString& text) { textValue_ = text; }
  double xValue() const { return xValue_; }
  void setXValue(double x) { xValue_ = x; }
  double yValue() const { return yValue_; }
  void setYValue(double y) { yValue_ = y; }
  // Changed since its update PDU was last sent.
  bool dirty() const { return dirty_; }
  void setDirty(bool dirty) { dirty_ = dirty; }
  // The PDU that carries the value to the viewer.
  DtVdcAttributeUpdatePdu& attributeUpdatePdu() { return updatePdu_; }

 private:
  DtString textValue_{""};
  double xValue_ = 0.0;
  double yValue_ = 0.0;
  bool dirty_ = false;
  DtVdcAttributeUpdatePdu updatePdu_;
};

// An attribute panel placed in the world: its template's attributes with a value each.
class VISTRAL_EXPORT DtVdcAttributeGroupObject : public DtVdcObject {
 public:
  // By attribute id. An entry may hold no value: looking up an unknown id leaves one behind, and it stays,
  // so that every later walk over the map reports that id again.
  using ValueMap = std::map<unsigned int, std::unique_ptr<DtVdcAttributeValue>>;

  // groupTemplate is not owned and must outlive the group; without one the group has no values.
  DtVdcAttributeGroupObject(unsigned int id, DtVdcAttributeGroupTemplateObject* groupTemplate,
                            const DtVdc3DAttachPoint& attachment, const DtVector64& enuOffset,
                            DtVdcColor color, bool flashing);
  // The copy holds copies of the values and shows the same group template.
  DtVdcAttributeGroupObject(const DtVdcAttributeGroupObject& other);
  // Takes the other's placement, look and group template, and copies of its values.
  DtVdcAttributeGroupObject& operator=(const DtVdcAttributeGroupObject& other);
  ~DtVdcAttributeGroupObject() override;

  DtVistralDrawControlPdu& pdu() override;
  // Placement, offset, colour and flashing; the values' PDUs are left to updateAttributePdu.
  void updatePdu() override;

  // The group template the panel shows, as given to the constructor.
  virtual DtVdcAttributeGroupTemplateObject* attributeGroupTemplate() const;
  // The setters change the object only; the PDU follows at the next updatePdu().
  virtual const DtVdc3DAttachPoint& attachment() const;
  virtual DtVdc3DAttachPoint& attachment();
  virtual void setAttachment(const DtVdc3DAttachPoint& attachment);
  virtual const DtVector64& enuOffset() const;
  virtual DtVector64& enuOffset();
  virtual void setEnuOffset(const DtVector64& offset);
  virtual const DtVdcColor& color() const;
  virtual DtVdcColor& color();
  virtual void setColor(const DtVdcColor& color);
  virtual bool flashing() const;
  virtual void setFlashing(bool flashing);

  // Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with
  // no value throws DtException ("Invalid attribute ID").
  virtual DtString bmpAttributeValue(unsigned int attributeId) const;
  virtual void setBmpAttributeValue(unsigned int attributeId, const DtString& value);
  virtual double numericAttributeValue(unsigned int attributeId) const;
  virtual void setNumericAttributeValue(unsigned int attributeId, double value);
  virtual double valueBarAttributeValue(unsigned int attributeId) const;
  virtual void setValueBarAttributeValue(unsigned int attributeId, double value);
  virtual double graphAttributeValueX(unsigned int attributeId) const;
  virtual void setGraphAttributeValueX(unsigned int attributeId, double value);
  virtual double graphAttributeValueY(unsigned int attributeId) const;
  virtual void setGraphAttributeValueY(unsigned int attributeId, double value);
  virtual ValueMap& attributeValueMap();
  // Brings the value's update PDU up to date from a dirty value, by the attribute's kind; throws for an id
  // with no value. The dirty flag stays for the drawer to clear once the PDU is sent.
  virtual void updateAttributePdu(unsigned int attributeId);
  // updateAttributePdu for every id, ascending.
  virtual void updateAllAttributePdus();

  // The steps of updatePdu().
  virtual void setPduAttach();
  virtual void setPduOffset();
  virtual void setPduColor();
  virtual void setPduFlashing();

  // One value per attribute template, its update PDU addressed to the attribute in this group.
  virtual void createAttributes();
  virtual void destroyAttributes();
  // Copies of the given values, in place of this group's.
  virtual void copyAttributes(const ValueMap& values);

 private:
  // The value under the id; the lookup leaves an empty entry for an unknown id, and throws.
  DtVdcAttributeValue& valueAt(unsigned int attributeId, const char* function, int line) const;

  DtVdc3DAttachPoint attachment_;
  DtVector64 enuOffset_;
  DtVdcColor color_;
  bool flashing_;
  DtVdcAttributeGroupTemplateObject* groupTemplate_;
  mutable ValueMap values_;  // mutable: a failed lookup leaves its entry
  DtVdcAttributePdu pdu_;
};
