// The remote controller: what goes out for every operation (class, command, fields, ignore flags), the
// send-time addressing, and the callbacks on what comes back.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <typeinfo>
#include <vector>

#include "tarvex/dtMessage.h"
#include "testSupport.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/compassVcPdu.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/mimicVcPdu.h"
#include "vistralcontrol/modelessVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/pivotVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace {
using Controller = DtVistralRemoteController;

// Keeps every PDU the controller hands to its custom sender, re-read as a viewer reads it.
struct CapturingSender : DtCustomRemoteControlSender {
  void sendPdu(const unsigned char* bytes, int length) override {
    images.emplace_back(bytes, bytes + length);
    ReceivedImage img(images.back());
    pdus.emplace_back(static_cast<DtVistralControlPdu*>(
        DtVistralControlPdu::createFromNet(img.header(), nullptr, nullptr)));
  }
  template <class T>
  const T& last() const {
    const auto* pdu = dynamic_cast<const T*>(pdus.back().get());
    if (pdu == nullptr) throw std::runtime_error(std::string("last PDU is not a ") + typeid(T).name());
    return *pdu;
  }
  std::vector<Bytes> images;
  std::vector<std::unique_ptr<DtVistralControlPdu>> pdus;
};

struct Steering : ::testing::Test {
  CapturingSender sender;
  Controller controller{&sender, "viewer-1"};
  Steering() { controller.setControllerId("ctl"); }
  const DtVistralControlPdu& last() const { return *sender.pdus.back(); }
};
}  // namespace

namespace {
// A value placed at an offset of an expected image.
struct Write {
  int offset;
  Bytes value;
};

Bytes text(const std::string& s) { return Bytes(s.begin(), s.end()); }
Bytes f32s(float a, float b, float c) { return concat({be32f(a), be32f(b), be32f(c)}); }
Bytes f64s(double a, double b, double c) { return concat({be64(a), be64(b), be64(c)}); }

// The whole image a controller with ids "viewer-1" and "ctl" sends: header, ids, command and first word, the
// given writes, zero elsewhere.
Bytes expectedImage(int length, int command, std::uint32_t firstWord, const std::vector<Write>& writes) {
  Bytes image(static_cast<std::size_t>(length), 0);
  const auto put = [&](int offset, const Bytes& value) {
    std::copy(value.begin(), value.end(), image.begin() + offset);
  };
  put(0, bytes({6, 1, 202, 129, 0, 0, 0, 0, length >> 8, length & 0xff}));
  put(12, text("viewer-1"));
  put(76, text("ctl"));
  put(146, bytes({command >> 8, command & 0xff}));
  put(152, be32(firstWord));
  for (const Write& w : writes) put(w.offset, w.value);
  return image;
}
}  // namespace

