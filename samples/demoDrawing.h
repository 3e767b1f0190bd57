// The drawing part of the demo: a scene drawn through the remote drawer, printed by a stand-in viewer.
#pragma once

// Returns whether the viewer received every PDU the drawer sent.
bool drawingScene();
