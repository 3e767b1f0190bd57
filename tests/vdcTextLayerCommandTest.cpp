// Text, layer and command PDUs in both layouts: golden bytes, lengths, text forms, dumps, hostile texts.
#include <gtest/gtest.h>

#include "drawTestSupport.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcTextPdu.h"

TEST(VdcCommand, GoldenImagesInBothLayouts) {
  DtVdcCommandPdu current;
  DtVdcCommandPduV0 v0;
  EXPECT_EQ(imageOf(current), Image(172, 2510, true).put(164, be32(2489)).b);
  EXPECT_EQ(imageOf(v0), Image(176, 2510, false).put(156, be32(2489)).b);

  for (DtVdcCommandPduBase* pdu :
       {static_cast<DtVdcCommandPduBase*>(&current), static_cast<DtVdcCommandPduBase*>(&v0)}) {
    pdu->setObjectId(0x01020304);
    pdu->setType(DtVdcCommandAddToLayer);
    pdu->setLayerId(0xA0B0C0D0);
  }
  EXPECT_EQ(
      imageOf(current),
      Image(172, 2510, true).put(160, be32(0x01020304)).put(164, be32(2514)).put(168, be32(0xA0B0C0D0)).b);
  EXPECT_EQ(
      imageOf(v0),
      Image(176, 2510, false).put(152, be32(0x01020304)).put(156, be32(2514)).put(164, be32(0xA0B0C0D0)).b);

  // From an image the class sets its viewer command again and nothing else.
  ReceivedImage image(current);
  image.storage[147] = 9;
  EXPECT_EQ(imageOf(DtVdcCommandPduV0(image.vc(), nullptr, nullptr)), imageOf(current));

  // Built with a place-holder, the type is left as the image was made.
  DtVdcCommandPdu placed(reinterpret_cast<DtBufferPlaceHolder*>(&current));
  EXPECT_EQ(placed.type(), 0U);
  EXPECT_EQ(placed.paramVersion(), 1U);
}

TEST(VdcCommand, TextFormsAndDumps) {
  DtVdcCommandPdu pdu;
  pdu.setFromString("7 2514 3");
  EXPECT_EQ(pdu.objectId(), 7U);
  EXPECT_EQ(pdu.type(), 2514U);
  EXPECT_EQ(pdu.layerId(), 3U);
  EXPECT_STREQ(pdu.string(), "7 2514 3");
  EXPECT_EQ(bodyDumpOf(pdu), dumpLine("ObjectId", "7") + dumpLine("Type", "VdcCommandAddToLayer (2514)") +
                                 dumpLine("Param Version", "1") + dumpLine("LayerId:", "3"));

  // Other commands carry no layer id, neither in text nor in the dump, and reading one leaves it alone.
  pdu.setFromString("9 2511 5");
  EXPECT_STREQ(pdu.string(), "9 2511");
  EXPECT_EQ(pdu.layerId(), 3U);
  DtVdcCommandPduV0 v0;
  v0.setFromString("4294967295 2515 12");
  EXPECT_STREQ(v0.string(), "4294967295 2515 12");
  v0.setType(DtVdcCommandHide);
  EXPECT_EQ(bodyDumpOf(v0), dumpLine("ObjectId", "4294967295") + dumpLine("Type", "VdcCommandHide (2512)"));

  // What cannot be parsed reads as zero; nothing crashes.
  v0.setFromString("x");
  EXPECT_STREQ(v0.string(), "0 0");
  v0.setFromString(nullptr);
  EXPECT_STREQ(v0.string(), "0 0");
}

namespace {
void fill(DtVdcTextPduBase& pdu) {
  pdu.setObjectId(17);
  pdu.setType(DtVdc3DText);
  pdu.attachTo(DtVector64(1.5, -2, 3));
  pdu.attachTo(DtString("alpha"));
  unsigned char rgba[4] = {1, 2, 3, 4};
  pdu.setColor(rgba);
  pdu.setFlashing(true);
  pdu.setText("abc");
}
}  // namespace

