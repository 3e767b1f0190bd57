// The viewer emulator: a scripted session through the in-process federation checked on the JSON snapshot
// (every mode with fields kept by their ignore bits, options, every draw kind with updates, visibility,
// layers, panels and removal), state reports reaching a controller's callback, and hostile PDUs.
#include <gtest/gtest.h>

#include <cstdio>

#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vdcTrianglePdu.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"
#include "vistralemulator/emulatorPicture.h"
#include "vistralemulator/emulatorSnapshot.h"
#include "vistralemulator/vistralEmulator.h"

using nlohmann::json;

namespace {
unsigned char kRed[4] = {255, 0, 0, 255};
unsigned char kBlue[4] = {0, 0, 255, 128};

// A controller federate and a draw federate steering an emulator federate of one in-process execution.
struct Session {
  explicit Session(const char* execution)
      : emulator(execution, "vistral-1"), conn(execution, "app"), controller(&conn, "vistral-1") {
    DtVistralControlRegister(&conn);
    controller.setControllerId("app");
  }
  void draw(DtVistralControlPdu& pdu) {
    pdu.setViewerId("0:0:1");  // draw PDUs are taken whatever viewer they name
    DtVistralControlInteraction inter;
    inter.setVcPdu(pdu);
    ASSERT_TRUE(conn.sendInteraction(inter));
  }
  json snapshot() {
    emulator.processIncoming();
    return json::parse(DtEmulatorSnapshotJson(emulator.state()));
  }
  DtVistralEmulator emulator;
  DtExerciseConn conn;
  DtVistralRemoteController controller;
};

template <class P>
P drawn(unsigned id, int type) {
  P pdu;
  pdu.setObjectId(id);
  pdu.setType(type);
  return pdu;
}

DtVdcCommandPdu command(unsigned id, int type, unsigned layer = 0) {
  auto pdu = drawn<DtVdcCommandPdu>(id, type);
  pdu.setLayerId(layer);
  return pdu;
}
}  // namespace

