// A line in the viewer's screen plane, cut into segments along its length. Positions are fractions of the
// view, 0..1 on each axis.
#pragma once

#include <vector>

#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcLineSegment.h"
#include "vistralcontrol/vdcObject.h"
#include "vistralcontrol/vdcVector2D.h"

class VISTRAL_EXPORT DtVdcLine2DObject : public DtVdcObject {
 public:
  // The segment looks, as DtVdcLineSegment names them.
  using DtVdcSegmentStyle = DtVdcLineSegment::DtVdcSegmentStyle;
  using DtVdcSegmentArrowStyle = DtVdcLineSegment::DtVdcSegmentArrowStyle;

  // numSegments segments of equal share, each with the given look.
  DtVdcLine2DObject(unsigned int id, const DtVdcVector2D& start, const DtVdcVector2D& end, int numSegments,
                    DtVdcColor color, DtVdcSegmentStyle style, DtVdcSegmentArrowStyle arrowStyle,
                    unsigned int thickness, unsigned int pattern, bool flashing);
  DtVdcLine2DObject(const DtVdcLine2DObject& other) = default;
  DtVdcLine2DObject& operator=(const DtVdcLine2DObject& other) = default;
  ~DtVdcLine2DObject() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // The setters change the object only; the PDU follows at the next updatePdu(). Segment indices come last;
  // an index out of range reads a default segment and writes nothing.
  virtual const DtVdcVector2D& startPosition() const;
  virtual DtVdcVector2D& startPosition();
  virtual void setStartPosition(const DtVdcVector2D& position);
  virtual const DtVdcVector2D& endPosition() const;
  virtual DtVdcVector2D& endPosition();
  virtual void setEndPosition(const DtVdcVector2D& position);
  virtual int numSegments() const;
  // Resizes to that many default segments (none for a negative count).
  virtual void setNumSegments(int count);
  // Each segment's look, by segment index.
  virtual const DtVdcColor& color(int segment) const;
  virtual DtVdcColor& color(int segment);
  virtual void setColor(const DtVdcColor& color, int segment);
  virtual DtVdcSegmentStyle lineStyle(int segment) const;
  virtual void setLineStyle(DtVdcSegmentStyle style, int segment);
  virtual DtVdcSegmentArrowStyle arrowStyle(int segment) const;
  virtual void setArrowStyle(DtVdcSegmentArrowStyle style, int segment);
  virtual unsigned int pattern(int segment) const;
  virtual void setPattern(unsigned int pattern, int segment);
  virtual unsigned int thickness(int segment) const;
  virtual void setThickness(unsigned int thickness, int segment);
  virtual double percentage(int segment) const;
  virtual void setPercentage(double percentage, int segment);
  virtual bool flashing() const;
  virtual void setFlashing(bool flashing);

  // The steps of updatePdu().
  virtual void setPduAttach();
  virtual void setPduFlashing();
  virtual void setPduNumSegments();
  virtual void setPduColor(int segment);
  virtual void setPduLineStyle(int segment);
  virtual void setPduArrowStyle(int segment);
  virtual void setPduPattern(int segment);
  virtual void setPduThickness(int segment);
  virtual void setPduPercentage(int segment);

 private:
  DtVdcVector2D start_;
  DtVdcVector2D end_;
  bool flashing_;
  std::vector<DtVdcLineSegment> segments_;
  DtVdcLinePdu pdu_;
};
