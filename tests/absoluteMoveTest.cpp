// Absolute and move PDUs: golden bytes, text forms, dumps.
#include <gtest/gtest.h>

#include <sstream>

#include "testSupport.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"

TEST(Absolute, GoldenImage) {
  DtAbsoluteVCPdu pdu;
  pdu.setWorldLocation(DtVector64(1.5, -2.0, 1e6));
  pdu.setOrientation(DtTaitBryan(0.5, -0.25, 3.0));
  ASSERT_EQ(pdu.length(), 196);
  EXPECT_EQ(pdu.viewerCommand(), DtVcAbsolute);
  EXPECT_EQ(bytesAt(pdu.packet(), 152, 44), concat({bytes({0, 0, 0, 0, 0, 0, 0, 0}), be64(1.5), be64(-2.0),
                                                    be64(1e6), be32f(0.5f), be32f(-0.25f), be32f(3.0f)}));
  EXPECT_EQ(pdu.worldLocation(), DtVector64(1.5, -2.0, 1e6));
  EXPECT_EQ(pdu.orientation(), DtTaitBryan(0.5, -0.25, 3.0));
}

TEST(Absolute, TextFormAndDump) {
  DtAbsoluteVCPdu pdu;
  pdu.setFromString("1.5 2 -3 0.5 0.25 1");
  EXPECT_STREQ(pdu.string(), "1.500000 2.000000 -3.000000 0.500000 0.250000 1.000000");
  pdu.setFromString("7 8");  // fields the text does not give become zero
  EXPECT_STREQ(pdu.string(), "7.000000 8.000000 0.000000 0.000000 0.000000 0.000000");

  std::ostringstream out;
  pdu.printDataToStream(out);
  const std::string dump = out.str();
  EXPECT_NE(dump.find(dumpLine("Location:", "7.000000 8.000000 0.000000")), std::string::npos) << dump;
  EXPECT_NE(dump.find(dumpLine("Orientation:", "0.000000 0.000000 0.000000")), std::string::npos) << dump;
}

TEST(Move, GoldenImageAndDefaults) {
  DtMoveVCPdu pdu;
  ASSERT_EQ(pdu.length(), 208);
  EXPECT_EQ(pdu.viewerCommand(), DtVcMove);
  EXPECT_FALSE(pdu.reset());
  EXPECT_STREQ(pdu.string(), "0 0 0.000000 0.000000 0.000000");

  pdu.setTurn(DtMoveVCPdu::RIGHT);
  pdu.setMove(DtMoveVCPdu::BACKWARDS);
  pdu.setReset(true);
  pdu.setPosition(DtVector64(1, 2, 3));
  pdu.setOrientation(DtTaitBryan(0.25, 0.5, 0.75));
  EXPECT_EQ(bytesAt(pdu.packet(), 156, 52),
            concat({bytes({1, 5, 1, 0}), be64(1), be64(2), be64(3), be64(0.25), be64(0.5), be64(0.75)}));
  EXPECT_EQ(pdu.orientation(), DtTaitBryan(0.25, 0.5, 0.75));
}

TEST(Move, TextFormLeavesOrientationAndResetAlone) {
  DtMoveVCPdu pdu;
  pdu.setOrientation(DtTaitBryan(1, 2, 3));
  pdu.setReset(true);
  pdu.setFromString("1 4 1.5 2 3");
  EXPECT_EQ(pdu.turn(), DtMoveVCPdu::RIGHT);
  EXPECT_EQ(pdu.move(), DtMoveVCPdu::FORWARDS);
  EXPECT_EQ(pdu.position(), DtVector64(1.5, 2, 3));
  EXPECT_EQ(pdu.orientation(), DtTaitBryan(1, 2, 3));
  EXPECT_TRUE(pdu.reset());

  std::ostringstream out;
  pdu.printDataToStream(out);
  EXPECT_NE(out.str().find(dumpLine("Turn Direction: ", "RIGHT") + dumpLine("Move Direction: ", "FORWARDS") +
                           dumpLine("Position:", "1.500000 2.000000 3.000000")),
            std::string::npos)
      << out.str();

  pdu.setFromString("9 200 0 0 0");  // directions outside the enumeration print no line
  std::ostringstream odd;
  pdu.printDataToStream(odd);
  EXPECT_EQ(odd.str().find("Direction"), std::string::npos);
  EXPECT_EQ(pdu.packet()[157], 200);
}
