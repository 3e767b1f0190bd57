// Commands on a drawn object: remove, hide, show, add to a layer, remove from a layer (viewer command 2510;
// the type names the command, the object id the object acted on).
#pragma once

#include "vistralcontrol/vistralDrawControlPdu.h"

// Command types beyond the draw-object types: one attribute of a panel shown or hidden. The command's object
// id names the attribute, its layer id the panel: an attribute group, or a group template.
enum DtVdcAttributeCommand : unsigned int {
  DtVdcCommandShowGroupAttribute = 2516,
  DtVdcCommandShowTemplateAttribute = 2517,
  DtVdcCommandHideGroupAttribute = 2518,
  DtVdcCommandHideTemplateAttribute = 2519,
};

// What the command PDU's two layouts share: its text form, its dump and the layer id.
class VISTRAL_EXPORT DtVdcCommandPduBase : public DtVistralDrawControlPdu {
 public:
  DtVdcCommandPduBase(const DtVdcCommandPduBase& other) = default;
  DtVdcCommandPduBase& operator=(const DtVdcCommandPduBase& other) = default;
  ~DtVdcCommandPduBase() override;

  // "objectId type", with " layerId" for the two layer commands.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // The layer of the add-to-layer and remove-from-layer commands.
  virtual DtNetU32 layerId() const;
  virtual void setLayerId(DtNetU32 layerId);

 protected:
  DtVdcCommandPduBase() { useStorage(storage_); }

 private:
  DtPduStorage<176> storage_;
};

// A command on a drawn object in the current layout.
class VISTRAL_EXPORT DtVdcCommandPdu : public DtVdcCommandPduBase {
 public:
  explicit DtVdcCommandPdu(DtBufferPlaceHolder* holder = nullptr);
  DtVdcCommandPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcCommandPdu(const DtVdcCommandPdu& other) = default;
  DtVdcCommandPdu& operator=(const DtVdcCommandPdu& other) = default;
  ~DtVdcCommandPdu() override;
};

// A command on a drawn object in the version-0 layout.
class VISTRAL_EXPORT DtVdcCommandPduV0 : public DtVdcCommandPduBase {
 public:
  explicit DtVdcCommandPduV0(DtBufferPlaceHolder* holder = nullptr);
  DtVdcCommandPduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  DtVdcCommandPduV0(const DtVdcCommandPduV0& other) = default;
  DtVdcCommandPduV0& operator=(const DtVdcCommandPduV0& other) = default;
  ~DtVdcCommandPduV0() override;
};