TEST(VdcText, GoldenImagesAndLengths) {
  DtVdcTextPdu current;
  DtVdcTextPduV0 v0;
  EXPECT_EQ(imageOf(current), Image(388, 2560, true).put(170, bytes({50, 50})).b);
  EXPECT_EQ(imageOf(v0), Image(388, 2560, false).put(162, bytes({50})).b);
  fill(current);
  fill(v0);
  EXPECT_EQ(imageOf(current), Image(391, 2560, true)
                                  .put(158, bytes({4}))
                                  .put(160, concat({be32(17), be32(2562), bytes({2, 0, 50, 50, 1, 2, 3, 4})}))
                                  .put(176, chars("alpha"))
                                  .put(312, concat({be64(1.5), be64(-2), be64(3)}))
                                  .put(384, concat({be32(3), chars("abc")}))
                                  .b);
  EXPECT_EQ(imageOf(v0), Image(391, 2560, false)
                             .put(152, concat({be32(17), be32(2562), bytes({4, 2, 50, 0, 1, 2, 3, 4})}))
                             .put(168, chars("alpha"))
                             .put(304, concat({be64(1.5), be64(-2), be64(3)}))
                             .put(376, be32(3))
                             .put(388, chars("abc"))
                             .b);

  // An empty text writes length 0 and leaves the size and the old bytes; other texts size the PDU exactly.
  for (DtVdcTextPduBase* pdu :
       {static_cast<DtVdcTextPduBase*>(&current), static_cast<DtVdcTextPduBase*>(&v0)}) {
    const int lengthAt = pdu == &current ? 384 : 376;
    pdu->setText("");
    EXPECT_EQ(pdu->length(), 391);
    EXPECT_EQ(bytesAt(pdu->packet(), lengthAt, 4), be32(0));
    EXPECT_EQ(bytesAt(pdu->packet(), 388, 3), chars("abc"));
    EXPECT_EQ(pdu->text(), DtString(""));
    pdu->setText("a longer text");
    EXPECT_EQ(pdu->length(), 401);
    pdu->setText("xy");
    EXPECT_EQ(pdu->length(), 390);
    EXPECT_EQ(bytesAt(pdu->packet(), lengthAt, 4), be32(2));
    EXPECT_EQ(pdu->text(), DtString("xy"));
  }
}

TEST(VdcText, TextFormAndDump) {
  DtVdcTextPdu pdu;
  fill(pdu);
  EXPECT_STREQ(
      pdu.string(),
      "17 2562 2 1.500000 -2.000000 3.000000 0.000000 -2.000000 3.000000 alpha  0 0 50 1 2 3 4 1 abc");
  const std::string dump = bodyDumpOf(pdu);
  EXPECT_TRUE(endsWith(dump, dumpLine("Flashing", "true") + dumpLine("Text:", "abc"))) << dump;

  // A text read back is the line's last word; the attachable part comes from the whole line.
  DtVdcTextPduV0 v0;
  v0.setFromString("5 2561 0 1 2 3 4 5 6 e1 e2 7 8 9 10 20 30 40 0 hello big world");
  EXPECT_EQ(v0.text(), DtString("world"));
  EXPECT_EQ(v0.objectId(), 5U);
  EXPECT_EQ(v0.attachEntityId(1), DtString("e2"));
  EXPECT_EQ(v0.length(), 393);
  v0.setFromString("5 2561 0 1 2 3 4 5 6 e1 e2 7 8 9 10 20 30 40 0 ");  // nothing after the last blank
  EXPECT_EQ(v0.text(), DtString(""));
  EXPECT_EQ(v0.length(), 393);
  v0.setFromString("lonely");
  EXPECT_EQ(v0.text(), DtString("lonely"));
}

