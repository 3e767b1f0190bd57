// The demo's overlay scene: screen-plane graphics and world objects around one entity, with an attribute
// panel, updates, layers, hiding and removal, sent as draw-control PDUs through the connection.
#pragma once

class DtExerciseConn;

// Sends the scene; returns how many PDUs went out.
int drawDemoScene(DtExerciseConn& conn, const char* viewer, const char* controller);