TEST_F(Steering, ModeSettersWriteEveryGivenFieldAndIgnoreTheRest) {
  const DtString tank("tank 1"), truck("truck");
  const DtVector64 v(1, 2, 3);
  const DtTaitBryan o(0.5, 0.25, 0.125);
  const float r = 10, h = 20, p = 30, rate = 4;
  const DtGlobalObjectDesignatorList list{"a", "b"};
  const Bytes v32 = f32s(1, 2, 3), v64 = f64s(1, 2, 3), o32 = f32s(0.5, 0.25, 0.125);
  const Bytes tankId = text("tank 1"), truckId = text("truck"), a = text("a"), b = text("b");
  // Each call sends one PDU: its whole image, ids, command and ignore flags included.
  std::size_t count = 0;
  const auto sent = [&](int length, int command, std::uint32_t flags, const std::vector<Write>& fields) {
    ASSERT_EQ(sender.images.size(), ++count);
    EXPECT_EQ(sender.images.back(), expectedImage(length, command, flags, fields)) << "command " << command;
  };
  controller.setAbsoluteMode(&v, &o);
  sent(196, 0, 0xFFFFFFC0, {{160, v64}, {184, o32}});
  controller.setAbsoluteMode(nullptr, nullptr);
  sent(196, 0, 0xFFFFFFFF, {});
  controller.setTetherMode(&tank, &v, &o);
  sent(308, 1, 0xFFEFFE07, {{156, v32}, {168, o32}, {180, tankId}});
  controller.setCompassMode(&tank, &r, &h, &p);
  sent(308, 2, 0xFFEFF9EF, {{156, be32f(10)}, {160, be32f(20)}, {164, be32f(30)}, {180, tankId}});
  controller.setMimicMode(&tank, &v);
  sent(308, 3, 0xFFEF1FFF, {{156, v32}, {180, tankId}});
  controller.setTurretMode(&truck, &v);
  sent(308, 4, 0xFFEF1FFF, {{156, v32}, {180, truckId}});
  controller.setOrbitMode(&tank, &r, &h, &p, &rate);
  sent(312, 5, 0xFFEBFDE7,
       {{156, be32f(10)}, {160, be32f(4)}, {164, be32f(20)}, {168, be32f(30)}, {184, tankId}});
  controller.setTrackMode(&truck, &v);
  sent(312, 6, 0xFFEFFFF8, {{160, v64}, {184, truckId}});
  controller.setTetherTrackMode(&tank, &truck, &v);
  sent(424, 7, 0xFFCF1FFF, {{156, v32}, {168, tankId}, {232, truckId}});
  controller.setMimicTrackMode(&tank, &truck, &v);
  sent(424, 8, 0xFFCFFFF8, {{156, v32}, {168, tankId}, {232, truckId}});
  controller.setPivotMode(&v, &r, &h, &p);
  sent(204, 12, 0xFFFFF9E8, {{156, be32f(10)}, {160, be32f(20)}, {164, be32f(30)}, {180, v64}});
  controller.set(&v, &o);
  sent(208, 13, 0xFFFFFFC0, {{160, v64}, {184, f64s(0.5, 0.25, 0.125)}});
  controller.set(nullptr, &o);
  sent(208, 13, 0xFFFFFFC7, {{184, f64s(0.5, 0.25, 0.125)}});
  controller.moveEyepoint(Controller::BACKWARDS);
  sent(208, 13, 0xFEFFFFFF, {{157, {5}}});
  controller.turnEyepoint(Controller::UP);
  sent(208, 13, 0xFEFFFFFF, {{156, {2}}});
  controller.reset();
  sent(208, 13, 0xFFFFFFFF, {{158, {1}}});
  // Group mode: radial, heading, pitch, command, then the lists (-1 removes: replace the whole group).
  controller.setWideGroupMode(&list, &r, &h, &p);
  sent(188 + 128, 9, 0xFFF7E7FF,
       {{156, be32f(10)},
        {168, be32f(20)},
        {172, be32f(30)},
        {176, be32(1)},
        {180, be32(0xFFFFFFFF)},
        {184, be32(2)},
        {188, a},
        {252, b}});
  controller.setGroupMode(nullptr, &r, nullptr, &p);
  sent(188, 9, 0xFFF7EFFF, {{156, be32f(10)}, {172, be32f(30)}});
  // Modeless: primary, secondary, remove and add counts, then the entries.
  controller.setPrimary(tank);
  sent(292, 10, 0x600000, {{156, tankId}});
  controller.setSecondary(truck);
  sent(292, 10, 0x500000, {{220, truckId}});
  controller.setPrimarySecondary(tank, truck);
  sent(292, 10, 0x400000, {{156, tankId}, {220, truckId}});
  controller.setGroup(list);
  sent(292 + 128, 10, 0x300000, {{284, be32(0xFFFFFFFF)}, {288, be32(2)}, {292, a}, {356, b}});
  controller.setGroup(DtGlobalObjectDesignatorList());
  sent(292, 10, 0x300000, {{284, be32(0xFFFFFFFF)}});
  controller.addToGroup(list);
  sent(292 + 128, 10, 0x300000, {{288, be32(2)}, {292, a}, {356, b}});
  controller.removeFromGroup(list);
  sent(292 + 128, 10, 0x300000, {{284, be32(2)}, {292, a}, {356, b}});
}

