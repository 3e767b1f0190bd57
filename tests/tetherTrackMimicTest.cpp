// Tether, mimic, offset mimic, track and the two-entity modes: golden bytes, text forms, shared caches,
// dumps.
#include <gtest/gtest.h>

#include "vcTestSupport.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/mimicVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"

TEST(Tether, GoldenImageTextAndDump) {
  DtTetherVCPdu pdu;
  pdu.setTopoUpOffset(DtVector64(1.5, -2, 0.1));
  pdu.setOrientation(DtTaitBryan(0.5, 0.25, -1));
  pdu.setAttachId("tank 1");
  pdu.setMarkingText("Lead");
  ASSERT_EQ(pdu.length(), 308);
  EXPECT_EQ(bytesAt(pdu.packet(), 146, 2), bytes({0, 1}));
  EXPECT_EQ(bytesAt(pdu.packet(), 156, 152),
            concat({be32f(1.5f), be32f(-2), be32f(0.1f), be32f(0.5f), be32f(0.25f), be32f(-1),
                    textField("tank 1", 64), textField("Lead", 64)}));
  EXPECT_EQ(pdu.topoUpOffset().z(), static_cast<double>(0.1f));  // offsets travel in single precision
  EXPECT_STREQ(pdu.string(), "tank 1,1.500000,-2.000000,0.100000,0.500000,0.250000,-1.000000,Lead");
  EXPECT_EQ(bodyDumpOf(pdu), dumpLine("AttachTo:", "tank 1") + dumpLine("AttachTo (MarkingText):", "Lead") +
                                 dumpLine("TopoUpOffset:", "1.500000 -2.000000 0.100000") +
                                 dumpLine("Orientation:", "0.500000 0.250000 -1.000000"));
  EXPECT_EQ(withLength(pdu, 244).markingText(), "");
}

TEST(Mimic, OffsetMimicSharesTheLayoutUnderItsOwnCommand) {
  DtOffsetMimicVCPdu offset;
  DtMimicVCPdu mimic;
  EXPECT_EQ(offset.viewerCommand(), DtVcOffsetMimic);
  EXPECT_EQ(mimic.viewerCommand(), DtVcMimic);
  for (DtMimicVCPdu* pdu : {&mimic, static_cast<DtMimicVCPdu*>(&offset)}) {
    pdu->setFromString("lead 1 2 3 0.5 0.25 0.125 Wing");
    ASSERT_EQ(pdu->length(), 308);
    EXPECT_EQ(bytesAt(pdu->packet(), 156, 152),
              concat({be32f(1), be32f(2), be32f(3), be32f(0.5f), be32f(0.25f), be32f(0.125f),
                      textField("lead", 64), textField("Wing", 64)}));
    EXPECT_EQ(pdu->bodyOrientation(), DtTaitBryan(0.5, 0.25, 0.125));
    EXPECT_STREQ(pdu->string(), "lead 1.000000 2.000000 3.000000 0.500000 0.250000 0.125000 Wing");
    EXPECT_EQ(bodyDumpOf(*pdu), dumpLine("AttachTo:", "lead") + dumpLine("AttachTo (MarkingText):", "Wing") +
                                    dumpLine("Offset:", "1.000000 2.000000 3.000000") +
                                    dumpLine("Orientation:", "0.500000 0.250000 0.125000"));
  }
}

TEST(Track, GoldenImageAndTextForms) {
  DtTrackVCPdu pdu;
  pdu.setFromString("T 72,1000.25,-2000.5,30,7");
  ASSERT_EQ(pdu.length(), 312);
  EXPECT_EQ(bytesAt(pdu.packet(), 152, 160), concat({Bytes(8, 0), be64(1000.25), be64(-2000.5), be64(30),
                                                     textField("T 72", 64), Bytes(64, 0)}));
  EXPECT_STREQ(pdu.string(),
               "T 72,1000.250000,-2000.500000,30.000000,");  // "7" was a number: no marking text
  EXPECT_EQ(bodyDumpOf(pdu), dumpLine("TrackId:", "T 72") + dumpLine("TrackId (MarkingText):", "") +
                                 dumpLine("WorldLocation:", "1000.250000 -2000.500000 30.000000"));
}

