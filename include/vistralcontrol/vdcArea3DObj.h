// A filled polygon in the world, with an optional texture laid over it.
#pragma once

#include <vector>

#include "tarvex/dtString.h"
#include "tarvex/dtVector.h"
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcObject.h"

class VISTRAL_EXPORT DtVdcArea3DObject : public DtVdcObject {
 public:
  // The outline's world points (an area PDU carries 16 at most), its colour, and the texture laid over it:
  // the folder and file it comes from and how many times it repeats.
  DtVdcArea3DObject(unsigned int id, std::vector<DtVector64> points, DtVdcColor color,
                    const DtString& textureDirectory, const DtString& textureFilename, int numTextureTiles,
                    bool flashing);
  DtVdcArea3DObject(const DtVdcArea3DObject& other) = default;
  DtVdcArea3DObject& operator=(const DtVdcArea3DObject& other) = default;
  ~DtVdcArea3DObject() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // The setters change the object only; the PDU follows at the next updatePdu().
  virtual const DtVdcColor& color() const;
  virtual DtVdcColor& color();
  virtual void setColor(const DtVdcColor& color);
  virtual bool flashing() const;
  virtual void setFlashing(bool flashing);
  virtual const DtString& textureDirectory() const;
  virtual void setTextureDirectory(const DtString& directory);
  virtual const DtString& textureFilename() const;
  virtual void setTextureFilename(const DtString& filename);
  virtual int numTextureTiles() const;
  virtual void setNumTextureTiles(int tiles);
  // Point i for 0 <= i < the number of points, else the zero vector.
  virtual DtVector64 vertex(int i) const;
  // Writes only an existing point; the number of points is fixed at construction.
  virtual void setVertex(int i, const DtVector64& point);

  // The steps of updatePdu().
  virtual void setPduPoints();
  virtual void setPduFlashing();
  virtual void setPduColor();
  virtual void setPduTexture();

 private:
  DtVdcColor color_;
  bool flashing_;
  int numPoints_;
  std::vector<DtVector64> points_;
  DtString textureFilename_;
  DtString textureDirectory_;
  int numTextureTiles_;
  DtVdcAreaPdu pdu_;
};
