// Orbit, compass and pivot PDUs: golden bytes, the attach-target text forms, dumps, the virtual pivot
// accessors.
#include <gtest/gtest.h>

#include <vector>

#include "vcTestSupport.h"
#include "vistralcontrol/compassVcPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/pivotVcPdu.h"

TEST(Compass, GoldenImageTextAndDump) {
  DtCompassVCPdu pdu;
  pdu.setRadius(100.0f);
  pdu.setBodyHeading(0.5f);
  pdu.setPitch(-0.25f);
  pdu.setHeadingOffset(1.0f);
  pdu.setPitchOffset(2.0f);
  pdu.setRoll(-3.0f);
  pdu.setAttachId("1:2:3");
  pdu.setMarkingText("T-72");
  ASSERT_EQ(pdu.length(), 308);
  EXPECT_EQ(bytesAt(pdu.packet(), 146, 2), bytes({0, 2}));
  EXPECT_EQ(bytesAt(pdu.packet(), 156, 152),
            concat({be32f(100), be32f(0.5f), be32f(-0.25f), be32f(1), be32f(2), be32f(-3),
                    textField("1:2:3", 64), textField("T-72", 64)}));
  EXPECT_STREQ(pdu.string(), "1:2:3 100.000000 0.500000 -0.250000 1.000000 2.000000 -3.000000 T-72");
  EXPECT_EQ(bodyDumpOf(pdu), dumpLine("AttachTo:", "1:2:3") + dumpLine("AttachTo (MarkingText):", "T-72") +
                                 dumpLine("Radius:", "100.000000") + dumpLine("BodyHeading:", "0.500000") +
                                 dumpLine("pitch:", "-0.250000") + dumpLine("HeadingOff:", "1.000000") +
                                 dumpLine("PitchOff:", "2.000000") + dumpLine("Roll:", "-3.000000"));

  // An older sender's PDU ends before the marking text: none is read, and the text form ends in a blank.
  const DtCompassVCPdu older = withLength(pdu, 244);
  EXPECT_EQ(older.markingText(), "");
  EXPECT_EQ(older.attachId(), "1:2:3");
  EXPECT_STREQ(older.string(), "1:2:3 100.000000 0.500000 -0.250000 1.000000 2.000000 -3.000000 ");
}

TEST(Orbit, GoldenImageTextAndDump) {
  DtOrbitVCPdu pdu;
  pdu.setFromString("Tank 7,100,0.5,1,2,3,4,5,Blue one");
  ASSERT_EQ(pdu.length(), 312);
  EXPECT_EQ(bytesAt(pdu.packet(), 156, 156),
            concat({be32f(100), be32f(0.5f), be32f(1), be32f(2), be32f(3), be32f(4), be32f(5),
                    textField("Tank 7", 64), textField("Blue one", 64)}));
  // Blanks in the id or the marking text force the comma form, which reads back whole.
  EXPECT_STREQ(pdu.string(),
               "Tank 7,100.000000,0.500000,1.000000,2.000000,3.000000,4.000000,5.000000,Blue one");
  EXPECT_EQ(bodyDumpOf(pdu), dumpLine("AttachTo:", "Tank 7") +
                                 dumpLine("AttachTo (MarkingText):", "Blue one") +
                                 dumpLine("Radius:", "100.000000") + dumpLine("AzimuthRate:", "0.500000") +
                                 dumpLine("Heading:", "1.000000") + dumpLine("Pitch:", "2.000000") +
                                 dumpLine("HeadingOff:", "3.000000") + dumpLine("PitchOff:", "4.000000") +
                                 dumpLine("Roll:", "5.000000"));
  EXPECT_EQ(withLength(pdu, 311).markingText(), "");
}

