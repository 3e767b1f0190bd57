// What every draw-control class must do in both layouts: build empty at its length, command and parameter
// version, survive the receive path and copying byte for byte, and come back from DtNewDrawControlPdu.
#include <gtest/gtest.h>

#include <memory>

#include "drawTestSupport.h"
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vdcTrianglePdu.h"

namespace {
template <class T>
struct Traits;
// Class, viewer command, length built empty, version 0 or not, a type DtNewDrawControlPdu(V0) builds it for
// (0: none), and a text form to fill it with.
#define DRAW_TRAITS(Class, command, emptyLength, isV0, newType, sample) \
  template <>                                                           \
  struct Traits<Class> {                                                \
    static constexpr int kCommand = command;                            \
    static constexpr int kLength = emptyLength;                         \
    static constexpr bool kV0 = isV0;                                   \
    static constexpr int kNewType = newType;                            \
    static constexpr const char* kText = sample;                        \
  }

DRAW_TRAITS(DtVdcCommandPdu, 2510, 172, false, 2514, "9 2514 3");
DRAW_TRAITS(DtVdcCommandPduV0, 2510, 176, true, 2515, "9 2515 4");
DRAW_TRAITS(DtVdcLinePdu, 2520, 408, false, 2522, "9 2522 10 1 2 3 4 5 6 tank-1 tank-2 3 4 0 10 20 30 40 1");
DRAW_TRAITS(DtVdcLinePduV0, 2520, 392, true, 2521, "9 2521 10 1 2 3 4 5 6 tank-1 tank-2 3 4 0 10 20 30 40 1");
DRAW_TRAITS(DtVdcSegmentedLinePduV0, 2530, 388, true, 2531,
            "9 2531 10 1 2 3 4 5 6 tank-1 tank-2 3 4 0 10 20 30 40 1");
DRAW_TRAITS(DtVdcPolyObjectPdu, 2540, 412, false, 2544,
            "9 2544 10 1 2 3 4 5 6 tank-1 tank-2 3 4 0 10 20 30 40 1 255 1 2 3 4 0.5 0.25 0.125");
DRAW_TRAITS(DtVdcPolyObjectPduV0, 2540, 412, true, 2541,
            "9 2541 10 1 2 3 4 5 6 tank-1 tank-2 3 4 0 10 20 30 40 1 255 1 2 3 4 0.5 0.25 0.125");
DRAW_TRAITS(DtVdcTrianglePdu, 2550, 488, false, 2552,
            "9 2552 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 1 0 1 1 1 1 0 0 0 1 2 3 4 5 6 7 8 9");
DRAW_TRAITS(DtVdcTrianglePduV0, 2550, 484, true, 2551,
            "9 2551 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 1 0 1 1 1 1 0 0 0 1 2 3 4 5 6 7 8 9");
DRAW_TRAITS(DtVdcAreaPdu, 2553, 1312, false, 2555, "9 2555 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 1");
DRAW_TRAITS(DtVdcAreaPduV0, 2553, 796, true, 0, "9 2555 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 1");
DRAW_TRAITS(DtVdcTextPdu, 2560, 388, false, 2562, "9 2562 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 1 Hello");
DRAW_TRAITS(DtVdcTextPduV0, 2560, 388, true, 2561, "9 2561 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 1 Hello");
DRAW_TRAITS(DtVdcAttributePdu, 2570, 408, false, 2574,
            "9 2574 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 0 12 1 Speed 1 0.5 99.5");
DRAW_TRAITS(DtVdcAttributePduV0, 2570, 408, true, 2577,
            "9 2577 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 0 12 1 Speed 1 0.5 99.5");
DRAW_TRAITS(DtVdcAttributeUpdatePdu, 2580, 192, false, 2581, "9 2581 12.5 -3.25");
DRAW_TRAITS(DtVdcAttributeUpdatePduV0, 2580, 196, true, 2583, "9 2583 fast");
DRAW_TRAITS(DtVdcLayerPdu, 2590, 172, false, 2590, "9 Overlays");
DRAW_TRAITS(DtVdcLayerPduV0, 2590, 176, true, 2590, "9 Overlays");
#undef DRAW_TRAITS

}  // namespace

