// The fixed part of every control PDU: offsets, byte order, status rules, number test, text buffer, dump.
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>

#include "tarvex/dtMessage.h"
#include "testSupport.h"
#include "vistralcontrol/absoluteVcPdu.h"

TEST(ControlPdu, FixedPartLiesAtItsOffsetsInNetworkOrder) {
  DtRequestStateVCPdu pdu;
  pdu.setViewerId("viewer-7");
  pdu.setSenderId("app");
  pdu.setTimeStamp(0x01020304);
  const unsigned char* p = pdu.packet();
  ASSERT_EQ(pdu.length(), 152);
  EXPECT_EQ(bytesAt(p, 0, 12), bytes({6, 1, 202, 129, 1, 2, 3, 4, 0, 152, 0, 0}));
  EXPECT_EQ(std::memcmp(p + 12, "viewer-7\0\0", 10), 0);
  EXPECT_EQ(std::memcmp(p + 76, "app\0", 4), 0);
  EXPECT_EQ(bytesAt(p, 146, 2), bytes({0, 14}));
  EXPECT_EQ(pdu.viewerCommand(), DtVcRequestState);

  pdu.setViewerCommand(static_cast<DtViewerCommand>(0x12345));  // low 16 bits only
  EXPECT_EQ(bytesAt(p, 146, 2), bytes({0x23, 0x45}));
}

TEST(ControlPdu, IdsShareOneCacheAndAre64ByteFields) {
  DtAbsoluteVCPdu pdu;
  pdu.setViewerId("first");
  pdu.setSenderId("second");
  const DtString& viewer = pdu.viewerId();
  EXPECT_EQ(viewer, "first");
  pdu.senderId();
  EXPECT_EQ(viewer, "second");  // the reference shows the later call

  const std::string long70(70, 'x');
  pdu.setViewerId(long70);
  EXPECT_EQ(pdu.viewerId(), std::string(64, 'x'));
  EXPECT_EQ(pdu.senderId(), "second");  // the sender field behind it is untouched
}

TEST(ControlPdu, IgnoreFlagsAreSignExtendedAndTheRequestStateCarriesNone) {
  DtAbsoluteVCPdu absolute;
  absolute.setIgnoreFlags(0x80000000UL);
  EXPECT_EQ(absolute.ignoreFlags(), 0xFFFFFFFF80000000UL);
  absolute.setIgnoreFlags(0x1234567890UL);  // low 32 bits only
  EXPECT_EQ(bytesAt(absolute.packet(), 152, 4), bytes({0x34, 0x56, 0x78, 0x90}));
  EXPECT_EQ(absolute.ignoreFlags(), 0x34567890UL);

  DtRequestStateVCPdu request;
  request.setIgnoreFlags(0x7);
  EXPECT_EQ(request.length(), 152);  // the flags lie past the image: never sent
  EXPECT_EQ(request.ignoreFlags(), 0x7UL);
}

TEST(ControlPdu, StatusCommandRules) {
  DtRequestStateVCPdu pdu;
  const auto after = [&](int command, bool status) {
    pdu.setViewerCommand(static_cast<DtViewerCommand>(command));
    pdu.setStatusCommand(status);
    return static_cast<int>(pdu.viewerCommand());
  };
  EXPECT_EQ(after(499, true), 999);
  EXPECT_EQ(after(500, true), 500);
  EXPECT_EQ(after(499, false), 499);
  EXPECT_EQ(after(1010, false), 510);
  EXPECT_EQ(after(5, true), 505);
  for (int c : {500, 600}) {
    pdu.setViewerCommand(static_cast<DtViewerCommand>(c));
    EXPECT_TRUE(pdu.statusCommand()) << c;
  }
  for (int c : {499, 601, 999}) {
    pdu.setViewerCommand(static_cast<DtViewerCommand>(c));
    EXPECT_FALSE(pdu.statusCommand()) << c;
  }
}

TEST(ControlPdu, IsNumber) {
  DtRequestStateVCPdu pdu;
  for (const char* yes : {"-12.5", "-.5", "5.", "007", "0"}) EXPECT_TRUE(pdu.isNumber(yes)) << yes;
  for (const char* no : {"-", ".", "", "1.2.3", "5-", "1-2", "..1", "+1", "1e5", " 1", "Tank"})
    EXPECT_FALSE(pdu.isNumber(no)) << no;
}

TEST(ControlPdu, BaseTextFormIsEmptyAndCopiesCarryTheTextBuffer) {
  DtRequestStateVCPdu request;
  EXPECT_STREQ(request.string(), "");
  request.setFromString("anything");  // ignored

  DtAbsoluteVCPdu pdu;
  pdu.setFromString("1 2 3 4 5 6");
  const char* text = pdu.string();
  DtAbsoluteVCPdu copy(pdu);
  EXPECT_EQ(std::memcmp(copy.packet(), pdu.packet(), 196), 0);
  EXPECT_STREQ(textBufferOf(copy), text);
  DtAbsoluteVCPdu assigned;
  assigned = pdu;
  EXPECT_STREQ(textBufferOf(assigned), text);
}

TEST(ControlPdu, DumpOfTheFixedPart) {
  DtRequestStateVCPdu pdu;
  pdu.setViewerId("v1");
  pdu.setSenderId("s1");
  pdu.setViewerCommand(DtVcOrbitStatus);
  std::ostringstream out;
  pdu.printDataToStream(out);
  // The request-state image ends before the flags, so they dump as zero bytes.
  EXPECT_EQ(out.str(), dumpLine("ViewerId", "v1") + dumpLine("SenderId", "s1") +
                           dumpLine("Command", "VcOrbitStatus (505)") +
                           dumpLine("IgnoreFlags", "00 00 00 00"));

  DtAbsoluteVCPdu absolute;
  absolute.setIgnoreFlags(0x000001FF);
  std::ostringstream flags;
  absolute.printDataToStream(flags);
  EXPECT_NE(flags.str().find(dumpLine("IgnoreFlags", "ff 01 00 00")), std::string::npos);  // host order
}