// The attach-target rule, seen through the orbit PDU: every mode with a marking text reads it the same way.
TEST(AttachTargetText, BlankAndCommaForms) {
  struct Case {
    const char* text;
    const char* id;
    float radius;
    float roll;
    const char* mark;
  };
  const Case cases[] = {
      {"tank 1 2 3 4 5 6 7 Lead", "tank", 1, 7, "Lead"},
      {"tank 1 2 3 4 5 6 7", "tank", 1, 7, ""},         // the last token is a number: no marking text
      {"tank 1 2 3 4 5 6 7 -12.5", "tank", 1, 7, ""},   // a numeric marking text cannot travel as text
      {"tank 1 2 3 4 5 6 7 1-2", "tank", 1, 7, "1-2"},  // not a number by the rule
      {"tank 1 2", "tank", 1, 0, ""},                   // missing numbers become zero
      {"Tank 9,1,2,3,4,5,6,7,T 72", "Tank 9", 1, 7, "T 72"},
      {"Tank 9,1,2,3,4,5,6,7", "Tank 9", 1, 7, ""},
      {"Tank 9,1 ,2,3,4,5,6,7,x", "Tank 9", 1, 0, "x"},  // a comma must follow a number at once
      {"", "", 0, 0, ""},
  };
  for (const Case& c : cases) {
    DtOrbitVCPdu pdu;
    pdu.setFromString("old,9,9,9,9,9,9,9,old mark");
    pdu.setFromString(c.text);
    EXPECT_EQ(pdu.attachId(), c.id) << c.text;
    EXPECT_EQ(pdu.radius(), c.radius) << c.text;
    EXPECT_EQ(pdu.roll(), c.roll) << c.text;
    EXPECT_EQ(pdu.markingText(), c.mark) << c.text;
  }
}

TEST(AttachTargetText, LongMarkingTextsAndTextsStayInBounds) {
  DtCompassVCPdu pdu;
  const std::string mark70(70, 'm');
  pdu.setMarkingText(mark70);
  EXPECT_EQ(bytesAt(pdu.packet(), 244, 64), Bytes(64, 'm'));  // cut to 64, no terminator
  EXPECT_EQ(pdu.markingText(), std::string(64, 'm'));         // the last field: reads to the image's end

  // Ids and marks of 64 characters and the longest numbers still fit the 400-character buffer, cut.
  pdu.setAttachId(std::string(64, 'i'));
  pdu.setRadius(3.0e38f);
  pdu.setRoll(-3.0e38f);
  const std::string text = pdu.string();
  EXPECT_LT(text.size(), 400u);
  EXPECT_EQ(text.compare(0, 65, std::string(64, 'i') + " "), 0);
  EXPECT_STREQ(textBufferOf(pdu), text.c_str());
}

TEST(Pivot, PackedPointTextAndDump) {
  DtPivotVCPdu pdu;
  pdu.setPivotPoint(DtVector64(1, 2, 3));
  pdu.setRadius(50);
  pdu.setRoll(-1);
  ASSERT_EQ(pdu.length(), 204);
  EXPECT_EQ(bytesAt(pdu.packet(), 156, 48), concat({be32f(50), Bytes(16, 0), be32f(-1), be64(1), be64(2),
                                                    be64(3)}));  // the point is not aligned
  EXPECT_STREQ(pdu.string(),
               "50.000000 0.000000 0.000000 0.000000 0.000000 -1.000000 1.000000 2.000000 3.000000");
  EXPECT_EQ(bodyDumpOf(pdu), dumpLine("Pivot point:", "1.000000 2.000000 3.000000") +
                                 dumpLine("Radius:", "50.000000") + dumpLine("BodyHeading:", "0.000000") +
                                 dumpLine("pitch:", "0.000000") + dumpLine("HeadingOff:", "0.000000") +
                                 dumpLine("PitchOff:", "0.000000") + dumpLine("Roll:", "-1.000000"));

  // The text carries the point in single precision.
  pdu.setFromString("1 2 3 4 5 6 0.1 2 3");
  EXPECT_EQ(pdu.pivotPoint().x(), static_cast<double>(0.1f));
}

TEST(Pivot, TextIsReadThroughTheVirtualAccessorsPointFirst) {
  struct Recording : DtPivotVCPdu {
    mutable std::vector<std::string> calls;
    void setRadius(float r) override {
      calls.push_back("radius");
      DtPivotVCPdu::setRadius(r * 2);
    }
    void setPivotPoint(const DtVector64& p) override {
      calls.push_back("point");
      DtPivotVCPdu::setPivotPoint(p);
    }
    float roll() const override {
      calls.push_back("roll");
      return 42;
    }
  } pdu;
  pdu.setFromString("1 2 3 4 5 6 7 8 9");
  EXPECT_EQ(pdu.calls, (std::vector<std::string>{"point", "radius"}));
  EXPECT_EQ(pdu.DtPivotVCPdu::radius(), 2.0f);
  EXPECT_EQ(std::string(pdu.string()).substr(0, 9), "2.000000 ");
  EXPECT_NE(std::string(pdu.string()).find(" 42.000000 7.000000"), std::string::npos);
}
