// What every view-control class must do: build empty at its length and command, survive the receive path and
// copying byte for byte, and read its own text form back to the same bytes.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "vcTestSupport.h"
#include "vistralcontrol/compassVcPdu.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/mimicVcPdu.h"
#include "vistralcontrol/modelessVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/pivotVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"

namespace {
template <class T>
struct Traits;
#define VC_TRAITS(Class, command, fullLength, sample) \
  template <>                                         \
  struct Traits<Class> {                              \
    static constexpr int kCommand = command;          \
    static constexpr int kLength = fullLength;        \
    static constexpr const char* kText = sample;      \
  }
VC_TRAITS(DtTetherVCPdu, 1, 308, "tank-1 1.5 -2 3 0.5 0.25 -1 Lead");
VC_TRAITS(DtCompassVCPdu, 2, 308, "1:2:3,10,20,30,40,50,60,Tank 1");
VC_TRAITS(DtMimicVCPdu, 3, 308, "mimicked 0 0 10 1 2 3 Wing");
VC_TRAITS(DtOffsetMimicVCPdu, 4, 308, "1 2 3 4 5 6 7 8");
VC_TRAITS(DtOrbitVCPdu, 5, 312, "Tank 7,100,0.5,1,2,3,4,5,Blue one");
VC_TRAITS(DtTrackVCPdu, 6, 312, "target 1000.25 -2000.5 30 T-72");
VC_TRAITS(DtTetherTrackVCPdu, 7, 424, "a b 0 0 10 Lead Target");
VC_TRAITS(DtMimicTrackVCPdu, 8, 424, "a 1,b 2,1,2,3,first mark,second mark");
VC_TRAITS(DtGroupVCPdu, 9, 188, "0 2 1 10 20 30 40 50 r0 r1 a0");
VC_TRAITS(DtModelessVCPdu, 10, 292, "");
VC_TRAITS(DtPivotVCPdu, 12, 204, "1 2 3 4 5 6 100.5 200.25 -300");
#undef VC_TRAITS
template <>
struct Traits<DtOptionsPdu> {
  static constexpr int kCommand = 11;
  static constexpr int kLength = 1539;
  static std::string text() {
    DtOptionsPdu filled;
    filled.setFov(60);
    filled.setDatabaseToLoad("terrain/db 1");
    filled.setExit(true);
    return filled.string();
  }
  static inline const std::string kTextStorage = text();
  static inline const char* kText = kTextStorage.c_str();
};

Bytes imageOf(const DtPdu& pdu) { return bytesAt(pdu.packet(), 0, pdu.length()); }
}  // namespace

template <class T>
class EveryViewControlPdu : public ::testing::Test {};
using AllClasses = ::testing::Types<DtTetherVCPdu, DtCompassVCPdu, DtMimicVCPdu, DtOffsetMimicVCPdu,
                                    DtOrbitVCPdu, DtTrackVCPdu, DtTetherTrackVCPdu, DtMimicTrackVCPdu,
                                    DtGroupVCPdu, DtModelessVCPdu, DtOptionsPdu, DtPivotVCPdu>;
TYPED_TEST_SUITE(EveryViewControlPdu, AllClasses);

TYPED_TEST(EveryViewControlPdu, BuildsFillsCopiesAndSurvivesTheReceivePath) {
  using T = TypeParam;
  T empty;
  EXPECT_EQ(empty.length(), Traits<T>::kLength);
  EXPECT_EQ(empty.viewerCommand(), Traits<T>::kCommand);
  EXPECT_EQ(empty.pduKind(), 202);
  // A new body is all zero (the options PDU included: no option present).
  const Bytes body = bytesAt(empty.packet(), 152, empty.length() - 152);
  EXPECT_EQ(body, Bytes(body.size(), 0));

  T pdu;
  pdu.setFromString(Traits<T>::kText);
  pdu.setViewerId("viewer 1");
  pdu.setSenderId("controller");
  const Bytes sent = imageOf(pdu);
  const std::string text = pdu.string();

  auto received = receivedAs<T>(pdu);
  ASSERT_NE(received, nullptr);
  EXPECT_EQ(typeid(*received), typeid(T));
  EXPECT_EQ(imageOf(*received), sent);
  EXPECT_EQ(received->string(), text);
  EXPECT_EQ(dumpOf(*received), dumpOf(pdu));

  T copy(pdu);
  EXPECT_EQ(imageOf(copy), sent);
  T assigned;
  assigned = pdu;
  EXPECT_EQ(imageOf(assigned), sent);

  // The text form reads back to the same bytes (modeless has none and leaves the PDU alone).
  T again;
  again.setViewerId("viewer 1");
  again.setSenderId("controller");
  again.setFromString(text.c_str());
  EXPECT_EQ(imageOf(again), sent) << text;

  auto status = std::unique_ptr<DtVistralControlPdu>(
      DtNewViewControlPdu(static_cast<DtViewerCommand>(Traits<T>::kCommand)));
  if (Traits<T>::kCommand == DtVcModeless) {
    EXPECT_EQ(status, nullptr);  // never built by number
  } else {
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(typeid(*status), typeid(T));
    EXPECT_EQ(imageOf(*status), imageOf(empty));
  }
}
