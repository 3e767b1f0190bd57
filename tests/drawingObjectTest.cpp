// Drawing objects: what each writes into its PDU, checked byte by byte at the wire offsets, and the colour
// and vector arithmetic they rest on.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

#include "tarvex/dtException.h"
#include "testSupport.h"
#include "vistralcontrol/vdcArea3DObj.h"
#include "vistralcontrol/vdcAttTemplate.h"
#include "vistralcontrol/vdcCuboidObj.h"
#include "vistralcontrol/vdcCylinderObj.h"
#include "vistralcontrol/vdcDrawLayerObj.h"
#include "vistralcontrol/vdcEllipseObj.h"
#include "vistralcontrol/vdcEllipsoidObj.h"
#include "vistralcontrol/vdcLine2DObj.h"
#include "vistralcontrol/vdcLine3DObj.h"
#include "vistralcontrol/vdcRectangleObj.h"
#include "vistralcontrol/vdcText2DObj.h"
#include "vistralcontrol/vdcText3DObj.h"
#include "vistralcontrol/vdcTriangle2DObj.h"
#include "vistralcontrol/vdcTriangle3DObj.h"

namespace {
using Seg = DtVdcLineSegment;

Bytes vec64(double x, double y, double z) { return concat({be64(x), be64(y), be64(z)}); }
Bytes vec32(float x, float y, float z) { return concat({be32f(x), be32f(y), be32f(z)}); }

// The bytes of an object's PDU, read at current-layout offsets.
struct Wire {
  explicit Wire(DtVdcObject& obj) : pdu(obj.pdu()) {}
  Bytes at(int offset, int count) const { return bytesAt(pdu.packet(), offset, count); }
  int byte(int offset) const { return pdu.packet()[offset]; }
  std::string text(int offset, int count) const {
    return std::string(reinterpret_cast<const char*>(pdu.packet()) + offset, static_cast<std::size_t>(count));
  }
  DtVistralDrawControlPdu& pdu;
};

// Object id at 160, type at 164, attachment type at 168.
void expectHeader(const Wire& w, unsigned id, unsigned type, int attachment) {
  EXPECT_EQ(w.at(160, 4), be32(id));
  EXPECT_EQ(w.at(164, 4), be32(type));
  EXPECT_EQ(w.byte(168), attachment);
}

}  // namespace

TEST(DrawColor, HsvFollowsRgbAndBackWithTruncation) {
  const DtVdcColor red(255, 0, 0, 255), green(0, 255, 0, 255), blue(0, 0, 255, 255), purple(255, 0, 255, 255);
  EXPECT_EQ(red.hue(), 0u);
  EXPECT_EQ(red.saturation(), 1.0);
  EXPECT_EQ(red.value(), 1.0);
  EXPECT_EQ(green.hue(), 120u);
  EXPECT_EQ(blue.hue(), 240u);
  EXPECT_EQ(purple.hue(), 300u);
  EXPECT_EQ(DtVdcColor::DtVdcOrange.hue(), 30u);  // 60 * 128/255 = 30.1, truncated

  DtVdcColor c(128, 128, 128, 255);
  EXPECT_EQ(c.saturation(), 0.0);
  EXPECT_EQ(c.hue(), 0u);
  c.setHSV(0, 0.0, 0.5, 255);
  EXPECT_EQ(c, DtVdcColor(127, 127, 127, 255));
  c.setHSV(200, 0.5, 1.0, 9);  // sector 3: (p, q, v)
  EXPECT_EQ(c, DtVdcColor(127, 212, 255, 9));
  c.setHue(360);
  EXPECT_EQ(c, DtVdcColor(255, 127, 127, 9));  // as hue 0: (v, t, p)
  c.setHue(400);                               // past 360: the last sector's (v, p, q)
  EXPECT_EQ(c, DtVdcColor(255, 127, 169, 9));  // 255 * (1 - 0.5 * 2/3) truncates to 169
  c.setValue(2.0);                             // neither clamped nor validated
  EXPECT_EQ(c.red(), 510u);
  c.setValue(NAN);  // still defined
  EXPECT_EQ(c.red(), 0u);

  DtVdcColor a(10, 20, 30, 40);
  const unsigned hue = a.hue();
  a.setAlpha(99);
  a[3] = 10;
  EXPECT_EQ(a.alpha(), 10u);
  EXPECT_EQ(a.hue(), hue);
  a[0] = 200;  // a write through the index leaves the HSV view stale
  EXPECT_EQ(a.hue(), hue);
  EXPECT_EQ(a, DtVdcColor(200, 20, 30, 10));  // equality reads the channels only
  const DtVdcColor& ca = a;
  EXPECT_EQ(ca[2], 30u);

  const std::string mutableIndex = thrown([&] { a[4] = 1; });
  EXPECT_EQ(mutableIndex.rfind("DtException: Invalid index (should be 0..3) (", 0), 0u) << mutableIndex;
  EXPECT_NE(mutableIndex.find("libsrc/vistralcontrol/vdcColor.cpp:115)"), std::string::npos) << mutableIndex;
  EXPECT_NE(thrown([&] { (void)ca[-1]; }).find("vdcColor.cpp:93)"), std::string::npos);
}

