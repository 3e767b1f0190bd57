// What the emulated viewer shows, as plain geometry in picture coordinates (x right, y down, one unit a pixel
// of the PNG): the 2D overlay pane with its attribute panels, and the top-down map pane of the 3D objects,
// the entities they hang on (placed symbolically) and the eye of the current mode. A painter only paints it;
// checks read it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "vistralemulator/emulatorState.h"
#include "vistralemulator/vistralEmulatorExport.h"

// A point of the picture.
struct DtEmulatorScenePoint {
  // Pixels from the picture's left and top edges.
  double x = 0;
  double y = 0;
};

// A colour, 0 to 1 per channel; alpha 0 paints nothing.
struct DtEmulatorSceneColor {
  // Red, green, blue and alpha.
  double r = 0, g = 0, b = 0, a = 0;
};

// What a shape or label of the scene stands for.
enum class DtEmulatorScenePart {
  decoration,  // pane backgrounds, grid, scale bar, panel cards and bars
  object,      // a drawn object (its objectId says which)
  arrowHead,   // an arrow head of a line segment
  flash,       // the rays around a flashing object
  entity,      // the symbol of an entity
  eye,         // the eye of the current mode
  sight,       // the eye's line of sight to what it looks at
  ring,        // the circle an orbiting, compass or pivot eye moves on
};

// One shape: an open polyline, a closed polygon or an ellipse, with how it is stroked and filled.
struct DtEmulatorSceneShape {
  // The three forms a shape takes.
  enum class Form { polyline, polygon, ellipse };
  // Its form, what it stands for and, for objects and their arrow heads, the object's id.
  Form form = Form::polyline;
  DtEmulatorScenePart part = DtEmulatorScenePart::decoration;
  std::uint32_t objectId = 0;
  // The vertices of a polyline or polygon; an ellipse's centre is points[0].
  std::vector<DtEmulatorScenePoint> points;
  // An ellipse's half axes and the turn of its first axis from the x axis (radians, towards y).
  double rx = 0;
  double ry = 0;
  double rotation = 0;
  // The outline (alpha 0: none), its width, and its dash pattern (lengths of drawn and left-out runs in
  // turn, in pixels; empty: solid); then the fill (alpha 0: none).
  DtEmulatorSceneColor stroke;
  double width = 1;
  std::vector<double> dashes;
  DtEmulatorSceneColor fill;
  // Round ends for bands that stand for solids.
  bool roundCaps = false;
};

// One line of text, from its baseline's left end, with the box it takes (the scene keeps boxes apart).
struct DtEmulatorSceneLabel {
  // The baseline's left end and the text (printable ASCII).
  DtEmulatorScenePoint at;
  std::string text;
  // Its size in pixels, weight and colour.
  double size = 12;
  bool bold = false;
  DtEmulatorSceneColor color;
  // What it names, and the box it takes: left, top, width, height.
  DtEmulatorScenePart part = DtEmulatorScenePart::decoration;
  std::uint32_t objectId = 0;
  double left = 0, top = 0, width = 0, height = 0;
};

// A rectangle of the picture that clips what is painted in it.
struct DtEmulatorScenePane {
  // Left, top, width and height in pixels, and the title above it.
  double left = 0, top = 0, width = 0, height = 0;
  std::string title;
  // Painted in order, shapes first, labels over them; nothing leaves the pane.
  std::vector<DtEmulatorSceneShape> shapes;
  std::vector<DtEmulatorSceneLabel> labels;
};

// The whole picture: header lines, the overlay and the map, and a footer.
struct DtEmulatorScene {
  // Its size in pixels.
  double width = 0;
  double height = 0;
  // Lines outside the panes: the viewer and mode, its parameters, its options, and the counts under them.
  std::vector<DtEmulatorSceneLabel> labels;
  // The 2D overlay (screen -1..1 on both axes, y up) and the top-down map (world x right, y up).
  DtEmulatorScenePane overlay;
  DtEmulatorScenePane map;
  // Pixels per world unit on the map, and the world point at the map's centre.
  double mapScale = 1;
  double mapCentreX = 0;
  double mapCentreY = 0;
};

// Builds the scene of what the viewer shows from its state.
VISTRAL_EMULATOR_EXPORT DtEmulatorScene DtBuildEmulatorScene(const DtEmulatorState& state);
