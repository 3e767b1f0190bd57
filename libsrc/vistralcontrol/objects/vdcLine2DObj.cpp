#include "vistralcontrol/vdcLine2DObj.h"

#include "vdcFill.h"

using VdcFill::segmentAt;
using VdcFill::SegmentField;
using VdcFill::setSegmentField;

DtVdcLine2DObject::DtVdcLine2DObject(unsigned int id, const DtVdcVector2D& start, const DtVdcVector2D& end,
                                     int numSegments, DtVdcColor color, DtVdcSegmentStyle style,
                                     DtVdcSegmentArrowStyle arrowStyle, unsigned int thickness,
                                     unsigned int pattern, bool flashing)
    : DtVdcObject(id), start_(start), end_(end), flashing_(flashing) {
  pdu_.setObjectId(id);
  pdu_.setType(DtVdc2DLine);
  setNumSegments(numSegments);
  // The segments share the line's length equally.
  for (int i = 0; i < numSegments; ++i) {
    DtVdcLineSegment& s = segments_[static_cast<std::size_t>(i)];
    s = DtVdcLineSegment(1.0 / numSegments, color, pattern, thickness, style, arrowStyle);
  }
  updatePdu();
  // A screen line has no world offset.
  pdu_.setOffset(DtVector64());
}

DtVdcLine2DObject::~DtVdcLine2DObject() = default;

DtVistralDrawControlPdu& DtVdcLine2DObject::pdu() { return pdu_; }

void DtVdcLine2DObject::updatePdu() {
  setPduAttach();
  setPduFlashing();
  setPduNumSegments();
  for (int i = 0; i < numSegments(); ++i) {
    setPduColor(i);
    setPduPattern(i);
    setPduThickness(i);
    setPduLineStyle(i);
    setPduArrowStyle(i);
    setPduPercentage(i);
  }
}

const DtVdcVector2D& DtVdcLine2DObject::startPosition() const { return start_; }
DtVdcVector2D& DtVdcLine2DObject::startPosition() { return start_; }
void DtVdcLine2DObject::setStartPosition(const DtVdcVector2D& position) { start_ = position; }
const DtVdcVector2D& DtVdcLine2DObject::endPosition() const { return end_; }
DtVdcVector2D& DtVdcLine2DObject::endPosition() { return end_; }
void DtVdcLine2DObject::setEndPosition(const DtVdcVector2D& position) { end_ = position; }

int DtVdcLine2DObject::numSegments() const { return static_cast<int>(segments_.size()); }
void DtVdcLine2DObject::setNumSegments(int count) {
  segments_.assign(count > 0 ? static_cast<std::size_t>(count) : 0, DtVdcLineSegment());
}
const DtVdcColor& DtVdcLine2DObject::color(int segment) const {
  return segmentAt(segments_, segment).color();
}
DtVdcColor& DtVdcLine2DObject::color(int segment) { return segmentAt(segments_, segment).color(); }
void DtVdcLine2DObject::setColor(const DtVdcColor& color, int segment) {
  segmentAt(segments_, segment).setColor(color);
}
DtVdcLine2DObject::DtVdcSegmentStyle DtVdcLine2DObject::lineStyle(int segment) const {
  return segmentAt(segments_, segment).style();
}
void DtVdcLine2DObject::setLineStyle(DtVdcSegmentStyle style, int segment) {
  segmentAt(segments_, segment).setStyle(style);
}
DtVdcLine2DObject::DtVdcSegmentArrowStyle DtVdcLine2DObject::arrowStyle(int segment) const {
  return segmentAt(segments_, segment).arrowStyle();
}
void DtVdcLine2DObject::setArrowStyle(DtVdcSegmentArrowStyle style, int segment) {
  segmentAt(segments_, segment).setArrowStyle(style);
}
unsigned int DtVdcLine2DObject::pattern(int segment) const { return segmentAt(segments_, segment).pattern(); }
void DtVdcLine2DObject::setPattern(unsigned int pattern, int segment) {
  segmentAt(segments_, segment).setPattern(pattern);
}
unsigned int DtVdcLine2DObject::thickness(int segment) const {
  return segmentAt(segments_, segment).thickness();
}
void DtVdcLine2DObject::setThickness(unsigned int thickness, int segment) {
  segmentAt(segments_, segment).setThickness(thickness);
}
double DtVdcLine2DObject::percentage(int segment) const { return segmentAt(segments_, segment).percentage(); }
void DtVdcLine2DObject::setPercentage(double percentage, int segment) {
  segmentAt(segments_, segment).setPercentage(percentage);
}
bool DtVdcLine2DObject::flashing() const { return flashing_; }
void DtVdcLine2DObject::setFlashing(bool flashing) { flashing_ = flashing; }

void DtVdcLine2DObject::setPduFlashing() { pdu_.setFlashing(flashing_); }
void DtVdcLine2DObject::setPduNumSegments() { VdcFill::setSegmentCount(pdu_, segments_); }
void DtVdcLine2DObject::setPduColor(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::color);
}
void DtVdcLine2DObject::setPduLineStyle(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::lineStyle);
}
void DtVdcLine2DObject::setPduArrowStyle(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::arrowStyle);
}
void DtVdcLine2DObject::setPduPattern(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::pattern);
}
void DtVdcLine2DObject::setPduThickness(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::thickness);
}
void DtVdcLine2DObject::setPduPercentage(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::percentage);
}

void DtVdcLine2DObject::setPduAttach() { VdcFill::attachToScreen(pdu_, start_, end_); }
