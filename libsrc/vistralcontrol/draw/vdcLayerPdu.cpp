#include "vistralcontrol/vdcLayerPdu.h"

#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "tarvex/dtDump.h"
#include "vdcLayout.h"

using VdcLayout::kLayer;

DtVdcLayerPduBase::~DtVdcLayerPduBase() = default;

void DtVdcLayerPduBase::setName(DtString name) {
  const VdcLayout::Texted& l = VdcLayout::of(*this, kLayer);
  // The length field says what was stored: 0 for an empty name, whose old bytes stay behind it.
  setU32At(l.textLength,
           static_cast<std::uint32_t>(setInternalText(std::move(name), static_cast<unsigned long>(l.text))));
}

DtString DtVdcLayerPduBase::name() const {
  const VdcLayout::Texted& l = VdcLayout::of(*this, kLayer);
  return internalText(static_cast<int>(u32At(l.textLength)), static_cast<unsigned long>(l.text));
}

const char* DtVdcLayerPduBase::string() const {
  const DtString n = name();
  return formatText("%u %s", unsigned{objectId()}, n.c_str());
}

void DtVdcLayerPduBase::setFromString(const char* text) {
  if (text == nullptr) return;
  // The name ends at its first blank; it may be as long as the whole line.
  std::vector<char> word(std::strlen(text) + 1, '\0');
  unsigned id = 0;
  std::sscanf(text, "%u %s", &id, word.data());
  setObjectId(id);
  setName(DtString(word.data()));
}

void DtVdcLayerPduBase::printData() const {
  DtVistralDrawControlPdu::printData();
  DtDumpString("Name:", name().c_str());
}

DtVdcLayerPdu::DtVdcLayerPdu(DtBufferPlaceHolder* holder) {
  initDraw(kLayer.current.length, holder, DtVcDrawLayer, kCurrentParamVersion);
}

DtVdcLayerPdu::DtVdcLayerPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                             DtPduFactory* factory) {
  initDraw(image, holder, factory, DtVcDrawLayer);
}

DtVdcLayerPdu::~DtVdcLayerPdu() = default;

DtVdcLayerPduV0::DtVdcLayerPduV0(DtBufferPlaceHolder* holder) {
  initDraw(kLayer.v0.length, holder, DtVcDrawLayer, 0);
}

DtVdcLayerPduV0::DtVdcLayerPduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                 DtPduFactory* factory) {
  initDraw(image, holder, factory, DtVcDrawLayer);
}

DtVdcLayerPduV0::~DtVdcLayerPduV0() = default;
