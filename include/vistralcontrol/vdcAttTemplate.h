// The layout of an attribute panel: a group template holding one attribute template per value the panel
// shows. The group template owns its attribute templates; the drawer sends them right after it.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "tarvex/dtString.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcObject.h"

class VISTRAL_EXPORT DtVdcAttributeTemplateObject : public DtVdcObject {
 public:
  // What one attribute shows; each kind has its own template PDU type.
  enum DtVdcAttributeType : int {
    DtVdcAttTypeNoValue = 0,      // a label only
    DtVdcAttTypeSingleValue = 1,  // one number
    DtVdcAttTypeValueBar = 2,     // one number shown as a bar between a minimum and a maximum
    DtVdcAttTypeGraphPoint = 3,   // an x, y point of a graph
    DtVdcAttTypeBitmap = 4,       // a bitmap named by text
  };

  // templateId: the group template the attribute belongs to. A type outside the enumeration sets no PDU type.
  DtVdcAttributeTemplateObject(unsigned int id, unsigned int templateId, const DtString& name,
                               DtVdcAttributeType type);
  DtVdcAttributeTemplateObject(const DtVdcAttributeTemplateObject& other) = default;
  DtVdcAttributeTemplateObject& operator=(const DtVdcAttributeTemplateObject& other) = default;
  ~DtVdcAttributeTemplateObject() override;

  DtVistralDrawControlPdu& pdu() override;
  // Writes what the constructor set: type, name, id and group id.
  void updatePdu() override;

  // What the constructor set: the attribute's name, the group template it belongs to and its kind.
  virtual const DtString& name() const;
  virtual unsigned int templateId() const;
  virtual DtVdcAttributeType attributeType() const;

 protected:
  // The template's PDU, for subclasses that write more into it.
  DtVdcAttributePdu& attributePdu() { return pdu_; }

 private:
  DtString name_;
  unsigned int templateId_;
  DtVdcAttributeType attributeType_;
  DtVdcAttributePdu pdu_;
};

// A value-bar attribute with its range.
class VISTRAL_EXPORT DtVdcBarAttributeTemplateObject : public DtVdcAttributeTemplateObject {
 public:
  // A value bar of the group template templateId, showing values from minRange to maxRange.
  DtVdcBarAttributeTemplateObject(unsigned int id, unsigned int templateId, const DtString& name,
                                  double minRange, double maxRange);
  DtVdcBarAttributeTemplateObject(const DtVdcBarAttributeTemplateObject& other) = default;
  DtVdcBarAttributeTemplateObject& operator=(const DtVdcBarAttributeTemplateObject& other) = default;
  ~DtVdcBarAttributeTemplateObject() override;

  // Also writes the range.
  void updatePdu() override;

  // The bar's range as constructed.
  virtual double minRange() const;
  virtual double maxRange() const;

 private:
  double minRange_;
  double maxRange_;
};

// An attribute panel's layout: a named group template that owns one attribute template per value.
class VISTRAL_EXPORT DtVdcAttributeGroupTemplateObject : public DtVdcObject {
 public:
  // The attribute kinds, and the templates the group holds.
  using DtVdcAttributeType = DtVdcAttributeTemplateObject::DtVdcAttributeType;
  using TemplateList = std::vector<std::unique_ptr<DtVdcAttributeTemplateObject>>;

  // An empty layout; createAttributeTemplate fills it.
  DtVdcAttributeGroupTemplateObject(unsigned int id, const DtString& name);
  // Copies hold copies of the attribute templates.
  DtVdcAttributeGroupTemplateObject(const DtVdcAttributeGroupTemplateObject& other);
  // Takes copies of the other's attribute templates.
  DtVdcAttributeGroupTemplateObject& operator=(const DtVdcAttributeGroupTemplateObject& other);
  ~DtVdcAttributeGroupTemplateObject() override;

  DtVistralDrawControlPdu& pdu() override;
  // Nothing to write: the PDU holds what the constructor set.
  void updatePdu() override;

  // The panel's name.
  virtual const DtString& name() const;
  // A new attribute template of this group, owned by it; a second one under an id takes the id's place in the
  // lookup, and both stay in the list.
  virtual DtVdcAttributeTemplateObject* createAttributeTemplate(unsigned int id, const DtString& name,
                                                                DtVdcAttributeType type);
  // A value-bar template with its range.
  virtual DtVdcAttributeTemplateObject* createAttributeTemplate(unsigned int id, const DtString& name,
                                                                double minRange, double maxRange);
  // Every template in creation order.
  virtual const TemplateList& attributeTemplates() const;
  // The template under the id, or null.
  virtual DtVdcAttributeTemplateObject* attributeTemplate(unsigned int id) const;

 private:
  DtVdcAttributeTemplateObject* enter(std::unique_ptr<DtVdcAttributeTemplateObject> made);

  DtString name_;
  std::map<unsigned int, DtVdcAttributeTemplateObject*> index_;
  TemplateList templates_;
  DtVdcAttributePdu pdu_;
};
