// The remote drawer: the PDUs each operation sends, in order, through a custom sender and to a listening
// federate; ownership; exceptions with their texts and lines; the map entry a failed lookup leaves.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "testSupport.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vdcAttGroup.h"
#include "vistralcontrol/vdcDrawLayerObj.h"
#include "vistralcontrol/vdcLine2DObj.h"
#include "vistralcontrol/vdcRectangleObj.h"
#include "vistralcontrol/vdcRemoteDrawer.h"
#include "vistralcontrol/vistralControlRegister.h"

namespace {
unsigned u32At(const Bytes& b, int at) {
  return unsigned(b[at]) << 24 | unsigned(b[at + 1]) << 16 | unsigned(b[at + 2]) << 8 | unsigned(b[at + 3]);
}

// What identifies a sent draw PDU: viewer command (146), draw type (164), object id (160), and for a command
// its layer id (168).
struct Sent {
  unsigned command, type, objectId, layerId;
  bool operator==(const Sent& o) const {
    return command == o.command && type == o.type && objectId == o.objectId && layerId == o.layerId;
  }
};
std::ostream& operator<<(std::ostream& out, const Sent& s) {
  return out << "{" << s.command << " " << s.type << " " << s.objectId << " " << s.layerId << "}";
}
Sent sentOf(const Bytes& b) {
  const unsigned command = unsigned(b[146]) << 8 | b[147];
  return {command, u32At(b, 164), u32At(b, 160), command == 2510 ? u32At(b, 168) : 0};
}

struct Capture : DtCustomRemoteControlSender {
  void sendPdu(const unsigned char* bytes, int length) override {
    images.emplace_back(bytes, bytes + length);
  }
  std::vector<Sent> sent() const {
    std::vector<Sent> out;
    for (const Bytes& b : images) out.push_back(sentOf(b));
    return out;
  }
  std::vector<Bytes> images;
};

DtVdcLine2DObject* newLine(unsigned id) {
  return new DtVdcLine2DObject(id, DtVdcVector2D(0, 0), DtVdcVector2D(1, 1), 1, DtVdcColor::DtVdcRed,
                               DtVdcLineSegment::DtVdcSegmentStraight, DtVdcLineSegment::DtVdcSegmentNoArrow,
                               1, 0xFFFFFFFF, false);
}

struct Drawing : ::testing::Test {
  Capture capture;
  DtVistralRemoteDrawer drawer{&capture, "drawer-1", "1:2:3", 100};
};
}  // namespace

TEST_F(Drawing, CommandsGoOutForAnyIdAndAttributeCommandsDependOnTheGroup) {
  drawer.add(newLine(4));
  drawer.show(5);
  drawer.hide(5);
  drawer.addToLayer(5, 9);
  drawer.removeFromLayer(5, 9);
  drawer.showAttribute(4, 1);  // not an attribute group
  drawer.hideAttribute(4, 1);
  const std::vector<Sent> expected = {{2520, 2521, 4, 0}, {2510, 2513, 5, 0}, {2510, 2512, 5, 0},
                                      {2510, 2514, 5, 9}, {2510, 2515, 5, 9}, {2510, 2517, 1, 4},
                                      {2510, 2519, 1, 4}};
  EXPECT_EQ(capture.sent(), expected);
  for (const Bytes& b : capture.images) {
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&b[76])), "drawer-1");  // the sender id
    EXPECT_EQ(b[12], 0);  // the drawer addresses no viewer of its own accord
  }
  EXPECT_EQ(drawer.nextId(), 100u);
  EXPECT_EQ(drawer.nextId(), 101u);
}

