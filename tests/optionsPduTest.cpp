// The viewer options PDU: every option at its offset with its presence bit, the shared bit, older short PDUs,
// actions, the hex text form and the dump.
#include <gtest/gtest.h>

#include <functional>

#include "tarvex/dtViewerOptions.h"
#include "vcTestSupport.h"
#include "vistralcontrol/optionsPdu.h"

namespace {
using O = DtOptionsPdu;

struct OptionCase {
  int bit;
  int offset;  // -1: an action, no value
  Bytes value;
  std::function<void(DtOptionsPdu&)> set;
};

// Written from the table of the options image: option number, value offset, value bytes.
std::vector<OptionCase> everyOption() {
  const Bytes on = bytes({1});
  return {
      {0, 240, bytes({0, 0, 0, 2}), [](O& p) { p.setOverlay(DtOverlayFull); }},
      {1, 160, be64(1500.5), [](O& p) { p.setLocatorRange(1500.5); }},
      {2, 244, bytes({0, 0, 0, 1}), [](O& p) { p.setSmoothing(DtSmoothingLinear); }},
      {3, 168, be64(0.25), [](O& p) { p.setSmoothingPeriod(0.25); }},
      {4, 256, bytes({0}), [](O& p) { p.setSound(false); }},  // present whatever the value
      {5, 257, on, [](O& p) { p.setEntityLabels(true); }},
      {6, 258, on, [](O& p) { p.setTrailingEffects(true); }},
      {7, 259, on, [](O& p) { p.setTrajectoryHistory(true); }},
      {8, 260, on, [](O& p) { p.setRecording(true); }},
      {9, 248, bytes({1, 2, 3, 4}), [](O& p) { p.setAggregateLevel(0x01020304); }},
      {10, 261, on, [](O& p) { p.setAggregateHighestOnly(true); }},
      {11, 262, on, [](O& p) { p.setAggregatesAltitudeControlled(true); }},
      {12, 263, on, [](O& p) { p.setNestedAggregates(true); }},
      {13, 264, on, [](O& p) { p.setNestedEntities(true); }},
      {14, 265, on, [](O& p) { p.setGroundClamping(true); }},
      {15, 176, be64(12.5), [](O& p) { p.setClampRange(12.5); }},
      {16, 266, on, [](O& p) { p.setFollowGround(true); }},
      {17, 267, on, [](O& p) { p.setConstrainWithFloor(true); }},
      {18, 184, be64(-3), [](O& p) { p.setFloor(-3); }},
      {19, 192, be64(13.75), [](O& p) { p.setTimeOfDay(13.75); }},
      {20, 200, be64(0.5), [](O& p) { p.setNearClip(0.5); }},
      {21, 208, be64(90000), [](O& p) { p.setFarClip(90000); }},
      {22, 216, be64(60), [](O& p) { p.setFov(60); }},
      {23, 268, on, [](O& p) { p.setFog(true); }},
      {24, 224, be64(100), [](O& p) { p.setNearFog(100); }},
      {25, 232, be64(5000), [](O& p) { p.setFarFog(5000); }},
      {26, 269, on, [](O& p) { p.setTexture(true); }},
      {27, 272, textField("terrain/db 1", 256), [](O& p) { p.setDatabaseToLoad("terrain/db 1"); }},
      {28, 596, be32f(2.5f), [](O& p) { p.setStepsize(2.5f); }},
      {29, 592, be32f(0.75f), [](O& p) { p.setTurnrate(0.75f); }},
      {30, 528, textField("2026-11-22", 64), [](O& p) { p.setDate("2026-11-22"); }},
      {31, -1, {}, [](O& p) { p.setIncrementStepsize(true); }},
      {32, -1, {}, [](O& p) { p.setIncrementTurnrate(true); }},
      {33, -1, {}, [](O& p) { p.setDecrementStepsize(true); }},
      {34, -1, {}, [](O& p) { p.setDecrementTurnrate(true); }},
      {35, 254, on, [](O& p) { p.setXREnabled(true); }},
      {36, 255, on, [](O& p) { p.setHATenabled(true); }},
      {37, -1, {}, [](O& p) { p.setShowNextModelSet(true); }},
      {38, -1, {}, [](O& p) { p.setShowPrevModelSet(true); }},
      {39, 600, textField("models", 32), [](O& p) { p.setCurrentModelSet("models"); }},
      {40, -1, {}, [](O& p) { p.setShowPrevTextureSet(true); }},
      {41, -1, {}, [](O& p) { p.setShowNextTextureSet(true); }},
      {42, 632, textField("textures", 32), [](O& p) { p.setCurrentTextureSet("textures"); }},
      {43, 664, be32f(0.1f), [](O& p) { p.setTerrainScale(0.1); }},
      {44, 668, be32f(2), [](O& p) { p.setObjectScale(2); }},
      {45, 673, on, [](O& p) { p.setClouds(true); }},
      {46, 672, on, [](O& p) { p.setSkyDome(true); }},
      {47, -1, {}, [](O& p) { p.setExit(true); }},
      {48, 674, on, [](O& p) { p.setMirroring(true); }},
      {49, 675, on, [](O& p) { p.setMirrorMessageEveryFrame(true); }},
      {49, 676, on, [](O& p) { p.setBroadcasting(true); }},
      {50, 677, on, [](O& p) { p.setClusteringLabels(true); }},
      {51, 678, on, [](O& p) { p.setTacticalGraphicsLabels(true); }},
      {52, 679, on, [](O& p) { p.setTacticalGraphics(true); }},
      {53, 680, on, [](O& p) { p.setShowAggregates(true); }},
      {54, 681, on, [](O& p) { p.setShowEmitters(true); }},
      {55, 682, bytes({3}), [](O& p) { p.setVideoCaptureCommand(DtVistralControlVideoCaptureRecord); }},
      {56, 688, textField("clip.avi", 256), [](O& p) { p.setVideoCaptureFilename("clip.avi"); }},
      {57, 944, textField("/tmp/video", 256), [](O& p) { p.setVideoCaptureDirectory("/tmp/video"); }},
      {58, 1200, textField("take", 64), [](O& p) { p.setVideoCaptureFilenameBase("take"); }},
      {59, 683, on, [](O& p) { p.setVideoCaptureRecordInsets(true); }},
      {60, 684, bytes({0x12, 0x34}), [](O& p) { p.setVideoCaptureFramesPerSecond(0x11234); }},  // 16 bits
      {61, 1272, on, [](O& p) { p.setConstrainToAll(true); }},
      {62, 1264, be64(250), [](O& p) { p.setBlockedDistance(250); }},
      {63, 1273, on, [](O& p) { p.setUseNearClipForBlockedDistance(true); }},
      {64, 1282, textField("features.xml", 256), [](O& p) { p.setFeatureFilename("features.xml"); }},
      {66, 1538, bytes({1}), [](O& p) { p.setFeatureCommand(DtVistralControlFeatureClear); }},
  };
}
}  // namespace

