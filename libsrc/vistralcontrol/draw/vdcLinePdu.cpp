#include "vistralcontrol/vdcLinePdu.h"

#include "tarvex/dtDump.h"
#include "vdcPduClass.h"

using VdcLayout::PlainLineV0;
using VdcLayout::Segment;
using VdcLayout::SegmentTable;

namespace {
using VdcLayout::kHalfWay;
constexpr unsigned char kWholeLine = VdcLayout::kWholeWay;
// The storage holds a current line of four segments; the version-0 lines are shorter.
constexpr int kStorage = VdcLayout::kLineTable.table + 4 * VdcLayout::Segment::size;
constexpr int kNowhere = -1;

// The segment table the PDU's bytes select, or null for a version-0 plain line.
const SegmentTable* tableOf(const DtVdcLinePdu& pdu) {
  if (pdu.currentLayout()) return &VdcLayout::kLineTable;
  const std::uint32_t type = pdu.type();
  return type == DtVdc2DSegmentedLine || type == DtVdc3DSegmentedLine ? &VdcLayout::kSegmentedLineV0Table
                                                                      : nullptr;
}

int recordAt(const SegmentTable& table, unsigned int segment, int field) {
  return table.table + static_cast<int>(segment) * Segment::size + field;
}

const char* const kArrowStyleNames[] = {"VdcStyleNoArrow", "VdcStyleArrowEnd", "VdcStyleArrowStart",
                                        "VdcStyleArrowDouble"};
}  // namespace

VDC_DRAW_PDU_CLASS_AS(DtVdcLinePdu, DtVdcAttachablePdu(), VDC_CHECK_STORAGE(kStorage);
                      useStorage(storage_), DtVcDrawLine, VdcLayout::kLineTable.table, kCurrentParamVersion,
                      if (holder == nullptr) setRelativeLocations(kHalfWay);
                      setNumSegments(1); setPercentage(0, kWholeLine))

DtVdcLinePdu::DtVdcLinePdu(NoImage) { useStorage(storage_); }

// The version-0 lines build their own image in the current line's storage, and span their whole anchor.
VDC_DRAW_PDU_CLASS_AS(DtVdcLinePduV0, DtVdcLinePdu(NoImage{}), , DtVcDrawLine, VdcLayout::kLineV0Length, 0,
                      setRelativeLocations(kWholeLine))
VDC_DRAW_PDU_CLASS_AS(DtVdcSegmentedLinePduV0, DtVdcLinePdu(NoImage{}), , DtVcDrawSegmentedLine,
                      VdcLayout::kSegmentedLineV0Length, 0, setRelativeLocations(kWholeLine))

int DtVdcLinePdu::field(Access access, unsigned int segment, int recordOffset, int plainOffset) const {
  const SegmentTable* table = tableOf(*this);
  if (table == nullptr) return access == Access::indexedSet ? kNowhere : plainOffset;
  if (access == Access::wholeLine) segment = 0;
  const unsigned count = static_cast<unsigned char>(u32At(table->count));  // as numSegments() reads it
  return segment < count ? recordAt(*table, segment, recordOffset) : kNowhere;
}

void DtVdcLinePdu::setBits(int at, unsigned mask, unsigned bits) {
  if (at != kNowhere) setU8At(at, static_cast<std::uint8_t>((u8At(at) & ~mask) | bits));
}

void DtVdcLinePdu::setNumSegments(unsigned char count) {
  const SegmentTable* table = tableOf(*this);
  if (table != nullptr && changeSize(recordAt(*table, count, 0))) setU32At(table->count, count);
}

unsigned char DtVdcLinePdu::numSegments() const {
  const SegmentTable* table = tableOf(*this);
  return table ? static_cast<unsigned char>(u32At(table->count)) : 1;
}

void DtVdcLinePdu::setArrowStyle(DtVdcLineArrowStyle style) {
  setBits(field(Access::wholeLine, 0, Segment::flags, PlainLineV0::flags), VdcLayout::kArrowStyleBits, style);
}

void DtVdcLinePdu::setArrowStyle(unsigned int segment, DtVdcLineArrowStyle style) {
  setBits(field(Access::indexedSet, segment, Segment::flags, PlainLineV0::flags), VdcLayout::kArrowStyleBits,
          style);
}

DtVdcLinePdu::DtVdcLineArrowStyle DtVdcLinePdu::arrowStyle(unsigned int segment) const {
  const int at = field(Access::get, segment, Segment::flags, PlainLineV0::flags);
  return static_cast<DtVdcLineArrowStyle>(u8At(at) & VdcLayout::kArrowStyleBits);
}

void DtVdcLinePdu::setAppearance(DtVdcLineAppearance appearance) {
  setBits(field(Access::wholeLine, 0, Segment::flags, PlainLineV0::flags), VdcLayout::kAppearanceBits,
          appearance);
}

void DtVdcLinePdu::setAppearance(unsigned int segment, DtVdcLineAppearance appearance) {
  setBits(field(Access::indexedSet, segment, Segment::flags, PlainLineV0::flags), VdcLayout::kAppearanceBits,
          appearance);
}