TEST_F(Steering, EveryOptionOperationSetsOneBitAndWritesItsValueInItsPlace) {
  struct Case {
    std::function<void()> call;
    std::vector<int> bits;
    std::vector<Write> values;
  };
  const Bytes on{1};
  const Case cases[] = {
      {[&] { controller.setOverlayEnabled(true); }, {0}, {{240, be32(1)}}},
      {[&] { controller.setSmoothing(DtSmoothingCubic); }, {2}, {{244, be32(2)}}},
      {[&] { controller.setSmoothingPeriod(0.75); }, {3}, {{168, be64(0.75)}}},
      {[&] { controller.setSoundEnabled(true); }, {4}, {{256, on}}},
      {[&] { controller.setEntityLabelsEnabled(true); }, {5}, {{257, on}}},
      {[&] { controller.setTrailingEffectsEnabled(true); }, {6}, {{258, on}}},
      {[&] { controller.setTrajectoryHistoriesEnabled(true); }, {7}, {{259, on}}},
      {[&] { controller.setAggregateLevel(3); }, {9}, {{248, be32(3)}}},
      {[&] { controller.setAggregateHighestOnly(true); }, {10}, {{261, on}}},
      {[&] { controller.setGroundClampingEnabled(true); }, {14}, {{265, on}}},
      {[&] { controller.setGroundClampRange(500); }, {15}, {{176, be64(500)}}},
      {[&] { controller.setConstrainWithFloor(true); }, {17}, {{267, on}}},
      {[&] { controller.setFloor(-12.5); }, {18}, {{184, be64(-12.5)}}},
      {[&] { controller.setTimeOfDay(13.5); }, {19}, {{192, be64(13.5)}}},
      {[&] { controller.setNearClippingPlane(0.25); }, {20}, {{200, be64(0.25)}}},
      {[&] { controller.setFarClippingPlane(9000); }, {21}, {{208, be64(9000)}}},
      {[&] { controller.setVerticalFieldOfView(45); }, {22}, {{216, be64(45)}}},
      {[&] { controller.setFogEnabled(true); }, {23}, {{268, on}}},
      {[&] { controller.setDatabaseToLoad("terrain.db"); }, {27}, {{272, text("terrain.db")}}},
      {[&] { controller.setStepsize(2.5f); }, {28}, {{596, be32f(2.5f)}}},
      {[&] { controller.setTurnrate(1.5f); }, {29}, {{592, be32f(1.5f)}}},
      {[&] { controller.setDate("2024-05-01"); }, {30}, {{528, text("2024-05-01")}}},
      {[&] { controller.increaseStepsize(); }, {31}, {}},
      {[&] { controller.increaseTurnrate(); }, {32}, {}},
      {[&] { controller.decreaseStepsize(); }, {33}, {}},
      {[&] { controller.decreaseTurnrate(); }, {34}, {}},
      {[&] { controller.setXr(true); }, {35}, {{254, on}}},
      {[&] { controller.setHatLabels(true); }, {36}, {{255, on}}},
      {[&] { controller.setNextModelSet(); }, {37}, {}},
      {[&] { controller.setPrevModelSet(); }, {38}, {}},
      {[&] { controller.setCurrentModelSet("models-b"); }, {39}, {{600, text("models-b")}}},
      {[&] { controller.setPrevTextureSet(); }, {40}, {}},
      {[&] { controller.setNextTextureSet(); }, {41}, {}},
      {[&] { controller.setCurrentTextureSet("winter"); }, {42}, {{632, text("winter")}}},
      {[&] { controller.setTerrainScale(2); }, {43}, {{664, be32f(2)}}},
      {[&] { controller.setObjectScale(1.5); }, {44}, {{668, be32f(1.5)}}},
      {[&] { controller.setClouds(true); }, {45}, {{673, on}}},
      {[&] { controller.setSkyDome(true); }, {46}, {{672, on}}},
      {[&] { controller.exit(); }, {47}, {}},
      {[&] { controller.setMirroring(true); }, {48}, {{674, on}}},
      {[&] { controller.setMirrorMessageEveryFrame(true); }, {49}, {{675, on}}},
      {[&] { controller.setBroadcasting(true); }, {49}, {{676, on}}},  // the bit they share
      {[&] { controller.setClusteringLabels(true); }, {50}, {{677, on}}},
      {[&] { controller.setTacticalGraphicsLabels(true); }, {51}, {{678, on}}},
      {[&] { controller.setShowAggregates(true); }, {53}, {{680, on}}},
      {[&] { controller.setShowEmitters(true); }, {54}, {{681, on}}},
      {[&] { controller.stopVideoRecording(); }, {55}, {{682, {0}}}},
      {[&] { controller.pauseVideoRecording(); }, {55}, {{682, {1}}}},
      {[&] { controller.unpauseVideoRecording(); }, {55}, {{682, {2}}}},
      {[&] { controller.startVideoRecording(); }, {55}, {{682, {3}}}},
      {[&] { controller.startVideoRecording("take1.mp4"); },
       {55, 56},
       {{682, {3}}, {688, text("take1.mp4")}}},
      {[&] { controller.setVideoCaptureDirectory("/captures"); }, {57}, {{944, text("/captures")}}},
      {[&] { controller.setVideoCaptureFilenameBase("take"); }, {58}, {{1200, text("take")}}},
      {[&] { controller.setVideoCaptureRecordInsets(true); }, {59}, {{683, on}}},
      {[&] { controller.setVideoCaptureFramesPerSecond(30); }, {60}, {{684, bytes({0, 30})}}},
      {[&] { controller.setConstrainViewToAll(true); }, {61}, {{1272, on}}},
      {[&] { controller.setBlockedDistance(80); }, {62}, {{1264, be64(80)}}},
      {[&] { controller.setUseNearClipForBlockedDistance(true); }, {63}, {{1273, on}}},
      {[&] { controller.loadFeatures("roads.shp"); }, {64, 66}, {{1282, text("roads.shp")}, {1538, {0}}}},
      {[&] { controller.clearFeatures(); }, {66}, {{1538, {1}}}},
  };
  int row = 0;
  for (const Case& c : cases) {
    c.call();
    // The presence bits, least significant first: the first bitfield is the first word at 152, options from
    // 64 on are in the second bitfield at 1274.
    Bytes first(8, 0), second(8, 0);
    for (int bit : c.bits)
      (bit < 64 ? first : second)[static_cast<std::size_t>(bit % 64 / 8)] |=
          static_cast<std::uint8_t>(1u << (bit % 8));
    std::vector<Write> writes = c.values;
    writes.push_back(Write{152, first});
    writes.push_back(Write{1274, second});
    EXPECT_EQ(sender.images.back(), expectedImage(1539, 11, 0, writes)) << "row " << row;
    ++row;
  }
  EXPECT_EQ(row, 60);
}