TEST(Emulator, EveryModeKeepsTheFieldsItsIgnoreBitsGuard) {
  Session s("EmulatorModes");
  auto& c = s.controller;
  const DtString tank("1:3001:12"), truck("1:3002:5");
  const DtVector64 where(10, 20, 30), offset(1, 2, 3);
  const DtTaitBryan look(0.5, -0.25, 0.125);
  const float radius = 120, heading = 0.5f, pitch = -0.3f, rate = 0.1f, radius2 = 80;
  const DtGlobalObjectDesignatorList group{"a", "b", "c"};

  c.setAbsoluteMode(&where, &look);
  c.setTetherMode(&tank, &offset, &look);
  c.setCompassMode(&tank, &radius, &heading, &pitch);
  c.setTurretMode(&tank, &offset);
  c.setOrbitMode(&tank, &radius, &heading, &pitch, &rate);
  c.setTrackMode(&truck, &where);
  c.setTetherTrackMode(&tank, &truck, &offset);
  c.setMimicTrackMode(&tank, &truck, &offset);
  c.setGroupMode(&group, &radius, &heading, &pitch);
  c.setPivotMode(&where, &radius, &heading, &pitch);
  c.setMode(DtVcOrbit, nullptr, nullptr);  // back to orbit, keeping its parameters
  json view = s.snapshot()["view"];
  EXPECT_EQ(view["modeName"], "VcOrbit");
  EXPECT_EQ(view["parameters"], json({{"attachId", "1:3001:12"},
                                      {"markingText", ""},
                                      {"radius", 120.0},
                                      {"heading", 0.5f},
                                      {"pitch", -0.3f},
                                      {"azimuthRate", 0.1f}}));
  EXPECT_EQ(view["modes"]["VcAbsolute"], json({{"location.x", 10.0},
                                               {"location.y", 20.0},
                                               {"location.z", 30.0},
                                               {"orientation.psi", 0.5},
                                               {"orientation.theta", -0.25},
                                               {"orientation.phi", 0.125}}));
  EXPECT_EQ(view["modes"]["VcTether"]["topoUpOffset.z"], 3.0);
  EXPECT_EQ(view["modes"]["VcOffsetMimic"]["offset.y"], 2.0);
  EXPECT_EQ(view["modes"]["VcCompass"]["bodyHeading"], 0.5f);
  // Mimic-track's offset rides the position bits, tether-track's the attach-offset bits: both arrive.
  EXPECT_EQ(view["modes"]["VcMimicTrack"]["offset.x"], 1.0);
  EXPECT_EQ(view["modes"]["VcTetherTrack"]["trackId"], "1:3002:5");
  EXPECT_EQ(
      view["modes"]["VcGroup"],
      json({{"groupCmd", 0}, {"radialOffset", 120.0}, {"headingOffset", 0.5f}, {"pitchOffset", -0.3f}}));
  EXPECT_EQ(view["group"], json({"a", "b", "c"}));
  EXPECT_EQ(view["modes"]["VcPivot"]["pivotPoint.z"], 30.0);

  // A new radius alone: the rest of orbit stays. Fields one bit at a time: only y of the location changes.
  const float closer = radius2;
  c.setOrbitMode(nullptr, &closer, nullptr, nullptr, nullptr);
  DtAbsoluteVCPdu absolute;
  absolute.setWorldLocation(DtVector64(-1, -2, -3));
  absolute.setOrientation(DtTaitBryan(9, 9, 9));
  absolute.setIgnoreFlags(DtVcIgnore::All & ~0x2UL & ~DtVcIgnore::Roll);
  c.send(absolute);
  view = s.snapshot()["view"];
  EXPECT_EQ(view["parameters"], json({{"location.x", 10.0},
                                      {"location.y", -2.0},
                                      {"location.z", 30.0},
                                      {"orientation.psi", 0.5},
                                      {"orientation.theta", -0.25},
                                      {"orientation.phi", 9.0}}));
  EXPECT_EQ(view["modes"]["VcOrbit"]["radius"], 80.0);
  EXPECT_EQ(view["modes"]["VcOrbit"]["azimuthRate"], 0.1f);

  // Modeless: primary, secondary and the group lists, each under its bit; a move sets the eye and steps.
  c.setPrimarySecondary("p1", "s1");
  c.removeFromGroup(DtGlobalObjectDesignatorList{"b"});
  c.addToGroup(DtGlobalObjectDesignatorList{"d"});
  c.setSecondary("s2");
  const DtVector64 eye(5, 6, 7);
  c.set(&eye, nullptr);
  c.moveEyepoint(DtVistralRemoteController::FORWARDS);
  c.reset();
  c.set(&eye, nullptr);
  view = s.snapshot()["view"];
  EXPECT_EQ(view["modeName"], "VcAbsolute");
  EXPECT_EQ(view["primary"], "p1");
  EXPECT_EQ(view["secondary"], "s2");
  EXPECT_EQ(view["group"], json({"a", "c", "d"}));
  EXPECT_EQ(view["eye"], json({{"position.x", 5.0},
                               {"position.y", 6.0},
                               {"position.z", 7.0},
                               {"steps", 0},
                               {"lastMove", "none"},
                               {"lastTurn", "none"},
                               {"resets", 1}}));
}

TEST(Emulator, OptionsChangeOnlyWhenPresentAndCommandsForOtherViewersAreIgnored) {
  Session s("EmulatorOptions");
  auto& c = s.controller;
  c.setFogEnabled(true);
  c.setTimeOfDay(18.25);
  c.setBroadcasting(true);  // shares its presence bit with mirror-message-every-frame
  c.setDatabaseToLoad("terrain.db");
  c.increaseStepsize();
  c.increaseStepsize();
  c.startVideoRecording();
  c.setFogEnabled(false);
  DtVistralRemoteController other(&s.conn, "vistral-2");
  other.setControllerId("app");
  other.setSkyDome(true);
  const float radius = 5;
  other.setOrbitMode(nullptr, &radius, nullptr, nullptr, nullptr);
  const json snapshot = s.snapshot();
  EXPECT_EQ(snapshot["options"], json({{"fog", false},
                                       {"timeOfDay", 18.25},
                                       {"broadcasting", true},
                                       {"mirrorMessageEveryFrame", false},
                                       {"databaseToLoad", "terrain.db"},
                                       {"incrementStepsize", 2},
                                       {"videoCapture", "record"}}));
  EXPECT_EQ(snapshot["view"]["modeName"], "VcAbsolute");
  EXPECT_EQ(snapshot["counters"]["ignored"], 2);
}

