// How drawing objects turn their state into PDU fields. Every object goes through these functions for the
// mappings that several of them share: screen coordinates, the single and pair attachment rules, colours,
// screen rotations and line segments. Numbers are cut to what the wire carries without undefined
// behaviour: a value too large for its field keeps its low bits, a NaN becomes 0.
#pragma once

#include <vector>

#include "tarvex/dtVector.h"
#include "vistralcontrol/vdc3DAttachPoint.h"
#include "vistralcontrol/vdcAttachablePdu.h"
#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcLineSegment.h"
#include "vistralcontrol/vdcVector2D.h"

namespace VdcFill {

// trunc(v) modulo 2^32 (negative values wrap); 0 for NaN and infinities.
unsigned int truncU32(double v);
// The low 8 bits of trunc(v).
inline unsigned char lowByte(double v) { return static_cast<unsigned char>(truncU32(v) & 0xFFu); }
inline unsigned char lowByte(unsigned int v) { return static_cast<unsigned char>(v & 0xFFu); }

// A screen coordinate, 0..1 across the view, as the signed percent -100..100 the PDU carries.
signed char screenPercent(double c);
// The PDU attached to one or two screen points.
void attachToScreen(DtVdcAttachablePdu& pdu, const DtVdcVector2D& point);
void attachToScreen(DtVdcAttachablePdu& pdu, const DtVdcVector2D& start, const DtVdcVector2D& end);

// One attach point: a location (the origin for none), an entity, or a drawing object with the relative
// location at index 0. An unknown kind leaves the attachment as it was.
void attachSingle(DtVdcAttachablePdu& pdu, const DtVdc3DAttachPoint& at);
// Start and end: the attachTo overload for the two kinds, with the relative location at index 0 for a start
// on a drawing object and at index 1 for an end on one. An unknown kind at either end changes nothing.
void attachPair(DtVdcAttachablePdu& pdu, const DtVdc3DAttachPoint& start, const DtVdc3DAttachPoint& end);

// Red, green, blue, alpha as their low 8 bits.
void setColor(DtVdcAttachablePdu& pdu, const DtVdcColor& color);
// A rotation in the screen plane, radians, as the PDU's angles in degrees about the third axis.
DtTaitBryan screenRotation(double radians);

// Segment i of a line object, or (out of range) a default segment that nothing keeps: reads give the
// defaults and writes are lost.
DtVdcLineSegment& segmentAt(std::vector<DtVdcLineSegment>& segments, int i);
const DtVdcLineSegment& segmentAt(const std::vector<DtVdcLineSegment>& segments, int i);
// The segment count, then one field of segment i (nothing for an index out of range).
enum class SegmentField { color, pattern, thickness, lineStyle, arrowStyle, percentage };
void setSegmentCount(DtVdcLinePdu& pdu, const std::vector<DtVdcLineSegment>& segments);
void setSegmentField(DtVdcLinePdu& pdu, const std::vector<DtVdcLineSegment>& segments, int i, SegmentField f);
// The six fields of segment i, in the order lines fill them.
constexpr SegmentField kSegmentOrder[] = {SegmentField::color,      SegmentField::pattern,
                                          SegmentField::thickness,  SegmentField::lineStyle,
                                          SegmentField::arrowStyle, SegmentField::percentage};

}  // namespace VdcFill
