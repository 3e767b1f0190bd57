// What the screen ellipse and rectangle share: a position and size in the view (0..1), a rotation in the
// screen plane, colour, fill and pattern. The subclass names the shape.
#pragma once

#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcObject.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcVector2D.h"

class VISTRAL_EXPORT DtVdcEllRectBase : public DtVdcObject {
 public:
  DtVdcEllRectBase(const DtVdcEllRectBase& other) = default;
  DtVdcEllRectBase& operator=(const DtVdcEllRectBase& other) = default;
  ~DtVdcEllRectBase() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // The setters change the object only; the PDU follows at the next updatePdu().
  virtual const DtVdcVector2D& position() const;
  virtual DtVdcVector2D& position();
  virtual void setPosition(const DtVdcVector2D& position);
  virtual const DtVdcVector2D& size() const;
  virtual DtVdcVector2D& size();
  virtual void setSize(const DtVdcVector2D& size);
  // Radians.
  virtual double rotation() const;
  virtual void setRotation(double rotation);
  // How the shape is drawn: colour, filled or outlined, dash pattern, flashing.
  virtual const DtVdcColor& color() const;
  virtual DtVdcColor& color();
  virtual void setColor(const DtVdcColor& color);
  virtual bool fill() const;
  virtual void setFill(bool fill);
  virtual unsigned int pattern() const;
  virtual void setPattern(unsigned int pattern);
  virtual bool flashing() const;
  virtual void setFlashing(bool flashing);

  // The steps of updatePdu().
  virtual void setPduAttach();
  virtual void setPduScale();
  virtual void setPduColor();
  virtual void setPduFlashing();
  virtual void setPduFill();
  virtual void setPduRotation();
  virtual void setPduPattern();

 protected:
  // type: the shape, DtVdcCircle or DtVdcSquare.
  DtVdcEllRectBase(unsigned int id, DtVdcObjectType type, const DtVdcVector2D& position,
                   const DtVdcVector2D& size, double rotation, DtVdcColor color, bool fill,
                   unsigned int pattern, bool flashing);

 private:
  DtVdcVector2D position_;
  DtVdcVector2D size_;
  DtVdcColor color_;
  unsigned int pattern_;
  bool fill_;
  double rotation_;
  bool flashing_;
  DtVdcPolyObjectPdu pdu_;
};
