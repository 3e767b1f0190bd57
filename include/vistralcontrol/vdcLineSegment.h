// One stretch of a line object: its share of the line's length and how it looks.
#pragma once

#include "vistralcontrol/vdcColor.h"

class VISTRAL_EXPORT DtVdcLineSegment {
 public:
  // How the segment is drawn.
  enum DtVdcSegmentStyle : int {
    DtVdcSegmentStraight = 0,
    DtVdcSegmentLightning = 1,  // the only style the line PDU marks
  };
  // Which ends of the segment carry an arrowhead.
  enum DtVdcSegmentArrowStyle : int {
    DtVdcSegmentNoArrow = 0,
    DtVdcSegmentArrowEnd = 1,
    DtVdcSegmentArrowStart = 2,
    DtVdcSegmentArrowDouble = 3,
  };
  // The dash pattern of an unbroken line: every bit drawn.
  static constexpr unsigned int kSolidPattern = 0xFFFFFFFF;

  DtVdcLineSegment() = default;
  // percentage: the segment's share of the line's length, as a fraction of 1.
  DtVdcLineSegment(double percentage, DtVdcColor color, unsigned int pattern, unsigned int thickness,
                   DtVdcSegmentStyle style, DtVdcSegmentArrowStyle arrowStyle);

  // The segment's look: colour, 32-bit dash pattern, thickness, share of the length, style and arrowheads.
  const DtVdcColor& color() const { return color_; }
  DtVdcColor& color() { return color_; }
  void setColor(const DtVdcColor& color) { color_ = color; }
  unsigned int pattern() const { return pattern_; }
  void setPattern(unsigned int pattern) { pattern_ = pattern; }
  unsigned int thickness() const { return thickness_; }
  void setThickness(unsigned int thickness) { thickness_ = thickness; }
  double percentage() const { return percentage_; }
  void setPercentage(double percentage) { percentage_ = percentage; }
  DtVdcSegmentStyle style() const { return style_; }
  void setStyle(DtVdcSegmentStyle style) { style_ = style; }
  DtVdcSegmentArrowStyle arrowStyle() const { return arrowStyle_; }
  void setArrowStyle(DtVdcSegmentArrowStyle arrowStyle) { arrowStyle_ = arrowStyle; }

 private:
  DtVdcColor color_ = DtVdcColor::DtVdcWhite;
  unsigned int pattern_ = kSolidPattern;
  unsigned int thickness_ = 1;
  double percentage_ = 1.0;
  DtVdcSegmentStyle style_ = DtVdcSegmentStraight;
  DtVdcSegmentArrowStyle arrowStyle_ = DtVdcSegmentNoArrow;
};
