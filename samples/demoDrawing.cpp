// A remote drawer builds an overlay scene in the viewer over the demo's federation: 2D and 3D
// lines, an area, shapes, texts, a layer and an attribute panel whose values change; then it hides, shows
// and removes objects, and what is left goes when the drawer does. The viewer prints each PDU it receives.
#include "demoDrawing.h"

#include <cmath>
#include <iostream>
#include <vector>

#include "demoDelivery.h"

#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vdcArea3DObj.h"
#include "vistralcontrol/vdcAttGroup.h"
#include "vistralcontrol/vdcCuboidObj.h"
#include "vistralcontrol/vdcCylinderObj.h"
#include "vistralcontrol/vdcDrawLayerObj.h"
#include "vistralcontrol/vdcEllipseObj.h"
#include "vistralcontrol/vdcLine2DObj.h"
#include "vistralcontrol/vdcLine3DObj.h"
#include "vistralcontrol/vdcRectangleObj.h"
#include "vistralcontrol/vdcRemoteDrawer.h"
#include "vistralcontrol/vdcText2DObj.h"
#include "vistralcontrol/vdcText3DObj.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralDrawControlPdu.h"

namespace {
int received = 0;

// Only draw PDUs count: on a shared network other viewers' state reports reach this viewer too, late ones
// in the middle of the drawing.
void printDrawn(DtVistralControlInteraction* inter, void*) {
  const auto* pdu = dynamic_cast<const DtVistralDrawControlPdu*>(inter->vcPdu());
  if (pdu == nullptr) {
    std::cout << "<-- viewer received something that is not a draw PDU\n";
    return;
  }
  ++received;
  std::cout << "<-- viewer: " << DtVistralDrawControlPdu::typeString(static_cast<int>(pdu->type()))
            << " object " << pdu->objectId() << " (" << pdu->length() << " bytes): \"" << pdu->string()
            << "\"\n";
}
}  // namespace

