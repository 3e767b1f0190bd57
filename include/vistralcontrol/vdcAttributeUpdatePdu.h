// Attribute updates: a new value for an attribute already drawn, as two numbers, a reset or a text (viewer
// command 2580; types value set, value reset, value set text).
#pragma once

#include "vistralcontrol/vistralDrawControlPdu.h"

class VISTRAL_EXPORT DtVdcAttributeUpdatePduBase : public DtVistralDrawControlPdu {
 public:
  DtVdcAttributeUpdatePduBase(const DtVdcAttributeUpdatePduBase& other) = default;
  DtVdcAttributeUpdatePduBase& operator=(const DtVdcAttributeUpdatePduBase& other) = default;
  ~DtVdcAttributeUpdatePduBase() override;

  // "objectId type", then " x y" for a value set or " text" for a text set; the group id is not in it.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // The new text of a text set, a 64-byte text at the PDU's end, and the group the attribute belongs to.
  virtual void setText(DtString text);
  virtual DtString text() const;
  virtual DtNetU32 groupId() const;
  virtual void setGroupId(DtNetU32 groupId);
  // The new value of a value set: one number in x, or a graph point's x and y.
  virtual double valueX() const;
  virtual double valueY() const;
  virtual void setValueX(double x);
  virtual void setValueY(double y);

 protected:
  DtVdcAttributeUpdatePduBase() { useStorage(storage_); }

 private:
  DtPduStorage<260> storage_;  // a 64-byte text
};

// An attribute update in the current layout.
class VISTRAL_EXPORT DtVdcAttributeUpdatePdu : public DtVdcAttributeUpdatePduBase {
 public:
  explicit DtVdcAttributeUpdatePdu(DtBufferPlaceHolder* holder = nullptr);
  DtVdcAttributeUpdatePdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                          DtPduFactory* factory);
  DtVdcAttributeUpdatePdu(const DtVdcAttributeUpdatePdu& other) = default;
  DtVdcAttributeUpdatePdu& operator=(const DtVdcAttributeUpdatePdu& other) = default;
  ~DtVdcAttributeUpdatePdu() override;
};

// An attribute update in the version-0 layout.
class VISTRAL_EXPORT DtVdcAttributeUpdatePduV0 : public DtVdcAttributeUpdatePduBase {
 public:
  explicit DtVdcAttributeUpdatePduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcAttributeUpdatePduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                            DtPduFactory* factory);
  DtVdcAttributeUpdatePduV0(const DtVdcAttributeUpdatePduV0& other) = default;
  DtVdcAttributeUpdatePduV0& operator=(const DtVdcAttributeUpdatePduV0& other) = default;
  ~DtVdcAttributeUpdatePduV0() override;
};
