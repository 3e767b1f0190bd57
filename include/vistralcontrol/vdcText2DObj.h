// A text label at a point of the viewer's screen (0..1 on each axis).
#pragma once

#include "tarvex/dtString.h"
#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcObject.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vdcVector2D.h"

class VISTRAL_EXPORT DtVdcText2DObject : public DtVdcObject {
 public:
  // The text at a screen position.
  DtVdcText2DObject(unsigned int id, const DtString& text, const DtVdcVector2D& position, DtVdcColor color,
                    bool flashing);
  DtVdcText2DObject(const DtVdcText2DObject& other) = default;
  DtVdcText2DObject& operator=(const DtVdcText2DObject& other) = default;
  ~DtVdcText2DObject() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // The setters change the object only; the PDU follows at the next updatePdu().
  virtual const DtString& text() const;
  virtual DtString& text();
  virtual void setText(const DtString& text);
  virtual const DtVdcVector2D& position() const;
  virtual DtVdcVector2D& position();
  virtual void setPosition(const DtVdcVector2D& position);
  virtual const DtVdcColor& color() const;
  virtual DtVdcColor& color();
  virtual void setColor(const DtVdcColor& color);
  virtual bool flashing() const;
  virtual void setFlashing(bool flashing);

  // The steps of updatePdu().
  virtual void setPduAttach();
  virtual void setPduColor();
  virtual void setPduFlashing();
  virtual void setPduText();

 private:
  DtVdcVector2D position_;
  DtVdcColor color_;
  bool flashing_;
  DtString text_;
  DtVdcTextPdu pdu_;
};