TEST(DrawVector, NormalisingAndDistances) {
  DtVdcVector2D zero(0, 0), unit(1, 0), v(3, 4);
  zero.normalize();
  unit.normalize();
  v.normalize();
  EXPECT_TRUE(zero.magnitudeIsZero());
  EXPECT_EQ(unit.x(), 1.0);
  EXPECT_TRUE(v.approxEq(DtVdcVector2D(0.6, 0.8), 1e-12));

  DtVdcVector2D out(7, 7);
  DtVecNormalize(DtVdcVector2D(1e-6, 0), out);  // within the tolerance of zero: untouched
  EXPECT_EQ(out.x(), 7.0);
  DtVecNormalize(DtVdcVector2D(0, 2), out);
  EXPECT_EQ(out.y(), 1.0);
  EXPECT_EQ(DtDistSqr(DtVdcVector2D(4, 6), DtVdcVector2D(1, 2)), 25.0);
  EXPECT_EQ(DtDistance(DtVdcVector2D(4, 6), DtVdcVector2D(1, 2)), 5.0);
  EXPECT_EQ(DtVecInfNorm(DtVdcVector2D(-3, 2)), 3.0);
  EXPECT_EQ(DtVecCosProd(DtVdcVector2D(1, 0), DtVdcVector2D(0, 5)), 0.0);
  DtVdcVector2D w(1, 2);
  w[2] = 5;  // beyond the two components: the vector is not written
  EXPECT_EQ(w[2], 0.0);
  EXPECT_EQ(w.vector3D(), DtVector64(1, 2, 0));
}

TEST(LineObjects, TwoDLineFillsScreenPointsAndEverySegment) {
  DtVdcLine2DObject line(7, DtVdcVector2D(0, 0), DtVdcVector2D(1, 1), 4, DtVdcColor(300, 20, 30, 255),
                         Seg::DtVdcSegmentLightning, Seg::DtVdcSegmentArrowDouble, 3, 0xF0F0F0F0, true);
  Wire w(line);
  ASSERT_EQ(w.pdu.length(), 392 + 4 * 16);
  expectHeader(w, 7, 2521, 1);
  EXPECT_EQ(w.at(312, 48), concat({vec64(-1, -1, 0), vec64(1, 1, 0)}));
  EXPECT_EQ(w.byte(158) & 4, 4);  // flashing
  EXPECT_EQ(w.at(360, 24), vec64(0, 0, 0));
  EXPECT_EQ(w.at(384, 4), be32(4));
  for (int i = 0; i < 4; ++i) {
    // colour with 300 cut to 44, pattern, thickness (u32), arrow 3 + appearance 8, 25 percent
    EXPECT_EQ(w.at(392 + 16 * i, 14),
              concat({bytes({44, 20, 30, 255, 0xF0, 0xF0, 0xF0, 0xF0, 0, 0, 0, 3}), bytes({3 | 8, 25})}))
        << "segment " << i;
  }

  line.setStartPosition(DtVdcVector2D(0.5, 0.5));
  line.setLineStyle(static_cast<Seg::DtVdcSegmentStyle>(2), 1);
  line.setArrowStyle(static_cast<Seg::DtVdcSegmentArrowStyle>(7), 1);
  line.setColor(DtVdcColor::DtVdcBlue, 1);
  line.setPercentage(0.29, 1);
  line.setThickness(0x1FF, 1);
  line.setColor(DtVdcColor::DtVdcRed, 9);  // out of range: nowhere
  EXPECT_EQ(line.color(9), DtVdcColor::DtVdcWhite);
  EXPECT_EQ(w.at(392 + 16, 4), bytes({44, 20, 30, 255}));  // not before updatePdu
  line.updatePdu();
  EXPECT_EQ(w.at(312, 16), concat({be64(0), be64(0)}));
  EXPECT_EQ(w.at(392 + 16, 14), bytes({0, 0, 255, 255, 0xF0, 0xF0, 0xF0, 0xF0, 0, 0, 0, 0xFF, 0, 28}));

  line.setNumSegments(2);
  line.updatePdu();
  EXPECT_EQ(w.pdu.length(), 392 + 2 * 16);
  EXPECT_EQ(w.byte(392 + 13), 100);  // default segments take the whole line
}

