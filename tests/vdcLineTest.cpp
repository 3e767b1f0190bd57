// The draw header, the attachable block and the line PDUs in both layouts, checked against images written
// from the wire tables.
#include <gtest/gtest.h>

#include <memory>

#include "drawTestSupport.h"
#include "vistralcontrol/vdcLinePdu.h"

namespace {
unsigned char kRed[4] = {200, 10, 20, 255};
unsigned char kBlue[4] = {1, 2, 250, 128};

// The attachable block of a filled line, as both layouts place it.
void fillAttachable(DtVdcAttachablePdu& pdu) {
  pdu.setObjectId(0x01020304);
  pdu.attachTo(DtVector64(1.5, -2.25, 3), DtString("1:3001:12"));  // type 6: position 1, entity 2
  pdu.setOffset(DtVector64(0.5, 0.25, -8));
  pdu.setFlashing(true);
}
}  // namespace

TEST(DrawControlPdu, CurrentLineImageFieldByField) {
  DtVdcLinePdu line;
  fillAttachable(line);
  line.setType(DtVdc3DLine);
  line.setRelativeLocation(25, 1);
  line.setNumSegments(2);
  line.setColor(kRed);  // segment 0
  line.setColor(1U, kBlue);
  line.setPattern(1U, 0xF0F0F0F0);
  line.setThickness(1U, 7);
  line.setArrowStyle(1U, DtVdcLinePdu::DtVdcStyleArrowDouble);
  line.setAppearance(1U, DtVdcLinePdu::DtVdcLineAppearanceLightning);
  line.setPercentage(1, 30);
  line.setCheckLos(true);
  line.setProjected(true);

  Image want(392 + 32, 2520, true);
  want.u8(158, 4)
      .put(160, be32(0x01020304))
      .put(164, be32(2522))
      .u8(168, 6)
      .u8(170, 50)
      .u8(171, 25)
      .text(240, "1:3001:12", 64)
      .put(312, be64v(1.5, -2.25, 3))
      .put(360, be64v(0.5, 0.25, -8))
      .put(384, be32(2))
      .u8(388, 1)
      .u8(389, 1)
      .put(392, bytes({200, 10, 20, 255}))
      .u8(392 + 13, 100)
      .put(408, bytes({1, 2, 250, 128}))
      .put(412, be32(0xF0F0F0F0))
      .put(416, be32(7))
      .u8(420, 3 | 8)
      .u8(421, 30);
  EXPECT_EQ(imageOf(line), want.b);
  EXPECT_EQ(line.color(), line.packet() + 392);

  // Shrinking drops records from the end; growing keeps them and adds zero records.
  line.setNumSegments(1);
  EXPECT_EQ(line.length(), 408);
  line.setNumSegments(3);
  EXPECT_EQ(line.length(), 440);
  EXPECT_EQ(bytesAt(line.packet(), 392, 16), bytesAt(want.b.data(), 392, 16));
  EXPECT_EQ(bytesAt(line.packet(), 408, 32), Bytes(32, 0));
}

