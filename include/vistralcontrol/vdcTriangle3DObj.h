// A triangle in the world, given by its three corners.
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcObject.h"
#include "vistralcontrol/vdcTrianglePdu.h"

class VISTRAL_EXPORT DtVdcTriangle3DObject : public DtVdcObject {
 public:
  // A triangle of three world points.
  DtVdcTriangle3DObject(unsigned int id, const DtVector64& vertex1, const DtVector64& vertex2,
                        const DtVector64& vertex3, DtVdcColor color, bool flashing);
  DtVdcTriangle3DObject(const DtVdcTriangle3DObject& other) = default;
  DtVdcTriangle3DObject& operator=(const DtVdcTriangle3DObject& other) = default;
  ~DtVdcTriangle3DObject() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // The setters change the object only; the PDU follows at the next updatePdu().
  virtual const DtVector64& vertex1() const;
  virtual DtVector64& vertex1();
  virtual void setVertex1(const DtVector64& vertex);
  virtual const DtVector64& vertex2() const;
  virtual DtVector64& vertex2();
  virtual void setVertex2(const DtVector64& vertex);
  virtual const DtVector64& vertex3() const;
  virtual DtVector64& vertex3();
  virtual void setVertex3(const DtVector64& vertex);
  virtual const DtVdcColor& color() const;
  virtual DtVdcColor& color();
  virtual void setColor(const DtVdcColor& color);
  virtual bool flashing() const;
  virtual void setFlashing(bool flashing);

  // The steps of updatePdu().
  virtual void setPduPoints();
  virtual void setPduFlashing();
  virtual void setPduColor();

 private:
  DtVector64 vertex1_;
  DtVector64 vertex2_;
  DtVector64 vertex3_;
  DtVdcColor color_;
  bool flashing_;
  DtVdcTrianglePdu pdu_;
};