TEST(LineObjects, ThreeDLinePicksTheAttachmentPairAndRelativeLocations) {
  const DtVdc3DAttachPoint tank(DtString("tank-1")), object(12, 75.9), place(DtVector64(1, 2, 3));
  DtVdcLine3DObject line(8, tank, object, 1, DtVector64(5, 6, 7), DtVdcColor::DtVdcGreen,
                         Seg::DtVdcSegmentStraight, Seg::DtVdcSegmentArrowEnd, 1, 0xFFFFFFFF, false, true,
                         false);
  Wire w(line);
  expectHeader(w, 8, 2522, 8);  // entity / object
  EXPECT_EQ(w.text(176, 7), std::string("tank-1\0", 7));
  EXPECT_EQ(w.at(308, 4), be32(12));
  EXPECT_EQ(w.at(170, 2), bytes({50, 75}));  // index 1 from the end's relative position
  EXPECT_EQ(w.at(360, 24), vec64(5, 6, 7));
  EXPECT_EQ(w.at(388, 2), bytes({1, 0}));  // check line of sight, projected
  EXPECT_EQ(w.at(392, 16), bytes({0, 255, 0, 255, 255, 255, 255, 255, 0, 0, 0, 1, 1, 100, 0, 0}));

  line.setStartAttachment(DtVdc3DAttachPoint(3, 300.2));  // 300 keeps its low 8 bits: 44
  line.setEndAttachment(place);
  line.updatePdu();
  expectHeader(w, 8, 2522, 5);  // object / position
  EXPECT_EQ(w.at(304, 4), be32(3));
  EXPECT_EQ(w.at(336, 24), vec64(1, 2, 3));
  EXPECT_EQ(w.at(170, 2), bytes({44, 75}));

  line.setStartAttachment(DtVdc3DAttachPoint());  // none: the origin as a location
  line.setEndAttachment(DtVdc3DAttachPoint(DtString("truck")));
  line.updatePdu();
  expectHeader(w, 8, 2522, 6);  // position / entity
  EXPECT_EQ(w.at(312, 24), vec64(0, 0, 0));
  EXPECT_EQ(w.text(240, 6), std::string("truck\0", 6));
}

TEST(ShapeObjects, ScreenShapesMapPositionSizeAndRotation) {
  DtVdcRectangleObject rect(21, DtVdcVector2D(0.25, 0.75), DtVdcVector2D(0.1, 0.2), M_PI / 2,
                            DtVdcColor(1, 2, 3, 4), true, 0x12345678, false);
  Wire w(rect);
  ASSERT_EQ(w.pdu.length(), 412);
  expectHeader(w, 21, 2543, 0);
  EXPECT_EQ(w.at(312, 16), concat({be64(-0.5), be64(0.5)}));
  EXPECT_EQ(w.at(172, 4), bytes({1, 2, 3, 4}));
  EXPECT_EQ(w.byte(158), 64);  // filled, not flashing
  EXPECT_EQ(w.at(384, 28), concat({be32(0x12345678), vec32(0.2f, 0.4f, 0), vec32(0, 0, 90)}));

  DtVdcEllipseObject ellipse(22, DtVdcVector2D(1, 0), DtVdcVector2D(0.5, 0.5), 0, DtVdcColor(), false, 0,
                             true);
  Wire e(ellipse);
  expectHeader(e, 22, 2541, 0);
  EXPECT_EQ(e.at(312, 16), concat({be64(1), be64(-1)}));
  EXPECT_EQ(e.byte(158), 4);

  DtVdcTriangle2DObject tri(23, DtVdcVector2D(0.5, 0.25), DtVdcVector2D(0, 1), DtVdcVector2D(1, 0),
                            DtVdcVector2D(0.5, 0.5), DtVdcVector2D(3, 4), M_PI, DtVdcColor::DtVdcYellow,
                            false, 7, false);
  Wire t(tri);
  ASSERT_EQ(t.pdu.length(), 488);
  expectHeader(t, 23, 2551, 0);
  EXPECT_EQ(t.at(312, 16), concat({be64(0), be64(0)}));
  EXPECT_EQ(t.at(384, 28), concat({be32(7), vec32(3, 4, 0), vec32(0, 0, 180)}));
  EXPECT_EQ(t.at(416, 72), concat({vec64(1, 0.5, 0), vec64(0, 2, 0), vec64(2, 0, 0)}));
}

