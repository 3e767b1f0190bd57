// An ellipsoid in the world, sized by its three diameters.
#pragma once

#include "vistralcontrol/vdcEllipsoidCuboidBase.h"

class VISTRAL_EXPORT DtVdcEllipsoidObject : public DtVdcEllipsoidCuboidBase {
 public:
  // An ellipsoid at the attach point, moved by enuOffset (east, north, up) and turned by rotation.
  DtVdcEllipsoidObject(unsigned int id, const DtVdc3DAttachPoint& attachment, const DtVector64& diameters,
                       const DtVector64& enuOffset, const DtTaitBryan& rotation, DtVdcColor color,
                       bool flashing);
  DtVdcEllipsoidObject(const DtVdcEllipsoidObject& other) = default;
  DtVdcEllipsoidObject& operator=(const DtVdcEllipsoidObject& other) = default;
  ~DtVdcEllipsoidObject() override;

  // The diameter along each axis; the setter changes the object only, the PDU follows at the next
  // updatePdu().
  virtual const DtVector64& diameters() const;
  virtual void setDiameters(const DtVector64& diameters);
};