TEST(Emulator, DrawsEveryKindByIdWithUpdatesVisibilityLayersPanelsAndRemoval) {
  Session s("EmulatorDraw");
  auto line = drawn<DtVdcLinePdu>(1, DtVdc2DLine);
  const char from[2] = {-80, -60}, to[2] = {60, 40};
  line.attachTo(from, to);
  line.setNumSegments(2);
  line.setPercentage(0, 70);
  line.setPercentage(1, 30);
  line.setColor(1U, kBlue);
  line.setPattern(1U, 0xF0F0F0F0);
  line.setArrowStyle(1U, DtVdcLinePdu::DtVdcStyleArrowEnd);
  s.draw(line);
  auto circle = drawn<DtVdcPolyObjectPdu>(2, DtVdcCircle);
  circle.attachTo(DtVector64(0.5, 0.5, 0));
  circle.setScale(DtVector64(0.2, 0.1, 0));
  circle.setFill(true);
  circle.setFlashing(true);
  s.draw(circle);
  auto triangle = drawn<DtVdcTrianglePdu>(3, DtVdc3DTriangle);
  for (int i = 0; i < 3; ++i) triangle.setPoint(i, DtVector64(i, 2 * i, 0));
  s.draw(triangle);
  auto area = drawn<DtVdcAreaPdu>(4, DtVdc3DArea);
  area.setNumPoints(3);
  for (int i = 0; i < 3; ++i) area.setPoint(i, DtVector64(100 + i, 0, 0));
  area.setTextureFilename("mines.png");
  s.draw(area);
  auto label = drawn<DtVdcTextPdu>(5, DtVdc3DText);
  label.attachTo(DtString("1:3001:12"), DtNetU32(1));
  label.setText("Blue leader");
  s.draw(label);
  auto layer = drawn<DtVdcLayerPdu>(6, DtVdcLayer);
  layer.setName("Tactical");
  s.draw(layer);
  // A panel: its layout (a group template with two attributes), then a group on it with values.
  auto layout = drawn<DtVdcAttributePdu>(7, DtVdcAttributeGroupTemplate);
  layout.setName("Status");
  s.draw(layout);
  auto fuel = drawn<DtVdcAttributePdu>(1, DtVdcAttributeGraphicSingleValue);  // attribute ids are their own
  fuel.setAttributeGroupId(7);
  fuel.setName("Fuel");
  fuel.setRange(0, 100);
  s.draw(fuel);
  auto flag = drawn<DtVdcAttributePdu>(2, DtVdcAttributeBitmap);
  flag.setAttributeGroupId(7);
  flag.setName("Flag");
  s.draw(flag);
  auto panel = drawn<DtVdcAttributePdu>(8, DtVdcAttributeGroup);
  panel.setAttributeGroupId(7);
  panel.attachTo(DtString("1:3001:12"));
  s.draw(panel);
  auto value = drawn<DtVdcAttributeUpdatePdu>(1, DtVdcAttributeValueSet);
  value.setGroupId(8);
  value.setValueX(62.5);
  s.draw(value);
  auto picture = drawn<DtVdcAttributeUpdatePdu>(2, DtVdcAttributeValueSetText);
  picture.setGroupId(8);
  picture.setText("blue.bmp");
  s.draw(picture);

  line.setColor(0U, kRed);  // an update of object 1 keeps what commands gave it
  s.draw(line);
  for (auto c : {command(1, DtVdcCommandAddToLayer, 6), command(5, DtVdcCommandAddToLayer, 6),
                 command(5, DtVdcCommandRemoveFromLayer, 6), command(6, DtVdcCommandHide),
                 command(2, DtVdcCommandHide), command(2, DtVdcCommandShow), command(3, DtVdcCommandRemove),
                 command(2, 2518, 8), command(99, DtVdcCommandHide)})
    s.draw(c);
  s.draw(line);

  const json snapshot = s.snapshot();
  const json& objects = snapshot["objects"];
  EXPECT_EQ(objects.size(), 7u);
  EXPECT_FALSE(objects.contains("3"));
  EXPECT_EQ(objects["1"]["kind"], "line");
  EXPECT_EQ(objects["1"]["pduCount"], 3);
  EXPECT_EQ(objects["1"]["layers"], json({6}));
  EXPECT_EQ(objects["1"]["visible"], true);
  EXPECT_EQ(objects["1"]["shown"], false);  // its layer is hidden
  EXPECT_EQ(objects["1"]["attachment"]["positions"][1], json({0.6, 0.4, 0.0}));
  EXPECT_EQ(objects["1"]["segments"][0]["color"], json({255, 0, 0, 255}));
  EXPECT_EQ(objects["1"]["segments"][1], json({{"color", {0, 0, 255, 128}},
                                               {"pattern", 0xF0F0F0F0u},
                                               {"thickness", 0},
                                               {"arrowStyle", 1},
                                               {"appearance", 0},
                                               {"percentage", 30}}));
  EXPECT_EQ(objects["2"]["typeName"], "VdcCircle");
  EXPECT_EQ(objects["2"]["shown"], true);
  EXPECT_EQ(objects["2"]["fill"], true);
  EXPECT_EQ(objects["2"]["flashing"], true);
  EXPECT_EQ(objects["2"]["scale"], json({0.2f, 0.1f, 0.0}));
  EXPECT_EQ(objects["4"]["points"].size(), 3u);
  EXPECT_EQ(objects["4"]["textureFilename"], "mines.png");
  EXPECT_EQ(objects["5"]["text"], "Blue leader");
  EXPECT_EQ(objects["5"]["layers"], json::array());
  EXPECT_EQ(objects["5"]["attachment"]["typeName"], "VcObjectAttachedToEntityObject");
  EXPECT_EQ(objects["6"]["name"], "Tactical");
  EXPECT_EQ(objects["8"]["values"],
            json({{"1", {{"x", 62.5}, {"y", 0.0}, {"text", ""}, {"set", true}}},
                  {"2", {{"x", 0.0}, {"y", 0.0}, {"text", "blue.bmp"}, {"set", true}}}}));
  EXPECT_EQ(objects["8"]["hiddenAttributes"], json({2}));
  EXPECT_EQ(snapshot["attributeTemplates"]["7"]["1"]["range"], json({0.0, 100.0}));
  EXPECT_EQ(snapshot["attributeTemplates"]["7"]["2"]["name"], "Flag");
  EXPECT_EQ(snapshot["counters"]["unknownTargets"], 1);
  std::string lineHex;
  for (int i = 0; i < line.length(); ++i) {
    char two[3];
    std::snprintf(two, sizeof two, "%02x", line.packet()[i]);
    lineHex += two;
  }
  EXPECT_EQ(objects["1"]["lastPdu"], lineHex);  // the last PDU of the line, byte for byte

  // Removing the layer takes it off its members; removing the template drops its layout.
  s.draw(*std::make_unique<DtVdcCommandPdu>(command(6, DtVdcCommandRemove)));
  s.draw(*std::make_unique<DtVdcCommandPdu>(command(7, DtVdcCommandRemove)));
  const json after = s.snapshot();
  EXPECT_EQ(after["objects"]["1"]["layers"], json::array());
  EXPECT_EQ(after["objects"]["1"]["shown"], true);
  EXPECT_FALSE(after["attributeTemplates"].contains("7"));

  EXPECT_EQ(DtEmulatorPictureSvg(s.emulator.state()).rfind("<svg", 200) != std::string::npos, true);
  EXPECT_EQ(DtEmulatorPicturePng(s.emulator.state()).substr(1, 3), "PNG");
  EXPECT_FALSE(DtWriteEmulatorPicture(s.emulator.state(), "picture.gif"));
}

