// Attribute panels: one element of a drawn list of named values (viewer command 2570; the type says which
// kind of element). It carries a name, the id of its group and an optional value range.
#pragma once

#include "vistralcontrol/vdcAttachablePdu.h"

class VISTRAL_EXPORT DtVdcAttributePduBase : public DtVdcAttachablePdu {
 public:
  DtVdcAttributePduBase(const DtVdcAttributePduBase& other) = default;
  DtVdcAttributePduBase& operator=(const DtVdcAttributePduBase& other) = default;
  ~DtVdcAttributePduBase() override;

  // Attachable line, then " groupId 1 name hasRange min max", or " groupId 0 0 hasRange min max" without a
  // name.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // The attribute's name, a 64-byte text at the PDU's end, and the id of the group it belongs to.
  virtual void setName(DtString name);
  virtual DtString name() const;
  virtual DtNetU32 attributeGroupId() const;
  virtual void setAttributeGroupId(DtNetU32 groupId);
  // The whole flag byte: a flashing attribute reports a range.
  virtual bool hasRange() const;
  // The ends of the range.
  virtual double rangeMin() const;
  virtual double rangeMax() const;
  // Writes both values and sets the whole flag byte to 1, which clears flashing.
  virtual void setRange(double minimum, double maximum);

 protected:
  DtVdcAttributePduBase() { useStorage(storage_); }

 private:
  DtPduStorage<472> storage_;  // a 64-byte name
};

// An attribute PDU in the current layout.
class VISTRAL_EXPORT DtVdcAttributePdu : public DtVdcAttributePduBase {
 public:
  explicit DtVdcAttributePdu(DtBufferPlaceHolder* holder = nullptr);
  DtVdcAttributePdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcAttributePdu(const DtVdcAttributePdu& other) = default;
  DtVdcAttributePdu& operator=(const DtVdcAttributePdu& other) = default;
  ~DtVdcAttributePdu() override;
};

// An attribute PDU in the version-0 layout.
class VISTRAL_EXPORT DtVdcAttributePduV0 : public DtVdcAttributePduBase {
 public:
  explicit DtVdcAttributePduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcAttributePduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcAttributePduV0(const DtVdcAttributePduV0& other) = default;
  DtVdcAttributePduV0& operator=(const DtVdcAttributePduV0& other) = default;
  ~DtVdcAttributePduV0() override;
};
