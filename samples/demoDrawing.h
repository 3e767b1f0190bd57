// The drawing step of the demo: a scene drawn through the remote drawer into the viewer on the given
// connection, which prints each PDU it receives.
#pragma once

#include <functional>

class DtExerciseConn;

// Returns whether the viewer received every PDU the drawer sent through app. whileDrawn runs once the whole
// scene has reached the viewer, before the drawer goes and takes it away.
bool drawingScene(DtExerciseConn& viewer, DtExerciseConn& app, const std::function<void()>& whileDrawn = {});
