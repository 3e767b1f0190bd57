// Layers: a named group of drawn objects; the object id is the layer's id (viewer command 2590, type 2590).
#pragma once

#include "vistralcontrol/vistralDrawControlPdu.h"

class VISTRAL_EXPORT DtVdcLayerPduBase : public DtVistralDrawControlPdu {
 public:
  DtVdcLayerPduBase(const DtVdcLayerPduBase& other) = default;
  DtVdcLayerPduBase& operator=(const DtVdcLayerPduBase& other) = default;
  ~DtVdcLayerPduBase() override;

  // "objectId name"; the name read back ends at its first blank.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // The layer's name, a text at the PDU's end.
  virtual void setName(DtString name);
  virtual DtString name() const;

 protected:
  DtVdcLayerPduBase() { useStorage(storage_); }

 private:
  DtPduStorage<176> storage_;
};

// A layer in the current layout.
class VISTRAL_EXPORT DtVdcLayerPdu : public DtVdcLayerPduBase {
 public:
  explicit DtVdcLayerPdu(DtBufferPlaceHolder* holder = nullptr);
  DtVdcLayerPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcLayerPdu(const DtVdcLayerPdu& other) = default;
  DtVdcLayerPdu& operator=(const DtVdcLayerPdu& other) = default;
  ~DtVdcLayerPdu() override;
};

// A layer in the version-0 layout.
class VISTRAL_EXPORT DtVdcLayerPduV0 : public DtVdcLayerPduBase {
 public:
  explicit DtVdcLayerPduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcLayerPduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcLayerPduV0(const DtVdcLayerPduV0& other) = default;
  DtVdcLayerPduV0& operator=(const DtVdcLayerPduV0& other) = default;
  ~DtVdcLayerPduV0() override;
};
