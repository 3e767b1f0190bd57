// The drawing part of the demo: a scene drawn through the remote drawer into the viewer on the given
// connection, which prints each PDU it receives.
#pragma once

class DtExerciseConn;

// Returns whether the viewer received every PDU the drawer sent.
bool drawingScene(DtExerciseConn& viewer);