// The kept image packs runs of zeros: runs at either end, of one byte, of the longest run a count holds and
// of longer ones, and images with no zero or nothing else, all come back byte for byte.
TEST(EmulatorImage, KeepsEveryByteThroughZeroRunsOfAnyLength) {
  std::vector<std::vector<std::uint8_t>> images = {{}, {0}, {7}, {0, 7, 0}, {1, 2, 3}};
  for (const std::size_t run : {254u, 255u, 256u, 510u, 511u, 1000u}) {
    std::vector<std::uint8_t> image(run, 0);
    image.push_back(9);
    image.insert(image.end(), run, 0);
    images.push_back(image);
  }
  std::vector<std::uint8_t> everyByte;
  for (int i = 0; i < 256; ++i) everyByte.push_back(static_cast<std::uint8_t>(i));
  images.push_back(everyByte);
  for (const auto& image : images) {
    const DtEmulatorImage kept(image.data(), image.size());
    EXPECT_EQ(kept.size(), image.size());
    EXPECT_EQ(kept.bytes(), image);
  }
  const std::vector<std::uint8_t> mostlyZeros(408, 0);
  EXPECT_LT(DtEmulatorImage(mostlyZeros.data(), mostlyZeros.size()).packedSize(), 8u);
}

namespace {
void heard(const DtVistralControlPdu& pdu, void* usr) {
  auto* got = static_cast<std::vector<std::unique_ptr<DtVistralControlPdu>>*>(usr);
  got->emplace_back(static_cast<DtVistralControlPdu*>(DtVistralControlPdu::createFromNet(
      reinterpret_cast<const DtNetPduHeader*>(pdu.packet()), nullptr, nullptr)));
}
}  // namespace

