// Text, layer and command PDUs in both layouts: golden bytes, lengths, text forms, dumps, receive and build.
#include <gtest/gtest.h>

#include <memory>

#include "vcTestSupport.h"
#include "vdcImage.h"
#include "vistralcontrol/vdcCommandPdu.h"

namespace {
// What `create` makes of the PDU's bytes: the layout follows the version mark.
template <class T>
std::unique_ptr<T> createdAs(const DtPdu& sent) {
  ReceivedImage image(sent);
  std::unique_ptr<DtPdu> made(DtVistralControlPdu::create(image.header(), nullptr, nullptr));
  return std::unique_ptr<T>(dynamic_cast<T*>(made.release()));
}
}  // namespace

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
