// Poly objects: the filled shapes. DtVdcPolyObjectPduBase adds fill, fill pattern, scale and rotation to an
// attachable PDU; DtVdcPolyObjectPdu draws the parametric shapes (circle, sphere, square, cube, cylinder),
// whose size is the scale (viewer command 2540).
#pragma once

#include "vistralcontrol/vdcAttachablePdu.h"

class VISTRAL_EXPORT DtVdcPolyObjectPduBase : public DtVdcAttachablePdu {
 public:
  DtVdcPolyObjectPduBase(const DtVdcPolyObjectPduBase& other) = default;
  DtVdcPolyObjectPduBase& operator=(const DtVdcPolyObjectPduBase& other) = default;
  ~DtVdcPolyObjectPduBase() override;

  // Attachable line, then " pattern fill sx sy sz psi theta phi".
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // const, yet it writes the PDU's flag byte: callers hold poly objects by const reference when filling.
  virtual void setFill(bool fill) const;
  virtual bool fill() const;
  // The 32-bit pattern the shape is drawn with.
  virtual void setPattern(DtNetU32 pattern);
  virtual DtNetU32 pattern() const;
  // Stored in single precision.
  virtual void setScale(const DtVector64& scale);
  virtual DtVector64 scale() const;
  virtual void setRotation(const DtTaitBryan& rotation);
  virtual DtTaitBryan rotation() const;

 protected:
  DtVdcPolyObjectPduBase() = default;
};

// A poly object in the current layout.
class VISTRAL_EXPORT DtVdcPolyObjectPdu : public DtVdcPolyObjectPduBase {
 public:
  explicit DtVdcPolyObjectPdu(DtBufferPlaceHolder* holder = nullptr);
  DtVdcPolyObjectPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcPolyObjectPdu(const DtVdcPolyObjectPdu& other) = default;
  DtVdcPolyObjectPdu& operator=(const DtVdcPolyObjectPdu& other) = default;
  ~DtVdcPolyObjectPdu() override;

 private:
  DtPduStorage<412> storage_;
};

// A poly object in the version-0 layout.
class VISTRAL_EXPORT DtVdcPolyObjectPduV0 : public DtVdcPolyObjectPduBase {
 public:
  explicit DtVdcPolyObjectPduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcPolyObjectPduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcPolyObjectPduV0(const DtVdcPolyObjectPduV0& other) = default;
  DtVdcPolyObjectPduV0& operator=(const DtVdcPolyObjectPduV0& other) = default;
  ~DtVdcPolyObjectPduV0() override;

 private:
  DtPduStorage<412> storage_;
};
