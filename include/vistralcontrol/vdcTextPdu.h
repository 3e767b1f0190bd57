// Texts: a text placed at its anchors (viewer command 2560; types 2D and 3D text). The text travels at the
// PDU's end, without a terminator; the PDU is exactly as long as its fixed part plus the text.
#pragma once

#include "vistralcontrol/vdcAttachablePdu.h"

class VISTRAL_EXPORT DtVdcTextPduBase : public DtVdcAttachablePdu {
 public:
  DtVdcTextPduBase(const DtVdcTextPduBase& other) = default;
  DtVdcTextPduBase& operator=(const DtVdcTextPduBase& other) = default;
  ~DtVdcTextPduBase() override;

  // Attachable line, a blank, the text; read back, the text is the line's last word.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // An empty text stores length 0 and leaves the PDU's size and old bytes as they were.
  virtual void setText(DtString text);
  virtual DtString text() const;

 protected:
  DtVdcTextPduBase() { useStorage(storage_); }

 private:
  DtPduStorage<452> storage_;  // a 64-byte text
};

// A text in the current layout.
class VISTRAL_EXPORT DtVdcTextPdu : public DtVdcTextPduBase {
 public:
  explicit DtVdcTextPdu(DtBufferPlaceHolder* holder = nullptr);
  DtVdcTextPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcTextPdu(const DtVdcTextPdu& other) = default;
  DtVdcTextPdu& operator=(const DtVdcTextPdu& other) = default;
  ~DtVdcTextPdu() override;
};

// A text in the version-0 layout.
class VISTRAL_EXPORT DtVdcTextPduV0 : public DtVdcTextPduBase {
 public:
  explicit DtVdcTextPduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcTextPduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcTextPduV0(const DtVdcTextPduV0& other) = default;
  DtVdcTextPduV0& operator=(const DtVdcTextPduV0& other) = default;
  ~DtVdcTextPduV0() override;
};