TEST(DrawControlPdu, VersionZeroLinesPlainAndSegmented) {
  DtVdcLinePduV0 plain;
  fillAttachable(plain);
  plain.setType(DtVdc2DLine);
  plain.setColor(kRed);  // the attachable colour
  plain.setThickness(9);
  plain.setPattern(0x0000FFFF);
  plain.setArrowStyle(DtVdcLinePdu::DtVdcStyleArrowStart);
  plain.setAppearance(DtVdcLinePdu::DtVdcLineAppearanceLightning);
  plain.setRelativeLocation(40, 1);  // one relative location: index 1 writes index 0's byte
  plain.setNumSegments(5);           // a plain line has one segment
  plain.setPercentage(0, 77);        // indexed setters do nothing on a plain line
  plain.setCheckLos(true);

  Image want(392, 2520, false);
  want.put(152, be32(0x01020304))
      .put(156, be32(2521))
      .u8(160, 4 | 2 | 8)
      .u8(161, 6)
      .u8(162, 40)
      .put(164, bytes({200, 10, 20, 255}))
      .text(232, "1:3001:12", 64)
      .put(304, be64v(1.5, -2.25, 3))
      .put(352, be64v(0.5, 0.25, -8))
      .put(376, be32(0x0000FFFF))
      .put(380, be32(9));
  EXPECT_EQ(imageOf(plain), want.b);
  EXPECT_EQ(plain.numSegments(), 1);
  EXPECT_EQ(plain.percentage(7), 40);  // getters ignore the index and read the plain fields
  EXPECT_EQ(plain.thickness(3), 9);
  EXPECT_FALSE(plain.checkLos());

  DtVdcSegmentedLinePduV0 segmented;
  segmented.setType(DtVdc3DSegmentedLine);
  segmented.setNumSegments(2);
  segmented.setColor(kRed);  // ignored: a segmented line has no line colour
  segmented.setColor(1U, kBlue);
  segmented.setPercentage(0, 60);
  Image seg(388 + 32, 2530, false);
  seg.put(156, be32(2532)).u8(162, 100).put(376, be32(2)).u8(388 + 13, 60).put(404, bytes({1, 2, 250, 128}));
  EXPECT_EQ(imageOf(segmented), seg.b);
  EXPECT_EQ(segmented.color(), segmented.packet() + 164);  // reads the attachable colour

  // The type, not the class, decides: a plain version-0 class with a segmented type keeps a table at 388.
  DtVdcLinePduV0 typed;
  typed.setType(DtVdc2DSegmentedLine);
  typed.setNumSegments(1);
  typed.setThickness(0U, 3);
  EXPECT_EQ(typed.length(), 404);
  EXPECT_EQ(bytesAt(typed.packet(), 388 + 8, 4), be32(3));
}

TEST(DrawControlPdu, SegmentIndicesAndWholeLineSetters) {
  DtVdcLinePdu line;
  line.setNumSegments(3);
  line.setThickness(4);  // segment 0 only
  EXPECT_EQ(line.thickness(0), 4);
  EXPECT_EQ(line.thickness(1), 0);
  const Bytes before = imageOf(line);
  line.setArrowStyle(5, DtVdcLinePdu::DtVdcStyleArrowEnd);
  line.setPattern(3, 1);
  line.setColor(3U, kRed);
  EXPECT_EQ(imageOf(line), before);
  EXPECT_EQ(line.arrowStyle(5), 0);
  EXPECT_EQ(line.color(3U), nullptr);
  // Arrow style and appearance share the flag byte and keep each other's bits.
  line.setAppearance(1, DtVdcLinePdu::DtVdcLineAppearanceLightning);
  line.setArrowStyle(1, DtVdcLinePdu::DtVdcStyleArrowEnd);
  EXPECT_EQ(line.packet()[392 + 16 + 12], 9);
  EXPECT_EQ(line.appearance(1), DtVdcLinePdu::DtVdcLineAppearanceLightning);
  EXPECT_STREQ(line.typeString(DtVdcLinePdu::DtVdcStyleArrowDouble), "VdcStyleArrowDouble");
  EXPECT_STREQ(line.typeString(static_cast<DtVdcLinePdu::DtVdcLineAppearance>(4)), "UnknownEnum");
}

