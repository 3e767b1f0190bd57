// A named layer: the drawer's addToLayer and removeFromLayer put other objects into it by id.
#pragma once

#include "tarvex/dtString.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcObject.h"

class VISTRAL_EXPORT DtVdcDrawLayerObject : public DtVdcObject {
 public:
  // An empty layer under its name.
  DtVdcDrawLayerObject(unsigned int id, const DtString& layerName);
  DtVdcDrawLayerObject(const DtVdcDrawLayerObject& other) = default;
  DtVdcDrawLayerObject& operator=(const DtVdcDrawLayerObject& other) = default;
  ~DtVdcDrawLayerObject() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // Fixed at construction.
  virtual const DtString& layerName() const;

 private:
  DtString layerName_;
  DtVdcLayerPdu pdu_;
};