TEST(ShapeObjects, SolidsScaleAttachAndRotate) {
  const DtTaitBryan turn(0.5, 0.25, 0.125);
  DtVdcCuboidObject box(31, DtVdc3DAttachPoint(12, 3.9), 10, 4, 3, DtVector64(1, 1, 1), turn,
                        DtVdcColor::DtVdcRed, false);
  Wire b(box);
  expectHeader(b, 31, 2544, 3);
  EXPECT_EQ(b.at(304, 4), be32(12));
  EXPECT_EQ(b.byte(170), 3);
  EXPECT_EQ(b.at(360, 24), vec64(1, 1, 1));
  EXPECT_EQ(b.at(388, 24), concat({vec32(20, 8, 6), vec32(0.5f, 0.25f, 0.125f)}));
  box.setHeight(0.5);
  box.updatePdu();
  EXPECT_EQ(b.at(388, 12), vec32(20, 8, 1));

  DtVdcEllipsoidObject ball(32, DtVdc3DAttachPoint(DtString("ship")), DtVector64(1, 2, 3), DtVector64(), turn,
                            DtVdcColor(), true);
  Wire s(ball);
  expectHeader(s, 32, 2542, 2);
  EXPECT_EQ(s.at(388, 12), vec32(2, 4, 6));

  DtVdcCylinderObject hanging(33, DtVdc3DAttachPoint(DtVector64(7, 8, 9)), 10, DtVdcVector2D(2, 3),
                              DtVector64(), turn, DtVdcColor(), false);
  Wire h(hanging);
  expectHeader(h, 33, 2545, 0);  // one location
  EXPECT_EQ(h.at(312, 24), vec64(7, 8, 9));
  EXPECT_EQ(h.at(388, 24), concat({vec32(10, 2, 3), vec32(0.5f, 0.25f, 0.125f)}));

  DtVdcCylinderObject spanning(34, DtVdc3DAttachPoint(DtString("tank")),
                               DtVdc3DAttachPoint(DtVector64(4, 5, 6)), DtVdcVector2D(1, 1), DtVector64(),
                               DtVdcColor(), false);
  Wire p(spanning);
  expectHeader(p, 34, 2545, 4);  // entity / position
  EXPECT_EQ(p.at(336, 24), vec64(4, 5, 6));
  EXPECT_EQ(p.at(388, 24), concat({vec32(0, 1, 1), vec32(0, 0, 0)}));
}

TEST(ShapeObjects, TrianglesAndAreasCarryTheirPoints) {
  DtVdcTriangle3DObject tri(41, DtVector64(1, 2, 3), DtVector64(4, 5, 6), DtVector64(7, 8, 9), DtVdcColor(),
                            true);
  Wire t(tri);
  expectHeader(t, 41, 2552, 0);
  EXPECT_EQ(t.at(416, 72), concat({vec64(1, 2, 3), vec64(4, 5, 6), vec64(7, 8, 9)}));

  DtVdcArea3DObject area(42, {DtVector64(1, 1, 0), DtVector64(2, 1, 0), DtVector64(2, 2, 0)}, DtVdcColor(),
                         "tex", "grass.png", 300, false);
  Wire a(area);
  ASSERT_EQ(a.pdu.length(), 1312);
  expectHeader(a, 42, 2555, 0);
  EXPECT_EQ(a.at(412, 72), concat({vec64(1, 1, 0), vec64(2, 1, 0), vec64(2, 2, 0)}));
  EXPECT_EQ(a.text(796, 10), std::string("grass.png\0", 10));
  EXPECT_EQ(a.text(1052, 4), std::string("tex\0", 4));
  EXPECT_EQ(a.at(1308, 2), bytes({3, 44}));  // point count, tiles cut to a byte

  area.setVertex(-1, DtVector64(9, 9, 9));
  area.setVertex(3, DtVector64(9, 9, 9));
  area.setVertex(2, DtVector64(5, 5, 5));
  EXPECT_EQ(area.vertex(3), DtVector64());
  EXPECT_EQ(area.vertex(4), DtVector64());
  EXPECT_EQ(area.vertex(2), DtVector64(5, 5, 5));
  area.updatePdu();
  EXPECT_EQ(a.at(412 + 48, 48), concat({vec64(5, 5, 5), vec64(0, 0, 0)}));
}

