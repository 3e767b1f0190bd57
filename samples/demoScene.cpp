// The scene is sent PDU by PDU, each PDU filled by hand, as an application without drawing objects would
// send it (the demo's drawer part draws through DtVistralRemoteDrawer instead). It stays in the viewer for
// the picture.
#include "demoScene.h"

#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vdcTrianglePdu.h"

namespace {
unsigned char kNavy[4] = {20, 40, 110, 255};
unsigned char kRed[4] = {200, 30, 30, 255};
unsigned char kGreen[4] = {30, 150, 60, 110};
unsigned char kOrange[4] = {240, 130, 0, 255};
unsigned char kPurple[4] = {120, 40, 160, 200};
unsigned char kGrey[4] = {90, 90, 90, 255};

const char* const kLead = "1:3001:12";
const char* const kWing = "1:3001:13";
// World points of the scene, near the demo's area (x, y, z in metres, the frame the locations use).
const DtVector64 kHill(-2476450, -4665350, 3588000);
const DtVector64 kDepot(-2476650, -4665250, 3588000);

class Scene {
 public:
  Scene(DtExerciseConn& conn, const char* viewer, const char* controller)
      : conn_(conn), viewer_(viewer), controller_(controller) {}

  template <class P>
  P make(unsigned id, int type) const {
    P pdu;
    pdu.setObjectId(id);
    pdu.setType(type);
    return pdu;
  }
  void send(DtVistralControlPdu& pdu) {
    pdu.setViewerId(viewer_);
    pdu.setSenderId(controller_);
    DtVistralControlInteraction inter;
    inter.setVcPdu(pdu);
    if (conn_.sendInteraction(inter)) ++sent_;
  }
  void command(unsigned id, int type, unsigned layer = 0) {
    auto pdu = make<DtVdcCommandPdu>(id, type);
    pdu.setLayerId(layer);
    send(pdu);
  }
  int sent() const { return sent_; }