TEST(Emulator, AnswersARequestWithTheStatusFormOfItsModeInAnotherFederate) {
  Session s("EmulatorAnswer");
  std::vector<std::unique_ptr<DtVistralControlPdu>> got;
  s.controller.addViewModeChangeCallback(&heard, &got, "vistral-1");
  const DtString tank("1:3001:12"), truck("1:3002:5");
  const float radius = 150;
  s.controller.setOrbitMode(&tank, &radius, nullptr, nullptr, nullptr);
  s.controller.requestCurrentViewMode("vistral-1");
  DtVistralRemoteController other(&s.conn, "vistral-2");  // a request for another viewer goes unanswered
  other.requestCurrentViewMode("vistral-2");
  s.emulator.processIncoming();
  s.conn.processIncoming();
  ASSERT_EQ(got.size(), 1u);
  const auto* orbit = dynamic_cast<const DtOrbitVCPdu*>(got[0].get());
  ASSERT_NE(orbit, nullptr);
  EXPECT_EQ(orbit->viewerCommand(), DtVcOrbitStatus);
  EXPECT_EQ(orbit->senderId(), "vistral-1");
  EXPECT_EQ(orbit->viewerId(), "vistral-1");
  EXPECT_EQ(orbit->attachId(), "1:3001:12");
  EXPECT_EQ(orbit->radius(), 150);
  // What it was never given stays marked to be ignored.
  EXPECT_EQ(orbit->ignoreFlags() & 0xFFFFFFFFUL,
            DtVcIgnore::Heading | DtVcIgnore::Pitch | DtVcIgnore::AzimuthRate |
                DtVcIgnore::GroupHeadingOffset | DtVcIgnore::GroupPitchOffset | DtVcIgnore::Roll);

  // A group report lists the group; the mimic-track report its offset under the position bits.
  const DtGlobalObjectDesignatorList members{"x", "y"};
  const DtVector64 offset(1, 2, 3);
  s.controller.setGroupMode(&members, nullptr, nullptr, nullptr);
  s.emulator.processIncoming();
  auto group = s.emulator.stateReport();
  const auto* g = dynamic_cast<const DtGroupVCPdu*>(group.get());
  ASSERT_NE(g, nullptr);
  EXPECT_EQ(g->viewerCommand(), DtVcGroupStatus);
  ASSERT_EQ(g->numEntitiesToAdd(), 2);
  EXPECT_EQ(g->entityToAdd(1), "y");
  s.controller.setMimicTrackMode(&tank, &truck, &offset);
  s.emulator.processIncoming();
  auto mimicTrack = s.emulator.stateReport();
  EXPECT_EQ(static_cast<DtMimicTrackVCPdu&>(*mimicTrack).offset(), offset);
  EXPECT_EQ(mimicTrack->ignoreFlags() & DtVcIgnore::Position, 0u);
  EXPECT_EQ(s.emulator.state().counters.answered, 1);
}

