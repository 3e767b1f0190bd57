// Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a
// point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it.
#pragma once

#include "tarvex/dtString.h"
#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralExport.h"

class VISTRAL_EXPORT DtVdc3DAttachPoint {
 public:
  // The values attachmentType() returns.
  enum DtVdcAttachKind : int {
    DtVdcAttachNone = 0,
    DtVdcAttachLocation = 1,
    DtVdcAttachEntity = 2,
    DtVdcAttachDrawObject = 3,
  };

  DtVdc3DAttachPoint() = default;
  DtVdc3DAttachPoint(const DtVector64& location);  // NOLINT: implicit by design
  DtVdc3DAttachPoint(const DtString& entityId);    // NOLINT: implicit by design
  // A point along another drawing object, relativePosition of the way from its start.
  DtVdc3DAttachPoint(unsigned int drawObjectId, double relativePosition);
  DtVdc3DAttachPoint(const DtVdc3DAttachPoint& other) = default;
  DtVdc3DAttachPoint& operator=(const DtVdc3DAttachPoint& other) = default;
  virtual ~DtVdc3DAttachPoint();

  // Which kind the point is (DtVdcAttachKind), and each kind's members; those of other kinds keep what they
  // were last given.
  int attachmentType() const { return attachmentType_; }
  const DtVector64& location() const { return location_; }
  DtVector64& location() { return location_; }
  unsigned int drawObjectId() const { return drawObjectId_; }
  double relativePosition() const { return relativePosition_; }
  const DtString& entityId() const { return entityId_; }

  // Each of the first three switches the attachment kind; the members of the other kinds keep their values.
  void setLocation(const DtVector64& location);
  void setEntityId(const DtString& entityId);
  void setDrawObjectId(unsigned int drawObjectId);
  void setRelativePosition(double relativePosition) { relativePosition_ = relativePosition; }

 private:
  DtVector64 location_;
  DtString entityId_{""};
  unsigned int drawObjectId_ = 0;
  double relativePosition_ = 0.0;
  int attachmentType_ = DtVdcAttachNone;
};
