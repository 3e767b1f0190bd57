// The platform layer: wire values, the PDU image and its bounds, strings, lists, dumps, enum names.
#include <gtest/gtest.h>

#include <sstream>

#include "tarvex/dtDump.h"
#include "tarvex/dtException.h"
#include "tarvex/dtGlobalObjectDesignatorList.h"
#include "tarvex/dtList.h"
#include "tarvex/dtMessage.h"
#include "tarvex/dtNetTypes.h"
#include "tarvex/dtPdu.h"
#include "tarvex/dtViewerCommand.h"
#include "testSupport.h"

TEST(NetTypes, BigEndianAtExactlyTheirWidth) {
  DtNetU16 u16 = 0x1234;
  DtNetU32 u32 = 0x89ABCDEFu;
  DtNetInt32 i32 = -2;
  DtNetFloat32 f32 = 1.0f;
  DtNetFloat64 f64 = -2.0;
  EXPECT_EQ(Bytes(u16.bytes(), u16.bytes() + 2), bytes({0x12, 0x34}));
  EXPECT_EQ(Bytes(u32.bytes(), u32.bytes() + 4), bytes({0x89, 0xAB, 0xCD, 0xEF}));
  EXPECT_EQ(Bytes(i32.bytes(), i32.bytes() + 4), bytes({0xFF, 0xFF, 0xFF, 0xFE}));
  EXPECT_EQ(Bytes(f32.bytes(), f32.bytes() + 4), bytes({0x3F, 0x80, 0, 0}));
  EXPECT_EQ(Bytes(f64.bytes(), f64.bytes() + 8), bytes({0xC0, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(static_cast<std::uint32_t>(u32), 0x89ABCDEFu);
  EXPECT_EQ(static_cast<std::int32_t>(i32), -2);
  EXPECT_EQ(static_cast<double>(f64), -2.0);

  DtNetGlobalObjectDesignator id;
  id = DtString(std::string(80, 'n'));
  EXPECT_EQ(id.string(), std::string(64, 'n'));  // cut at the field, no terminator needed
  id = "tank 1";
  EXPECT_EQ(id.string(), "tank 1");
}

TEST(Pdu, HeaderAndBoundedAccess) {
  DtPdu pdu;
  pdu.initPdu(40, nullptr);
  EXPECT_EQ(pdu.length(), 40);
  EXPECT_EQ(bytesAt(pdu.packet(), 0, 12), bytes({6, 1, 0, 129, 0, 0, 0, 0, 0, 40, 0, 0}));
  pdu.setF64At(16, 1.0);
  EXPECT_EQ(bytesAt(pdu.packet(), 16, 8), be64(1.0));
  EXPECT_EQ(pdu.u32At(38), 0u);            // straddles the end: reads as zero
  pdu.setU32At(-1, 7);                     // dropped
  pdu.setU32At(DtPdu::kMaxLength - 2, 7);  // past anything a header can state: dropped
  EXPECT_EQ(pdu.length(), 40);
  pdu.setU16At(44, 0xBEEF);  // past the image: kept, not sent
  EXPECT_EQ(pdu.u16At(44), 0xBEEF);
  EXPECT_EQ(pdu.u16At(42), 0);  // the gap is zero-filled
  EXPECT_EQ(pdu.length(), 40);

  pdu.setTextAt(20, 8, "abcdefghij");
  EXPECT_EQ(bytesAt(pdu.packet(), 20, 9), bytes({'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h', 0}));
  EXPECT_EQ(pdu.textAt(20), "abcdefgh");  // unterminated: runs on to the next zero
  pdu.setTextAt(20, 8, "ab");
  EXPECT_EQ(bytesAt(pdu.packet(), 20, 8), bytes({'a', 'b', 0, 0, 0, 0, 0, 0}));
}

TEST(Pdu, ResizingKeepsTheLengthFieldTrue) {
  DtPdu pdu;
  pdu.initPdu(20, nullptr);
  for (int i = 12; i < 20; ++i) pdu.setU8At(i, static_cast<std::uint8_t>(i));
  ASSERT_TRUE(pdu.insertBytes(14, 3));
  EXPECT_EQ(pdu.length(), 23);
  EXPECT_EQ(bytesAt(pdu.packet(), 12, 11), bytes({12, 13, 0, 0, 0, 14, 15, 16, 17, 18, 19}));
  ASSERT_TRUE(pdu.deleteBytes(13, 4));
  EXPECT_EQ(pdu.length(), 19);
  EXPECT_EQ(bytesAt(pdu.packet(), 12, 7), bytes({12, 14, 15, 16, 17, 18, 19}));
  ASSERT_TRUE(pdu.changeSize(3000));  // past the inline storage
  EXPECT_EQ(pdu.length(), 3000);
  EXPECT_EQ(pdu.u8At(2999), 0);
  EXPECT_EQ(pdu.u8At(18), 19);
  ASSERT_TRUE(pdu.changeSize(16));
  ASSERT_TRUE(pdu.changeSize(18));
  EXPECT_EQ(pdu.u16At(16), 0);  // regrown bytes are zero, not stale

  DtPdu copy(pdu);
  EXPECT_EQ(bytesAt(copy.packet(), 0, 18), bytesAt(pdu.packet(), 0, 18));
  // A length field written directly never claims more bytes than packet() has behind it.
  copy.setU16At(8, 60000);
  EXPECT_EQ(copy.length(), 60000);
  EXPECT_EQ(bytesAt(copy.packet(), 59990, 10), Bytes(10, 0));
  EXPECT_EQ(bytesAt(copy.packet(), 12, 6), bytesAt(pdu.packet(), 12, 6));
  EXPECT_FALSE(pdu.changeSize(DtPdu::kMaxLength + 1));
  EXPECT_FALSE(pdu.insertBytes(19, 1));  // offset past the image
  EXPECT_FALSE(pdu.insertBytes(12, -1));
  EXPECT_FALSE(pdu.insertBytes(12, DtPdu::kMaxLength));
  EXPECT_TRUE(pdu.deleteBytes(14, 1000));  // clipped at the end
  EXPECT_EQ(pdu.length(), 14);
  EXPECT_EQ(pdu.length(), 14);
}

TEST(Pdu, ReceivedImageIsCopiedByItsHeaderLength) {
  Bytes image(300, 0xAA);
  image[8] = 0;
  image[9] = 200;
  DtPdu pdu;
  pdu.initPdu(image.data(), nullptr, nullptr);
  EXPECT_EQ(pdu.length(), 200);
  EXPECT_EQ(pdu.u8At(199), 0xAA);
  EXPECT_EQ(pdu.u8At(200), 0);  // not copied: reads as zero
  unsigned char out[6];
  pdu.copyBytesAt(197, out, 6);
  EXPECT_EQ(Bytes(out, out + 6), bytes({0xAA, 0xAA, 0xAA, 0, 0, 0}));
  pdu.copyBytesAt(-2, out, 3);
  EXPECT_EQ(Bytes(out, out + 3), bytes({0, 0, 0xAA}));  // before the image: zero
}

TEST(Strings, NullEmptyAndNumbers) {
  EXPECT_TRUE(DtString().isNull());
  EXPECT_FALSE(DtString("").isNull());
  EXPECT_EQ(DtString(), DtString(""));
  EXPECT_TRUE(DtString(static_cast<const char*>(nullptr)).isNull());
  EXPECT_STREQ(DtString().c_str(), "");
  EXPECT_EQ(DtString(2.5), "2.500000");
  EXPECT_NE(DtString("a"), DtString("b"));
  EXPECT_EQ(DtVector64(1, 2, 3).string(), "1.000000 2.000000 3.000000");
  EXPECT_EQ(DtVector64(1, 2, 3)[2], 3);
  EXPECT_EQ(DtVector64(1, 2, 3)[3], 0);
}

TEST(Lists, OrderAndRemoval) {
  DtList list;
  int a = 1, b = 2, c = 3;
  list.add(&a);
  list.add(&b);
  list.add(&c);
  EXPECT_EQ(list.count(), 3);
  EXPECT_EQ(list.remove(list.first()->next()), &b);
  EXPECT_EQ(list.first()->next()->data(), &c);
  EXPECT_EQ(list.remove(list.last()), &c);
  list.add(&b);  // appends after the new tail
  EXPECT_EQ(list.first()->next()->data(), &b);
  DtListItem stranger(&a);
  EXPECT_EQ(list.remove(&stranger), nullptr);
  EXPECT_EQ(list.count(), 2);

  DtGlobalObjectDesignatorList names{"a", "b"};
  names.add("c");
  names.remove(1);
  EXPECT_EQ(names.count(), 2);
  EXPECT_EQ(names.name(1), "c");
  EXPECT_EQ(names.name(5), "");
}

TEST(Messages, DumpLinesEnumNamesAndExceptions) {
  std::ostringstream out;
  {
    DtStreamRedirect redirect(DtDumpStream, out);
    DtDumpString("Name:", "x");
    DtDumpEnum("A label longer than the column", "VcOrbit", 5);
    DtDumpHexBytes("Hex", "\x01\xff", 2);
    DtDumpBoolean("Flag", false);
    DtDumpText("bare\n");
  }
  EXPECT_EQ(out.str(),
            "Name:                    x\nA label longer than the column VcOrbit (5)\n"
            "Hex                      01 ff\nFlag                     false\nbare\n");

  EXPECT_STREQ(DtEnumString(DtVcOrbit), "VcOrbit");
  EXPECT_STREQ(DtEnumString(DtVcPivotStatus), "VcPivotStatus");
  EXPECT_STREQ(DtEnumString(DtVcDrawArea), "VcDrawArea");
  EXPECT_STREQ(DtEnumString(static_cast<DtViewerCommand>(511)), "UnknownEnum");

  const std::string what = thrown([] { DT_THROW("bad thing"); });
  EXPECT_EQ(what.rfind("DtException: bad thing (", 0), 0u) << what;
  EXPECT_NE(what.find("tests/tarvexTest.cpp:"), std::string::npos) << what;
}
