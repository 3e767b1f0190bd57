// Triangles: a poly object with three corner points (viewer command 2550; types 2D and 3D triangle).
#pragma once

#include "vistralcontrol/vdcPolyObjectPdu.h"

class VISTRAL_EXPORT DtVdcTrianglePduBase : public DtVdcPolyObjectPduBase {
 public:
  // A triangle's corners.
  static constexpr int kNumPoints = 3;

  DtVdcTrianglePduBase(const DtVdcTrianglePduBase& other) = default;
  DtVdcTrianglePduBase& operator=(const DtVdcTrianglePduBase& other) = default;
  ~DtVdcTrianglePduBase() override;

  // Poly-object line, then the three points, x y z each.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // Points 0 to 2; other indices are ignored on set and give the zero vector.
  virtual void setPoint(int index, const DtVector64& point);
  virtual DtVector64 point(int index) const;

 protected:
  DtVdcTrianglePduBase() { useStorage(storage_); }

 private:
  DtPduStorage<488> storage_;
};

// A triangle in the current layout.
class VISTRAL_EXPORT DtVdcTrianglePdu : public DtVdcTrianglePduBase {
 public:
  explicit DtVdcTrianglePdu(DtBufferPlaceHolder* holder = nullptr);
  DtVdcTrianglePdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcTrianglePdu(const DtVdcTrianglePdu& other) = default;
  DtVdcTrianglePdu& operator=(const DtVdcTrianglePdu& other) = default;
  ~DtVdcTrianglePdu() override;
};

// A triangle in the version-0 layout.
class VISTRAL_EXPORT DtVdcTrianglePduV0 : public DtVdcTrianglePduBase {
 public:
  explicit DtVdcTrianglePduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcTrianglePduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcTrianglePduV0(const DtVdcTrianglePduV0& other) = default;
  DtVdcTrianglePduV0& operator=(const DtVdcTrianglePduV0& other) = default;
  ~DtVdcTrianglePduV0() override;
};
