// Drawing-object and drawer failures: a DtException that names the function and the source line that
// applications and their logs have always seen for it, independent of how this file is laid out today.
#pragma once

#include "tarvex/dtException.h"

#define VDC_THROW_AT(message, file, line) \
  throw DtException((message), __PRETTY_FUNCTION__, "libsrc/vistralcontrol/" file, (line))
// The same from a helper, for the function that called it.
#define VDC_THROW_IN(message, function, file, line) \
  throw DtException((message), (function), "libsrc/vistralcontrol/" file, (line))
