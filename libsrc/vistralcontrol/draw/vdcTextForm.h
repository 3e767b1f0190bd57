// The opening of the text forms of the command and attribute-update PDUs: "objectId type", the type saying
// what follows.
#pragma once

#include <cstdint>
#include <cstdio>

#include "vistralcontrol/vistralDrawControlPdu.h"

namespace VdcTextForm {

// Reads and sets the object id and the type (0 for what the text does not give); returns the type read.
inline int readObjectAndType(DtVistralDrawControlPdu& pdu, const char* text) {
  unsigned id = 0;
  int type = 0;
  std::sscanf(text, "%u %d", &id, &type);
  pdu.setObjectId(id);
  pdu.setType(static_cast<std::uint32_t>(type));
  return type;
}

}  // namespace VdcTextForm
