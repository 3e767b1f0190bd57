// A box in the world, sized by its length, width and height.
#pragma once

#include "vistralcontrol/vdcEllipsoidCuboidBase.h"

class VISTRAL_EXPORT DtVdcCuboidObject : public DtVdcEllipsoidCuboidBase {
 public:
  DtVdcCuboidObject(unsigned int id, const DtVdc3DAttachPoint& attachment, double length, double width,
                    double height, const DtVector64& enuOffset, const DtTaitBryan& rotation, DtVdcColor color,
                    bool flashing);
  DtVdcCuboidObject(const DtVdcCuboidObject& other) = default;
  DtVdcCuboidObject& operator=(const DtVdcCuboidObject& other) = default;
  ~DtVdcCuboidObject() override;

  virtual double length() const;
  virtual void setLength(double length);
  virtual double width() const;
  virtual void setWidth(double width);
  virtual double height() const;
  virtual void setHeight(double height);
};