TEST(DrawControlPdu, AttachFormsKeepTheAnchorsTheyDoNotName) {
  DtVdcLinePdu pdu;
  pdu.attachTo(DtString("tank"));
  pdu.attachTo(DtNetU32(42));  // the entity's bytes stay
  EXPECT_EQ(pdu.attachmentType(), DtVdcAttachablePdu::DtVcObjectAttachedToObject);
  EXPECT_EQ(pdu.attachEntityId(0), "tank");
  EXPECT_EQ(pdu.attachObjectId(0), 42u);
  pdu.attachTo(DtVector64(0, 0, 9));
  const char pos[2] = {static_cast<char>(0xFF), 50};
  pdu.attachTo(pos);  // signed percent bytes; z kept
  EXPECT_EQ(pdu.position(0), DtVector64(-0.01, 0.5, 9));
  EXPECT_EQ(pdu.position(2), DtVector64());
  EXPECT_EQ(pdu.attachObjectId(-1), 0u);
  EXPECT_TRUE(pdu.attachEntityId(2).isNull());

  struct Form {
    void (*attach)(DtVdcAttachablePdu&);
    int type;
  };
  static const DtVector64 kP(1, 2, 3);
  const Form forms[] = {
      {[](DtVdcAttachablePdu& a) { a.attachTo(kP, kP); }, 1},
      {[](DtVdcAttachablePdu& a) { a.attachTo(DtString("e"), DtNetU32(1)); }, 8},
      {[](DtVdcAttachablePdu& a) { a.attachTo(DtNetU32(1), DtString("e")); }, 9},
      {[](DtVdcAttachablePdu& a) { a.attachTo(DtString("e"), kP); }, 4},
      {[](DtVdcAttachablePdu& a) { a.attachTo(kP, DtString("e")); }, 6},
      {[](DtVdcAttachablePdu& a) { a.attachTo(DtNetU32(1), kP); }, 5},
      {[](DtVdcAttachablePdu& a) { a.attachTo(kP, DtNetU32(1)); }, 7},
      {[](DtVdcAttachablePdu& a) { a.attachTo(DtString("e"), DtString("f")); }, 10},
      {[](DtVdcAttachablePdu& a) { a.attachTo(DtNetU32(1), DtNetU32(2)); }, 11},
  };
  for (const Form& f : forms) {
    f.attach(pdu);
    EXPECT_EQ(pdu.attachmentType(), f.type);
    EXPECT_EQ(pdu.packet()[168], f.type);
  }
  EXPECT_STREQ(DtVdcAttachablePdu::typeString(DtVdcAttachablePdu::DtVcObjectAttachedToObjectEntity),
               "VcObjectAttachedToObjectEntity");
  EXPECT_STREQ(DtVdcAttachablePdu::typeString(static_cast<DtVdcAttachablePdu::DtVcObjectAttachment>(12)),
               "UnknownEnum");
}

TEST(DrawControlPdu, TextFormMixesThePositionsAndSkipsOffsetAndRelativeLocation) {
  DtVdcLinePdu pdu;
  pdu.setObjectId(7);
  pdu.setType(DtVdc2DLine);
  pdu.attachTo(DtVector64(1, 2, 3), DtVector64(4, 5, 6));
  pdu.attachTo(DtString("e1"), DtString("e2"));
  pdu.attachTo(DtNetU32(8), DtNetU32(9));
  pdu.setAttachmentType(DtVdcAttachablePdu::DtVcObjectAttachedToEntityObject);
  pdu.setColor(kRed);
  pdu.setFlashing(true);
  const std::string text = pdu.string();
  EXPECT_EQ(text,
            "7 2521 8 1.000000 2.000000 3.000000 4.000000 2.000000 3.000000 e1 e2 8 9 50 200 10 20 255 1");

  DtVdcLinePdu back;
  back.setRelativeLocation(33, 0);
  back.setOffset(DtVector64(1, 1, 1));
  back.setFromString(text.c_str());
  EXPECT_EQ(std::string(back.string()),
            "7 2521 8 1.000000 2.000000 3.000000 4.000000 2.000000 3.000000 e1 e2 8 9 33 200 10 20 255 1");
  EXPECT_EQ(back.position(1), DtVector64(4, 2, 3));  // position 2's y and z do not travel
  EXPECT_EQ(back.relativeLocation(0), 33);
  EXPECT_EQ(back.offset(), DtVector64(1, 1, 1));
  EXPECT_EQ(back.attachEntityId(1), "e2");
  // A designator with a blank shifts every later field.
  DtVdcLinePdu shifted;
  shifted.setFromString("7 2521 10 0 0 0 0 0 0 tank one e2 8 9 50 1 2 3 4 1");
  EXPECT_EQ(shifted.attachEntityId(1), "one");
  EXPECT_EQ(shifted.attachObjectId(0), 0u);
}