TEST_F(Steering, SetModeRequestsAndAddressing) {
  controller.set(nullptr, nullptr);
  EXPECT_TRUE(sender.pdus.empty());

  controller.setMode(DtVcOrbit, nullptr, nullptr);
  ASSERT_EQ(sender.pdus.size(), 1u);
  EXPECT_EQ(last().viewerCommand(), DtVcOrbit);
  EXPECT_EQ(last().ignoreFlags() & 0xFFFFFFFFUL, 0xFFFFFFFFUL);

  std::ostringstream dump;
  const DtVector64 where(7, 8, 9);
  {
    DtStreamRedirect redirect(DtDumpStream, dump);
    controller.setMode(DtVcOffsetMimic, &where, nullptr);
  }
  EXPECT_EQ(dump.str(), dumpLine("Cannot change mode to ", "VcOffsetMimic (4)"));
  ASSERT_EQ(sender.pdus.size(), 2u);  // no mode PDU, but the move PDU
  EXPECT_EQ(sender.last<DtMoveVCPdu>().position(), where);

  controller.requestCurrentViewMode("other");
  EXPECT_EQ(typeid(last()), typeid(DtRequestStateVCPdu));
  EXPECT_EQ(last().viewerId(), "viewer-1");
  EXPECT_EQ(sender.images.back().size(), 152u);

  DtAbsoluteVCPdu mine;
  mine.setViewerId("keep-viewer");
  mine.setSenderId("keep-sender");
  controller.send(mine);
  EXPECT_EQ(last().viewerId(), "viewer-1");
  EXPECT_EQ(mine.viewerId(), "keep-viewer");
  EXPECT_EQ(mine.senderId(), "keep-sender");
  DtAbsoluteVCPdu cut;  // an image that ends inside the sender id: its ids are put back all the same
  cut.setViewerId("keep-viewer");
  ASSERT_TRUE(cut.changeSize(100));
  controller.send(cut);
  EXPECT_EQ(last().viewerId(), "viewer-1");
  EXPECT_EQ(cut.viewerId(), "keep-viewer");
}

