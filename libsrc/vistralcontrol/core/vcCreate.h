// Building a control PDU from an image into the block of one the caller gives up.
#pragma once

#include "vistralcontrol/vistralControlPdu.h"

namespace VcCreate {
// What create (fromNet false) or createFromNet (fromNet true) makes of the image, built in reuse's block when
// the image selects reuse's very class; reuse is deleted otherwise. Takes reuse (which may be null) in every
// case, also when it throws. The image must not lie in reuse.
DtVistralControlPdu* recreate(const DtNetPduHeader* image, bool fromNet, DtVistralControlPdu* reuse);
}  // namespace VcCreate
