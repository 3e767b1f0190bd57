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
}  // namespace

TEST(Dispatch, ReceivedImagesBecomeTheirClass) {
  struct Case {
    int command;
    const std::type_info& type;
  };
  const Case cases[] = {
      {0, typeid(DtAbsoluteVCPdu)},
      {500, typeid(DtAbsoluteVCPdu)},
      {1, typeid(DtTetherVCPdu)},
      {501, typeid(DtTetherVCPdu)},
      {2, typeid(DtCompassVCPdu)},
      {502, typeid(DtCompassVCPdu)},
      {3, typeid(DtMimicVCPdu)},
      {503, typeid(DtMimicVCPdu)},
      {4, typeid(DtOffsetMimicVCPdu)},
      {504, typeid(DtOffsetMimicVCPdu)},
      {5, typeid(DtOrbitVCPdu)},
      {505, typeid(DtOrbitVCPdu)},
      {6, typeid(DtTrackVCPdu)},
      {506, typeid(DtTrackVCPdu)},
      {7, typeid(DtTetherTrackVCPdu)},
      {507, typeid(DtTetherTrackVCPdu)},
      {8, typeid(DtMimicTrackVCPdu)},
      {508, typeid(DtMimicTrackVCPdu)},
      {9, typeid(DtGroupVCPdu)},
      {509, typeid(DtGroupVCPdu)},
      {10, typeid(DtModelessVCPdu)},
      {510, typeid(DtModelessVCPdu)},
      {11, typeid(DtOptionsPdu)},
      {12, typeid(DtPivotVCPdu)},
      {512, typeid(DtPivotVCPdu)},
      {13, typeid(DtMoveVCPdu)},
      {14, typeid(DtRequestStateVCPdu)},
      {511, typeid(DtUnknownVistralControlPdu)},
      {513, typeid(DtUnknownVistralControlPdu)},
      {514, typeid(DtUnknownVistralControlPdu)},
      {999, typeid(DtUnknownVistralControlPdu)},
      {3000, typeid(DtUnknownVistralControlPdu)},
      {15, typeid(DtUnknownVistralControlPdu)},
  };
  for (bool fromNet : {true, false}) {
    for (const Case& c : cases) {
      auto pdu = received(image(c.command, 196), fromNet);
      ASSERT_NE(pdu, nullptr) << c.command;
      EXPECT_EQ(typeid(*pdu), c.type) << c.command;
      EXPECT_EQ(static_cast<DtVistralControlPdu&>(*pdu).viewerCommand(), c.command);
      EXPECT_EQ(pdu->length(), 196);
    }
    EXPECT_EQ(received(image(0, 196, 201), fromNet), nullptr);
  }
  for (int command : {500, 505, 510, 512}) {
    auto status = received(image(command, 196));
    EXPECT_TRUE(static_cast<DtVistralControlPdu&>(*status).statusCommand()) << command;
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
  auto absolute = made(0);
  ASSERT_NE(absolute, nullptr);
  EXPECT_EQ(typeid(*absolute), typeid(DtAbsoluteVCPdu));
  EXPECT_EQ(absolute->length(), 196);
  auto status = made(500);
  EXPECT_EQ(status->viewerCommand(), 500);
  EXPECT_EQ(made(14)->length(), 152);
  EXPECT_EQ(made(13)->viewerCommand(), DtVcMove);
  // Every other command and status form builds its class empty, at its full length and with its own number.
  struct Row {
    int command;
    const std::type_info& type;
    int length;
  };
  const Row rows[] = {{1, typeid(DtTetherVCPdu), 308},      {2, typeid(DtCompassVCPdu), 308},
                      {3, typeid(DtMimicVCPdu), 308},       {4, typeid(DtOffsetMimicVCPdu), 308},
                      {5, typeid(DtOrbitVCPdu), 312},       {6, typeid(DtTrackVCPdu), 312},
                      {7, typeid(DtTetherTrackVCPdu), 424}, {8, typeid(DtMimicTrackVCPdu), 424},
                      {9, typeid(DtGroupVCPdu), 188},       {11, typeid(DtOptionsPdu), 1539},
                      {12, typeid(DtPivotVCPdu), 204}};
  for (const Row& row : rows) {
    for (int command : {row.command, row.command + 500}) {
      if (command == 511) continue;
      auto pdu = made(command);
      ASSERT_NE(pdu, nullptr) << command;
      EXPECT_EQ(typeid(*pdu), row.type) << command;
      EXPECT_EQ(pdu->viewerCommand(), command);
      EXPECT_EQ(pdu->length(), row.length) << command;
    }
  }
  // Move, options and request state have no status form; modeless is a deliberate hole.
  for (int none : {10, 510, 511, 513, 514, 15, 499, 2489, 2510, -1, 65536})
    EXPECT_EQ(made(none), nullptr) << none;
}