template <class T>
void checkTwoEntityClass(int command) {
  T pdu;
  pdu.setOffset(DtVector64(0, 0.5, 10));
  pdu.setAttachId("rider");
  pdu.setTrackId("target");
  pdu.setAttachMarkingText("R1");
  pdu.setTrackMarkingText("T1");
  ASSERT_EQ(pdu.length(), 424);
  EXPECT_EQ(bytesAt(pdu.packet(), 146, 2), bytes({0, command}));
  EXPECT_EQ(bytesAt(pdu.packet(), 156, 268),
            concat({be32f(0), be32f(0.5f), be32f(10), textField("rider", 64), textField("target", 64),
                    textField("R1", 64), textField("T1", 64)}));
  const DtString& attach = pdu.attachId();
  EXPECT_EQ(attach, "rider");
  pdu.trackId();
  EXPECT_EQ(attach, "target");  // one cache for both ids
  const DtString& mark = pdu.attachMarkingText();
  pdu.trackMarkingText();
  EXPECT_EQ(mark, "R1");  // each marking text has its own
  EXPECT_STREQ(pdu.string(), "rider target 0.000000 0.500000 10.000000 R1 T1");
  EXPECT_EQ(bodyDumpOf(pdu), dumpLine("AttachId:", "rider") + dumpLine("AttachId (MarkingText):", "R1") +
                                 dumpLine("TrackId:", "target") + dumpLine("TrackId (MarkingText):", "T1") +
                                 dumpLine("Offset:", "0.000000 0.500000 10.000000"));

  // An attach marking text of 64 characters has no terminator and runs on into the track marking text.
  pdu.setAttachMarkingText(std::string(64, 'a'));
  EXPECT_EQ(pdu.attachMarkingText(), std::string(64, 'a') + "T1");
  EXPECT_EQ(withLength(pdu, 360).trackMarkingText(), "");
  EXPECT_EQ(withLength(pdu, 360).attachMarkingText(), "");
}

TEST(TwoEntity, GoldenImageAndSharedIdCache) {
  checkTwoEntityClass<DtTetherTrackVCPdu>(7);
  checkTwoEntityClass<DtMimicTrackVCPdu>(8);
}

TEST(TwoEntity, TextForms) {
  struct Case {
    const char* text;
    const char* attach;
    const char* track;
    double z;
    const char* attachMark;
    const char* trackMark;
    const char* written;
  };
  const Case cases[] = {
      {"a b 0 0 10", "a", "b", 10, "", "", "a b 0.000000 0.000000 10.000000  "},
      // A single marking text in the blank form is the track's.
      {"a b 0 0 10 Lead", "a", "b", 10, "", "Lead", "a b 0.000000 0.000000 10.000000  Lead"},
      {"a b 0 0 10 Lead Tgt", "a", "b", 10, "Lead", "Tgt", "a b 0.000000 0.000000 10.000000 Lead Tgt"},
      {"a 1,b 2,1,2,3,first mark,second mark", "a 1", "b 2", 3, "first mark", "second mark",
       "a 1,b 2,1.000000,2.000000,3.000000,first mark,second mark"},
      {"a 1,b,1,2,3", "a 1", "b", 3, "", "", "a 1,b,1.000000,2.000000,3.000000,,"},
  };
  for (const Case& c : cases) {
    DtMimicTrackVCPdu pdu;
    pdu.setFromString("x,y,9,9,9,old,old");
    pdu.setFromString(c.text);
    EXPECT_EQ(DtString(pdu.attachId()), c.attach) << c.text;
    EXPECT_EQ(pdu.trackId(), c.track) << c.text;
    EXPECT_EQ(pdu.offset().z(), c.z) << c.text;
    EXPECT_EQ(pdu.attachMarkingText(), c.attachMark) << c.text;
    EXPECT_EQ(pdu.trackMarkingText(), c.trackMark) << c.text;
    EXPECT_STREQ(pdu.string(), c.written) << c.text;
    DtMimicTrackVCPdu back;  // what string() writes reads back to the same bytes
    back.setFromString(c.written);
    EXPECT_EQ(bytesAt(back.packet(), 0, 424), bytesAt(pdu.packet(), 0, 424)) << c.written;
  }
}