namespace {
struct Heard {
  std::vector<std::string> calls;
  static void cb(const DtVistralControlPdu& pdu, void* usr) {
    static_cast<Heard*>(usr)->calls.push_back(pdu.viewerId().str());
  }
};

DtVistralControlInteraction reportFrom(const char* viewer, const char* sender) {
  DtOrbitVCPdu pdu;
  pdu.setStatusCommand(true);
  pdu.setViewerId(viewer);
  pdu.setSenderId(sender);
  DtVistralControlInteraction inter;
  inter.setVcPdu(pdu);
  return inter;
}
}  // namespace

TEST_F(Steering, CallbacksByViewerNameAndOwnCommandFilter) {
  Heard all, a, again;
  controller.addViewModeChangeCallback(&Heard::cb, &all, Controller::SEND_TO_ALL);
  controller.addViewModeChangeCallback(&Heard::cb, &a, "viewerA");
  controller.addViewModeChangeCallback(&Heard::cb, &a, "viewerA");  // twice: called twice
  controller.addViewModeChangeCallback(&Heard::cb, &again, "viewerB");

  auto fromA = reportFrom("viewerA", "someone");
  auto fromB = reportFrom("viewerB", "someone");
  auto own = reportFrom("viewerA", "ctl");
  controller.processVistralControl(&fromA);
  controller.processVistralControl(&fromB);
  controller.processVistralControl(&own);  // our own command heard back: dropped
  EXPECT_EQ(all.calls, (std::vector<std::string>{"viewerA", "viewerB"}));
  EXPECT_EQ(a.calls, (std::vector<std::string>{"viewerA", "viewerA"}));
  EXPECT_EQ(again.calls, (std::vector<std::string>{"viewerB"}));

  controller.setIgnoreCommandsSentFromUs(false);
  controller.processVistralControl(&own);
  EXPECT_EQ(all.calls.size(), 3u);

  controller.removeViewModeChangeCallback(&Heard::cb, &all, "viewerA");    // another viewer name: nothing
  controller.removeViewModeChangeCallback(&Heard::cb, &again, "viewerA");  // another user pointer: nothing
  controller.removeViewModeChangeCallback(&Heard::cb, &a, "viewerA");      // both registrations
  controller.processVistralControl(&fromA);
  EXPECT_EQ(a.calls.size(), 4u);  // two from our own report, none after the removal
  EXPECT_EQ(all.calls.size(), 4u);

  DtVistralControlInteraction empty;
  controller.processVistralControl(&empty);  // nothing decoded: nothing called
  EXPECT_EQ(all.calls.size(), 4u);
}

namespace {
// A callback that removes itself (every entry it has) while the list is being walked.
struct SelfRemoving {
  Controller* controller;
  int calls = 0;
  static void cb(const DtVistralControlPdu&, void* usr) {
    auto* self = static_cast<SelfRemoving*>(usr);
    ++self->calls;
    self->controller->removeViewModeChangeCallback(&SelfRemoving::cb, self, Controller::SEND_TO_ALL);
  }
};
}  // namespace

TEST_F(Steering, CallbacksMayRemoveThemselvesDuringTheWalk) {
  SelfRemoving first{&controller}, second{&controller};
  controller.addViewModeChangeCallback(&SelfRemoving::cb, &first, Controller::SEND_TO_ALL);
  controller.addViewModeChangeCallback(&SelfRemoving::cb, &second, Controller::SEND_TO_ALL);
  controller.addViewModeChangeCallback(&SelfRemoving::cb, &first, Controller::SEND_TO_ALL);
  auto report = reportFrom("viewerA", "someone");
  controller.processVistralControl(&report);
  EXPECT_EQ(first.calls, 1);  // its second entry went with the first removal
  EXPECT_EQ(second.calls, 1);
  controller.processVistralControl(&report);
  EXPECT_EQ(first.calls + second.calls, 2);
}