TEST(TextObjects, TextsLayersAndTemplatesFillTheirPdus) {
  DtVdcText2DObject label(51, "hello", DtVdcVector2D(1, 0), DtVdcColor(1, 2, 3, 4), false);
  Wire l(label);
  expectHeader(l, 51, 2561, 0);
  EXPECT_EQ(l.at(312, 16), concat({be64(1), be64(-1)}));
  EXPECT_EQ(l.at(384, 4), be32(5));
  EXPECT_EQ(l.text(388, 5), "hello");
  label.setText("bye");
  EXPECT_EQ(l.pdu.length(), 393);  // unchanged until updatePdu
  label.updatePdu();
  EXPECT_EQ(l.pdu.length(), 391);
  EXPECT_EQ(l.text(388, 3), "bye");

  DtVdcText3DObject tag(52, "T", DtVdc3DAttachPoint(12, 3.9), DtVector64(0, 0, 10), DtVdcColor(), true);
  Wire t(tag);
  expectHeader(t, 52, 2562, 3);
  EXPECT_EQ(t.at(304, 4), be32(12));
  EXPECT_EQ(t.byte(170), 3);
  EXPECT_EQ(t.at(360, 24), vec64(0, 0, 10));

  DtVdcDrawLayerObject layer(53, "");
  Wire y(layer);
  EXPECT_EQ(y.pdu.length(), 172);
  EXPECT_EQ(y.at(160, 12), concat({be32(53), be32(2590), be32(0)}));

  DtVdcAttributeGroupTemplateObject group(60, "panel");
  const auto kinds = {DtVdcAttributeTemplateObject::DtVdcAttTypeNoValue,
                      DtVdcAttributeTemplateObject::DtVdcAttTypeSingleValue,
                      DtVdcAttributeTemplateObject::DtVdcAttTypeGraphPoint,
                      DtVdcAttributeTemplateObject::DtVdcAttTypeBitmap,
                      static_cast<DtVdcAttributeTemplateObject::DtVdcAttributeType>(9)};
  unsigned id = 1;
  for (auto kind : kinds) group.createAttributeTemplate(id++, "a", kind);
  group.createAttributeTemplate(id, "bar", -1.5, 2.5);
  const unsigned pduTypes[] = {2573, 2574, 2576, 2577, 0, 2575};  // an unknown kind sets no type
  ASSERT_EQ(group.attributeTemplates().size(), 6u);
  for (std::size_t i = 0; i < 6; ++i) {
    Wire a(*group.attributeTemplates()[i]);
    EXPECT_EQ(a.at(160, 8), concat({be32(unsigned(i) + 1), be32(pduTypes[i])})) << i;
    EXPECT_EQ(a.at(400, 4), be32(60)) << i;  // the group template's id
  }
  Wire bar(*group.attributeTemplate(6));
  EXPECT_EQ(bar.at(384, 16), concat({be64(-1.5), be64(2.5)}));
  EXPECT_EQ(bar.text(408, 3), "bar");
  EXPECT_EQ(group.attributeTemplate(99), nullptr);
  const DtVdcAttributeGroupTemplateObject copy(group);  // owns copies of its own
  EXPECT_NE(copy.attributeTemplate(6), group.attributeTemplate(6));
  EXPECT_EQ(copy.attributeTemplate(6)->attributeType(), DtVdcAttributeTemplateObject::DtVdcAttTypeValueBar);
}
