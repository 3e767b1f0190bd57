// The fixed part of a received control PDU image, as it travels. Received images are handed around as
// pointers to this record; the fields are read through the PDU classes, never through this struct directly.
#pragma once

#include "tarvex/dtNetTypes.h"
#include "tarvex/dtPdu.h"

struct DtNetViewControlPdu {
  // The fields of the fixed part in their order on the wire; the reserved bytes travel as zero.
  DtNetPduHeader header;
  DtNetGlobalObjectDesignator viewerId;
  DtNetGlobalObjectDesignator senderId;
  unsigned char reserved1[6];
  DtNetU16 viewerCommand;
  unsigned char reserved2[4];
  DtNetU32 ignoreFlags;
};
static_assert(sizeof(DtNetViewControlPdu) == 156, "control PDU fixed part with its first word");
