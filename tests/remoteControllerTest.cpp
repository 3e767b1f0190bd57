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

TEST_F(Steering, ViewModesFillWhatIsGivenAndIgnoreTheRest) {
  const DtString tank("tank 1"), truck("truck"), other("other");
  const DtVector64 v(1, 2, 3);
  const DtTaitBryan o(0.5, 0.25, 0.125);
  const float r = 10, h = 20, p = 30, rate = 4;

  struct Case {
    std::function<void()> call;
    int command;
    unsigned long flags;
  };
  const Case cases[] = {
      {[&] { controller.setAbsoluteMode(&v, &o); }, 0, 0xFFFFFFC0},
      {[&] { controller.setAbsoluteMode(nullptr, nullptr); }, 0, 0xFFFFFFFF},
      {[&] { controller.setTetherMode(&tank, &v, &o); }, 1, 0xFFEFFE07},
      {[&] { controller.setCompassMode(&tank, &r, &h, &p); }, 2, 0xFFEFF9EF},
      {[&] { controller.setMimicMode(&tank, &v); }, 3, 0xFFEF1FFF},
      {[&] { controller.setTurretMode(&tank, &v); }, 4, 0xFFEF1FFF},
      {[&] { controller.setOrbitMode(&tank, &r, &h, &p, &rate); }, 5, 0xFFEBFDE7},
      {[&] { controller.setTrackMode(&truck, &v); }, 6, 0xFFEFFFF8},
      {[&] { controller.setTetherTrackMode(&tank, &truck, &v); }, 7, 0xFFCF1FFF},
      {[&] { controller.setMimicTrackMode(&tank, &truck, &v); }, 8, 0xFFCFFFF8},
      {[&] { controller.setPivotMode(&v, &r, &h, &p); }, 12, 0xFFFFF9E8},
      {[&] { controller.set(&v, &o); }, 13, 0xFFFFFFC0},
      {[&] { controller.set(nullptr, &o); }, 13, 0xFFFFFFC7},
      {[&] { controller.reset(); }, 13, 0xFFFFFFFF},
      {[&] { controller.moveEyepoint(Controller::BACKWARDS); }, 13, 0xFEFFFFFF},
      {[&] { controller.turnEyepoint(Controller::UP); }, 13, 0xFEFFFFFF},
      {[&] { controller.setPrimary(tank); }, 10, 0x600000},
      {[&] { controller.setSecondary(truck); }, 10, 0x500000},
      {[&] { controller.setPrimarySecondary(tank, truck); }, 10, 0x400000},
      {[&] { controller.setGroupMode(nullptr, &r, nullptr, &p); }, 9, 0xFFF7EFFF},
  };
  for (const Case& c : cases) {
    const std::size_t before = sender.pdus.size();
    c.call();
    ASSERT_EQ(sender.pdus.size(), before + 1);
    EXPECT_EQ(last().viewerCommand(), c.command);
    EXPECT_EQ(last().ignoreFlags() & 0xFFFFFFFFUL, c.flags) << "command " << c.command;
    EXPECT_EQ(last().viewerId(), "viewer-1");
    EXPECT_EQ(last().senderId(), "ctl");
  }

  // Field contents of a few that carry everything.
  controller.setOrbitMode(&tank, &r, &h, &p, &rate);
  const auto& orbit = sender.last<DtOrbitVCPdu>();
  EXPECT_EQ(orbit.attachId(), "tank 1");
  EXPECT_EQ(orbit.radius(), 10);
  EXPECT_EQ(orbit.heading(), 20);
  EXPECT_EQ(orbit.pitch(), 30);
  EXPECT_EQ(orbit.azimuthRate(), 4);
  controller.setMimicTrackMode(&tank, &truck, &v);
  const auto& mimicTrack = sender.last<DtMimicTrackVCPdu>();
  EXPECT_EQ(mimicTrack.offset(), v);
  const DtString attach = mimicTrack.attachId();
  EXPECT_EQ(attach, "tank 1");
  EXPECT_EQ(mimicTrack.trackId(), "truck");
  controller.moveEyepoint(Controller::BACKWARDS);
  EXPECT_EQ(sender.last<DtMoveVCPdu>().move(), DtMoveVCPdu::BACKWARDS);
  controller.turnEyepoint(Controller::UP);
  EXPECT_EQ(sender.last<DtMoveVCPdu>().turn(), DtMoveVCPdu::UP);
  controller.reset();
  EXPECT_TRUE(sender.last<DtMoveVCPdu>().reset());
  controller.setPrimarySecondary(tank, truck);
  const auto& modeless = sender.last<DtModelessVCPdu>();
  const DtString primary = modeless.primary();
  EXPECT_EQ(primary, "tank 1");
  EXPECT_EQ(modeless.secondary(), "truck");
}

