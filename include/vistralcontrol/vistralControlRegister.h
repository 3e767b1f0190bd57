// Teaches an exercise connection the "ViewControl" interaction class: its decoder, its encoder and its
// interaction factory entry.
#pragma once

#include "vistralcontrol/vistralExport.h"

class DtExerciseConn;

// Call once per connection before sending or receiving. Warns and installs nothing when the connection's FOM
// has no "ViewControl" class.
VISTRAL_EXPORT void DtVistralControlRegister(DtExerciseConn* conn);