TEST(Emulator, HostileImagesNeitherCrashItNorTouchOtherObjects) {
  DtVistralEmulator emulator("vistral-1");
  auto keep = drawn<DtVdcTextPdu>(42, DtVdc2DText);
  keep.setText("keep me");
  emulator.apply(keep);
  const std::string before = DtEmulatorSnapshotJson(emulator.state());
  const auto objectOf = [&](const std::string& text) { return json::parse(text)["objects"]["42"]; };

  // An area stating 255 points, a line stating 255 segments on a short image, lists that lie about their
  // counts, a text that states more bytes than it has, and images of no known class.
  auto area = drawn<DtVdcAreaPdu>(1, DtVdc3DArea);
  area.setNumPoints(255);
  DtGroupVCPdu group;
  group.setViewerId("vistral-1");
  group.setIgnoreFlags(0);
  std::vector<unsigned char> image(group.packet(), group.packet() + group.length());
  image[180] = 0x7F;  // remove count
  image[184] = 0x7F;  // add count
  emulator.applyImage(image.data(), image.size());
  emulator.apply(area);
  auto line = drawn<DtVdcLinePdu>(2, DtVdc2DLine);
  line.setNumSegments(255);
  std::vector<unsigned char> lineImage(line.packet(), line.packet() + 420);
  lineImage[8] = 0x01, lineImage[9] = 0xA4;  // states 420 bytes
  emulator.applyImage(lineImage.data(), lineImage.size());
  auto text = drawn<DtVdcTextPdu>(3, DtVdc2DText);
  text.setText("abc");
  std::vector<unsigned char> textImage(text.packet(), text.packet() + text.length());
  textImage[384] = 0xFF;  // text length
  emulator.applyImage(textImage.data(), textImage.size());
  const unsigned char junk[] = {1, 2, 202, 4, 0, 0, 0, 0, 0, 3};
  emulator.applyImage(junk, sizeof junk);
  emulator.applyImage(junk, 0);

  const DtEmulatorState& state = emulator.state();
  EXPECT_EQ(objectOf(DtEmulatorSnapshotJson(state)), objectOf(before));
  EXPECT_EQ(state.objects.at(1).points.size(), 16u);
  EXPECT_EQ(state.objects.at(2).segments.size(), 255u);
  EXPECT_EQ(state.objects.at(3).text.substr(0, 3), "abc");
  EXPECT_TRUE(state.view.group.empty());  // the image holds no entries, whatever the counts say
  EXPECT_FALSE(DtEmulatorPictureSvg(state).empty());
}

TEST(Emulator, RejoinsOnlyAFederationOfItsOwnThatIsLost) {
  DtVistralEmulator alone("vistral-1");
  EXPECT_THROW(alone.rejoin(), DtException);  // joined nothing
  DtExerciseConn conn("EmulatorRejoin", "app");
  DtVistralEmulator onTheApplications(&conn, "vistral-1");
  EXPECT_THROW(onTheApplications.rejoin(), DtException);  // the application's connection is not its to remake
  DtVistralEmulator joined("EmulatorRejoin", "vistral-2");
  EXPECT_THROW(joined.rejoin(), DtException);  // still joined
  EXPECT_NE(joined.connection(), nullptr);
}