bool drawingScene(DtExerciseConn& viewer, DtExerciseConn& app, const std::function<void()>& whileDrawn) {
  using Seg = DtVdcLineSegment;
  DtVistralControlInteraction::addCallback(&viewer, &printDrawn, nullptr);
  int sent = 0;
  {
    DtVistralRemoteDrawer drawer(&app, DtVistralRemoteDrawer::SEND_TO_ALL, 1);
    auto step = [&](const char* what, int pdus) {
      std::cout << "\n--> " << what << "\n";
      sent += pdus;
      deliverUntil([&] { return received == sent; }, {&viewer});
    };

    const unsigned layer = drawer.nextId();
    drawer.add(new DtVdcDrawLayerObject(layer, "tactical"));
    step("a layer", 1);

    const unsigned crosshair = drawer.nextId();
    drawer.add(new DtVdcLine2DObject(crosshair, DtVdcVector2D(0.45, 0.5), DtVdcVector2D(0.55, 0.5), 2,
                                     DtVdcColor::DtVdcYellow, Seg::DtVdcSegmentStraight,
                                     Seg::DtVdcSegmentNoArrow, 2, 0xFFFFFFFF, false));
    const unsigned route = drawer.nextId();
    drawer.add(new DtVdcLine3DObject(route, DtVdc3DAttachPoint(DtString("1:3001:12")),
                                     DtVdc3DAttachPoint(DtVector64(300.0, -200.0, 0.0)), 3,
                                     DtVector64(0, 0, 5), DtVdcColor::DtVdcRed, Seg::DtVdcSegmentLightning,
                                     Seg::DtVdcSegmentArrowEnd, 3, 0xF0F0F0F0, false, true, false));
    drawer.addToLayer(route, layer);
    step("a 2D crosshair, a 3D route from a tank to a point, the route put on the layer", 3);

    const unsigned zone = drawer.nextId();
    drawer.add(new DtVdcArea3DObject(
        zone, {DtVector64(0, 0, 0), DtVector64(100, 0, 0), DtVector64(100, 100, 0), DtVector64(0, 100, 0)},
        DtVdcColor(0, 128, 255, 96), "textures", "grid.png", 4, false));
    const unsigned marker = drawer.nextId();
    drawer.add(new DtVdcEllipseObject(marker, DtVdcVector2D(0.9, 0.1), DtVdcVector2D(0.03, 0.03), 0,
                                      DtVdcColor::DtVdcGreen, true, 0xFFFFFFFF, true));
    const unsigned frame = drawer.nextId();
    drawer.add(new DtVdcRectangleObject(frame, DtVdcVector2D(0.5, 0.5), DtVdcVector2D(0.4, 0.3), M_PI / 12,
                                        DtVdcColor::DtVdcBlue, false, 0xFFFFFFFF, false));
    const unsigned box = drawer.nextId();
    drawer.add(new DtVdcCuboidObject(box, DtVdc3DAttachPoint(DtString("1:3001:12")), 10, 4, 3, DtVector64(),
                                     DtTaitBryan(), DtVdcColor::DtVdcPurple, false));
    const unsigned mast = drawer.nextId();
    drawer.add(new DtVdcCylinderObject(mast, DtVdc3DAttachPoint(box, 100),
                                       DtVdc3DAttachPoint(DtVector64(0, 0, 50)), DtVdcVector2D(1, 1),
                                       DtVector64(), DtVdcColor::DtVdcOrange, false));
    step("an area, an ellipse, a rectangle, a box on the tank and a cylinder from the box", 5);

    const unsigned title = drawer.nextId();
    drawer.add(
        new DtVdcText2DObject(title, "EXERCISE 7", DtVdcVector2D(0.5, 0.95), DtVdcColor::DtVdcBlue, false));
    const unsigned callsign = drawer.nextId();
    drawer.add(new DtVdcText3DObject(callsign, "Alpha-1", DtVdc3DAttachPoint(DtString("1:3001:12")),
                                     DtVector64(0, 0, 12), DtVdcColor::DtVdcYellow, false));
    step("a screen title and a label over the tank", 2);

    const unsigned panelLayout = drawer.nextId();
    auto* layout = new DtVdcAttributeGroupTemplateObject(panelLayout, "status");
    layout->createAttributeTemplate(1, "speed", DtVdcAttributeTemplateObject::DtVdcAttTypeSingleValue);
    layout->createAttributeTemplate(2, "fuel", 0.0, 100.0);
    layout->createAttributeTemplate(3, "icon", DtVdcAttributeTemplateObject::DtVdcAttTypeBitmap);
    drawer.add(layout);
    const unsigned panelId = drawer.nextId();
    auto* panel = new DtVdcAttributeGroupObject(panelId, layout, DtVdc3DAttachPoint(DtString("1:3001:12")),
                                                DtVector64(0, 0, 20), DtVdcColor::DtVdcGreen, false);
    drawer.add(panel);
    step("an attribute panel layout with three attributes, and a panel over the tank", 5);

    panel->setNumericAttributeValue(1, 42.5);
    panel->setValueBarAttributeValue(2, 80.0);
    panel->setBmpAttributeValue(3, "tank.bmp");
    drawer.update(panelId);
    step("the panel's three values set", 4);
    panel->setValueBarAttributeValue(2, 64.0);
    drawer.update(panelId);
    drawer.hideAttribute(panelId, 3);
    step("the fuel drops (only that value goes out) and the icon is hidden", 3);

    drawer.hide(marker);
    drawer.show(marker);
    delete drawer.remove(crosshair);
    drawer.removeFromLayer(route, layer);
    step("the marker hidden and shown again, the crosshair removed, the route taken off the layer", 4);

    if (whileDrawn) whileDrawn();
    std::cout << "\n--> the drawer goes; what it still holds is removed in ascending id order\n";
    sent += 11;  // one remove for each object still held; the layout's templates are its own, not held
  }
  deliverUntil([&] { return received == sent; }, {&viewer});
  DtVistralControlInteraction::removeCallback(&viewer, &printDrawn, nullptr);
  std::cout << "\n" << sent << " draw PDUs sent, " << received << " received by the viewer\n";
  return received == sent;
}
