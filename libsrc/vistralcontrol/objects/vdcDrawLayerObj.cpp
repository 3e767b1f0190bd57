#include "vistralcontrol/vdcDrawLayerObj.h"

DtVdcDrawLayerObject::DtVdcDrawLayerObject(unsigned int id, const DtString& layerName)
    : DtVdcObject(id), layerName_(layerName) {
  pdu_.setType(DtVdcLayer);
  pdu_.setObjectId(id);
  updatePdu();
}

DtVdcDrawLayerObject::~DtVdcDrawLayerObject() = default;

DtVistralDrawControlPdu& DtVdcDrawLayerObject::pdu() { return pdu_; }

void DtVdcDrawLayerObject::updatePdu() { pdu_.setName(layerName_); }

const DtString& DtVdcDrawLayerObject::layerName() const { return layerName_; }