TEST(Options, EveryOptionAtItsOffsetWithItsPresenceBit) {
  const DtOptionsPdu empty;
  ASSERT_EQ(empty.length(), 1539);
  EXPECT_EQ(bytesAt(empty.packet(), 146, 2), bytes({0, 11}));
  const auto cases = everyOption();
  ASSERT_EQ(cases.size(), 67u);
  for (const OptionCase& c : cases) {
    DtOptionsPdu pdu;
    c.set(pdu);
    Bytes expected = imageOf(empty);
    if (c.offset >= 0) std::copy(c.value.begin(), c.value.end(), expected.begin() + c.offset);
    const int byte = c.bit < 64 ? 152 + c.bit / 8 : 1274 + (c.bit - 64) / 8;
    expected[static_cast<std::size_t>(byte)] = static_cast<std::uint8_t>(1 << (c.bit % 8));
    EXPECT_EQ(imageOf(pdu), expected) << "option " << c.bit << " at " << c.offset;
    EXPECT_TRUE(pdu.optionPresent(static_cast<DtVistralOption>(c.bit)));
  }
}

TEST(Options, SharedBitActionsAndOlderShortPdus) {
  DtOptionsPdu pdu;
  pdu.setBroadcasting(true);
  EXPECT_TRUE(pdu.optionPresent(O::DtVistralMirrorMessageEveryFrame));
  EXPECT_FALSE(pdu.mirrorMessageEveryFrame());  // its value field is untouched

  pdu.setExit(true);
  EXPECT_TRUE(pdu.exit());
  pdu.setExit(false);
  EXPECT_FALSE(pdu.exit());
  EXPECT_FALSE(pdu.optionPresent(O::DtVistralExit));
  pdu.setOptionPresent(static_cast<DtVistralOption>(-1));  // no such bit: ignored
  pdu.setOptionPresent(static_cast<DtVistralOption>(128));
  EXPECT_FALSE(pdu.optionPresent(static_cast<DtVistralOption>(128)));

  // A received PDU of 1274 bytes or less has no second bitfield.
  DtOptionsPdu full;
  full.setFeatureFilename("f");
  for (int length : {1274, 1000}) {
    DtOptionsPdu older = withLength(full, length);
    EXPECT_FALSE(older.optionPresent(O::DtVistralFeatureFilename)) << length;
    older.setFeatureCommand(DtVistralControlFeatureLoad);
    EXPECT_FALSE(older.optionPresent(O::DtVistralFeatureCommand));
    EXPECT_EQ(older.length(), length);
    EXPECT_EQ(
        older.string(),
        std::string(full.string()).substr(0, 2 * length).replace(16, 4, length == 1274 ? "04fa" : "03e8"));
  }
  DtOptionsPdu justLonger = withLength(full, 1275);
  EXPECT_TRUE(justLonger.optionPresent(O::DtVistralFeatureFilename));
}

