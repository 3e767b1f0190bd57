#include "vistralcontrol/vdcObject.h"

DtVdcObject::~DtVdcObject() = default;

unsigned int DtVdcObject::id() const { return id_; }

void DtVdcObject::setId(unsigned int id) {
  id_ = id;
  pdu().setObjectId(id);
}
