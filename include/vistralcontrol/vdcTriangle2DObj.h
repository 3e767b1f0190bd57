// A triangle in the viewer's screen plane: three vertices around a screen offset, scaled and rotated there.
#pragma once

#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcObject.h"
#include "vistralcontrol/vdcTrianglePdu.h"
#include "vistralcontrol/vdcVector2D.h"

class VISTRAL_EXPORT DtVdcTriangle2DObject : public DtVdcObject {
 public:
  // rotation in radians.
  DtVdcTriangle2DObject(unsigned int id, const DtVdcVector2D& vertex1, const DtVdcVector2D& vertex2,
                        const DtVdcVector2D& vertex3, const DtVdcVector2D& offset, const DtVdcVector2D& scale,
                        double rotation, DtVdcColor color, bool fill, unsigned int pattern, bool flashing);
  DtVdcTriangle2DObject(const DtVdcTriangle2DObject& other) = default;
  DtVdcTriangle2DObject& operator=(const DtVdcTriangle2DObject& other) = default;
  ~DtVdcTriangle2DObject() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // The setters change the object only; the PDU follows at the next updatePdu().
  virtual const DtVdcVector2D& vertex1() const;
  virtual DtVdcVector2D& vertex1();
  virtual void setVertex1(const DtVdcVector2D& vertex);
  virtual const DtVdcVector2D& vertex2() const;
  virtual DtVdcVector2D& vertex2();
  virtual void setVertex2(const DtVdcVector2D& vertex);
  virtual const DtVdcVector2D& vertex3() const;
  virtual DtVdcVector2D& vertex3();
  virtual void setVertex3(const DtVdcVector2D& vertex);
  virtual const DtVdcVector2D& offset() const;
  virtual DtVdcVector2D& offset();
  virtual void setOffset(const DtVdcVector2D& offset);
  virtual const DtVdcVector2D& scale() const;
  virtual DtVdcVector2D& scale();
  virtual void setScale(const DtVdcVector2D& scale);
  virtual double rotation() const;
  virtual void setRotation(double rotation);
  virtual const DtVdcColor& color() const;
  virtual DtVdcColor& color();
  virtual void setColor(const DtVdcColor& color);
  virtual bool fill() const;
  virtual void setFill(bool fill);
  virtual unsigned int pattern() const;
  virtual void setPattern(unsigned int pattern);
  virtual bool flashing() const;
  virtual void setFlashing(bool flashing);

  // The steps of updatePdu().
  virtual void setPduAttach();
  virtual void setPduVertices();
  virtual void setPduScale();
  virtual void setPduColor();
  virtual void setPduFlashing();
  virtual void setPduFill();
  virtual void setPduRotation();
  virtual void setPduPattern();

 private:
  DtVdcVector2D vertex1_;
  DtVdcVector2D vertex2_;
  DtVdcVector2D vertex3_;
  DtVdcVector2D offset_;
  DtVdcVector2D scale_;
  DtVdcColor color_;
  bool fill_;
  unsigned int pattern_;
  double rotation_;
  bool flashing_;
  DtVdcTrianglePdu pdu_;
};
