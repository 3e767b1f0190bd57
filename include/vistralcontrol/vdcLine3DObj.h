// A line in the world between two attach points (locations, entities or other drawing objects), cut into
// segments along its length, shifted by an east-north-up offset in metres.
#pragma once

#include <vector>

#include "vistralcontrol/vdc3DAttachPoint.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcLineSegment.h"
#include "vistralcontrol/vdcObject.h"

class VISTRAL_EXPORT DtVdcLine3DObject : public DtVdcObject {
 public:
  // The segment looks, as DtVdcLineSegment names them.
  using DtVdcSegmentStyle = DtVdcLineSegment::DtVdcSegmentStyle;
  using DtVdcSegmentArrowStyle = DtVdcLineSegment::DtVdcSegmentArrowStyle;

  // A line between two attach points, moved by enuOffset (east, north, up): numSegments segments of equal
  // share, each with the given look. checkLos and projected are the line PDU's flags of the same names.
  DtVdcLine3DObject(unsigned int id, const DtVdc3DAttachPoint& start, const DtVdc3DAttachPoint& end,
                    int numSegments, const DtVector64& enuOffset, DtVdcColor color, DtVdcSegmentStyle style,
                    DtVdcSegmentArrowStyle arrowStyle, unsigned int thickness, unsigned int pattern,
                    bool flashing, bool checkLos, bool projected);
  DtVdcLine3DObject(const DtVdcLine3DObject& other) = default;
  DtVdcLine3DObject& operator=(const DtVdcLine3DObject& other) = default;
  ~DtVdcLine3DObject() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // As for the 2D line: setters change the object only, segment indices come last.
  virtual const DtVdc3DAttachPoint& startAttachment() const;
  virtual DtVdc3DAttachPoint& startAttachment();
  virtual void setStartAttachment(const DtVdc3DAttachPoint& attachment);
  virtual const DtVdc3DAttachPoint& endAttachment() const;
  virtual DtVdc3DAttachPoint& endAttachment();
  virtual void setEndAttachment(const DtVdc3DAttachPoint& attachment);
  virtual const DtVector64& enuOffset() const;
  virtual DtVector64& enuOffset();
  virtual void setEnuOffset(const DtVector64& offset);
  virtual int numSegments() const;
  virtual void setNumSegments(int count);
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
  virtual bool checkLos() const;
  virtual void setCheckLos(bool check);
  virtual bool projected() const;
  virtual void setProjected(bool projected);

  // The steps of updatePdu().
  virtual void setPduAttach();
  virtual void setPduOffset();
  virtual void setPduFlashing();
  virtual void setPduCheckLos();
  virtual void setPduProjected();
  virtual void setPduNumSegments();
  virtual void setPduColor(int segment);
  virtual void setPduLineStyle(int segment);
  virtual void setPduArrowStyle(int segment);
  virtual void setPduPattern(int segment);
  virtual void setPduThickness(int segment);
  virtual void setPduPercentage(int segment);

 private:
  DtVdc3DAttachPoint start_;
  DtVdc3DAttachPoint end_;
  DtVector64 enuOffset_;
  bool flashing_;
  bool checkLos_;
  bool projected_;
  std::vector<DtVdcLineSegment> segments_;
  DtVdcLinePdu pdu_;
};
