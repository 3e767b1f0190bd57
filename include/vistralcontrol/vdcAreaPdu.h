// Areas: a poly object outlined by up to 16 points, with an optional texture (viewer command 2553; type 3D
// area). The point count, texture names and tiling factor sit at the same places in both layouts, so a
// version-0 area, which ends where they begin, never carries them on the wire.
#pragma once

#include "vistralcontrol/vdcPolyObjectPdu.h"

class VISTRAL_EXPORT DtVdcAreaPduBase : public DtVdcPolyObjectPduBase {
 public:
  // The points an area PDU holds at most.
  static constexpr int kMaxPoints = 16;

  DtVdcAreaPduBase(const DtVdcAreaPduBase& other) = default;
  DtVdcAreaPduBase& operator=(const DtVdcAreaPduBase& other) = default;
  ~DtVdcAreaPduBase() override;

  // Poly-object line, then the point count, all 16 points, texture directory, file name and tiling factor.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // One byte: the low 8 bits of the argument, not checked against the 16 points.
  virtual void setNumPoints(int count);
  virtual int numPoints() const;
  // Points 0 to 15; other indices are ignored on set and give the zero vector.
  virtual void setPoint(int index, const DtVector64& point);
  virtual DtVector64 point(int index) const;
  // 256-byte fields filled like strncpy: a name of 256 characters or more is cut and left unterminated.
  virtual void setTextureDirectory(const DtString& directory);
  virtual DtString textureDirectory() const;
  virtual void setTextureFilename(const DtString& filename);
  virtual DtString textureFilename() const;
  // One byte.
  virtual void setNumTextureTiles(int tiles);
  virtual int numTextureTiles() const;

 protected:
  DtVdcAreaPduBase() { useStorage(storage_); }

 private:
  DtPduStorage<1312> storage_;
};

// An area in the current layout.
class VISTRAL_EXPORT DtVdcAreaPdu : public DtVdcAreaPduBase {
 public:
  explicit DtVdcAreaPdu(DtBufferPlaceHolder* holder = nullptr);
  DtVdcAreaPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcAreaPdu(const DtVdcAreaPdu& other) = default;
  DtVdcAreaPdu& operator=(const DtVdcAreaPdu& other) = default;
  ~DtVdcAreaPdu() override;
};

// An area in the version-0 layout.
class VISTRAL_EXPORT DtVdcAreaPduV0 : public DtVdcAreaPduBase {
 public:
  explicit DtVdcAreaPduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcAreaPduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcAreaPduV0(const DtVdcAreaPduV0& other) = default;
  DtVdcAreaPduV0& operator=(const DtVdcAreaPduV0& other) = default;
  ~DtVdcAreaPduV0() override;
};
