// Wire layouts of the draw-control PDUs: every family states its offsets here once, for the current layout
// (parameter version 1, with the 8-byte version mark after the fixed part) and for version 0 (no mark). The
// accessors pick one of the pair through VdcLayout::of, which is the only place that chooses a layout.
// Offsets are from the first byte of the PDU header.
#pragma once

#include "core/vcLayout.h"
#include "vistralcontrol/vistralDrawControlPdu.h"

namespace VdcLayout {

// One family's offsets in both layouts.
template <class L>
struct Pair {
  L current;
  L v0;
};

// The layout a PDU's own bytes select: exactly parameter version 1 is current, anything else version 0.
template <class L>
const L& of(const DtVistralDrawControlPdu& pdu, const Pair<L>& pair) {
  return pdu.currentLayout() ? pair.current : pair.v0;
}
// The longer of a family's two empty images.
template <class L>
constexpr int longest(const Pair<L>& pair) {
  return pair.current.length > pair.v0.length ? pair.current.length : pair.v0.length;
}

// Where along its anchor a new PDU places itself, in percent: half way, or all the way.
constexpr unsigned char kHalfWay = 50;
constexpr unsigned char kWholeWay = 100;

static_assert(DtVistralDrawControlPdu::kMarkOffset == VcLayout::Fixed::drawMark &&
                  DtVistralDrawControlPdu::kParamVersionOffset == VcLayout::Fixed::drawVersion,
              "the draw header's mark and version");

// The draw header that follows the control PDU's fixed part.
struct Header {
  int objectId;  // u32
  int type;      // u32, DtVdcObjectType
  int end;
};
constexpr Pair<Header> kHeader{{160, 164, 168}, {152, 156, 160}};
static_assert(VcLayout::Fixed::drawMark + 8 == kHeader.current.objectId, "mark and version precede the id");
static_assert(VcLayout::Fixed::length == kHeader.v0.objectId, "version 0 has no mark");

// The attachable block: anchors, relative locations, colour, flashing. A relative location i sits at
// relativeLocation + i * relativeLocationStep: version 0 keeps a single one, whatever the index.
struct Attachable {
  int flags;  // u8: bit 2 flashing; the rest belong to the subclasses
  int attachmentType;
  int relativeLocation;
  int relativeLocationStep;
  int color;  // u8[4] r, g, b, a
  int entity[2];
  int object[2];    // u32
  int position[2];  // 3 x f64
  int offset;       // 3 x f64
  int end;
};
constexpr Pair<Attachable> kAttachable{
    {158, 168, 170, 1, 172, {176, 240}, {304, 308}, {312, 336}, 360, 384},
    {160, 161, 162, 0, 164, {168, 232}, {296, 300}, {304, 328}, 352, 376},
};
constexpr unsigned kFlashingBit = 4;
static_assert(kAttachable.current.entity[0] + 2 * VcLayout::kNameWidth == kAttachable.current.object[0],
              "two designators between colour and object ids");
static_assert(kAttachable.current.offset + 24 == kAttachable.current.end, "current block ends at 384");
static_assert(kAttachable.v0.offset + 24 == kAttachable.v0.end, "version-0 block ends at 376");

// Lines. In the current layout every line carries a segment table; in version 0 only the segmented types do,
// and a plain line keeps one implicit segment in fixed fields.
struct Segment {
  static constexpr int color = 0;  // u8[4]
  static constexpr int pattern = 4;
  static constexpr int thickness = 8;  // u32, used as one byte
  static constexpr int flags = 12;     // bits 0-1 arrow style, bit 3 appearance
  static constexpr int percentage = 13;
  static constexpr int size = 16;
};
constexpr unsigned kArrowStyleBits = 3;
constexpr unsigned kAppearanceBits = 8;

struct SegmentTable {
  int count;      // u32
  int checkLos;   // u8, or -1 where the layout has none
  int projected;  // u8, or -1
  int table;      // the first record; the PDU ends after the last
};
constexpr SegmentTable kLineTable{384, 388, 389, 392};
constexpr SegmentTable kSegmentedLineV0Table{376, -1, -1, 388};

// The version-0 plain line: the attachable flag byte, relative location and colour double as the segment's.
struct PlainLineV0 {
  static constexpr int flags = kAttachable.v0.flags;
  static constexpr int percentage = kAttachable.v0.relativeLocation;
  static constexpr int color = kAttachable.v0.color;
  static constexpr int pattern = 376;
  static constexpr int thickness = 380;
  static constexpr int length = 392;
};
constexpr int kLineV0Length = PlainLineV0::length;
constexpr int kSegmentedLineV0Length = kSegmentedLineV0Table.table;
static_assert(kLineTable.count == kAttachable.current.end, "the table header follows the attachable block");
static_assert(kLineTable.table + Segment::size == 408, "a new current line has one segment");

// Poly objects: the fill bit shares the attachable flag byte.
struct Poly {
  int flags;
  int pattern;   // u32
  int scale;     // 3 x f32
  int rotation;  // 3 x f32 psi, theta, phi
  int end;
};
constexpr Pair<Poly> kPoly{{158, 384, 388, 400, 412}, {160, 376, 380, 392, 404}};
constexpr unsigned kFillBit = 64;
static_assert(kPoly.current.flags == kAttachable.current.flags && kPoly.v0.flags == kAttachable.v0.flags,
              "the fill bit shares the attachable flag byte");
constexpr int kPolyLength = 412;  // both layouts; version 0 leaves its last 8 bytes unused
constexpr unsigned kPolyDefaultPattern = 0x00FFFFFF;

// A point of a triangle or an area: x, y, z as f64.
constexpr int kPointSize = 24;

struct Triangle {
  int points;  // 3 x (3 x f64)
  int length;
};
constexpr int kTrianglePoints = 3;
constexpr Pair<Triangle> kTriangle{{416, 488}, {404, 484}};
static_assert(kTriangle.current.points + kTrianglePoints * kPointSize == kTriangle.current.length,
              "current triangle");
static_assert(kTriangle.v0.points + kTrianglePoints * kPointSize + 8 == kTriangle.v0.length,
              "version-0 triangle");

// Areas: the texture and count fields sit at the same places in both layouts, so a version-0 area, which
// ends where they begin, never carries them on the wire.
struct Area {
  int points;  // 16 x (3 x f64)
  int textureFilename;
  int textureDirectory;
  int numPoints;  // u8
  int tiles;      // u8
  int length;
};
constexpr int kAreaPoints = 16;
constexpr int kTextureNameWidth = 256;
constexpr Pair<Area> kArea{{412, 796, 1052, 1308, 1309, 1312}, {404, 796, 1052, 1308, 1309, 796}};
static_assert(kArea.current.points + kAreaPoints * kPointSize == kArea.current.textureFilename,
              "points then texture");
static_assert(kArea.current.textureDirectory + kTextureNameWidth + 4 == kArea.current.length, "current area");
static_assert(kArea.v0.length == kArea.v0.textureFilename, "a version-0 area ends before its texture");

// The PDUs that end in a text: where its length (u32) and its bytes are, and the length with no text.
struct Texted {
  int textLength;
  int text;
  int length;
};
constexpr Pair<Texted> kText{{384, 388, 388}, {376, 388, 388}};
constexpr Pair<Texted> kLayer{{168, 172, 172}, {164, 176, 176}};

struct Command {
  int layerId;  // u32
  int length;
};
constexpr Pair<Command> kCommand{{168, 172}, {164, 176}};

// Attribute panels: the whole flag byte says whether a range is set.
struct Attribute {
  int rangeFlag;
  int nameLength;
  int groupId;
  int rangeMin;  // f64
  int rangeMax;  // f64
  int name;
  int length;
};
constexpr Pair<Attribute> kAttribute{{158, 404, 400, 384, 392, 408, 408},
                                     {160, 376, 380, 384, 392, 408, 408}};

struct AttributeUpdate {
  int groupId;
  int valueX;  // f64
  int valueY;  // f64
  int textLength;
  int text;
  int length;
};
constexpr Pair<AttributeUpdate> kAttributeUpdate{{184, 168, 176, 188, 192, 192},
                                                 {164, 168, 176, 184, 196, 196}};

// The initial length of every class, current / version 0.
static_assert(kCommand.current.length == 172 && kCommand.v0.length == 176, "command PDU");
static_assert(kLineTable.table == 392 && kLineV0Length == 392 && kSegmentedLineV0Length == 388, "line PDUs");
static_assert(kPolyLength == 412 && kPoly.current.end == kPolyLength && kPoly.v0.end + 8 == kPolyLength,
              "poly-object PDU");
static_assert(kTriangle.current.length == 488 && kTriangle.v0.length == 484, "triangle PDU");
static_assert(kArea.current.length == 1312 && kArea.v0.length == 796, "area PDU");
static_assert(kText.current.length == 388 && kText.v0.length == 388, "text PDU");
static_assert(kAttribute.current.length == 408 && kAttribute.v0.length == 408, "attribute PDU");
static_assert(kAttributeUpdate.current.length == 192 && kAttributeUpdate.v0.length == 196,
              "attribute update PDU");
static_assert(kLayer.current.length == 172 && kLayer.v0.length == 176, "layer PDU");

}  // namespace VdcLayout
