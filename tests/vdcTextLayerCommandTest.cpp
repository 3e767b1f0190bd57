// Text, layer and command PDUs in both layouts: golden bytes, lengths, text forms, dumps, receive and build.
#include <gtest/gtest.h>

#include "vdcImage.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcTextPdu.h"

TEST(VdcCommand, GoldenImagesInBothLayouts) {
  DtVdcCommandPdu current;
  DtVdcCommandPduV0 v0;
  EXPECT_EQ(current.length(), 172);
  EXPECT_EQ(v0.length(), 176);
  EXPECT_EQ(tailOf(current), DrawImage(172, 2510, true).put(164, be32(2489)).tail());
  EXPECT_EQ(tailOf(v0), DrawImage(176, 2510, false).put(156, be32(2489)).tail());

  for (DtVdcCommandPduBase* pdu :
       {static_cast<DtVdcCommandPduBase*>(&current), static_cast<DtVdcCommandPduBase*>(&v0)}) {
    pdu->setObjectId(0x01020304);
    pdu->setType(DtVdcCommandAddToLayer);
    pdu->setLayerId(0xA0B0C0D0);
  }
  EXPECT_EQ(tailOf(current), DrawImage(172, 2510, true)
                                 .put(160, be32(0x01020304))
                                 .put(164, be32(2514))
                                 .put(168, be32(0xA0B0C0D0))
                                 .tail());
  EXPECT_EQ(tailOf(v0), DrawImage(176, 2510, false)
                            .put(152, be32(0x01020304))
                            .put(156, be32(2514))
                            .put(164, be32(0xA0B0C0D0))
                            .tail());
  EXPECT_EQ(v0.layerId(), 0xA0B0C0D0U);

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

TEST(VdcCommand, ReceiveAndBuild) {
  DtVdcCommandPdu current;
  current.setObjectId(11);
  current.setType(DtVdcCommandShow);
  DtVdcCommandPduV0 v0;
  v0.setObjectId(12);
  v0.setType(DtVdcCommandRemoveFromLayer);
  v0.setLayerId(5);

  auto fromNet = receivedAs<DtVdcCommandPdu>(current);
  ASSERT_NE(fromNet, nullptr);
  EXPECT_EQ(tailOf(*fromNet), tailOf(current));
  auto created = createdAs<DtVdcCommandPdu>(current);
  ASSERT_NE(created, nullptr);
  EXPECT_EQ(created->objectId(), 11U);
  auto createdV0 = createdAs<DtVdcCommandPduV0>(v0);
  ASSERT_NE(createdV0, nullptr);
  EXPECT_EQ(tailOf(*createdV0), tailOf(v0));
  // createFromNet knows only the current classes; the bytes still choose the version-0 offsets.
  auto v0FromNet = receivedAs<DtVdcCommandPdu>(v0);
  ASSERT_NE(v0FromNet, nullptr);
  EXPECT_EQ(v0FromNet->layerId(), 5U);
  EXPECT_STREQ(v0FromNet->string(), "12 2515 5");

  // From an image the class sets its viewer command again and nothing else.
  const Bytes kept = tailOf(current);
  ReceivedImage image(current);
  image.storage[146] = 0;
  image.storage[147] = 9;
  DtVdcCommandPdu fixed(image.vc(), nullptr, nullptr);
  EXPECT_EQ(tailOf(fixed), kept);

  for (int type = DtVdcCommandRemove; type <= DtVdcCommandRemoveFromLayer; ++type) {
    std::unique_ptr<DtVistralControlPdu> made(DtNewDrawControlPdu(static_cast<DtViewerCommand>(type)));
    std::unique_ptr<DtVistralControlPdu> madeV0(DtNewDrawControlPduV0(static_cast<DtViewerCommand>(type)));
    ASSERT_NE(dynamic_cast<DtVdcCommandPdu*>(made.get()), nullptr);
    ASSERT_NE(dynamic_cast<DtVdcCommandPduV0*>(madeV0.get()), nullptr);
    EXPECT_EQ(tailOf(*made), DrawImage(172, 2510, true).put(164, be32(type)).tail());
    EXPECT_EQ(tailOf(*madeV0), DrawImage(176, 2510, false).put(156, be32(type)).tail());
  }
  EXPECT_EQ(DtNewDrawControlPdu(static_cast<DtViewerCommand>(DtVdcCommand)), nullptr);
  EXPECT_EQ(DtNewDrawControlPduV0(static_cast<DtViewerCommand>(DtVdcCommand)), nullptr);
  EXPECT_EQ(DtNewDrawControlPdu(static_cast<DtViewerCommand>(DtVdcUndefined)), nullptr);
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
  EXPECT_EQ(tailOf(current), DrawImage(388, 2560, true).put(170, bytes({50, 50})).tail());
  EXPECT_EQ(tailOf(v0), DrawImage(388, 2560, false).put(162, bytes({50})).tail());
  fill(current);
  fill(v0);
  EXPECT_EQ(tailOf(current), DrawImage(391, 2560, true)
                                 .put(158, bytes({4}))
                                 .put(160, concat({be32(17), be32(2562), bytes({2, 0, 50, 50, 1, 2, 3, 4})}))
                                 .put(176, chars("alpha"))
                                 .put(312, concat({be64(1.5), be64(-2), be64(3)}))
                                 .put(384, concat({be32(3), chars("abc")}))
                                 .tail());
  EXPECT_EQ(tailOf(v0), DrawImage(391, 2560, false)
                            .put(152, concat({be32(17), be32(2562), bytes({4, 2, 50, 0, 1, 2, 3, 4})}))
                            .put(168, chars("alpha"))
                            .put(304, concat({be64(1.5), be64(-2), be64(3)}))
                            .put(376, be32(3))
                            .put(388, chars("abc"))
                            .tail());

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
  EXPECT_EQ(tailOf(current), DrawImage(172, 2590, true).tail());
  EXPECT_EQ(tailOf(v0), DrawImage(176, 2590, false).tail());
  for (DtVdcLayerPduBase* pdu :
       {static_cast<DtVdcLayerPduBase*>(&current), static_cast<DtVdcLayerPduBase*>(&v0)}) {
    pdu->setObjectId(0x0A0B0C0D);
    pdu->setType(DtVdcLayer);
    pdu->setName("roads");
  }
  EXPECT_EQ(tailOf(current), DrawImage(177, 2590, true)
                                 .put(160, concat({be32(0x0A0B0C0D), be32(2590), be32(5), chars("roads")}))
                                 .tail());
  // A version-0 name starts at 176, eight bytes after its length.
  EXPECT_EQ(tailOf(v0), DrawImage(181, 2590, false)
                            .put(152, concat({be32(0x0A0B0C0D), be32(2590)}))
                            .put(164, be32(5))
                            .put(176, chars("roads"))
                            .tail());
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

TEST(VdcTextLayer, ReceiveAndBuild) {
  DtVdcTextPdu text;
  fill(text);
  DtVdcTextPduV0 textV0;
  fill(textV0);
  DtVdcLayerPdu layer;
  layer.setName("a");
  DtVdcLayerPduV0 layerV0;
  layerV0.setName("b");
  auto t = receivedAs<DtVdcTextPdu>(text);
  auto l = receivedAs<DtVdcLayerPdu>(layer);
  auto t0 = createdAs<DtVdcTextPduV0>(textV0);
  auto l0 = createdAs<DtVdcLayerPduV0>(layerV0);
  ASSERT_TRUE(t && l && t0 && l0);
  EXPECT_EQ(tailOf(*t), tailOf(text));
  EXPECT_EQ(tailOf(*l), tailOf(layer));
  EXPECT_EQ(tailOf(*t0), tailOf(textV0));
  EXPECT_EQ(tailOf(*l0), tailOf(layerV0));
  EXPECT_NE(createdAs<DtVdcTextPdu>(text), nullptr);
  EXPECT_NE(createdAs<DtVdcLayerPdu>(layer), nullptr);

  for (int type : {DtVdc2DText, DtVdc3DText}) {
    std::unique_ptr<DtVistralControlPdu> made(DtNewDrawControlPdu(static_cast<DtViewerCommand>(type)));
    std::unique_ptr<DtVistralControlPdu> madeV0(DtNewDrawControlPduV0(static_cast<DtViewerCommand>(type)));
    ASSERT_NE(dynamic_cast<DtVdcTextPdu*>(made.get()), nullptr);
    ASSERT_NE(dynamic_cast<DtVdcTextPduV0*>(madeV0.get()), nullptr);
    EXPECT_EQ(tailOf(*made),
              DrawImage(388, 2560, true).put(164, be32(type)).put(170, bytes({50, 50})).tail());
    EXPECT_EQ(tailOf(*madeV0), DrawImage(388, 2560, false).put(156, be32(type)).put(162, bytes({50})).tail());
  }
  std::unique_ptr<DtVistralControlPdu> made(DtNewDrawControlPdu(static_cast<DtViewerCommand>(DtVdcLayer)));
  std::unique_ptr<DtVistralControlPdu> madeV0(
      DtNewDrawControlPduV0(static_cast<DtViewerCommand>(DtVdcLayer)));
  ASSERT_NE(dynamic_cast<DtVdcLayerPdu*>(made.get()), nullptr);
  ASSERT_NE(dynamic_cast<DtVdcLayerPduV0*>(madeV0.get()), nullptr);
  EXPECT_EQ(tailOf(*made), DrawImage(172, 2590, true).put(164, be32(2590)).tail());
  EXPECT_EQ(tailOf(*madeV0), DrawImage(176, 2590, false).put(156, be32(2590)).tail());
  EXPECT_EQ(DtNewDrawControlPdu(static_cast<DtViewerCommand>(DtVdcText)), nullptr);
  EXPECT_EQ(DtNewDrawControlPduV0(static_cast<DtViewerCommand>(DtVdcText)), nullptr);
}
