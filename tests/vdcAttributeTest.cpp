// Attribute and attribute-update PDUs in both layouts: golden bytes, the range flag, text forms, dumps,
// hostile lengths, receive and build.
#include <gtest/gtest.h>

#include "drawTestSupport.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"

namespace {
void fill(DtVdcAttributePduBase& pdu) {
  pdu.setObjectId(21);
  pdu.setType(DtVdcAttributeSingleValue);
  pdu.attachTo(DtNetU32(99));
  pdu.setAttributeGroupId(0x01020304);
  pdu.setRange(-1.5, 2.25);
  pdu.setName("speed");
}

void fill(DtVdcAttributeUpdatePduBase& pdu) {
  pdu.setObjectId(31);
  pdu.setType(DtVdcAttributeValueSet);
  pdu.setGroupId(0x0A0B0C0D);
  pdu.setValueX(1.25);
  pdu.setValueY(-8);
  pdu.setText("on");
}
}  // namespace

TEST(VdcAttribute, GoldenImagesAndTheRangeFlag) {
  DtVdcAttributePdu current;
  DtVdcAttributePduV0 v0;
  EXPECT_EQ(imageOf(current), Image(408, 2570, true).b);
  EXPECT_EQ(imageOf(v0), Image(408, 2570, false).b);
  fill(current);
  fill(v0);
  const Bytes range = concat({be64(-1.5), be64(2.25)});
  EXPECT_EQ(imageOf(current), Image(413, 2570, true)
                                  .put(158, bytes({1}))
                                  .put(160, concat({be32(21), be32(2574), bytes({3})}))
                                  .put(304, be32(99))
                                  .put(384, concat({range, be32(0x01020304), be32(5), chars("speed")}))
                                  .b);
  EXPECT_EQ(imageOf(v0), Image(413, 2570, false)
                             .put(152, concat({be32(21), be32(2574), bytes({1, 3})}))
                             .put(296, be32(99))
                             .put(376, concat({be32(5), be32(0x01020304), range}))
                             .put(408, chars("speed"))
                             .b);
  EXPECT_EQ(v0.attributeGroupId(), 0x01020304U);
  EXPECT_EQ(v0.rangeMax(), 2.25);

  // The range flag is the whole flag byte: setting a range clears flashing, and flashing reads as a range.
  for (DtVdcAttributePduBase* pdu :
       {static_cast<DtVdcAttributePduBase*>(&current), static_cast<DtVdcAttributePduBase*>(&v0)}) {
    pdu->setFlashing(true);
    pdu->setRange(0, 1);
    EXPECT_FALSE(pdu->flashing());
    EXPECT_EQ(pdu->packet()[pdu == &current ? 158 : 160], 1);
  }
  DtVdcAttributePdu flashing;
  flashing.setFlashing(true);
  EXPECT_TRUE(flashing.hasRange());
  EXPECT_FALSE(DtVdcAttributePdu().hasRange());

  current.setName("");
  EXPECT_EQ(current.length(), 413);
  EXPECT_EQ(bytesAt(current.packet(), 404, 9), concat({be32(0), chars("speed")}));
}

TEST(VdcAttribute, TextFormAndDump) {
  DtVdcAttributePdu pdu;
  fill(pdu);
  const char* line =
      "21 2574 3 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000   99 0 0 0 0 0 0 0 16909060 1 speed 1 "
      "-1.500000 2.250000";
  EXPECT_STREQ(pdu.string(), line);
  EXPECT_TRUE(endsWith(dumpOf(pdu), dumpLine("Flashing", "false") + dumpLine("Attribute group:", "16909060") +
                                        dumpLine("Range:", "") + dumpLine(" Min:", "-1.500000") +
                                        dumpLine(" Max:", "2.250000") + dumpLine("Name:", "speed")))
      << dumpOf(pdu);

  DtVdcAttributePduV0 v0;
  // The empty designators shift the attachable fields read back; the attribute's own words, taken from the
  // line's end, come back whole.
  v0.setFromString(line);
  EXPECT_EQ(v0.objectId(), 21U);
  EXPECT_EQ(v0.name(), DtString("speed"));
  EXPECT_EQ(v0.attributeGroupId(), 16909060U);
  EXPECT_EQ(v0.rangeMin(), -1.5);
  EXPECT_TRUE(v0.hasRange());

  // Without a name the text form holds "0 0", and reading it leaves the name; a range flag of 0 sets no
  // range.
  DtVdcAttributePduV0 unnamed;
  unnamed.setAttributeGroupId(7);
  const std::string unnamedLine = unnamed.string();
  EXPECT_TRUE(endsWith(unnamedLine, " 7 0 0 0 0.000000 0.000000")) << unnamedLine;
  EXPECT_TRUE(endsWith(dumpOf(unnamed), dumpLine("Flashing", "false") + dumpLine("Attribute group:", "7") +
                                            dumpLine("Name:", "")));
  v0.setFromString(unnamedLine.c_str());
  EXPECT_EQ(v0.name(), DtString("speed"));
  EXPECT_EQ(v0.attributeGroupId(), 7U);
  EXPECT_EQ(v0.rangeMin(), -1.5);

  // The six words are the line's last six, whatever comes before; short and empty lines are harmless.
  v0.setFromString("1 2 3 4 5 6 7 8 9 e f 10 11 12 13 14 15 16 17 extra words 9 1 wind 1 -3 3");
  EXPECT_EQ(v0.name(), DtString("wind"));
  EXPECT_EQ(v0.attributeGroupId(), 9U);
  EXPECT_EQ(v0.rangeMin(), -3.0);
  v0.setFromString("5 1 n");
  EXPECT_EQ(v0.attributeGroupId(), 5U);
  EXPECT_EQ(v0.name(), DtString("n"));
  v0.setFromString("");
  v0.setFromString(nullptr);
  EXPECT_EQ(v0.name(), DtString("n"));
}

