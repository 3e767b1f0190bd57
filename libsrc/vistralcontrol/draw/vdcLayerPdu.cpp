#include "vistralcontrol/vdcLayerPdu.h"

#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "tarvex/dtDump.h"
#include "vdcPduClass.h"
#include "vdcTrailingText.h"

using VdcLayout::kLayer;

VDC_DRAW_PDU_BASE(DtVdcLayerPduBase, VdcLayout::longest(kLayer))

void DtVdcLayerPduBase::setName(DtString name) { VdcTrailingText::set(*this, kLayer, std::move(name)); }
DtString DtVdcLayerPduBase::name() const { return VdcTrailingText::get(*this, kLayer); }

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

VDC_DRAW_PDU_CLASS(DtVdcLayerPdu, DtVdcLayerPduBase, DtVcDrawLayer, kLayer.current.length,
                   kCurrentParamVersion, )
VDC_DRAW_PDU_CLASS(DtVdcLayerPduV0, DtVdcLayerPduBase, DtVcDrawLayer, kLayer.v0.length, 0, )
