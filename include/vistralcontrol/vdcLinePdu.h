// Lines: a line between the anchors as one or more segments, each with its share of the length, thickness,
// dash pattern, colour, arrow style and appearance (viewer command 2520; 2530 for a version-0 segmented
// line). The current layout always carries a segment table. In version 0 the draw-object type decides: the
// segmented types (2531, 2532) carry a table, every other type one implicit segment in fixed fields.
#pragma once

#include "vistralcontrol/vdcAttachablePdu.h"

class VISTRAL_EXPORT DtVdcLinePdu : public DtVdcAttachablePdu {
 public:
  // Which ends of a segment carry an arrowhead.
  enum DtVdcLineArrowStyle : unsigned {
    DtVdcStyleNoArrow = 0,
    DtVdcStyleArrowEnd = 1,
    DtVdcStyleArrowStart = 2,
    DtVdcStyleArrowDouble = 3,
  };
  // How a segment is drawn.
  enum DtVdcLineAppearance : unsigned {
    DtVdcLineAppearanceStraight = 0,
    DtVdcLineAppearanceLightning = 8,
  };

  // One segment that takes the whole line (408 bytes); both relative locations at 50 percent.
  explicit DtVdcLinePdu(DtBufferPlaceHolder* holder = nullptr);
  DtVdcLinePdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcLinePdu(const DtVdcLinePdu& other) = default;
  DtVdcLinePdu& operator=(const DtVdcLinePdu& other) = default;
  ~DtVdcLinePdu() override;

  void printData() const override;
  // The line's colour: segment 0's, or the attachable colour of a version-0 plain line. A version-0 segmented
  // line ignores the setter and reads the attachable colour.
  void setColor(unsigned char* rgba) override;
  const unsigned char* color() const override;

  // At most 255 segments; resizes the PDU. A version-0 plain line has one segment and ignores the setter.
  virtual void setNumSegments(unsigned char count);
  virtual unsigned char numSegments() const;
  // Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing
  // and indexed getters past it give 0 (a null colour).
  virtual void setArrowStyle(DtVdcLineArrowStyle style);
  virtual void setArrowStyle(unsigned int segment, DtVdcLineArrowStyle style);
  virtual DtVdcLineArrowStyle arrowStyle(unsigned int segment) const;
  virtual void setAppearance(DtVdcLineAppearance appearance);
  virtual void setAppearance(unsigned int segment, DtVdcLineAppearance appearance);
  virtual DtVdcLineAppearance appearance(unsigned int segment) const;
  virtual void setThickness(unsigned char thickness);
  virtual void setThickness(unsigned int segment, unsigned char thickness);
  virtual unsigned char thickness(unsigned int segment) const;
  virtual void setPattern(DtNetU32 pattern);
  virtual void setPattern(unsigned int segment, DtNetU32 pattern);
  virtual DtNetU32 pattern(unsigned int segment) const;
  virtual void setColor(unsigned int segment, unsigned char* rgba);
  virtual const unsigned char* color(unsigned int segment) const;
  virtual void setPercentage(unsigned int segment, unsigned char percent);
  virtual unsigned char percentage(unsigned int segment) const;
  // Current layout only; version 0 ignores the setters and reads false.
  virtual void setCheckLos(bool check);
  virtual bool checkLos() const;
  virtual void setProjected(bool projected);
  virtual bool projected() const;
  // The name of an arrow style or an appearance, for the dump.
  virtual const char* typeString(DtVdcLineArrowStyle style) const;
  virtual const char* typeString(DtVdcLineAppearance appearance) const;

  using DtVdcAttachablePdu::typeString;

 protected:
  // For the version-0 classes, which build their own image.
  struct NoImage {};
  // Builds no image: the version-0 class's constructor builds its own.
  explicit DtVdcLinePdu(NoImage);

 private:
  // How an operation reaches a segment: the whole line (segment 0 of a table, or the plain fields), an
  // indexed setter (never the plain fields), or a getter (the plain fields whatever the index).
  enum class Access { wholeLine, indexedSet, get };
  // Where the field lies, or -1 where the operation does nothing: a table record in the layout the PDU's
  // bytes select (only below the segment count), or the version-0 plain field.
  int field(Access access, unsigned int segment, int recordOffset, int plainOffset) const;
  void setBits(int at, unsigned mask, unsigned bits);
  DtPduStorage<456> storage_;  // four segments; the version-0 lines too
};

// A version-0 plain line (392 bytes, viewer command 2520); a segmented type makes it a segmented line.
class VISTRAL_EXPORT DtVdcLinePduV0 : public DtVdcLinePdu {
 public:
  explicit DtVdcLinePduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcLinePduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcLinePduV0(const DtVdcLinePduV0& other) = default;
  DtVdcLinePduV0& operator=(const DtVdcLinePduV0& other) = default;
  ~DtVdcLinePduV0() override;
};

// A version-0 segmented line (388 bytes with no segments, viewer command 2530).
class VISTRAL_EXPORT DtVdcSegmentedLinePduV0 : public DtVdcLinePdu {
 public:
  explicit DtVdcSegmentedLinePduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcSegmentedLinePduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                          DtPduFactory* factory);
  DtVdcSegmentedLinePduV0(const DtVdcSegmentedLinePduV0& other) = default;
  DtVdcSegmentedLinePduV0& operator=(const DtVdcSegmentedLinePduV0& other) = default;
  ~DtVdcSegmentedLinePduV0() override;
};
