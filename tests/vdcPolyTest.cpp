// Poly-object, triangle and area PDUs in both layouts: golden images, initial values, point and texture
// limits, text forms with their fixed blank counts, dumps, images cut short.
#include <gtest/gtest.h>

#include "drawTestSupport.h"
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcTrianglePdu.h"

namespace {
// Field offsets as the wire tables state them.
struct Wire {
  bool current;
  int id, flags, relLoc, color, pos1, pattern;
};
const Wire kCurrent{true, 160, 158, 170, 172, 312, 384};
const Wire kV0{false, 152, 160, 162, 164, 304, 376};

DtVector64 corner(int i) { return DtVector64(i + 1, 0.5 * -i, 0.25); }

void fill(DtVdcPolyObjectPduBase& p, int type) {
  p.setObjectId(7);
  p.setType(type);
  p.attachTo(DtVector64(1.5, -2, 3));
  unsigned char rgba[4] = {1, 2, 3, 4};
  p.setColor(rgba);
  p.setFlashing(true);
  p.setFill(true);
  p.setPattern(0xA5A5F0F0);
  p.setScale(DtVector64(2.5, 3, 4.1));  // 4.1 travels in single precision
  p.setRotation(DtTaitBryan(0.25, -0.5, 1));
}
void fill(DtVdcTrianglePduBase& t, int type) {
  fill(static_cast<DtVdcPolyObjectPduBase&>(t), type);
  for (int i = 0; i < 3; ++i) t.setPoint(i, corner(i));
}
void fill(DtVdcAreaPduBase& a, int type) {
  fill(static_cast<DtVdcPolyObjectPduBase&>(a), type);
  a.setNumPoints(3);
  for (int i = 0; i < 16; ++i) a.setPoint(i, corner(i));
  a.setTextureDirectory("tex/dir");
  a.setTextureFilename("grass.png");
  a.setNumTextureTiles(9);
}

template <class T>
std::unique_ptr<T> createdAs(const DtPdu& sent) {  // create picks the layout by the mark
  ReceivedImage image(sent);
  std::unique_ptr<DtPdu> made(DtVistralControlPdu::create(image.header(), nullptr, nullptr));
  return std::unique_ptr<T>(dynamic_cast<T*>(made.release()));
}

// A filled PDU against the image written from the tables, with the class's initial relative locations.
template <class T>
void expectGolden(const Wire& w, int length, int command, int type, const Bytes& relLoc, int points,
                  int count) {
  T pdu;
  fill(pdu, type);
  Image image(length, static_cast<unsigned>(command), w.current);
  image.put(w.id, concat({be32(7), be32(static_cast<unsigned>(type))}))
      .u8(w.flags, 64 | 4)  // fill and flashing
      .put(w.relLoc, relLoc)
      .put(w.color, bytes({1, 2, 3, 4}))
      .put(w.pos1, be64v(1.5, -2, 3))
      .put(w.pattern, concat({be32(0xA5A5F0F0), be32f(2.5f), be32f(3), be32f(4.1f), be32f(0.25f),
                              be32f(-0.5f), be32f(1)}));
  for (int i = 0; i < count; ++i) image.put(points + 24 * i, be64v(i + 1, 0.5 * -i, 0.25));
  if (length == 1312)
    image.put(796, concat({textField("grass.png", 256), textField("tex/dir", 256), {3, 9}}));
  EXPECT_EQ(imageOf(pdu), image.b) << command;
}

std::string ownDump(const DtPdu& pdu) {  // the lines after the attachable block's last one
  const std::string dump = dumpOf(pdu);
  const std::string last = dumpLine("Flashing", "true");
  const std::size_t at = dump.find(last);
  return at == std::string::npos ? dump : dump.substr(at + last.size());
}
}  // namespace