TEST(DrawControlPdu, DumpLabelsInOrder) {
  DtVdcLinePduV0 line;
  line.setObjectId(5);
  line.setType(DtVdc2DLine);
  line.setPattern(0xFF);
  const std::string dump = bodyDumpOf(line);
  const std::string want =
      dumpLine("ObjectId", "5") + dumpLine("Type", "Vdc2DLine (2521)") +
      dumpLine("Attachment type", "VcObjectNoAttach (0)") + dumpLine("pos1", "0.000000 0.000000 0.000000") +
      dumpLine("pos2", "0.000000 0.000000 0.000000") + dumpLine("AttachEntityId1", "") +
      dumpLine("AttachEntityId2", "") + dumpLine("AttachObjectId1", "0") + dumpLine("AttachObjectId2", "0") +
      dumpLine("RelativeLocation(percent)", "100") + dumpLine("Offset", "0.000000 0.000000 0.000000") +
      dumpLine("Color", "") + dumpLine(" r", "0") + dumpLine(" g", "0") + dumpLine(" b", "0") +
      dumpLine(" a", "0") + dumpLine("Flashing", "false") + dumpLine("Segments:", "1") +
      dumpLine("Segment:", "1") + dumpLine("Percentage:", "100") + dumpLine("Thickness:", "0") +
      dumpLine("Pattern:", "0x000000ff") + dumpLine("LineArrowStyle:", "VdcStyleNoArrow (0)") +
      dumpLine("LineAppearance:", "VdcLineAppearanceStraight (0)") + dumpLine("Color:", "") +
      dumpLine(" r:", "0") + dumpLine(" g:", "0") + dumpLine(" b:", "0") + dumpLine(" a:", "0");
  EXPECT_EQ(dump, want);
  // The current layout adds its parameter version after the type.
  DtVdcLinePdu current;
  EXPECT_NE(bodyDumpOf(current).find(dumpLine("Type", "UnknownEnum (0)") + dumpLine("Param Version", "1")),
            std::string::npos);
  EXPECT_STREQ(DtVistralDrawControlPdu::typeString(2554), "UnknownEnum");
  EXPECT_STREQ(DtVistralDrawControlPdu::typeString(2555), "Vdc3DArea");
  EXPECT_STREQ(DtVistralDrawControlPdu::typeString(0), "UnknownEnum");
}

TEST(DrawControlPdu, ParameterVersionDecidesTheLayoutAtEveryAccess) {
  DtVdcLinePdu line;
  line.setObjectId(11);
  line.setParamVersion(0);  // writes nothing
  EXPECT_EQ(line.paramVersion(), 1u);
  line.setParamVersion(2);  // marked, but only version 1 is read as current
  EXPECT_EQ(line.objectId(), 0x600DF00Du);
  EXPECT_EQ(line.type(), 0x00020000u);
  EXPECT_EQ(line.checkLos(), false);
  line.setParamVersion(1);
  EXPECT_EQ(line.objectId(), 11u);
}

TEST(DrawControlPdu, ShortReceivedImagesReadZeros) {
  // A line whose header claims only the fixed part: every field past it reads as zero, and setters never
  // write outside the object.
  Image img(160, 2520, true);
  ReceivedImage received(img.b);
  std::unique_ptr<DtPdu> made(DtVistralControlPdu::createFromNet(received.header(), nullptr, nullptr));
  auto* line = dynamic_cast<DtVdcLinePdu*>(made.get());
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->color(), nullptr);
  EXPECT_EQ(line->numSegments(), 0);
  EXPECT_EQ(line->position(0), DtVector64());
  line->setColor(0U, kRed);
  EXPECT_EQ(dumpOf(*line).find("Segment:"), std::string::npos);
}

// A line keeps a few segments inside itself; more move its image to the heap with every byte, and copies and
// assignments carry the image whichever way it must move.
TEST(DrawControlPdu, LinesOutgrowTheirStorageWithTheirBytes) {
  DtVdcLinePdu line;
  fillAttachable(line);
  line.setNumSegments(200);
  line.setThickness(0, 7);
  line.setThickness(199, 9);
  ASSERT_EQ(line.length(), 392 + 200 * 16);
  const Bytes big = imageOf(line);

  DtVdcLinePdu copy(line);
  EXPECT_EQ(imageOf(copy), big);
  DtVdcLinePdu small;
  const Bytes fresh = imageOf(small);
  small = line;  // into a line whose image sat inside it
  EXPECT_EQ(imageOf(small), big);
  line = DtVdcLinePdu();  // a small image back into the grown one
  EXPECT_EQ(imageOf(line), fresh);
  const DtVdcLinePdu& same = line;
  line = same;
  EXPECT_EQ(imageOf(line), fresh);

  small.setNumSegments(1);  // shrinking keeps what is left
  EXPECT_EQ(small.length(), 408);
  EXPECT_EQ(small.thickness(0), 7);
  EXPECT_EQ(small.objectId(), 0x01020304u);
  EXPECT_EQ(copy.thickness(199), 9);
}