 private:
  DtExerciseConn& conn_;
  const char* viewer_;
  const char* controller_;
  int sent_ = 0;
};

void screenPlane(Scene& scene) {
  auto title = scene.make<DtVdcTextPdu>(1001, DtVdc2DText);
  const char titleAt[2] = {-92, 88};
  title.attachTo(titleAt);
  title.setText("Exercise NORTHWIND - sector 4");
  title.setColor(kNavy);
  scene.send(title);

  // A route across the screen in three legs: solid, dashed with an arrow, a lightning leg with arrows both
  // ways.
  auto route = scene.make<DtVdcLinePdu>(1002, DtVdc2DLine);
  const char from[2] = {-85, -20}, to[2] = {85, 20};
  route.attachTo(from, to);
  route.setNumSegments(3);
  const unsigned char shares[3] = {40, 35, 25};
  unsigned char* colors[3] = {kNavy, kRed, kOrange};
  for (unsigned i = 0; i < 3; ++i) {
    route.setPercentage(i, shares[i]);
    route.setColor(i, colors[i]);
    route.setThickness(i, static_cast<unsigned char>(2 + i));
  }
  route.setPattern(1U, 0xFF00FF00);
  route.setArrowStyle(1U, DtVdcLinePdu::DtVdcStyleArrowEnd);
  route.setAppearance(2U, DtVdcLinePdu::DtVdcLineAppearanceLightning);
  route.setArrowStyle(2U, DtVdcLinePdu::DtVdcStyleArrowDouble);
  scene.send(route);

  auto zone = scene.make<DtVdcPolyObjectPdu>(1003, DtVdcSquare);
  const char zoneAt[2] = {-50, 50};
  zone.attachTo(zoneAt);
  zone.setScale(DtVector64(0.5, 0.3, 0));
  zone.setRotation(DtTaitBryan(0, 0, 15));
  zone.setFill(true);
  zone.setColor(kGreen);
  scene.send(zone);

  auto alert = scene.make<DtVdcPolyObjectPdu>(1004, DtVdcCircle);
  const char alertAt[2] = {55, -55};
  alert.attachTo(alertAt);
  alert.setScale(DtVector64(0.4, 0.25, 0));
  alert.setRotation(DtTaitBryan(0, 0, -20));
  alert.setColor(kRed);
  alert.setFlashing(true);
  scene.send(alert);

  auto pointer = scene.make<DtVdcTrianglePdu>(1005, DtVdc2DTriangle);
  const char pointerAt[2] = {0, -75};
  pointer.attachTo(pointerAt);
  pointer.setPoint(0, DtVector64(-0.15, -0.1, 0));
  pointer.setPoint(1, DtVector64(0.15, -0.1, 0));
  pointer.setPoint(2, DtVector64(0, 0.2, 0));
  pointer.setScale(DtVector64(1, 1, 0));
  pointer.setFill(true);
  pointer.setColor(kPurple);
  scene.send(pointer);

  auto caption = scene.make<DtVdcTextPdu>(1006, DtVdc2DText);
  const char captionAt[2] = {28, -90};
  caption.attachTo(captionAt);
  caption.setText("threat axis");
  caption.setColor(kRed);
  scene.send(caption);
}

void world(Scene& scene) {
  auto sightLine = scene.make<DtVdcLinePdu>(2001, DtVdc3DLine);
  sightLine.attachTo(DtString(kLead), kHill);
  sightLine.setColor(kOrange);
  sightLine.setThickness(2);
  sightLine.setPattern(0xF0F0F0F0);
  sightLine.setArrowStyle(DtVdcLinePdu::DtVdcStyleArrowEnd);
  scene.send(sightLine);

  auto link = scene.make<DtVdcLinePdu>(2002, DtVdc3DLine);
  link.attachTo(DtString(kLead), DtString(kWing));
  link.setColor(kNavy);
  link.setThickness(3);
  scene.send(link);

  auto dome = scene.make<DtVdcPolyObjectPdu>(2003, DtVdcSphere);
  dome.attachTo(kHill);
  dome.setScale(DtVector64(90, 90, 40));
  dome.setColor(kRed);
  scene.send(dome);

  auto depot = scene.make<DtVdcPolyObjectPdu>(2004, DtVdcCube);
  depot.attachTo(kDepot);
  depot.setScale(DtVector64(60, 30, 10));
  depot.setRotation(DtTaitBryan(0.5, 0, 0));
  depot.setColor(kNavy);
  scene.send(depot);

  auto pipe = scene.make<DtVdcPolyObjectPdu>(2005, DtVdcCylinder);
  pipe.attachTo(kDepot, DtString(kWing));
  pipe.setScale(DtVector64(0, 12, 12));
  pipe.setColor(kGrey);
  scene.send(pipe);

  auto wedge = scene.make<DtVdcTrianglePdu>(2006, DtVdc3DTriangle);
  wedge.setPoint(0, DtVector64(-2476300, -4665480, 3588000));
  wedge.setPoint(1, DtVector64(-2476220, -4665480, 3588000));
  wedge.setPoint(2, DtVector64(-2476260, -4665400, 3588000));
  wedge.setColor(kPurple);
  scene.send(wedge);

  auto label = scene.make<DtVdcTextPdu>(2007, DtVdc3DText);
  label.attachTo(kHill);
  label.setOffset(DtVector64(50, -10, 0));
  label.setText("Hill 112");
  label.setColor(kGrey);
  scene.send(label);

  // A panel beside the lead: its layout first (a group template and its attributes), then the group and its
  // values.
  auto layout = scene.make<DtVdcAttributePdu>(2010, DtVdcAttributeGroupTemplate);
  layout.setName("Vehicle");
  scene.send(layout);
  struct Row {
    unsigned id;
    int type;
    const char* name;
  };
  for (const Row& row :
       {Row{1, DtVdcAttributeGraphicSingleValue, "Fuel"}, Row{2, DtVdcAttributeSingleValue, "Speed"},
        Row{3, DtVdcAttributeBitmap, "Unit"}, Row{4, DtVdcAttributeGraphicListValue, "Position"},
        Row{5, DtVdcAttributeNoValue, "Radio"}}) {
    auto attribute = scene.make<DtVdcAttributePdu>(row.id, row.type);
    attribute.setAttributeGroupId(2010);
    attribute.setName(row.name);
    if (row.type == DtVdcAttributeGraphicSingleValue) attribute.setRange(0, 100);
    scene.send(attribute);
  }
  auto panel = scene.make<DtVdcAttributePdu>(2011, DtVdcAttributeGroup);
  panel.setAttributeGroupId(2010);
  panel.attachTo(DtString(kLead));
  panel.setColor(kNavy);
  scene.send(panel);
  const auto value = [&](unsigned id, int type, double x, double y, const char* text) {
    auto update = scene.make<DtVdcAttributeUpdatePdu>(id, type);
    update.setGroupId(2011);
    update.setValueX(x);
    update.setValueY(y);
    if (text != nullptr) update.setText(text);
    scene.send(update);
  };
  value(1, DtVdcAttributeValueSet, 64, 0, nullptr);
  value(2, DtVdcAttributeValueSet, 42.5, 0, nullptr);
  value(3, DtVdcAttributeValueSetText, 0, 0, "2nd-platoon.bmp");
  value(4, DtVdcAttributeValueSet, 31.4, 27.2, nullptr);
}

// Layers, an update, hiding, showing and removing.
void changes(Scene& scene) {
  auto drafts = scene.make<DtVdcLayerPdu>(3001, DtVdcLayer);
  drafts.setName("Drafts");
  scene.send(drafts);
  auto sketch = scene.make<DtVdcTextPdu>(3002, DtVdc2DText);
  const char sketchAt[2] = {-20, 10};
  sketch.attachTo(sketchAt);
  sketch.setText("draft: not for display");
  scene.send(sketch);
  scene.command(3002, DtVdcCommandAddToLayer, 3001);
  scene.command(3001, DtVdcCommandHide);  // the whole layer

  scene.command(1002, DtVdcCommandAddToLayer, 900);  // the route joins the demo's "Tactical" layer
  scene.command(2002, DtVdcCommandHide);
  scene.command(2002, DtVdcCommandShow);
  scene.command(5, 2518, 2011);  // attribute "Radio" of the panel is hidden

  // The fuel drops: one value update; the lead's link turns red: the line is sent again.
  auto fuel = scene.make<DtVdcAttributeUpdatePdu>(1, DtVdcAttributeValueSet);
  fuel.setGroupId(2011);
  fuel.setValueX(48);
  scene.send(fuel);
  auto link = scene.make<DtVdcLinePdu>(2002, DtVdc3DLine);
  link.attachTo(DtString(kLead), DtString(kWing));
  link.setColor(kRed);
  link.setThickness(3);
  scene.send(link);

  // The first part's 2D line and triangle are taken away again.
  scene.command(901, DtVdcCommandRemove);
  scene.command(903, DtVdcCommandRemove);
}
}  // namespace

int drawDemoScene(DtExerciseConn& conn, const char* viewer, const char* controller) {
  Scene scene(conn, viewer, controller);
  screenPlane(scene);
  world(scene);
  changes(scene);
  return scene.sent();
}
