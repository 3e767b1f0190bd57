#include "vistralcontrol/vdc3DAttachPoint.h"

DtVdc3DAttachPoint::DtVdc3DAttachPoint(const DtVector64& location)
    : location_(location), attachmentType_(DtVdcAttachLocation) {}

DtVdc3DAttachPoint::DtVdc3DAttachPoint(const DtString& entityId)
    : entityId_(entityId), attachmentType_(DtVdcAttachEntity) {}

DtVdc3DAttachPoint::DtVdc3DAttachPoint(unsigned int drawObjectId, double relativePosition)
    : drawObjectId_(drawObjectId),
      relativePosition_(relativePosition),
      attachmentType_(DtVdcAttachDrawObject) {}

DtVdc3DAttachPoint::~DtVdc3DAttachPoint() = default;

void DtVdc3DAttachPoint::setLocation(const DtVector64& location) {
  location_ = location;
  attachmentType_ = DtVdcAttachLocation;
  drawObjectId_ = 0;
}

void DtVdc3DAttachPoint::setEntityId(const DtString& entityId) {
  entityId_ = entityId;
  attachmentType_ = DtVdcAttachEntity;
  drawObjectId_ = 0;
}

void DtVdc3DAttachPoint::setDrawObjectId(unsigned int drawObjectId) {
  drawObjectId_ = drawObjectId;
  attachmentType_ = DtVdcAttachDrawObject;
}
