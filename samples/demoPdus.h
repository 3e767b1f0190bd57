// One filled control PDU of each family, for the demo to show and send.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "vistralcontrol/vistralControlPdu.h"

// Each entry is a short title and a PDU addressed to the viewer and sent by the controller given.
std::vector<std::pair<const char*, std::unique_ptr<DtVistralControlPdu>>> demoPdus(const char* viewer,
                                                                                   const char* controller);
