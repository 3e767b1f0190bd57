// What the ellipsoid and the cuboid share: a solid placed at an attach point, shifted by an east-north-up
// offset in metres, sized along its three axes and rotated. The subclass names the shape and its size.
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vdc3DAttachPoint.h"
#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcObject.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"

class VISTRAL_EXPORT DtVdcEllipsoidCuboidBase : public DtVdcObject {
 public:
  DtVdcEllipsoidCuboidBase(const DtVdcEllipsoidCuboidBase& other) = default;
  DtVdcEllipsoidCuboidBase& operator=(const DtVdcEllipsoidCuboidBase& other) = default;
  ~DtVdcEllipsoidCuboidBase() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // The setters change the object only; the PDU follows at the next updatePdu().
  virtual const DtVdc3DAttachPoint& attachment() const;
  virtual DtVdc3DAttachPoint& attachment();
  virtual void setAttachment(const DtVdc3DAttachPoint& attachment);
  virtual const DtVector64& enuOffset() const;
  virtual DtVector64& enuOffset();
  virtual void setEnuOffset(const DtVector64& offset);
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

 protected:
  // type: the shape, DtVdcSphere or DtVdcCube; size: its extent along each axis.
  DtVdcEllipsoidCuboidBase(unsigned int id, DtVdcObjectType type, const DtVdc3DAttachPoint& attachment,
                           const DtVector64& size, const DtVector64& enuOffset, const DtTaitBryan& rotation,
                           DtVdcColor color, bool flashing);
  // The shape's extent along each axis, which the subclasses name.
  const DtVector64& size() const { return size_; }
  void setSize(const DtVector64& size) { size_ = size; }

 private:
  DtVdc3DAttachPoint attachment_;
  DtVector64 size_;
  DtVector64 enuOffset_;
  DtVdcColor color_;
  DtTaitBryan rotation_;
  bool flashing_;
  DtVdcPolyObjectPdu pdu_;
};