TEST(VdcPoly, GoldenImagesBothLayouts) {
  const Bytes half = bytes({50, 50});
  expectGolden<DtVdcPolyObjectPdu>(kCurrent, 412, 2540, 2544, bytes({100, 100}), 0, 0);
  expectGolden<DtVdcPolyObjectPduV0>(kV0, 412, 2540, 2544, bytes({50, 0}), 0, 0);
  expectGolden<DtVdcTrianglePdu>(kCurrent, 488, 2550, 2552, half, 416, 3);
  expectGolden<DtVdcTrianglePduV0>(kV0, 484, 2550, 2552, bytes({50, 0}), 404, 3);
  expectGolden<DtVdcAreaPdu>(kCurrent, 1312, 2553, 2555, half, 412, 16);
  expectGolden<DtVdcAreaPduV0>(kV0, 796, 2553, 2555, bytes({50, 0}), 404, 16);
  // Only the current poly object starts with a pattern; a new area has no points.
  EXPECT_EQ(bytesAt(DtVdcPolyObjectPdu().packet(), 384, 4), bytes({0, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(bytesAt(DtVdcPolyObjectPduV0().packet(), 376, 4), Bytes(4, 0));
  EXPECT_EQ(DtVdcAreaPdu().packet()[1308], 0);
  // A version-0 area keeps its count and texture behind its image (a copy too) and never sends them.
  DtVdcAreaPduV0 area;
  fill(area, DtVdc3DArea);
  EXPECT_EQ(DtVdcAreaPduV0(area).textureDirectory(), "tex/dir");
  EXPECT_EQ(area.numPoints(), 3);
  const auto received = createdAs<DtVdcAreaPduV0>(area);
  ASSERT_NE(received, nullptr);
  EXPECT_EQ(received->numPoints(), 0);
  EXPECT_EQ(received->textureFilename(), "");
}

TEST(VdcPoly, FlagBitsPointLimitsAndTextureNames) {
  DtVdcPolyObjectPduV0 poly;
  const DtVdcPolyObjectPduBase& held = poly;
  poly.setFlashing(true);
  held.setFill(true);
  EXPECT_EQ(poly.packet()[160], 64 | 4);
  held.setFill(false);
  EXPECT_EQ(poly.packet()[160], 4);

  DtVdcTrianglePdu tri;
  DtVdcAreaPdu area;
  const Bytes before =
      concat({bytesAt(tri.packet(), 0, tri.length()), bytesAt(area.packet(), 0, area.length())});
  for (int i : {-1, 3}) tri.setPoint(i, DtVector64(9, 9, 9));
  for (int i : {-1, 16}) area.setPoint(i, DtVector64(9, 9, 9));
  EXPECT_EQ(concat({bytesAt(tri.packet(), 0, tri.length()), bytesAt(area.packet(), 0, area.length())}),
            before);
  tri.setPoint(2, DtVector64(1, 2, 3));
  EXPECT_EQ(tri.point(3).z(), 0.0);
  EXPECT_EQ(area.point(16).x(), 0.0);

  area.setNumPoints(300);
  EXPECT_EQ(area.numPoints(), 44);
  area.setNumTextureTiles(-1);
  EXPECT_EQ(area.numTextureTiles(), 255);
  // A 256-character name fills its field unterminated and reads on into the next; longer ones are cut.
  area.setTextureDirectory("dir");
  area.setTextureFilename(std::string(300, 'f'));
  EXPECT_EQ(bytesAt(area.packet(), 796, 257), concat({Bytes(256, 'f'), bytes({'d'})}));
  EXPECT_EQ(area.textureFilename(), std::string(256, 'f') + "dir");
  area.setTextureDirectory(std::string(256, 'd'));  // on into the count and tiling bytes, then the end
  EXPECT_EQ(area.textureDirectory(), std::string(256, 'd') + "\x2c\xff");
}

TEST(VdcPoly, TextFormsKeepTheirBlankCounts) {
  DtVdcPolyObjectPdu poly;
  fill(poly, DtVdcCircle);
  poly.attachTo(DtString("e1"), DtString("e2"));
  const std::string polyPart = " 2779115760 1 2.500000 3.000000 4.100000 0.250000 -0.500000 1.000000";
  const std::string attachable =
      "7 2541 10 1.500000 -2.000000 3.000000 0.000000 -2.000000 3.000000 e1 e2 0 0 100 1 2 3 4 1";
  EXPECT_EQ(poly.string(), attachable + polyPart);
  // Read one field late: the fill flag as the pattern, the scale's x split into fill (2) and scale (0.5).
  DtVdcPolyObjectPdu back;
  back.setFromString(poly.string());
  EXPECT_EQ(std::uint32_t{back.pattern()}, 1u);
  EXPECT_TRUE(back.fill());
  EXPECT_EQ(back.scale().x(), 0.5);
  EXPECT_EQ(back.rotation().phi(), 1.0);

  DtVdcTrianglePduV0 tri;
  fill(tri, DtVdc2DTriangle);
  const std::string triLine =
      "7 2551 0 1.500000 -2.000000 3.000000 0.000000 -2.000000 3.000000   0 0 50 1 2 3 4 1" + polyPart +
      " 1.000000 0.000000 0.250000 2.000000 -0.500000 0.250000 3.000000 -1.000000 0.250000";
  EXPECT_EQ(tri.string(), triLine);
  // The points are found by their blank count even where empty designators shift the attachable fields.
  DtVdcTrianglePdu triBack;
  triBack.setFromString(triLine.c_str());
  EXPECT_EQ(triBack.point(2).y(), -1.0);
  EXPECT_EQ(triBack.point(1).x(), 2.0);

  // The area writes two blanks before the count and all 16 points, cut at the text buffer's end.
  DtVdcAreaPdu area;
  fill(area, DtVdc3DArea);
  area.attachTo(DtString("e1"), DtString("e2"));
  const std::string areaLine = area.string();
  const std::string areaStart =
      "7 2555 10 1.500000 -2.000000 3.000000 0.000000 -2.000000 3.000000 e1 e2 0 0 50 1 2 3 4 1" + polyPart +
      "  3 1.000000 0.000000 0.250000 2.000000 -0.500000 0.250000";
  EXPECT_EQ(areaLine.substr(0, areaStart.size()), areaStart);
  EXPECT_EQ(areaLine.size(), 399u);
  // Its own fields are read after the 50th blank.
  std::string line = attachable;
  for (int field = 19; field < 50; ++field) line += " 0";
  line += " 4";
  for (int c = 0; c < 48; ++c) line += " " + std::to_string(c);
  area.setFromString((line + " d f 6").c_str());
  EXPECT_EQ(area.numPoints(), 4);
  EXPECT_EQ(area.point(15).z(), 47.0);
  EXPECT_EQ(area.textureDirectory(), "d");
  EXPECT_EQ(area.textureFilename(), "f");
  EXPECT_EQ(area.numTextureTiles(), 6);
  // Hostile text: a word as long as the text is cut at its field, too few blanks give zeros.
  area.setFromString((line + " " + std::string(5000, 'w') + " x 1").c_str());
  EXPECT_EQ(area.textureDirectory(), std::string(256, 'w') + "\x04\x01");
  EXPECT_EQ(area.textureFilename(), "x");
  area.setFromString("1 2 3");
  EXPECT_EQ(area.numPoints(), 0);
  EXPECT_EQ(area.textureDirectory(), "");
}

TEST(VdcPoly, Dumps) {
  DtVdcTrianglePduV0 tri;
  fill(tri, DtVdc2DTriangle);
  const std::string polyLines = dumpLine("Fill", "0x00000001") + dumpLine("Pattern", "0xa5a5f0f0") +
                                dumpLine("Scale", "2.500000 3.000000 4.100000") +
                                dumpLine("Rotation", "0.250000 -0.500000 1.000000");
  const std::string p1 = "1.000000 0.000000 0.250000", p2 = "2.000000 -0.500000 0.250000";
  EXPECT_EQ(ownDump(tri), polyLines + dumpLine("Point:", "1") + dumpLine("location:", p1) +
                              dumpLine("Point:", "2") + dumpLine("location:", p2) + dumpLine("Point:", "3") +
                              dumpLine("location:", "3.000000 -1.000000 0.250000"));
  DtVdcAreaPdu area;
  fill(area, DtVdc3DArea);
  area.setNumPoints(2);
  EXPECT_EQ(ownDump(area), polyLines + dumpLine("Point", "1") + dumpLine("location", p1) +
                               dumpLine("Point", "2") + dumpLine("location", p2) +
                               dumpLine("texture filename", "grass.png") +
                               dumpLine("texture directory", "tex/dir") + dumpLine("tiling factor", "9"));
}

TEST(VdcPoly, HostileImages) {
  // Images cut short: reads past the end give zeros, text and dump stay in bounds.
  DtVdcAreaPdu area;
  fill(area, DtVdc3DArea);
  const DtVdcAreaPdu cut = withLength(area, 420);
  EXPECT_EQ(cut.point(0).x(), 1.0);
  EXPECT_EQ(cut.point(0).y(), 0.0);
  EXPECT_EQ(cut.numPoints(), 0);
  EXPECT_EQ(cut.textureFilename(), "");
  EXPECT_NE(dumpOf(cut).find(dumpLine("tiling factor", "0")), std::string::npos);
  const DtVdcTrianglePdu tiny = withLength(DtVdcTrianglePdu(), 20);
  const std::string text = tiny.string();  // no designators, every number zero
  EXPECT_EQ(text.substr(51),
            "0.000000   0 0 0 0 0 0 0 0 0 0 0.000000 0.000000 0.000000 0.000000 0.000000 "
            "0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000");
}
