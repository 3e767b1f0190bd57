// A cylinder in the world: either placed at one attach point with a length and a rotation, or spanning two
// attach points. Its cross-section is given by two diameters.
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vdc3DAttachPoint.h"
#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcObject.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcVector2D.h"

class VISTRAL_EXPORT DtVdcCylinderObject : public DtVdcObject {
 public:
  // Three zero angles: the rotation of a cylinder that spans two attach points.
  static const DtTaitBryan zeros;

  // At one attach point; the end attachment is none.
  DtVdcCylinderObject(unsigned int id, const DtVdc3DAttachPoint& attachment, double length,
                      const DtVdcVector2D& diameters, const DtVector64& enuOffset,
                      const DtTaitBryan& rotation, DtVdcColor color, bool flashing);
  // From start to end; length 0 and no rotation.
  DtVdcCylinderObject(unsigned int id, const DtVdc3DAttachPoint& start, const DtVdc3DAttachPoint& end,
                      const DtVdcVector2D& diameters, const DtVector64& enuOffset, DtVdcColor color,
                      bool flashing);
  DtVdcCylinderObject(const DtVdcCylinderObject& other) = default;
  DtVdcCylinderObject& operator=(const DtVdcCylinderObject& other) = default;
  ~DtVdcCylinderObject() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // The setters change the object only; the PDU follows at the next updatePdu(). attachment() and
  // startAttachment() are the same member.
  virtual const DtVdc3DAttachPoint& attachment() const;
  virtual DtVdc3DAttachPoint& attachment();
  virtual void setAttachment(const DtVdc3DAttachPoint& attachment);
  virtual const DtVdc3DAttachPoint& startAttachment() const;
  virtual DtVdc3DAttachPoint& startAttachment();
  virtual void setStartAttachment(const DtVdc3DAttachPoint& attachment);
  virtual const DtVdc3DAttachPoint& endAttachment() const;
  virtual DtVdc3DAttachPoint& endAttachment();
  virtual void setEndAttachment(const DtVdc3DAttachPoint& attachment);
  virtual const DtVector64& enuOffset() const;
  virtual DtVector64& enuOffset();
  virtual void setEnuOffset(const DtVector64& offset);
  virtual double length() const;
  virtual void setLength(double length);
  virtual const DtVdcVector2D& diameters() const;
  virtual DtVdcVector2D& diameters();
  virtual void setDiameters(const DtVdcVector2D& diameters);
  virtual const DtTaitBryan& rotation() const;
  virtual DtTaitBryan& rotation();
  virtual void setRotation(const DtTaitBryan& rotation);
  virtual const DtVdcColor& color() const;
  virtual DtVdcColor& color();
  virtual void setColor(const DtVdcColor& color);
  virtual bool flashing() const;
  virtual void setFlashing(bool flashing);

  // The steps of updatePdu().
  virtual void setPduAttach();
  virtual void setPduScale();
  virtual void setPduOffset();
  virtual void setPduColor();
  virtual void setPduFlashing();
  virtual void setPduRotation();

 private:
  DtVdc3DAttachPoint start_;
  DtVdc3DAttachPoint end_;
  double length_;
  DtVdcVector2D diameters_;
  DtVector64 enuOffset_;
  DtVdcColor color_;
  DtTaitBryan rotation_;
  bool flashing_;
  DtVdcPolyObjectPdu pdu_;
};
