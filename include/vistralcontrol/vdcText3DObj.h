// A text label in the world, placed at an attach point and shifted by an east-north-up offset in metres.
#pragma once

#include "tarvex/dtString.h"
#include "tarvex/dtVector.h"
#include "vistralcontrol/vdc3DAttachPoint.h"
#include "vistralcontrol/vdcColor.h"
#include "vistralcontrol/vdcObject.h"
#include "vistralcontrol/vdcTextPdu.h"

class VISTRAL_EXPORT DtVdcText3DObject : public DtVdcObject {
 public:
  // The text at the attach point, moved by enuOffset (east, north, up).
  DtVdcText3DObject(unsigned int id, const DtString& text, const DtVdc3DAttachPoint& attachment,
                    const DtVector64& enuOffset, DtVdcColor color, bool flashing);
  DtVdcText3DObject(const DtVdcText3DObject& other) = default;
  DtVdcText3DObject& operator=(const DtVdcText3DObject& other) = default;
  ~DtVdcText3DObject() override;

  DtVistralDrawControlPdu& pdu() override;
  void updatePdu() override;

  // The setters change the object only; the PDU follows at the next updatePdu().
  virtual const DtString& text() const;
  virtual DtString& text();
  virtual void setText(const DtString& text);
  virtual const DtVdc3DAttachPoint& attachment() const;
  virtual DtVdc3DAttachPoint& attachment();
  virtual void setAttachment(const DtVdc3DAttachPoint& attachment);
  virtual const DtVector64& enuOffset() const;
  virtual DtVector64& enuOffset();
  virtual void setEnuOffset(const DtVector64& offset);
  virtual const DtVdcColor& color() const;
  virtual DtVdcColor& color();
  virtual void setColor(const DtVdcColor& color);
  virtual bool flashing() const;
  virtual void setFlashing(bool flashing);

  // The steps of updatePdu().
  virtual void setPduAttach();
  virtual void setPduOffset();
  virtual void setPduColor();
  virtual void setPduFlashing();
  virtual void setPduText();

 private:
  DtVdc3DAttachPoint attachment_;
  DtVector64 enuOffset_;
  DtVdcColor color_;
  bool flashing_;
  DtString text_;
  DtVdcTextPdu pdu_;
};
