#include "demoPdus.h"

#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/compassVcPdu.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/mimicVcPdu.h"
#include "vistralcontrol/modelessVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/pivotVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"
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
template <class T>
std::unique_ptr<T> addressed(const char* viewer, const char* controller) {
  auto pdu = std::make_unique<T>();
  pdu->setViewerId(viewer);
  pdu->setSenderId(controller);
  return pdu;
}

unsigned char kAmber[4] = {255, 191, 0, 255};
unsigned char kCyan[4] = {0, 200, 255, 160};

// One overlay graphic of each draw family, current layout.
void addDrawPdus(std::vector<std::pair<const char*, std::unique_ptr<DtVistralControlPdu>>>& out,
                 const char* viewer, const char* controller) {
  auto layer = addressed<DtVdcLayerPdu>(viewer, controller);
  layer->setObjectId(900);
  layer->setType(DtVdcLayer);
  layer->setName("Tactical");
  out.emplace_back("draw: a layer", std::move(layer));

  auto line = addressed<DtVdcLinePdu>(viewer, controller);
  line->setObjectId(901);
  line->setType(DtVdc2DLine);
  const char from[2] = {-80, -60}, to[2] = {60, 40};
  line->attachTo(from, to);
  line->setNumSegments(2);
  line->setPercentage(0, 70);
  line->setPercentage(1, 30);
  line->setColor(0U, kAmber);
  line->setColor(1U, kCyan);
  line->setThickness(0U, 3);
  line->setPattern(1U, 0xF0F0F0F0);
  line->setArrowStyle(1U, DtVdcLinePdu::DtVdcStyleArrowEnd);
  out.emplace_back("draw: a two-segment 2D line", std::move(line));

  auto circle = addressed<DtVdcPolyObjectPdu>(viewer, controller);
  circle->setObjectId(902);
  circle->setType(DtVdcCircle);
  circle->attachTo(DtString("1:3001:12"));
  circle->setScale(DtVector64(250, 250, 1));
  circle->setColor(kCyan);
  circle->setFill(true);
  out.emplace_back("draw: a filled circle around an entity", std::move(circle));

  auto triangle = addressed<DtVdcTrianglePdu>(viewer, controller);
  triangle->setObjectId(903);
  triangle->setType(DtVdc2DTriangle);
  triangle->setPoint(0, DtVector64(-0.2, -0.2, 0));
  triangle->setPoint(1, DtVector64(0.2, -0.2, 0));
  triangle->setPoint(2, DtVector64(0, 0.2, 0));
  triangle->setColor(kAmber);
  out.emplace_back("draw: a 2D triangle", std::move(triangle));

  auto area = addressed<DtVdcAreaPdu>(viewer, controller);
  area->setObjectId(904);
  area->setType(DtVdc3DArea);
  area->setNumPoints(4);
  area->setPoint(0, DtVector64(-250, -250, 0));
  area->setPoint(1, DtVector64(-150, -250, 0));
  area->setPoint(2, DtVector64(-150, -150, 0));
  area->setPoint(3, DtVector64(-250, -150, 0));
  area->setColor(kCyan);
  area->setTextureFilename("minefield.png");
  area->setTextureDirectory("textures");
  area->setNumTextureTiles(2);
  area->setFill(true);
  out.emplace_back("draw: a textured 3D area", std::move(area));

  auto text = addressed<DtVdcTextPdu>(viewer, controller);
  text->setObjectId(905);
  text->setType(DtVdc3DText);
  text->attachTo(DtString("1:3001:12"));
  text->setOffset(DtVector64(0, 0, 12));
  text->setText("Blue leader");
  text->setColor(kAmber);
  out.emplace_back("draw: a 3D text above an entity", std::move(text));

  auto attribute = addressed<DtVdcAttributePdu>(viewer, controller);
  attribute->setObjectId(906);
  attribute->setType(DtVdcAttributeSingleValue);
  attribute->attachTo(DtString("1:3001:12"));
  attribute->setAttributeGroupId(907);
  attribute->setName("Fuel");
  attribute->setRange(0, 100);
  out.emplace_back("draw: an attribute with a range", std::move(attribute));

  auto update = addressed<DtVdcAttributeUpdatePdu>(viewer, controller);
  update->setObjectId(906);
  update->setType(DtVdcAttributeValueSet);
  update->setGroupId(907);
  update->setValueX(62.5);
  out.emplace_back("draw: the attribute's new value", std::move(update));

  auto command = addressed<DtVdcCommandPdu>(viewer, controller);
  command->setObjectId(901);
  command->setType(DtVdcCommandAddToLayer);
  command->setLayerId(900);
  out.emplace_back("draw: the line joins the layer", std::move(command));
}
}  // namespace

