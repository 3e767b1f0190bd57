// The pieces that drawing objects share, each written once: the object's own PDU, colour, flashing, the
// east-north-up offset, one attach point, a 3D orientation, the screen shapes' style, and the segments of the
// 2D and 3D lines. The public classes declare these members one by one (their interface and layout stay as
// applications know them), so the definitions are stamped into each class from here. A piece reads and
// writes the data members named in its comment, which every class that takes it keeps under those names.
#pragma once

#include <vector>

#include "vdcFill.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcLineSegment.h"
#include "vistralcontrol/vdcObject.h"

namespace VdcFill {

// A new object's PDU: its id and type, then the object's whole state. An object in the screen plane has no
// world offset.
void startPdu(DtVdcObject& object, DtVistralDrawControlPdu& pdu, DtVdcObjectType type);
void startScreenPdu(DtVdcObject& object, DtVdcAttachablePdu& pdu, DtVdcObjectType type);

// count segments (none for a count below one) that share the line's length equally, each with this look.
std::vector<DtVdcLineSegment> equalSegments(int count, const DtVdcColor& color, unsigned int pattern,
                                            unsigned int thickness, DtVdcLineSegment::DtVdcSegmentStyle style,
                                            DtVdcLineSegment::DtVdcSegmentArrowStyle arrowStyle);

// The segment steps of a line's updatePdu(): the count, then each segment's fields in the order lines fill
// them. They go through the line's own step functions, which a subclass may override.
template <class Line>
void updateSegments(Line& line) {
  line.setPduNumSegments();
  for (int i = 0; i < line.numSegments(); ++i) {
    line.setPduColor(i);
    line.setPduPattern(i);
    line.setPduThickness(i);
    line.setPduLineStyle(i);
    line.setPduArrowStyle(i);
    line.setPduPercentage(i);
  }
}

// The closing steps of a screen shape's updatePdu(), after its place and size: colour, flashing and style.
template <class Shape>
void updateScreenStyle(Shape& shape) {
  shape.setPduColor();
  shape.setPduFlashing();
  shape.setPduPattern();
  shape.setPduRotation();
  shape.setPduFill();
}

// A solid's updatePdu(): where it hangs, its size, offset, colour, flashing and orientation.
template <class Solid>
void updateSolid(Solid& solid) {
  solid.setPduAttach();
  solid.setPduScale();
  solid.setPduOffset();
  solid.setPduColor();
  solid.setPduFlashing();
  solid.setPduRotation();
}

}  // namespace VdcFill

// pdu_: the object's PDU, and the destructor.
#define VDC_OBJECT_PDU(Class) \
  Class::~Class() = default;  \
  DtVistralDrawControlPdu& Class::pdu() { return pdu_; }

// color_, and the step that copies it.
#define VDC_OBJECT_COLOR(Class)                                     \
  const DtVdcColor& Class::color() const { return color_; }         \
  DtVdcColor& Class::color() { return color_; }                     \
  void Class::setColor(const DtVdcColor& color) { color_ = color; } \
  void Class::setPduColor() { VdcFill::setColor(pdu_, color_); }

// flashing_, and the step that copies it.
#define VDC_OBJECT_FLASHING(Class)                                 \
  bool Class::flashing() const { return flashing_; }               \
  void Class::setFlashing(bool flashing) { flashing_ = flashing; } \
  void Class::setPduFlashing() { pdu_.setFlashing(flashing_); }

// enuOffset_, metres east, north and up, and the step that copies it.
#define VDC_OBJECT_ENU_OFFSET(Class)                                          \
  const DtVector64& Class::enuOffset() const { return enuOffset_; }           \
  DtVector64& Class::enuOffset() { return enuOffset_; }                       \
  void Class::setEnuOffset(const DtVector64& offset) { enuOffset_ = offset; } \
  void Class::setPduOffset() { pdu_.setOffset(enuOffset_); }

// The attach point kept in member, as attachment().
#define VDC_OBJECT_ATTACHMENT(Class, member)                             \
  const DtVdc3DAttachPoint& Class::attachment() const { return member; } \
  DtVdc3DAttachPoint& Class::attachment() { return member; }             \
  void Class::setAttachment(const DtVdc3DAttachPoint& attachment) { (member) = attachment; }

// attachment_, the one attach point of an object that hangs from a single place, and the step that copies it.
#define VDC_OBJECT_SINGLE_ATTACHMENT(Class) \
  VDC_OBJECT_ATTACHMENT(Class, attachment_) \
  void Class::setPduAttach() { VdcFill::attachSingle(pdu_, attachment_); }

// rotation_, a 3D orientation, and the step that copies it.
#define VDC_OBJECT_ORIENTATION(Class)                                            \
  const DtTaitBryan& Class::rotation() const { return rotation_; }               \
  DtTaitBryan& Class::rotation() { return rotation_; }                           \
  void Class::setRotation(const DtTaitBryan& rotation) { rotation_ = rotation; } \
  void Class::setPduRotation() { pdu_.setRotation(rotation_); }

