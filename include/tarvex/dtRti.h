// The HLA 1.3 types that interaction encoders and decoders use. Where the RTI's own headers are valid C++17
// they are the RTI's (RTI.hh). Without an RTI, or with one whose headers C++17 rejects, they are the platform
// layer's own declaration (tarvex/dtRtiTypes.h), with the same names and interface, so that code written
// against RTI::ParameterHandleValuePairSet builds and behaves the same either way; the RTI backend adapts
// them to the RTI's types.
#pragma once

#include "tarvex/tarvexConfig.h"

#if TARVEX_RTI13_TYPES_FROM_RTI
#include <RTI.hh>
#else
#include "tarvex/dtRtiTypes.h"
using tarvex::RTI;
#endif
