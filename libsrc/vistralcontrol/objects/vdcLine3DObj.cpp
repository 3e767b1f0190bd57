#include "vistralcontrol/vdcLine3DObj.h"

#include "vdcFill.h"

using VdcFill::segmentAt;
using VdcFill::SegmentField;
using VdcFill::setSegmentField;

DtVdcLine3DObject::DtVdcLine3DObject(unsigned int id, const DtVdc3DAttachPoint& start,
                                     const DtVdc3DAttachPoint& end, int numSegments,
                                     const DtVector64& enuOffset, DtVdcColor color, DtVdcSegmentStyle style,
                                     DtVdcSegmentArrowStyle arrowStyle, unsigned int thickness,
                                     unsigned int pattern, bool flashing, bool checkLos, bool projected)
    : DtVdcObject(id),
      start_(start),
      end_(end),
      enuOffset_(enuOffset),
      flashing_(flashing),
      checkLos_(checkLos),
      projected_(projected) {
  pdu_.setObjectId(id);
  pdu_.setType(DtVdc3DLine);
  setNumSegments(numSegments);
  // The segments share the line's length equally.
  for (int i = 0; i < numSegments; ++i) {
    DtVdcLineSegment& s = segments_[static_cast<std::size_t>(i)];
    s = DtVdcLineSegment(1.0 / numSegments, color, pattern, thickness, style, arrowStyle);
  }
  updatePdu();
}

DtVdcLine3DObject::~DtVdcLine3DObject() = default;

DtVistralDrawControlPdu& DtVdcLine3DObject::pdu() { return pdu_; }

void DtVdcLine3DObject::updatePdu() {
  setPduAttach();
  setPduOffset();
  setPduFlashing();
  setPduCheckLos();
  setPduProjected();
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

const DtVdc3DAttachPoint& DtVdcLine3DObject::startAttachment() const { return start_; }
DtVdc3DAttachPoint& DtVdcLine3DObject::startAttachment() { return start_; }
void DtVdcLine3DObject::setStartAttachment(const DtVdc3DAttachPoint& attachment) { start_ = attachment; }
const DtVdc3DAttachPoint& DtVdcLine3DObject::endAttachment() const { return end_; }
DtVdc3DAttachPoint& DtVdcLine3DObject::endAttachment() { return end_; }
void DtVdcLine3DObject::setEndAttachment(const DtVdc3DAttachPoint& attachment) { end_ = attachment; }
const DtVector64& DtVdcLine3DObject::enuOffset() const { return enuOffset_; }
DtVector64& DtVdcLine3DObject::enuOffset() { return enuOffset_; }
void DtVdcLine3DObject::setEnuOffset(const DtVector64& offset) { enuOffset_ = offset; }
bool DtVdcLine3DObject::checkLos() const { return checkLos_; }
void DtVdcLine3DObject::setCheckLos(bool check) { checkLos_ = check; }
bool DtVdcLine3DObject::projected() const { return projected_; }
void DtVdcLine3DObject::setProjected(bool projected) { projected_ = projected; }

int DtVdcLine3DObject::numSegments() const { return static_cast<int>(segments_.size()); }
void DtVdcLine3DObject::setNumSegments(int count) {
  segments_.assign(count > 0 ? static_cast<std::size_t>(count) : 0, DtVdcLineSegment());
}
const DtVdcColor& DtVdcLine3DObject::color(int segment) const {
  return segmentAt(segments_, segment).color();
}
DtVdcColor& DtVdcLine3DObject::color(int segment) { return segmentAt(segments_, segment).color(); }
void DtVdcLine3DObject::setColor(const DtVdcColor& color, int segment) {
  segmentAt(segments_, segment).setColor(color);
}
DtVdcLine3DObject::DtVdcSegmentStyle DtVdcLine3DObject::lineStyle(int segment) const {
  return segmentAt(segments_, segment).style();
}
void DtVdcLine3DObject::setLineStyle(DtVdcSegmentStyle style, int segment) {
  segmentAt(segments_, segment).setStyle(style);
}
DtVdcLine3DObject::DtVdcSegmentArrowStyle DtVdcLine3DObject::arrowStyle(int segment) const {
  return segmentAt(segments_, segment).arrowStyle();
}
void DtVdcLine3DObject::setArrowStyle(DtVdcSegmentArrowStyle style, int segment) {
  segmentAt(segments_, segment).setArrowStyle(style);
}
unsigned int DtVdcLine3DObject::pattern(int segment) const { return segmentAt(segments_, segment).pattern(); }
void DtVdcLine3DObject::setPattern(unsigned int pattern, int segment) {
  segmentAt(segments_, segment).setPattern(pattern);
}
unsigned int DtVdcLine3DObject::thickness(int segment) const {
  return segmentAt(segments_, segment).thickness();
}
void DtVdcLine3DObject::setThickness(unsigned int thickness, int segment) {
  segmentAt(segments_, segment).setThickness(thickness);
}
double DtVdcLine3DObject::percentage(int segment) const { return segmentAt(segments_, segment).percentage(); }
void DtVdcLine3DObject::setPercentage(double percentage, int segment) {
  segmentAt(segments_, segment).setPercentage(percentage);
}
bool DtVdcLine3DObject::flashing() const { return flashing_; }
void DtVdcLine3DObject::setFlashing(bool flashing) { flashing_ = flashing; }

void DtVdcLine3DObject::setPduFlashing() { pdu_.setFlashing(flashing_); }
void DtVdcLine3DObject::setPduNumSegments() { VdcFill::setSegmentCount(pdu_, segments_); }
void DtVdcLine3DObject::setPduColor(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::color);
}
void DtVdcLine3DObject::setPduLineStyle(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::lineStyle);
}
void DtVdcLine3DObject::setPduArrowStyle(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::arrowStyle);
}
void DtVdcLine3DObject::setPduPattern(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::pattern);
}
void DtVdcLine3DObject::setPduThickness(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::thickness);
}
void DtVdcLine3DObject::setPduPercentage(int segment) {
  setSegmentField(pdu_, segments_, segment, SegmentField::percentage);
}

void DtVdcLine3DObject::setPduAttach() { VdcFill::attachPair(pdu_, start_, end_); }
void DtVdcLine3DObject::setPduOffset() { pdu_.setOffset(enuOffset_); }
void DtVdcLine3DObject::setPduCheckLos() { pdu_.setCheckLos(checkLos_); }
void DtVdcLine3DObject::setPduProjected() { pdu_.setProjected(projected_); }
