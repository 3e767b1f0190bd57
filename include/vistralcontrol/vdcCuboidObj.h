// A box in the world, sized by its length, width and height.
#pragma once

#include "vistralcontrol/vdcEllipsoidCuboidBase.h"

class VISTRAL_EXPORT DtVdcCuboidObject : public DtVdcEllipsoidCuboidBase {
 public:
  // A box at the attach point, moved by enuOffset (east, north, up) and turned by rotation.
  DtVdcCuboidObject(unsigned int id, const DtVdc3DAttachPoint& attachment, double length, double width,
                    double height, const DtVector64& enuOffset, const DtTaitBryan& rotation, DtVdcColor color,
                    bool flashing);
  DtVdcCuboidObject(const DtVdcCuboidObject& other) = default;
  DtVdcCuboidObject& operator=(const DtVdcCuboidObject& other) = default;
  ~DtVdcCuboidObject() override;

  // The box's extent along each axis. The setters change the object only; the PDU follows at the next
  // updatePdu().
  virtual double length() const;
  virtual void setLength(double length);
  virtual double width() const;
  virtual void setWidth(double width);
  virtual double height() const;
  virtual void setHeight(double height);
};
