// Text, layer and command PDUs in both layouts: golden bytes, lengths, text forms, dumps, receive and build.
#include <gtest/gtest.h>

#include <typeinfo>

#include "vdcImage.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcTextPdu.h"

TEST(VdcCommand, GoldenImagesInBothLayouts) {
  DtVdcCommandPdu current;
  DtVdcCommandPduV0 v0;
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

  // From an image the class sets its viewer command again and nothing else.
  ReceivedImage image(current);
  image.storage[147] = 9;
  EXPECT_EQ(tailOf(DtVdcCommandPduV0(image.vc(), nullptr, nullptr)), tailOf(current));

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

// Every class of these families through both receive paths, and built by each of its types.
TEST(VdcDrawFamilies, ReceiveAndBuildEveryClass) {
  DtVdcCommandPdu command;
  DtVdcCommandPduV0 commandV0;
  DtVdcTextPdu text;
  DtVdcTextPduV0 textV0;
  DtVdcLayerPdu layer;
  DtVdcLayerPduV0 layerV0;
  DtVdcAttributePdu attribute;
  DtVdcAttributePduV0 attributeV0;
  DtVdcAttributeUpdatePdu update;
  DtVdcAttributeUpdatePduV0 updateV0;
  text.setText("t");
  textV0.setText("t0");
  layer.setName("l");
  layerV0.setName("l0");
  attribute.setName("a");
  attributeV0.setName("a0");
  update.setText("u");
  updateV0.setText("u0");
  DtVistralDrawControlPdu* const all[] = {&command, &commandV0, &text,        &textV0, &layer,
                                          &layerV0, &attribute, &attributeV0, &update, &updateV0};
  std::uint32_t id = 100;
  for (DtVistralDrawControlPdu* sent : all) {
    sent->setObjectId(id++);
    ReceivedImage image(*sent);
    std::unique_ptr<DtPdu> created(DtVistralControlPdu::create(image.header(), nullptr, nullptr));
    std::unique_ptr<DtPdu> fromNet(DtVistralControlPdu::createFromNet(image.header(), nullptr, nullptr));
    ASSERT_TRUE(created && fromNet);
    EXPECT_EQ(typeid(*created), typeid(*sent));
    EXPECT_EQ(tailOf(*created), tailOf(*sent));
    // createFromNet knows only the current classes; a version-0 image still reads with version-0 offsets.
    EXPECT_EQ(tailOf(*fromNet), tailOf(*sent));
    EXPECT_EQ(static_cast<DtVistralDrawControlPdu&>(*fromNet).objectId(), sent->objectId());
  }
  EXPECT_EQ(typeid(*receivedAs<DtVistralControlPdu>(layerV0)), typeid(DtVdcLayerPdu));
  EXPECT_EQ(receivedAs<DtVdcLayerPdu>(layerV0)->name(), DtString("l0"));

  struct Row {
    int first, last, command, length, lengthV0;
    const std::type_info& current;
    const std::type_info& v0;
  };
  const Row rows[] = {
      {2511, 2515, 2510, 172, 176, typeid(DtVdcCommandPdu), typeid(DtVdcCommandPduV0)},
      {2561, 2562, 2560, 388, 388, typeid(DtVdcTextPdu), typeid(DtVdcTextPduV0)},
      {2571, 2577, 2570, 408, 408, typeid(DtVdcAttributePdu), typeid(DtVdcAttributePduV0)},
      {2581, 2583, 2580, 192, 196, typeid(DtVdcAttributeUpdatePdu), typeid(DtVdcAttributeUpdatePduV0)},
      {2590, 2590, 2590, 172, 176, typeid(DtVdcLayerPdu), typeid(DtVdcLayerPduV0)},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(DtNewDrawControlPdu(static_cast<DtViewerCommand>(row.first - 1)), nullptr);
    EXPECT_EQ(DtNewDrawControlPduV0(static_cast<DtViewerCommand>(row.first - 1)), nullptr);
    for (int type = row.first; type <= row.last; ++type) {
      std::unique_ptr<DtVistralControlPdu> made(DtNewDrawControlPdu(static_cast<DtViewerCommand>(type)));
      std::unique_ptr<DtVistralControlPdu> madeV0(DtNewDrawControlPduV0(static_cast<DtViewerCommand>(type)));
      ASSERT_TRUE(made && madeV0) << type;
      EXPECT_EQ(typeid(*made), row.current);
      EXPECT_EQ(typeid(*madeV0), row.v0);
      DrawImage image(row.length, row.command, true);
      DrawImage imageV0(row.lengthV0, row.command, false);
      image.put(164, be32(type));
      imageV0.put(156, be32(type));
      if (row.command == 2560) {  // a new text sits half-way along its anchors
        image.put(170, bytes({50, 50}));
        imageV0.put(162, bytes({50}));
      }
      EXPECT_EQ(tailOf(*made), image.tail());
      EXPECT_EQ(tailOf(*madeV0), imageV0.tail());
    }
  }
}