TEST(Options, TextsAreCutToTheirFields) {
  DtOptionsPdu pdu;
  pdu.setDate("d");
  pdu.setDatabaseToLoad(std::string(300, 'x'));
  EXPECT_EQ(bytesAt(pdu.packet(), 272, 257), concat({Bytes(256, 'x'), bytes({'d'})}));  // no terminator
  EXPECT_EQ(pdu.databaseToLoad(), std::string(256, 'x'));  // read no further than the field
  pdu.setCurrentModelSet(std::string(40, 'm'));
  EXPECT_EQ(pdu.currentModelSet(), std::string(32, 'm'));
  EXPECT_EQ(pdu.currentTextureSet(), "");
}

TEST(Options, HexTextForm) {
  DtOptionsPdu pdu;
  const std::string text = pdu.string();
  ASSERT_EQ(text.size(), 3078u);
  EXPECT_EQ(text.substr(0, 24), "0601ca810000000006030000");
  EXPECT_EQ(text.substr(292, 4), "000b");
  DtOptionsPdu back;
  back.setFov(1);
  back.setFromString(text.c_str());
  EXPECT_EQ(imageOf(back), imageOf(pdu));

  pdu.setDatabaseToLoad("Terrain");
  pdu.setIgnoreFlags(0xA0B0C0D0);
  std::string upper = pdu.string();
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  back.setFromString((upper + "f").c_str());  // upper case reads the same, an odd last digit is ignored
  EXPECT_EQ(imageOf(back), imageOf(pdu));

  // The image is what the digits say, header included: fewer digits than the header's length leave zeros.
  back.setFromString("0601ca810000000000c8");
  EXPECT_EQ(back.length(), 200);
  EXPECT_EQ(back.viewerCommand(), 0);
  back.setFromString("zz");
  EXPECT_EQ(back.length(), 0);
  EXPECT_EQ(back.string(), std::string());
}