TEST(VdcAttributeUpdate, GoldenImagesTextFormsAndDumps) {
  DtVdcAttributeUpdatePdu current;
  DtVdcAttributeUpdatePduV0 v0;
  EXPECT_EQ(imageOf(current), Image(192, 2580, true).b);
  EXPECT_EQ(imageOf(v0), Image(196, 2580, false).b);
  fill(current);
  fill(v0);
  const Bytes values = concat({be64(1.25), be64(-8)});
  EXPECT_EQ(imageOf(current),
            Image(194, 2580, true)
                .put(160, concat({be32(31), be32(2581), values, be32(0x0A0B0C0D), be32(2), chars("on")}))
                .b);
  // A version-0 text starts at 196, eight bytes after its length.
  EXPECT_EQ(imageOf(v0),
            Image(198, 2580, false)
                .put(152, concat({be32(31), be32(2581), be32(0), be32(0x0A0B0C0D), values, be32(2)}))
                .put(196, chars("on"))
                .b);

  EXPECT_STREQ(current.string(), "31 2581 1.250000 -8.000000");
  EXPECT_EQ(bodyDumpOf(current), dumpLine("ObjectId", "31") +
                                     dumpLine("Type", "VdcAttributeValueSet (2581)") +
                                     dumpLine("Param Version", "1") + dumpLine("GroupId:", "168496141") +
                                     dumpLine("ValueX:", "1.250000") + dumpLine("ValueY:", "-8.000000"));
  v0.setFromString("4 2583 hello world");
  EXPECT_STREQ(v0.string(), "4 2583 hello");
  EXPECT_EQ(v0.length(), 201);
  EXPECT_EQ(v0.valueX(), 1.25);
  EXPECT_EQ(bodyDumpOf(v0), dumpLine("ObjectId", "4") + dumpLine("Type", "VdcAttributeValueSetText (2583)") +
                                dumpLine("GroupId:", "168496141") + dumpLine("Text:", "hello"));
  v0.setFromString("5 2581 3 -4.5");
  EXPECT_EQ(v0.valueY(), -4.5);
  EXPECT_EQ(v0.text(), DtString("hello"));
  v0.setFromString("6 2582 7 8");  // a reset carries only id and type
  EXPECT_STREQ(v0.string(), "6 2582");
  EXPECT_EQ(v0.valueX(), 3.0);
  EXPECT_EQ(bodyDumpOf(v0), dumpLine("ObjectId", "6") + dumpLine("Type", "VdcAttributeValueReset (2582)") +
                                dumpLine("GroupId:", "168496141"));
  v0.setFromString("nonsense");
  EXPECT_STREQ(v0.string(), "0 0");
}

TEST(VdcAttributes, HostileLengthsAndLongWords) {
  DtVdcAttributePdu attribute;
  fill(attribute);
  DtVdcAttributeUpdatePduV0 update;
  fill(update);
  update.setType(DtVdcAttributeValueSetText);
  for (std::uint32_t hostile : {0xFFFFFFFFU, 0x80000000U, 1000U}) {
    DtVdcAttributePdu a = withU32(attribute, 404, hostile);
    EXPECT_EQ(a.name(), DtString("speed"));
    EXPECT_TRUE(endsWith(a.string(), " 1 speed 1 -1.500000 2.250000"));
    EXPECT_TRUE(endsWith(dumpOf(a), dumpLine("Name:", "speed")));
    DtVdcAttributeUpdatePduV0 u = withU32(update, 184, hostile);
    EXPECT_STREQ(u.string(), "31 2583 on");
    EXPECT_TRUE(endsWith(dumpOf(u), dumpLine("Text:", "on")));
  }
  // A received image shorter than its class reads zeros and grows when written.
  DtVdcAttributeUpdatePdu shortUpdate = withLength(DtVdcAttributeUpdatePdu(), 170);
  EXPECT_EQ(shortUpdate.valueY(), 0.0);
  shortUpdate.setText("t");
  EXPECT_EQ(shortUpdate.length(), 193);

  const std::string word(2000, 'w');
  update.setFromString(("1 2583 " + word).c_str());
  EXPECT_EQ(update.text(), DtString(word.c_str()));
  EXPECT_EQ(std::string(update.string()).size(), DtVistralControlPdu::kTextBufferSize - 1U);
  attribute.setFromString(("3 1 " + word + " 0 0 0").c_str());
  EXPECT_EQ(attribute.name(), DtString(word.c_str()));
  EXPECT_EQ(attribute.length(), 2408);
}