// The screen shapes' style: rotation_ in the screen plane (radians), fill_ and pattern_, and their steps.
#define VDC_OBJECT_SCREEN_STYLE(Class)                                                   \
  double Class::rotation() const { return rotation_; }                                   \
  void Class::setRotation(double rotation) { rotation_ = rotation; }                     \
  bool Class::fill() const { return fill_; }                                             \
  void Class::setFill(bool fill) { fill_ = fill; }                                       \
  unsigned int Class::pattern() const { return pattern_; }                               \
  void Class::setPattern(unsigned int pattern) { pattern_ = pattern; }                   \
  void Class::setPduFill() { pdu_.setFill(fill_); }                                      \
  void Class::setPduRotation() { pdu_.setRotation(VdcFill::screenRotation(rotation_)); } \
  void Class::setPduPattern() { pdu_.setPattern(DtNetU32(pattern_)); }

// segments_ of a 2D or 3D line, read and written by index (out of range: a default segment, and nothing
// kept), and the per-segment steps that copy them.
#define VDC_LINE_SEGMENTS(Class)                                                                   \
  int Class::numSegments() const { return static_cast<int>(segments_.size()); }                    \
  void Class::setNumSegments(int count) {                                                          \
    segments_.assign(count > 0 ? static_cast<std::size_t>(count) : 0, DtVdcLineSegment());         \
  }                                                                                                \
  const DtVdcColor& Class::color(int segment) const {                                              \
    return VdcFill::segmentAt(segments_, segment).color();                                         \
  }                                                                                                \
  DtVdcColor& Class::color(int segment) { return VdcFill::segmentAt(segments_, segment).color(); } \
  void Class::setColor(const DtVdcColor& color, int segment) {                                     \
    VdcFill::segmentAt(segments_, segment).setColor(color);                                        \
  }                                                                                                \
  Class::DtVdcSegmentStyle Class::lineStyle(int segment) const {                                   \
    return VdcFill::segmentAt(segments_, segment).style();                                         \
  }                                                                                                \
  void Class::setLineStyle(DtVdcSegmentStyle style, int segment) {                                 \
    VdcFill::segmentAt(segments_, segment).setStyle(style);                                        \
  }                                                                                                \
  Class::DtVdcSegmentArrowStyle Class::arrowStyle(int segment) const {                             \
    return VdcFill::segmentAt(segments_, segment).arrowStyle();                                    \
  }                                                                                                \
  void Class::setArrowStyle(DtVdcSegmentArrowStyle style, int segment) {                           \
    VdcFill::segmentAt(segments_, segment).setArrowStyle(style);                                   \
  }                                                                                                \
  unsigned int Class::pattern(int segment) const {                                                 \
    return VdcFill::segmentAt(segments_, segment).pattern();                                       \
  }                                                                                                \
  void Class::setPattern(unsigned int pattern, int segment) {                                      \
    VdcFill::segmentAt(segments_, segment).setPattern(pattern);                                    \
  }                                                                                                \
  unsigned int Class::thickness(int segment) const {                                               \
    return VdcFill::segmentAt(segments_, segment).thickness();                                     \
  }                                                                                                \
  void Class::setThickness(unsigned int thickness, int segment) {                                  \
    VdcFill::segmentAt(segments_, segment).setThickness(thickness);                                \
  }                                                                                                \
  double Class::percentage(int segment) const {                                                    \
    return VdcFill::segmentAt(segments_, segment).percentage();                                    \
  }                                                                                                \
  void Class::setPercentage(double percentage, int segment) {                                      \
    VdcFill::segmentAt(segments_, segment).setPercentage(percentage);                              \
  }                                                                                                \
  void Class::setPduNumSegments() { VdcFill::setSegmentCount(pdu_, segments_); }                   \
  void Class::setPduColor(int segment) {                                                           \
    VdcFill::setSegmentField(pdu_, segments_, segment, VdcFill::SegmentField::color);              \
  }                                                                                                \
  void Class::setPduLineStyle(int segment) {                                                       \
    VdcFill::setSegmentField(pdu_, segments_, segment, VdcFill::SegmentField::lineStyle);          \
  }                                                                                                \
  void Class::setPduArrowStyle(int segment) {                                                      \
    VdcFill::setSegmentField(pdu_, segments_, segment, VdcFill::SegmentField::arrowStyle);         \
  }                                                                                                \
  void Class::setPduPattern(int segment) {                                                         \
    VdcFill::setSegmentField(pdu_, segments_, segment, VdcFill::SegmentField::pattern);            \
  }                                                                                                \
  void Class::setPduThickness(int segment) {                                                       \
    VdcFill::setSegmentField(pdu_, segments_, segment, VdcFill::SegmentField::thickness);          \
  }                                                                                                \
  void Class::setPduPercentage(int segment) {                                                      \
    VdcFill::setSegmentField(pdu_, segments_, segment, VdcFill::SegmentField::percentage);         \
  }
