// The draw-control receive tables and builders: which class each command and version yields, by both
// creation paths, and the asymmetries the builders keep.
#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

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
// A received draw image: command, and the mark with a version when version >= 0.
std::unique_ptr<DtPdu> receive(unsigned command, int version, bool fromNet) {
  Image img(400, command, false);
  if (version >= 0) img.put(152, concat({be32(0x600DF00D), be16(static_cast<unsigned>(version))}));
  ReceivedImage image(img.b);
  return std::unique_ptr<DtPdu>(fromNet ? DtVistralControlPdu::createFromNet(image.header(), nullptr, nullptr)
                                        : DtVistralControlPdu::create(image.header(), nullptr, nullptr));
}

// Each family: its viewer command, the types that build it, and its classes in the current and version-0
// layouts.
struct Family {
  unsigned command;
  int first, last;
  const std::type_info& current;
  const std::type_info& v0;
};
const Family kFamilies[] = {
    {2510, 2511, 2515, typeid(DtVdcCommandPdu), typeid(DtVdcCommandPduV0)},
    {2520, 2521, 2522, typeid(DtVdcLinePdu), typeid(DtVdcLinePduV0)},
    {2530, 2531, 2532, typeid(DtVdcLinePdu), typeid(DtVdcSegmentedLinePduV0)},
    {2540, 2541, 2545, typeid(DtVdcPolyObjectPdu), typeid(DtVdcPolyObjectPduV0)},
    {2550, 2551, 2552, typeid(DtVdcTrianglePdu), typeid(DtVdcTrianglePduV0)},
    {2553, 2555, 2555, typeid(DtVdcAreaPdu), typeid(DtVdcAreaPduV0)},
    {2560, 2561, 2562, typeid(DtVdcTextPdu), typeid(DtVdcTextPduV0)},
    {2570, 2571, 2577, typeid(DtVdcAttributePdu), typeid(DtVdcAttributePduV0)},
    {2580, 2581, 2583, typeid(DtVdcAttributeUpdatePdu), typeid(DtVdcAttributeUpdatePduV0)},
    {2590, 2590, 2590, typeid(DtVdcLayerPdu), typeid(DtVdcLayerPduV0)},
};
}  // namespace

TEST(DrawDispatch, MarkAndVersionChooseTheTable) {
  for (const Family& row : kFamilies) {
    SCOPED_TRACE(row.command);
    EXPECT_EQ(typeid(*receive(row.command, 1, false)), row.current);
    EXPECT_EQ(typeid(*receive(row.command, 7, false)), row.current);  // any non-zero version
    EXPECT_EQ(typeid(*receive(row.command, 0, false)), row.v0);       // marked, version 0
    EXPECT_EQ(typeid(*receive(row.command, -1, false)), row.v0);      // no mark
    // The receive path of the connection never reads version 0.
    EXPECT_EQ(typeid(*receive(row.command, -1, true)), row.current);
    EXPECT_EQ(typeid(*receive(row.command, 0, true)), row.current);
  }
  // A received segmented line in the current layout becomes a plain line command.
  EXPECT_EQ(static_cast<DtVistralControlPdu&>(*receive(2530, 1, true)).viewerCommand(), 2520);
  for (unsigned unknown : {2500u, 2511u, 2554u, 2600u}) {
    EXPECT_EQ(typeid(*receive(unknown, 1, false)), typeid(DtUnknownVistralControlPdu)) << unknown;
    EXPECT_EQ(typeid(*receive(unknown, -1, true)), typeid(DtUnknownVistralControlPdu)) << unknown;
  }
}

TEST(DrawDispatch, AVersionZeroObjectIdEqualToTheMarkReadsAsVersioned) {
  // Object id 0x600DF00D: the high half of the type that follows is read as the version.
  for (unsigned type : {2521u, 0x00010000u | 2521u}) {
    Image img(400, 2520, false);
    img.put(152, be32(0x600DF00D)).put(156, be32(type));
    ReceivedImage image(img.b);
    EXPECT_EQ(DtVistralControlPdu::drawControlParamVersion(image.vc()), static_cast<int>(type >> 16));
    std::unique_ptr<DtPdu> pdu(DtVistralControlPdu::create(image.header(), nullptr, nullptr));
    EXPECT_EQ(typeid(*pdu), type >> 16 ? typeid(DtVdcLinePdu) : typeid(DtVdcLinePduV0));
  }
}

TEST(DrawDispatch, BuildersByTypeKeepTheirAsymmetries) {
  const auto make = [](int type, bool v0) {
    return std::unique_ptr<DtVistralControlPdu>(v0 ? DtNewDrawControlPduV0(static_cast<DtViewerCommand>(type))
                                                   : DtNewDrawControlPdu(static_cast<DtViewerCommand>(type)));
  };
  const auto typeOf = [](const DtVistralControlPdu& pdu) {
    return dynamic_cast<const DtVistralDrawControlPdu&>(pdu).type();
  };
  // Each type of a family builds its class with the type set (a current segmented line as a plain line of its
  // dimension, no version-0 area); family numbers and every number between the families build nothing.
  int type = DtVdcUndefined;
  for (const Family& f : kFamilies) {
    for (; type < f.first; ++type) {
      EXPECT_EQ(make(type, false), nullptr) << type;
      EXPECT_EQ(make(type, true), nullptr) << type;
    }
    for (; type <= f.last; ++type) {
      auto current = make(type, false), v0 = make(type, true);
      ASSERT_NE(current, nullptr) << type;
      EXPECT_EQ(typeid(*current), f.current) << type;
      EXPECT_EQ(typeOf(*current), static_cast<unsigned>(f.command == 2530 ? type - 10 : type));
      if (f.command == 2553) {
        EXPECT_EQ(v0, nullptr);
        continue;
      }
      ASSERT_NE(v0, nullptr) << type;
      EXPECT_EQ(typeid(*v0), f.v0) << type;
      EXPECT_EQ(typeOf(*v0), static_cast<unsigned>(type));
    }
  }
  for (int after : {2591, 2599}) EXPECT_EQ(make(after, false), nullptr) << after;
  // The general builder falls through to the draw table; modeless stays a hole.
  std::unique_ptr<DtVistralControlPdu> hide(DtNewVistralControlPdu(static_cast<DtViewerCommand>(2512)));
  ASSERT_NE(hide, nullptr);
  EXPECT_EQ(typeid(*hide), typeid(DtVdcCommandPdu));
  EXPECT_EQ(dynamic_cast<DtVdcCommandPdu&>(*hide).type(), 2512u);
  EXPECT_EQ(DtNewVistralControlPdu(DtVcModeless), nullptr);
  // An empty command PDU names no command yet.
  DtVdcCommandPdu command;
  EXPECT_EQ(command.type(), static_cast<unsigned>(DtVdcUndefined));
}
