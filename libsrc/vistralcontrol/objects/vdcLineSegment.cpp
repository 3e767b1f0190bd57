#include "vistralcontrol/vdcLineSegment.h"

DtVdcLineSegment::DtVdcLineSegment(double percentage, DtVdcColor color, unsigned int pattern,
                                   unsigned int thickness, DtVdcSegmentStyle style,
                                   DtVdcSegmentArrowStyle arrowStyle)
    : color_(color),
      pattern_(pattern),
      thickness_(thickness),
      percentage_(percentage),
      style_(style),
      arrowStyle_(arrowStyle) {}