TEST(Options, DumpListsPresentOptionsInItsOrder) {
  DtOptionsPdu pdu;
  for (const OptionCase& c : everyOption()) c.set(pdu);
  const std::string expected =
      dumpLine("Options Bitfield:", "ff ff ff ff ff ff ff ff") +
      dumpLine("Options Bitfield2:", "05 00 00 00 00 00 00 00") + dumpLine("Overlay:", "OverlayFull (2)") +
      dumpLine("LocatorRange:", "1500.500000") + dumpLine("Smoothing:", "SmoothingLinear (1)") +
      dumpLine("SmoothingPeriod:", "0.250000") + dumpLine("Sound:", "false") +
      dumpLine("EntityLabels:", "true") + dumpLine("TrailingEffects:", "true") +
      dumpLine("TrajectoryHistory:", "true") + dumpLine("Recording:", "true") +
      dumpLine("Show Aggregates:", "true") + dumpLine("AggregateLevel", "16909060") +
      dumpLine("AggregateHighestOnly:", "true") + dumpLine("AggregatesAltitudeControlled:", "true") +
      dumpLine("NestedAggregates:", "true") + dumpLine("NestedEntities:", "true") +
      dumpLine("GroundClamping:", "true") + dumpLine("ClampRange:", "12.500000") +
      dumpLine("FollowGround:", "true") + dumpLine("ConstrainWithFloor:", "true") +
      dumpLine("Floor:", "-3.000000") + dumpLine("TimeOfDay:", "13.750000") +
      dumpLine("NearClip:", "0.500000") + dumpLine("FarClip:", "90000.000000") +
      dumpLine("Fov:", "60.000000") + dumpLine("Fog:", "true") + dumpLine("NearFog:", "100.000000") +
      dumpLine("FarFog:", "5000.000000") + dumpLine("Texture:", "true") +
      dumpLine("DatabaseToLoad:", "terrain/db 1") + dumpLine("Date:", "2026-11-22") +
      dumpLine("Turn rate:", "0.750000") + dumpLine("Step size:", "2.500000") +
      "Increment stepsize\nDecrement stepsize\nIncrement turnrate\nDecrement turnrate\n" +
      dumpLine("XR enabled:", "true") + dumpLine("HAT labels enabled:", "true") +
      "Cycle to next model set.\nCycle to previous texture set.\n" +
      dumpLine("Current model set:", "models") +
      "Cycle to next texture set.\nCycle to previous texture set.\n" +
      dumpLine("Current texture set:", "textures") + dumpLine("Terrain scale:", "0.100000") +
      dumpLine("Object scale:", "2.000000") + "Exit vistral.\n" + dumpLine("Sky Dome:", "true") +
      dumpLine("Clouds:", "true") + dumpLine("Mirroring:", "true") +
      dumpLine("MirrorMessageEveryFrame:", "true") + dumpLine("Broadcasting:", "true") +
      dumpLine("Clustering Labels:", "true") + dumpLine("Tactical Graphics Labels:", "true") +
      dumpLine("Tactical Graphics:", "true") + dumpLine("Show Emitters:", "true") +
      "Video Capture Command: Record\n" + dumpLine("Video Capture Filename:", "clip.avi") +
      dumpLine("Video Capture Directory:", "/tmp/video") + dumpLine("Video Capture Filename Base:", "take") +
      dumpLine("Video Capture Record Insets:", "true") + dumpLine("Video Capture FPS:", "4660") +
      dumpLine("Constrained To All:", "true") + dumpLine("Blocked Distance:", "250.000000") +
      dumpLine("Use Near Clip For Blocked Distance:", "true") +
      dumpLine("Feature Filename:", "features.xml") + "Feature Command: Clear Features\n";
  EXPECT_EQ(bodyDumpOf(pdu), expected);

  DtOptionsPdu few;
  few.setVideoCaptureCommand(static_cast<DtVistralControlVideoCaptureCommand>(9));
  few.setOverlay(static_cast<DtOverlayOption>(7));
  EXPECT_EQ(bodyDumpOf(few), dumpLine("Options Bitfield:", "01 00 00 00 00 00 80 00") +
                                 dumpLine("Options Bitfield2:", "00 00 00 00 00 00 00 00") +
                                 dumpLine("Overlay:", "UnknownEnum (7)") + "Video Capture Command: 9\n");
  EXPECT_STREQ(DtEnumString(DtSmoothingCubic), "SmoothingCubic");
  EXPECT_STREQ(DtEnumString(DtOverlayNone), "OverlayNone");
}
