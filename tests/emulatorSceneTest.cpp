// The emulator's scene measured: where a line's segments end, what its dash pattern is, where its arrow head
// points, where a turned square's corners lie, where the orbiting eye stands, and that the map holds all it
// draws with no two labels on top of each other.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vistralRemoteController.h"
#include "vistralemulator/emulatorScene.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
using Part = DtEmulatorScenePart;
using Form = DtEmulatorSceneShape::Form;

std::vector<const DtEmulatorSceneShape*> shapesOf(const DtEmulatorScenePane& pane, Part part,
                                                  unsigned id = 0) {
  std::vector<const DtEmulatorSceneShape*> out;
  for (const auto& s : pane.shapes)
    if (s.part == part && (id == 0 || s.objectId == id)) out.push_back(&s);
  return out;
}

// A point of the overlay pane from screen coordinates (-1..1, y up), from the pane's own frame.
DtEmulatorScenePoint onScreen(const DtEmulatorScenePane& pane, double x, double y) {
  return {pane.left + (x + 1) / 2 * pane.width, pane.top + (1 - y) / 2 * pane.height};
}

void expectAt(const DtEmulatorScenePoint& got, DtEmulatorScenePoint want) {
  EXPECT_NEAR(got.x, want.x, 1e-6);
  EXPECT_NEAR(got.y, want.y, 1e-6);
}

template <class P>
P drawn(unsigned id, int type) {
  P pdu;
  pdu.setObjectId(id);
  pdu.setType(type);
  return pdu;
}
}  // namespace

TEST(EmulatorScene, LineSegmentsTakeTheirShareWithTheirDashesAndArrowAtTheEnd) {
  DtVistralEmulator emulator("vistral-1");
  auto line = drawn<DtVdcLinePdu>(1, DtVdc2DLine);
  const char from[2] = {-80, -60}, to[2] = {60, 40};
  line.attachTo(from, to);
  line.setNumSegments(2);
  line.setPercentage(0, 70);
  line.setPercentage(1, 30);
  line.setThickness(1U, 2);
  line.setPattern(1U, 0xFF00F000);  // 8 on, 8 off, 4 on, 12 off
  line.setArrowStyle(1U, DtVdcLinePdu::DtVdcStyleArrowEnd);
  emulator.apply(line);
  const DtEmulatorScene scene = DtBuildEmulatorScene(emulator.state());
  const auto& pane = scene.overlay;

  const auto parts = shapesOf(pane, Part::object, 1);
  ASSERT_EQ(parts.size(), 2u);
  const auto a = onScreen(pane, -0.8, -0.6), b = onScreen(pane, 0.6, 0.4);
  const DtEmulatorScenePoint split{a.x + 0.7 * (b.x - a.x), a.y + 0.7 * (b.y - a.y)};
  ASSERT_EQ(parts[0]->points.size(), 2u);
  expectAt(parts[0]->points[0], a);
  expectAt(parts[0]->points[1], split);
  expectAt(parts[1]->points[0], split);
  expectAt(parts[1]->points[1], b);
  EXPECT_TRUE(parts[0]->dashes.empty());  // the default pattern is solid
  // One bit is two line widths long.
  EXPECT_EQ(parts[1]->dashes, (std::vector<double>{32, 32, 16, 48}));
  EXPECT_EQ(parts[1]->width, 2);

  const auto heads = shapesOf(pane, Part::arrowHead, 1);
  ASSERT_EQ(heads.size(), 1u);
  ASSERT_EQ(heads[0]->points.size(), 3u);
  expectAt(heads[0]->points[0], b);
  for (int i = 1; i < 3; ++i)  // the barbs lie back along the segment, towards its start
    EXPECT_LT(std::hypot(heads[0]->points[i].x - split.x, heads[0]->points[i].y - split.y),
              std::hypot(b.x - split.x, b.y - split.y));

  // A pattern that starts with a gap is turned to start with a run, and the arrow moves to the start.
  line.setPattern(1U, 0x0000FFFF);
  line.setArrowStyle(1U, DtVdcLinePdu::DtVdcStyleArrowStart);
  emulator.apply(line);
  const DtEmulatorScene again = DtBuildEmulatorScene(emulator.state());
  EXPECT_EQ(shapesOf(again.overlay, Part::object, 1)[1]->dashes, (std::vector<double>{64, 64}));
  expectAt(shapesOf(again.overlay, Part::arrowHead, 1)[0]->points[0], split);
}

TEST(EmulatorScene, ATurnedSquareHasItsCornersTurnedCounterClockwise) {
  DtVistralEmulator emulator("vistral-1");
  auto square = drawn<DtVdcPolyObjectPdu>(2, DtVdcSquare);
  square.attachTo(DtVector64(0.5, 0.25, 0));
  square.setScale(DtVector64(0.4, 0.2, 0));
  square.setRotation(DtTaitBryan(0, 0, 90));
  emulator.apply(square);
  const DtEmulatorScene scene = DtBuildEmulatorScene(emulator.state());
  const auto shapes = shapesOf(scene.overlay, Part::object, 2);
  ASSERT_EQ(shapes.size(), 1u);
  ASSERT_EQ(shapes[0]->form, Form::polygon);
  ASSERT_EQ(shapes[0]->points.size(), 4u);
  // Corners (-w/2, -h/2), (w/2, -h/2), (w/2, h/2), (-w/2, h/2) turned a quarter to the left: (x, y) -> (-y,
  // x).
  const double w = 0.2, h = 0.1;
  const DtEmulatorScenePoint want[4] = {
      onScreen(scene.overlay, 0.5 + h, 0.25 - w), onScreen(scene.overlay, 0.5 + h, 0.25 + w),
      onScreen(scene.overlay, 0.5 - h, 0.25 + w), onScreen(scene.overlay, 0.5 - h, 0.25 - w)};
  for (int i = 0; i < 4; ++i) {
    EXPECT_NEAR(shapes[0]->points[i].x, want[i].x, 1e-3) << i;  // the scale travels as floats
    EXPECT_NEAR(shapes[0]->points[i].y, want[i].y, 1e-3) << i;
  }
}

