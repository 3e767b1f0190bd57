#include "vdcFill.h"

#include <cmath>

namespace VdcFill {

unsigned int truncU32(double v) {
  if (!std::isfinite(v)) return 0;
  constexpr double kModulus = 4294967296.0;
  double r = std::fmod(std::trunc(v), kModulus);  // exact, in (-2^32, 2^32)
  if (r < 0) r += kModulus;
  return static_cast<unsigned int>(r);
}

signed char screenPercent(double c) { return static_cast<signed char>(lowByte(200.0 * c - 100.0)); }

void attachToScreen(DtVdcAttachablePdu& pdu, const DtVdcVector2D& point) {
  const char pos[2] = {static_cast<char>(screenPercent(point.x())),
                       static_cast<char>(screenPercent(point.y()))};
  pdu.attachTo(pos);
}

void attachToScreen(DtVdcAttachablePdu& pdu, const DtVdcVector2D& start, const DtVdcVector2D& end) {
  const char pos1[2] = {static_cast<char>(screenPercent(start.x())),
                        static_cast<char>(screenPercent(start.y()))};
  const char pos2[2] = {static_cast<char>(screenPercent(end.x())), static_cast<char>(screenPercent(end.y()))};
  pdu.attachTo(pos1, pos2);
}

namespace {
// Calls use(anchor) with the value the PDU attaches to for this kind; false for an unknown kind.
template <class Use>
bool withAnchor(const DtVdc3DAttachPoint& at, Use use) {
  switch (at.attachmentType()) {
    case DtVdc3DAttachPoint::DtVdcAttachNone:
      use(DtVector64());
      return true;
    case DtVdc3DAttachPoint::DtVdcAttachLocation:
      use(at.location());
      return true;
    case DtVdc3DAttachPoint::DtVdcAttachEntity:
      use(at.entityId());
      return true;
    case DtVdc3DAttachPoint::DtVdcAttachDrawObject:
      use(DtNetU32(at.drawObjectId()));
      return true;
    default:
      return false;
  }
}

bool known(const DtVdc3DAttachPoint& at) {
  return withAnchor(at, [](const auto&) {});
}

bool onObject(const DtVdc3DAttachPoint& at) {
  return at.attachmentType() == DtVdc3DAttachPoint::DtVdcAttachDrawObject;
}
}  // namespace

void attachSingle(DtVdcAttachablePdu& pdu, const DtVdc3DAttachPoint& at) {
  withAnchor(at, [&](const auto& anchor) { pdu.attachTo(anchor); });
  if (onObject(at)) pdu.setRelativeLocation(lowByte(at.relativePosition()), 0);
}

void attachPair(DtVdcAttachablePdu& pdu, const DtVdc3DAttachPoint& start, const DtVdc3DAttachPoint& end) {
  if (!known(start) || !known(end)) return;
  if (onObject(start)) pdu.setRelativeLocation(lowByte(start.relativePosition()), 0);
  withAnchor(start, [&](const auto& first) {
    withAnchor(end, [&](const auto& second) { pdu.attachTo(first, second); });
  });
  if (onObject(end)) pdu.setRelativeLocation(lowByte(end.relativePosition()), 1);
}

namespace {
void rgbaOf(const DtVdcColor& color, unsigned char* rgba) {
  rgba[0] = lowByte(color.red());
  rgba[1] = lowByte(color.green());
  rgba[2] = lowByte(color.blue());
  rgba[3] = lowByte(color.alpha());
}
}  // namespace

void setColor(DtVdcAttachablePdu& pdu, const DtVdcColor& color) {
  unsigned char rgba[4];
  rgbaOf(color, rgba);
  pdu.setColor(rgba);
}

DtTaitBryan screenRotation(double radians) {
  constexpr double kDegreesPerRadian = 180.0 / M_PI;
  return DtTaitBryan(0.0, 0.0, radians * kDegreesPerRadian);
}

namespace {
DtVdcLineSegment& scratchSegment() {
  static thread_local DtVdcLineSegment scratch;
  scratch = DtVdcLineSegment();
  return scratch;
}
bool inRange(const std::vector<DtVdcLineSegment>& segments, int i) {
  return i >= 0 && static_cast<std::size_t>(i) < segments.size();
}
}  // namespace

DtVdcLineSegment& segmentAt(std::vector<DtVdcLineSegment>& segments, int i) {
  return inRange(segments, i) ? segments[static_cast<std::size_t>(i)] : scratchSegment();
}

const DtVdcLineSegment& segmentAt(const std::vector<DtVdcLineSegment>& segments, int i) {
  return inRange(segments, i) ? segments[static_cast<std::size_t>(i)] : scratchSegment();
}

void setSegmentCount(DtVdcLinePdu& pdu, const std::vector<DtVdcLineSegment>& segments) {
  pdu.setNumSegments(lowByte(static_cast<unsigned int>(segments.size())));
}

void setSegmentField(DtVdcLinePdu& pdu, const std::vector<DtVdcLineSegment>& segments, int i,
                     SegmentField f) {
  if (!inRange(segments, i)) return;
  const DtVdcLineSegment& s = segments[static_cast<std::size_t>(i)];
  const auto at = static_cast<unsigned int>(i);
  switch (f) {
    case SegmentField::color: {
      unsigned char rgba[4];
      rgbaOf(s.color(), rgba);
      pdu.setColor(at, rgba);
      break;
    }
    case SegmentField::pattern:
      pdu.setPattern(at, DtNetU32(s.pattern()));
      break;
    case SegmentField::thickness:
      pdu.setThickness(at, lowByte(s.thickness()));
      break;
    case SegmentField::lineStyle:
      pdu.setAppearance(at, s.style() == DtVdcLineSegment::DtVdcSegmentLightning
                                ? DtVdcLinePdu::DtVdcLineAppearanceLightning
                                : DtVdcLinePdu::DtVdcLineAppearanceStraight);
      break;
    case SegmentField::arrowStyle: {
      const int style = s.arrowStyle();
      pdu.setArrowStyle(at, style >= 0 && style <= 3 ? static_cast<DtVdcLinePdu::DtVdcLineArrowStyle>(style)
                                                     : DtVdcLinePdu::DtVdcStyleNoArrow);
      break;
    }
    case SegmentField::percentage:
      pdu.setPercentage(at, lowByte(100.0 * s.percentage()));
      break;
  }
}

}  // namespace VdcFill