DtVdcLinePdu::DtVdcLineAppearance DtVdcLinePdu::appearance(unsigned int segment) const {
  const int at = field(Access::get, segment, Segment::flags, PlainLineV0::flags);
  return static_cast<DtVdcLineAppearance>(u8At(at) & VdcLayout::kAppearanceBits);
}

void DtVdcLinePdu::setThickness(unsigned char thickness) {
  setU32At(field(Access::wholeLine, 0, Segment::thickness, PlainLineV0::thickness), thickness);
}

void DtVdcLinePdu::setThickness(unsigned int segment, unsigned char thickness) {
  setU32At(field(Access::indexedSet, segment, Segment::thickness, PlainLineV0::thickness), thickness);
}

unsigned char DtVdcLinePdu::thickness(unsigned int segment) const {
  return static_cast<unsigned char>(
      u32At(field(Access::get, segment, Segment::thickness, PlainLineV0::thickness)));
}

void DtVdcLinePdu::setPattern(DtNetU32 pattern) {
  setU32At(field(Access::wholeLine, 0, Segment::pattern, PlainLineV0::pattern), pattern);
}

void DtVdcLinePdu::setPattern(unsigned int segment, DtNetU32 pattern) {
  setU32At(field(Access::indexedSet, segment, Segment::pattern, PlainLineV0::pattern), pattern);
}

DtNetU32 DtVdcLinePdu::pattern(unsigned int segment) const {
  return u32At(field(Access::get, segment, Segment::pattern, PlainLineV0::pattern));
}

void DtVdcLinePdu::setPercentage(unsigned int segment, unsigned char percent) {
  setU8At(field(Access::indexedSet, segment, Segment::percentage, PlainLineV0::percentage), percent);
}

unsigned char DtVdcLinePdu::percentage(unsigned int segment) const {
  return u8At(field(Access::get, segment, Segment::percentage, PlainLineV0::percentage));
}

void DtVdcLinePdu::setColor(unsigned int segment, unsigned char* rgba) {
  if (rgba != nullptr)
    setBytesAt(field(Access::indexedSet, segment, Segment::color, PlainLineV0::color), rgba, 4);
}

const unsigned char* DtVdcLinePdu::color(unsigned int segment) const {
  const int at = field(Access::get, segment, Segment::color, PlainLineV0::color);
  return at == kNowhere ? nullptr : bytesAt(at, 4);
}

// The line's colour is segment 0's in the current layout and the attachable colour in version 0, where only a
// plain line may set it.
void DtVdcLinePdu::setColor(unsigned char* rgba) {
  if (currentLayout()) {
    setColor(0U, rgba);
  } else if (tableOf(*this) == nullptr) {
    DtVdcAttachablePdu::setColor(rgba);
  }
}

const unsigned char* DtVdcLinePdu::color() const {
  return currentLayout() ? color(0U) : DtVdcAttachablePdu::color();
}

void DtVdcLinePdu::setCheckLos(bool check) {
  if (currentLayout()) setU8At(VdcLayout::kLineTable.checkLos, check ? 1 : 0);
}

bool DtVdcLinePdu::checkLos() const { return currentLayout() && u8At(VdcLayout::kLineTable.checkLos) != 0; }

void DtVdcLinePdu::setProjected(bool projected) {
  if (currentLayout()) setU8At(VdcLayout::kLineTable.projected, projected ? 1 : 0);
}

bool DtVdcLinePdu::projected() const { return currentLayout() && u8At(VdcLayout::kLineTable.projected) != 0; }

const char* DtVdcLinePdu::typeString(DtVdcLineArrowStyle style) const {
  return style < std::size(kArrowStyleNames) ? kArrowStyleNames[style] : "UnknownEnum";
}

const char* DtVdcLinePdu::typeString(DtVdcLineAppearance appearance) const {
  switch (appearance) {
    case DtVdcLineAppearanceStraight:
      return "VdcLineAppearanceStraight";
    case DtVdcLineAppearanceLightning:
      return "VdcLineAppearanceLightning";
  }
  return "UnknownEnum";
}

void DtVdcLinePdu::printData() const {
  DtVdcAttachablePdu::printData();
  const unsigned count = numSegments();
  DtDumpInteger("Segments:", count);
  const char* const colorLabels[] = {" r:", " g:", " b:", " a:"};
  for (unsigned i = 0; i < count; ++i) {
    DtDumpInteger("Segment:", i + 1);
    DtDumpInteger("Percentage:", percentage(i));
    DtDumpInteger("Thickness:", thickness(i));
    DtDumpHexWord("Pattern:", pattern(i));
    const DtVdcLineArrowStyle style = arrowStyle(i);
    DtDumpEnum("LineArrowStyle:", typeString(style), style);
    const DtVdcLineAppearance look = appearance(i);
    DtDumpEnum("LineAppearance:", typeString(look), look);
    DtDumpString("Color:", "");
    const unsigned char* rgba = color(i);
    for (int c = 0; c < 4; ++c) DtDumpInteger(colorLabels[c], rgba ? rgba[c] : 0);
  }
}