template <class T>
class EveryDrawControlPdu : public ::testing::Test {};
using AllDrawClasses =
    ::testing::Types<DtVdcCommandPdu, DtVdcCommandPduV0, DtVdcLinePdu, DtVdcLinePduV0,
                     DtVdcSegmentedLinePduV0, DtVdcPolyObjectPdu, DtVdcPolyObjectPduV0, DtVdcTrianglePdu,
                     DtVdcTrianglePduV0, DtVdcAreaPdu, DtVdcAreaPduV0, DtVdcTextPdu, DtVdcTextPduV0,
                     DtVdcAttributePdu, DtVdcAttributePduV0, DtVdcAttributeUpdatePdu,
                     DtVdcAttributeUpdatePduV0, DtVdcLayerPdu, DtVdcLayerPduV0>;
TYPED_TEST_SUITE(EveryDrawControlPdu, AllDrawClasses);

TYPED_TEST(EveryDrawControlPdu, BuildsFillsCopiesAndSurvivesTheReceivePath) {
  using T = TypeParam;
  T empty;
  EXPECT_EQ(empty.length(), Traits<T>::kLength);
  EXPECT_EQ(empty.viewerCommand(), Traits<T>::kCommand);
  EXPECT_EQ(empty.pduKind(), 202);
  EXPECT_EQ(empty.paramVersion(), Traits<T>::kV0 ? 0u : 1u);
  EXPECT_EQ(bytesAt(empty.packet(), 152, 4) == be32(0x600DF00D), !Traits<T>::kV0);

  T pdu;
  pdu.setFromString(Traits<T>::kText);
  pdu.setViewerId("viewer 1");
  pdu.setSenderId("drawer");
  EXPECT_EQ(pdu.objectId(), 9u) << Traits<T>::kText;
  const Bytes sent = imageOf(pdu);
  const std::string text = pdu.string();

  // Version-0 images carry no mark: only create reads them in their own layout.
  ReceivedImage image(pdu);
  std::unique_ptr<DtPdu> made(Traits<T>::kV0
                                  ? DtVistralControlPdu::create(image.header(), nullptr, nullptr)
                                  : DtVistralControlPdu::createFromNet(image.header(), nullptr, nullptr));
  auto* received = dynamic_cast<T*>(made.get());
  ASSERT_NE(received, nullptr);
  EXPECT_EQ(typeid(*received), typeid(T));
  EXPECT_EQ(imageOf(*received), sent);
  EXPECT_EQ(received->string(), text);
  EXPECT_EQ(dumpOf(*received), dumpOf(pdu));

  T copy(pdu);
  EXPECT_EQ(imageOf(copy), sent);
  EXPECT_EQ(copy.string(), text);
  T assigned;
  assigned = pdu;
  EXPECT_EQ(imageOf(assigned), sent);

  const auto type = static_cast<DtViewerCommand>(Traits<T>::kNewType);
  std::unique_ptr<DtVistralControlPdu> built(Traits<T>::kV0 ? DtNewDrawControlPduV0(type)
                                                            : DtNewDrawControlPdu(type));
  if (Traits<T>::kNewType == 0) {
    EXPECT_EQ(DtNewDrawControlPduV0(static_cast<DtViewerCommand>(DtVdc3DArea)), nullptr);
  } else {
    ASSERT_NE(built, nullptr);
    EXPECT_EQ(typeid(*built), typeid(T));
    EXPECT_EQ(static_cast<DtVistralDrawControlPdu&>(*built).type(),
              static_cast<unsigned>(Traits<T>::kNewType));
    T typed;  // the builder's image is the empty one with the type set
    typed.setType(static_cast<std::uint32_t>(Traits<T>::kNewType));
    EXPECT_EQ(imageOf(*built), imageOf(typed));
  }
}