TEST_F(Drawing, GroupTemplatesAndGroupsSendTheirPartsInOrder) {
  auto* groupTemplate = new DtVdcAttributeGroupTemplateObject(10, "sensors");
  groupTemplate->createAttributeTemplate(1, "speed", DtVdcAttributeTemplateObject::DtVdcAttTypeSingleValue);
  groupTemplate->createAttributeTemplate(2, "icon", DtVdcAttributeTemplateObject::DtVdcAttTypeBitmap);
  drawer.add(groupTemplate);
  auto* group = new DtVdcAttributeGroupObject(20, groupTemplate, DtVdc3DAttachPoint(DtString("tank")),
                                              DtVector64(), DtVdcColor::DtVdcGreen, false);
  drawer.add(group);  // nothing dirty yet: the group's PDU alone
  group->setNumericAttributeValue(1, 5.5);
  drawer.update(20);
  EXPECT_FALSE(group->attributeValueMap()[1]->dirty());
  drawer.update(20);
  group->setBmpAttributeValue(2, "radar.bmp");
  drawer.update(group);
  drawer.showAttribute(20, 1);
  drawer.hideAttribute(20, 2);

  const std::vector<Sent> expected = {{2570, 2571, 10, 0}, {2570, 2574, 1, 0},  {2570, 2577, 2, 0},
                                      {2570, 2572, 20, 0}, {2570, 2572, 20, 0}, {2580, 2581, 1, 0},
                                      {2570, 2572, 20, 0}, {2570, 2572, 20, 0}, {2580, 2583, 2, 0},
                                      {2510, 2516, 1, 20}, {2510, 2518, 2, 20}};
  ASSERT_EQ(capture.sent(), expected);
  const Bytes& numeric = capture.images[5];
  EXPECT_EQ(u32At(numeric, 184), 20u);  // the value's group
  EXPECT_EQ(bytesAt(numeric.data(), 168, 8), be64(5.5));
  const Bytes& text = capture.images[8];
  EXPECT_EQ(u32At(text, 188), 9u);
  EXPECT_EQ(std::string(text.begin() + 192, text.end()), "radar.bmp");
  const Bytes& templatePdu = capture.images[0];
  EXPECT_EQ(std::string(templatePdu.begin() + 408, templatePdu.end()), "sensors");

  // A member template that is also held goes first; the drawer no longer owns either.
  drawer.add(groupTemplate->attributeTemplate(2));
  capture.images.clear();
  DtVdcObject* removed = drawer.remove(10);
  EXPECT_EQ(removed, groupTemplate);
  EXPECT_EQ(capture.sent(), (std::vector<Sent>{{2510, 2511, 2, 0}, {2510, 2511, 10, 0}}));
  EXPECT_EQ(drawer.remove(10), nullptr);
  EXPECT_EQ(capture.images.size(), 2u);
  delete drawer.remove(20);
  delete removed;
}

TEST_F(Drawing, FailedLookupsLeaveAnEmptyEntryThatNothingTripsOver) {
  const std::string notFound = thrown([&] { drawer.update(7); });
  EXPECT_EQ(notFound.rfind("DtException: vdc object not found (", 0), 0u) << notFound;
  EXPECT_NE(notFound.find("DtVistralRemoteDrawer::update(unsigned int)"), std::string::npos) << notFound;
  EXPECT_NE(notFound.find("libsrc/vistralcontrol/vdcRemoteDrawer.cpp:169)"), std::string::npos) << notFound;
  EXPECT_EQ(drawer.lookup(7), nullptr);  // the entry is there, holding nothing
  EXPECT_EQ(drawer.remove(7), nullptr);
  drawer.lookup(8);
  drawer.showAttribute(8, 1);
  EXPECT_EQ(capture.sent(), (std::vector<Sent>{{2510, 2517, 1, 8}}));

  // A group without attribute 9: the failed lookup stays in its map and every later walk meets it.
  DtVdcAttributeGroupTemplateObject groupTemplate(30, "t");
  groupTemplate.createAttributeTemplate(1, "x", DtVdcAttributeTemplateObject::DtVdcAttTypeGraphPoint);
  auto* group = new DtVdcAttributeGroupObject(31, &groupTemplate, DtVdc3DAttachPoint(), DtVector64(),
                                              DtVdcColor(), false);
  drawer.add(group);
  EXPECT_NE(thrown([&] { group->setGraphAttributeValueY(9, 1.0); }).find("vdcAttGroup.cpp:420)"),
            std::string::npos);
  const std::string walk = thrown([&] { drawer.update(31); });
  EXPECT_EQ(walk.rfind("DtException: Invalid attribute ID (", 0), 0u) << walk;
  EXPECT_NE(walk.find("vdcAttGroup.cpp:238)"), std::string::npos) << walk;
  delete drawer.remove(31);

  DtVdcAttributeGroupObject bare(32, nullptr, DtVdc3DAttachPoint(), DtVector64(), DtVdcColor(), false);
  EXPECT_NE(thrown([&] { bare.numericAttributeValue(1); }).find(":339)"), std::string::npos);
  EXPECT_NE(thrown([&] { bare.setBmpAttributeValue(1, "b"); }).find(":292)"), std::string::npos);
}