TEST_F(Steering, GroupListsAndGroupModes) {
  const DtGlobalObjectDesignatorList list{"a", "b"};
  controller.setGroup(list);
  const auto& set = sender.last<DtModelessVCPdu>();
  EXPECT_EQ(set.numEntitiesToRemove(), -1);
  EXPECT_EQ(set.numEntitiesToAdd(), 2);
  EXPECT_EQ(set.entityToAdd(1), "b");
  EXPECT_EQ(set.ignoreFlags(), 0x300000UL);
  EXPECT_EQ(set.length(), 292 + 2 * 64);

  controller.setGroup(DtGlobalObjectDesignatorList());
  EXPECT_EQ(sender.last<DtModelessVCPdu>().numEntitiesToAdd(), 0);
  EXPECT_EQ(sender.last<DtModelessVCPdu>().numEntitiesToRemove(), -1);
  controller.addToGroup(list);
  EXPECT_EQ(sender.last<DtModelessVCPdu>().numEntitiesToRemove(), 0);
  controller.removeFromGroup(list);
  const auto& removed = sender.last<DtModelessVCPdu>();
  EXPECT_EQ(removed.numEntitiesToRemove(), 2);
  EXPECT_EQ(removed.numEntitiesToAdd(), 0);
  EXPECT_EQ(removed.entityToRemove(0), "a");

  const float radial = 5, heading = 6, pitch = 7;
  controller.setWideGroupMode(&list, &radial, &heading, &pitch);
  const auto& wide = sender.last<DtGroupVCPdu>();
  EXPECT_EQ(wide.groupCmd(), 1);
  EXPECT_EQ(wide.ignoreFlags() & 0xFFFFFFFFUL, 0xFFF7E7FFUL);
  EXPECT_EQ(wide.numEntitiesToAdd(), 2);
  EXPECT_EQ(wide.numEntitiesToRemove(), -1);
  EXPECT_EQ(wide.radialOffset(), 5);
  EXPECT_EQ(wide.headingOffset(), 6);
  EXPECT_EQ(wide.pitchOffset(), 7);
  controller.setGroupMode(nullptr, nullptr, nullptr, nullptr);
  EXPECT_EQ(sender.last<DtGroupVCPdu>().groupCmd(), 0);
  EXPECT_EQ(sender.last<DtGroupVCPdu>().numEntitiesToRemove(), 0);
  EXPECT_EQ(sender.last<DtGroupVCPdu>().length(), 188);
}

TEST_F(Steering, EveryOptionGoesOutAloneWithItsValue) {
  struct Case {
    std::function<void()> call;
    DtVistralOption option;
    std::function<bool(const DtOptionsPdu&)> value;
  };
  const Case cases[] = {
      {[&] { controller.setStepsize(2.5f); }, DtOptionsPdu::DtVistralStepsize,
       [](const DtOptionsPdu& p) { return p.stepsize() == 2.5f; }},
      {[&] { controller.setTurnrate(1.5f); }, DtOptionsPdu::DtVistralTurnrate,
       [](const DtOptionsPdu& p) { return p.turnrate() == 1.5f; }},
      {[&] { controller.increaseStepsize(); }, DtOptionsPdu::DtVistralIncStepsize, nullptr},
      {[&] { controller.decreaseTurnrate(); }, DtOptionsPdu::DtVistralDecTurnrate, nullptr},
      {[&] { controller.setSoundEnabled(false); }, DtVistralSound,
       [](const DtOptionsPdu& p) { return !p.sound(); }},
      {[&] { controller.setVerticalFieldOfView(45); }, DtVistralFov,
       [](const DtOptionsPdu& p) { return p.fov() == 45; }},
      {[&] { controller.setDatabaseToLoad("terrain.db"); }, DtVistralDatabaseToLoad,
       [](const DtOptionsPdu& p) { return p.databaseToLoad() == "terrain.db"; }},
      {[&] { controller.exit(); }, DtOptionsPdu::DtVistralExit, nullptr},
      {[&] { controller.setPrevModelSet(); }, DtOptionsPdu::DtVistralPrevModelSet, nullptr},
      {[&] { controller.setTerrainScale(2); }, DtOptionsPdu::DtVistralTerrainScale,
       [](const DtOptionsPdu& p) { return p.terrainScale() == 2; }},
      {[&] { controller.pauseVideoRecording(); }, DtOptionsPdu::DtVistralVideoCaptureCommand,
       [](const DtOptionsPdu& p) { return p.videoCaptureCommand() == 1; }},
      {[&] { controller.setVideoCaptureFramesPerSecond(30); },
       DtOptionsPdu::DtVistralVideoCaptureFramesPerSecond,
       [](const DtOptionsPdu& p) { return p.videoCaptureFramesPerSecond() == 30; }},
      {[&] { controller.setConstrainViewToAll(true); }, DtOptionsPdu::DtVistralConstrainToAll,
       [](const DtOptionsPdu& p) { return p.constrainedToAll(); }},
      {[&] { controller.clearFeatures(); }, DtOptionsPdu::DtVistralFeatureCommand,
       [](const DtOptionsPdu& p) { return p.featureCommand() == 1; }},
  };
  for (const Case& c : cases) {
    c.call();
    const auto& options = sender.last<DtOptionsPdu>();
    EXPECT_EQ(options.length(), 1539);
    int present = 0;
    for (int bit = 0; bit < 67; ++bit) present += options.optionPresent(static_cast<DtVistralOption>(bit));
    EXPECT_EQ(present, 1) << "option " << c.option;
    EXPECT_TRUE(options.optionPresent(c.option)) << "option " << c.option;
    if (c.value) {
      EXPECT_TRUE(c.value(options)) << "option " << c.option;
    }
  }
  controller.startVideoRecording("take1.mp4");
  EXPECT_EQ(sender.last<DtOptionsPdu>().videoCaptureCommand(), 3);
  EXPECT_EQ(sender.last<DtOptionsPdu>().videoCaptureFilename(), "take1.mp4");
  controller.loadFeatures("roads.shp");
  EXPECT_EQ(sender.last<DtOptionsPdu>().featureCommand(), 0);
  EXPECT_EQ(sender.last<DtOptionsPdu>().featureFilename(), "roads.shp");
  controller.setMirroring(true);  // a neighbour of the shared bit
  EXPECT_FALSE(sender.last<DtOptionsPdu>().optionPresent(DtOptionsPdu::DtVistralBroadcasting));
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