TEST(EmulatorScene, TheOrbitingEyeStandsOnItsRadiusBehindItsHeading) {
  DtVistralEmulator emulator("vistral-1");
  DtOrbitVCPdu orbit;
  orbit.setViewerId("vistral-1");
  orbit.setAttachId("1:3001:12");
  orbit.setRadius(150);
  orbit.setHeading(0.8f);
  orbit.setIgnoreFlags(DtVcIgnore::All &
                       ~(DtVcIgnore::FirstEntity | DtVcIgnore::Radius | DtVcIgnore::Heading));
  emulator.apply(orbit);
  const DtEmulatorScene scene = DtBuildEmulatorScene(emulator.state());
  const auto entity = shapesOf(scene.map, Part::entity);
  const auto eye = shapesOf(scene.map, Part::eye);
  const auto ring = shapesOf(scene.map, Part::ring);
  ASSERT_EQ(entity.size(), 1u);
  ASSERT_EQ(eye.size(), 1u);
  ASSERT_EQ(ring.size(), 1u);
  const DtEmulatorScenePoint centre{entity[0]->points[0].x, entity[0]->points[1].y};  // the diamond's middle
  const double r = 150 * scene.mapScale;
  const double heading = static_cast<double>(0.8f);
  // Behind the entity: heading 0.8 looks north-east, so the eye stands south-west of it (y grows downwards).
  expectAt(eye[0]->points[0], {centre.x - r * std::sin(heading), centre.y + r * std::cos(heading)});
  expectAt(ring[0]->points[0], centre);
  EXPECT_NEAR(ring[0]->rx, r, 1e-6);
}

TEST(EmulatorScene, TheMapFramesEverythingItDrawsAndKeepsLabelsApart) {
  DtVistralEmulator emulator("vistral-1");
  auto far = drawn<DtVdcPolyObjectPdu>(1, DtVdcSphere);  // far out, and large
  far.attachTo(DtVector64(-5000, 2000, 0));
  far.setScale(DtVector64(3000, 3000, 0));
  emulator.apply(far);
  auto box = drawn<DtVdcPolyObjectPdu>(2, DtVdcCube);
  box.attachTo(DtVector64(4000, -1000, 0));
  box.setScale(DtVector64(800, 200, 0));
  box.setRotation(DtTaitBryan(0.7, 0, 0));
  emulator.apply(box);
  for (unsigned id : {3u, 4u, 5u}) {  // three labels on one entity
    auto text = drawn<DtVdcTextPdu>(id, DtVdc3DText);
    text.attachTo(DtString("1:3001:12"));
    text.setText("label on the tank");
    emulator.apply(text);
  }
  DtOrbitVCPdu orbit;
  orbit.setViewerId("vistral-1");
  orbit.setAttachId("1:3001:12");
  orbit.setRadius(2500);
  orbit.setIgnoreFlags(DtVcIgnore::All & ~(DtVcIgnore::FirstEntity | DtVcIgnore::Radius));
  emulator.apply(orbit);
  const DtEmulatorScene scene = DtBuildEmulatorScene(emulator.state());
  const DtEmulatorScenePane& map = scene.map;

  int checked = 0;
  for (const auto& s : map.shapes) {
    if (s.part == Part::decoration) continue;
    const double reach = s.form == Form::ellipse ? std::max(s.rx, s.ry) : 0;
    for (const auto& p : s.points) {
      EXPECT_GE(p.x - reach, map.left) << static_cast<int>(s.part) << " " << s.objectId;
      EXPECT_LE(p.x + reach, map.left + map.width) << static_cast<int>(s.part) << " " << s.objectId;
      EXPECT_GE(p.y - reach, map.top) << static_cast<int>(s.part) << " " << s.objectId;
      EXPECT_LE(p.y + reach, map.top + map.height) << static_cast<int>(s.part) << " " << s.objectId;
      ++checked;
    }
  }
  EXPECT_GT(checked, 10);
  EXPECT_EQ(shapesOf(map, Part::ring).size(), 1u);
  EXPECT_EQ(shapesOf(map, Part::eye).size(), 1u);

  for (std::size_t i = 0; i < map.labels.size(); ++i) {
    const auto& a = map.labels[i];
    EXPECT_GE(a.left, map.left);
    EXPECT_LE(a.left + a.width, map.left + map.width);
    for (std::size_t j = 0; j < i; ++j) {
      const auto& b = map.labels[j];
      const bool apart = a.left >= b.left + b.width || b.left >= a.left + a.width ||
                         a.top >= b.top + b.height || b.top >= a.top + a.height;
      EXPECT_TRUE(apart) << a.text << " over " << b.text;
    }
  }
}