TEST(RemoteDrawer, DestructorRemovesInAscendingIdOrderAndDeletesWhatItHolds) {
  Capture capture;
  DtVdcLine2DObject* replaced = newLine(1);
  {
    DtVistralRemoteDrawer drawer(&capture, "d", DtVistralRemoteDrawer::SEND_TO_ALL, 0);
    drawer.add(newLine(3));
    drawer.add(replaced);
    drawer.add(newLine(1));  // takes id 1's place; the first is neither deleted nor removed
    drawer.lookup(2);        // an empty entry between them
    capture.images.clear();
  }
  EXPECT_EQ(capture.sent(), (std::vector<Sent>{{2510, 2511, 1, 0}, {2510, 2511, 3, 0}}));
  delete replaced;  // still the caller's: the sanitizer would report a double delete

  DtVistralRemoteDrawer nowhere(static_cast<DtCustomRemoteControlSender*>(nullptr), "d", "0:0:0", 0);
  const std::string none = thrown([&] { nowhere.show(1); });
  EXPECT_EQ(none.rfind("DtException: No send mechanism in VistralRemoteDrawer (", 0), 0u) << none;
  EXPECT_NE(none.find("vdcRemoteDrawer.cpp:199)"), std::string::npos) << none;
  // The object whose first send failed is held all the same; the drawer deletes it when it goes, without the
  // failed remove command ending the program.
  EXPECT_FALSE(thrown([&] { nowhere.add(new DtVdcDrawLayerObject(4, "l")); }).empty());
  EXPECT_NE(nowhere.lookup(4), nullptr);
}

TEST(RemoteDrawer, AListeningFederateReceivesWhatTheDrawerSends) {
  DtExerciseConn viewer("drawerTraffic", "viewer");
  DtVistralControlRegister(&viewer);
  std::vector<Bytes> got;
  auto received = [](DtVistralControlInteraction* inter, void* usr) {
    const DtVistralControlPdu* pdu = inter->vcPdu();
    if (pdu != nullptr)
      static_cast<std::vector<Bytes>*>(usr)->emplace_back(pdu->packet(), pdu->packet() + pdu->length());
  };
  DtVistralControlInteraction::addCallback(&viewer, received, &got);
  {
    DtVistralRemoteDrawer drawer("drawerTraffic", "app", static_cast<DtFomMapper*>(nullptr), nullptr, "0:0:0",
                                 1);
    drawer.add(new DtVdcRectangleObject(6, DtVdcVector2D(0.5, 0.5), DtVdcVector2D(0.1, 0.1), 0, DtVdcColor(),
                                        true, 0, false));
    drawer.hide(6);
  }
  viewer.processIncoming();
  ASSERT_EQ(got.size(), 3u);
  EXPECT_EQ(sentOf(got[0]), (Sent{2540, 2543, 6, 0}));
  EXPECT_EQ(bytesAt(got[0].data(), 384, 12), concat({bytes({0, 0, 0, 0}), be32f(0.2f), be32f(0.2f)}));
  EXPECT_EQ(sentOf(got[1]), (Sent{2510, 2512, 6, 0}));
  EXPECT_EQ(sentOf(got[2]), (Sent{2510, 2511, 6, 0}));  // removed as the drawer goes
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(&got[2][76])), "app");

  // Through the application's connection: the sender id is its federate name.
  DtExerciseConn app("drawerTraffic", "app-2");
  DtVistralRemoteDrawer shared(&app, "0:0:0", 1);
  shared.show(3);
  viewer.processIncoming();
  ASSERT_EQ(got.size(), 4u);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(&got[3][76])), "app-2");
  DtVistralControlInteraction::removeCallback(&viewer, received, &got);
}