TEST(VdcLayer, GoldenImagesTextFormAndDump) {
  DtVdcLayerPdu current;
  DtVdcLayerPduV0 v0;
  EXPECT_EQ(imageOf(current), Image(172, 2590, true).b);
  EXPECT_EQ(imageOf(v0), Image(176, 2590, false).b);
  for (DtVdcLayerPduBase* pdu :
       {static_cast<DtVdcLayerPduBase*>(&current), static_cast<DtVdcLayerPduBase*>(&v0)}) {
    pdu->setObjectId(0x0A0B0C0D);
    pdu->setType(DtVdcLayer);
    pdu->setName("roads");
  }
  EXPECT_EQ(
      imageOf(current),
      Image(177, 2590, true).put(160, concat({be32(0x0A0B0C0D), be32(2590), be32(5), chars("roads")})).b);
  // A version-0 name starts at 176, eight bytes after its length.
  EXPECT_EQ(imageOf(v0), Image(181, 2590, false)
                             .put(152, concat({be32(0x0A0B0C0D), be32(2590)}))
                             .put(164, be32(5))
                             .put(176, chars("roads"))
                             .b);
  v0.setName("");
  EXPECT_EQ(v0.length(), 181);
  EXPECT_EQ(v0.name(), DtString(""));

  EXPECT_STREQ(current.string(), "168496141 roads");
  EXPECT_EQ(bodyDumpOf(current), dumpLine("ObjectId", "168496141") + dumpLine("Type", "VdcLayer (2590)") +
                                     dumpLine("Param Version", "1") + dumpLine("Name:", "roads"));
  current.setFromString("6 main roads");
  EXPECT_EQ(current.objectId(), 6U);
  EXPECT_EQ(current.name(), DtString("main"));
  EXPECT_EQ(current.length(), 176);
  EXPECT_EQ(bodyDumpOf(v0),
            dumpLine("ObjectId", "168496141") + dumpLine("Type", "VdcLayer (2590)") + dumpLine("Name:", ""));
}

TEST(VdcTextLayer, HostileAndLongTexts) {
  // Huge length fields read to the image's end and no further.
  DtVdcTextPdu text;
  text.setText("abc");
  for (std::uint32_t hostile : {0xFFFFFFFFU, 0x80000000U, 0x7FFFFFFFU, 4U}) {
    DtVdcTextPdu received = withU32(text, 384, hostile);
    EXPECT_EQ(received.text(), DtString("abc"));
    EXPECT_NE(std::string(received.string()).find(" 0 abc"), std::string::npos);
    EXPECT_NE(dumpOf(received).find(dumpLine("Text:", "abc")), std::string::npos);
  }
  DtVdcLayerPduV0 layer;
  layer.setName("xyz");
  EXPECT_EQ(withU32(layer, 164, 0xFFFFFFF0U).name(), DtString("xyz"));
  // An image shorter than its class reads as empty and grows when written.
  DtVdcLayerPdu shortLayer = withLength(DtVdcLayerPdu(), 160);
  EXPECT_EQ(shortLayer.name(), DtString(""));
  shortLayer.setName("n");
  EXPECT_EQ(shortLayer.name(), DtString("n"));
  EXPECT_EQ(shortLayer.length(), 173);

  // A word as long as the line is read whole; the text form is cut at the buffer's end.
  const std::string longName(1000, 'n');
  layer.setFromString(("1 " + longName).c_str());
  EXPECT_EQ(layer.name(), DtString(longName.c_str()));
  EXPECT_EQ(layer.length(), 1176);
  EXPECT_EQ(std::string(layer.string()), "1 " + longName.substr(0, DtVistralControlPdu::kTextBufferSize - 3));
  text.setFromString(("1 2 3 " + longName).c_str());
  EXPECT_EQ(text.text(), DtString(longName.c_str()));
  EXPECT_EQ(std::string(text.string()).size(), DtVistralControlPdu::kTextBufferSize - 1U);
}