std::vector<std::pair<const char*, std::unique_ptr<DtVistralControlPdu>>> demoPdus(const char* viewer,
                                                                                   const char* controller) {
  std::vector<std::pair<const char*, std::unique_ptr<DtVistralControlPdu>>> out;

  auto absolute = addressed<DtAbsoluteVCPdu>(viewer, controller);
  absolute->setWorldLocation(DtVector64(-2476512.25, -4665431.5, 3588000.75));
  absolute->setOrientation(DtTaitBryan(1.5, -0.25, 0.0));
  absolute->setIgnoreFlags(0);
  out.emplace_back("absolute mode", std::move(absolute));

  auto move = addressed<DtMoveVCPdu>(viewer, controller);
  move->setFromString("1 4 1.5 2 3");
  move->setIgnoreFlags(0xFEFFFFFF);
  out.emplace_back("move", std::move(move));

  // Modes around a centre: an entity, or a world point.
  auto orbit = addressed<DtOrbitVCPdu>(viewer, controller);
  orbit->setFromString("Tank 7,150,0.1,0,-0.3,0,0,0,Blue leader");
  orbit->setIgnoreFlags(0);
  out.emplace_back("orbit mode", std::move(orbit));

  auto compass = addressed<DtCompassVCPdu>(viewer, controller);
  compass->setFromString("1:3001:12 80 1.5708 -0.2 0 0 0 T-72");
  compass->setIgnoreFlags(0);
  out.emplace_back("compass mode", std::move(compass));

  auto pivot = addressed<DtPivotVCPdu>(viewer, controller);
  pivot->setPivotPoint(DtVector64(-2476512.25, -4665431.5, 3588000.75));
  pivot->setRadius(500);
  pivot->setPitch(-0.5f);
  pivot->setIgnoreFlags(0);
  out.emplace_back("pivot mode", std::move(pivot));

  // Modes that follow entities.
  auto tether = addressed<DtTetherVCPdu>(viewer, controller);
  tether->setFromString("1:3001:12 -30 0 8 0 -0.1 0 Lead");
  tether->setIgnoreFlags(0);
  out.emplace_back("tether mode", std::move(tether));

  auto mimic = addressed<DtOffsetMimicVCPdu>(viewer, controller);
  mimic->setFromString("1:3001:14 0 1.2 2.5 0 0 0 Gunner");
  mimic->setIgnoreFlags(0);
  out.emplace_back("offset mimic mode", std::move(mimic));

  auto track = addressed<DtTrackVCPdu>(viewer, controller);
  track->setFromString("Tank 9,-2476400,-4665300,3588050,Red two");
  track->setIgnoreFlags(0);
  out.emplace_back("track mode", std::move(track));

  auto tetherTrack = addressed<DtTetherTrackVCPdu>(viewer, controller);
  tetherTrack->setFromString("1:3001:12 1:3002:5 -20 0 6 Lead Target");
  tetherTrack->setIgnoreFlags(0);
  out.emplace_back("tether-track mode", std::move(tetherTrack));

  // Entity lists that size the PDU.
  auto group = addressed<DtGroupVCPdu>(viewer, controller);
  group->setFromString("0 1 3 400 0.7 -0.4 0 0 1:3001:9 1:3001:12 1:3001:14 1:3002:5");
  group->setIgnoreFlags(0);
  out.emplace_back("group mode", std::move(group));

  auto modeless = addressed<DtModelessVCPdu>(viewer, controller);
  modeless->setPrimary("1:3001:12");
  modeless->setSecondary("1:3002:5");
  modeless->setNumEntitiesToAdd(1);
  modeless->setEntityToAdd(0, "1:3002:6");
  modeless->setIgnoreFlags(0);
  out.emplace_back("modeless", std::move(modeless));

  auto options = addressed<DtOptionsPdu>(viewer, controller);
  options->setFov(55);
  options->setTimeOfDay(17.5);
  options->setSkyDome(true);
  options->setOverlay(DtOverlayMinimal);
  options->setDatabaseToLoad("terrain/coast-west");
  options->setShowNextModelSet(true);
  out.emplace_back("viewer options", std::move(options));
  addDrawPdus(out, viewer, controller);
  return out;
}
