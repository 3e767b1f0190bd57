// Turning received images and command numbers into objects of the right class.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <typeinfo>

#include "testSupport.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/compassVcPdu.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/mimicVcPdu.h"
#include "vistralcontrol/modelessVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/pivotVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"

namespace {
// A kind-202 image with the given command and header length, everything else zero. The command is written
// even when the header says the image is shorter, as a sender with a wrong length would.
Bytes image(int command, int length, int kind = 202) {
  Bytes b(static_cast<std::size_t>(std::max(length, 160)), 0);
  b[2] = static_cast<std::uint8_t>(kind);
  b[8] = static_cast<std::uint8_t>(length >> 8);
  b[9] = static_cast<std::uint8_t>(length);
  b[146] = static_cast<std::uint8_t>(command >> 8);
  b[147] = static_cast<std::uint8_t>(command);
  return b;
}

std::unique_ptr<DtPdu> received(const Bytes& b, bool fromNet = true) {
  ReceivedImage img(b);
  return std::unique_ptr<DtPdu>(fromNet ? DtVistralControlPdu::createFromNet(img.header(), nullptr, nullptr)
                                        : DtVistralControlPdu::create(img.header(), nullptr, nullptr));
}

// Each command's class and full length, and whether its status form (500 more) is of the class too.
struct Row {
  int command;
  const std::type_info& type;
  int length;
  bool status;
};
const Row kRows[] = {{0, typeid(DtAbsoluteVCPdu), 196, true},      {1, typeid(DtTetherVCPdu), 308, true},
                     {2, typeid(DtCompassVCPdu), 308, true},       {3, typeid(DtMimicVCPdu), 308, true},
                     {4, typeid(DtOffsetMimicVCPdu), 308, true},   {5, typeid(DtOrbitVCPdu), 312, true},
                     {6, typeid(DtTrackVCPdu), 312, true},         {7, typeid(DtTetherTrackVCPdu), 424, true},
                     {8, typeid(DtMimicTrackVCPdu), 424, true},    {9, typeid(DtGroupVCPdu), 188, true},
                     {10, typeid(DtModelessVCPdu), 292, true},     {11, typeid(DtOptionsPdu), 1539, false},
                     {12, typeid(DtPivotVCPdu), 204, true},        {13, typeid(DtMoveVCPdu), 208, false},
                     {14, typeid(DtRequestStateVCPdu), 152, false}};
}  // namespace

TEST(Dispatch, ReceivedImagesBecomeTheirClass) {
  for (bool fromNet : {true, false}) {
    for (const Row& row : kRows) {
      for (int command : {row.command, row.command + 500}) {
        auto pdu = received(image(command, 196), fromNet);
        ASSERT_NE(pdu, nullptr) << command;
        const bool known = command < 500 || row.status;
        EXPECT_EQ(typeid(*pdu), known ? row.type : typeid(DtUnknownVistralControlPdu)) << command;
        EXPECT_EQ(static_cast<DtVistralControlPdu&>(*pdu).viewerCommand(), command);
        EXPECT_EQ(static_cast<DtVistralControlPdu&>(*pdu).statusCommand(), command >= 500) << command;
        EXPECT_EQ(pdu->length(), 196);
      }
    }
    for (int unknown : {15, 999, 3000})
      EXPECT_EQ(typeid(*received(image(unknown, 196), fromNet)), typeid(DtUnknownVistralControlPdu));
    EXPECT_EQ(received(image(0, 196, 201), fromNet), nullptr);
  }
}

TEST(Dispatch, ShortAndOddImagesAreWrappedAsTheyStand) {
  auto shortAbsolute = received(image(0, 100));
  ASSERT_NE(shortAbsolute, nullptr);
  EXPECT_EQ(shortAbsolute->length(), 100);
  // Fields past the image read as zero.
  EXPECT_EQ(static_cast<DtAbsoluteVCPdu&>(*shortAbsolute).worldLocation(), DtVector64(0, 0, 0));

  Bytes tiny = image(0, 196);
  tiny[8] = 0;
  tiny[9] = 5;  // the header claims fewer bytes than the header itself
  auto wrapped = received(tiny);
  ASSERT_NE(wrapped, nullptr);
  EXPECT_EQ(wrapped->length(), 5);
  EXPECT_EQ(DtVistralControlPdu::create(nullptr, nullptr, nullptr), nullptr);
}

TEST(Dispatch, DrawControlVersionMark) {
  Bytes marked = image(2520, 200);
  const Bytes mark = bytes({0x60, 0x0D, 0xF0, 0x0D, 0x00, 0x02});
  std::copy(mark.begin(), mark.end(), marked.begin() + 152);
  ReceivedImage img(marked);
  EXPECT_EQ(DtVistralControlPdu::drawControlParamVersion(img.vc()), 2);
  marked[152] = 0x61;
  EXPECT_EQ(DtVistralControlPdu::drawControlParamVersion(ReceivedImage(marked).vc()), 0);
}

TEST(Dispatch, NewPdusByCommandNumber) {
  const auto made = [](int command) {
    return std::unique_ptr<DtVistralControlPdu>(
        DtNewVistralControlPdu(static_cast<DtViewerCommand>(command)));
  };
  // Every command and status form builds its class empty, at its full length and with its own number;
  // modeless is a deliberate hole.
  for (const Row& row : kRows) {
    for (int command : {row.command, row.command + 500}) {
      auto pdu = made(command);
      if (row.command == DtVcModeless || (command >= 500 && !row.status)) {
        EXPECT_EQ(pdu, nullptr) << command;
        continue;
      }
      ASSERT_NE(pdu, nullptr) << command;
      EXPECT_EQ(typeid(*pdu), row.type) << command;
      EXPECT_EQ(pdu->viewerCommand(), command);
      EXPECT_EQ(pdu->length(), row.length) << command;
    }
  }
  for (int none : {15, 499, 2489, 2510, -1, 65536}) EXPECT_EQ(made(none), nullptr) << none;
}
