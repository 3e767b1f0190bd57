#include "vistralcontrol/vdcCommandPdu.h"

#include <cstdio>

#include "tarvex/dtDump.h"
#include "vdcPduClass.h"
#include "vdcTextForm.h"

using VdcLayout::kCommand;

namespace {
// Only the two layer commands carry a layer id, in the text form and in the dump.
bool namesLayer(std::uint32_t type) {
  return type == DtVdcCommandAddToLayer || type == DtVdcCommandRemoveFromLayer;
}
}  // namespace

VDC_DRAW_PDU_BASE(DtVdcCommandPduBase, VdcLayout::longest(kCommand))

DtNetU32 DtVdcCommandPduBase::layerId() const { return u32At(VdcLayout::of(*this, kCommand).layerId); }

void DtVdcCommandPduBase::setLayerId(DtNetU32 layerId) {
  setU32At(VdcLayout::of(*this, kCommand).layerId, layerId);
}

const char* DtVdcCommandPduBase::string() const {
  const std::uint32_t t = type();
  const int drawType = static_cast<int>(t);
  if (namesLayer(t)) return formatText("%u %d %u", unsigned{objectId()}, drawType, unsigned{layerId()});
  return formatText("%u %d", unsigned{objectId()}, drawType);
}

void DtVdcCommandPduBase::setFromString(const char* text) {
  if (text == nullptr) return;
  const int drawType = VdcTextForm::readObjectAndType(*this, text);
  if (namesLayer(static_cast<std::uint32_t>(drawType))) {
    unsigned layer = 0;
    std::sscanf(text, "%*u %*d %u", &layer);
    setLayerId(layer);
  }
}

void DtVdcCommandPduBase::printData() const {
  DtVistralDrawControlPdu::printData();
  if (namesLayer(type())) DtDumpInteger("LayerId:", layerId());
}

VDC_DRAW_PDU_CLASS(DtVdcCommandPdu, DtVdcCommandPduBase, DtVcDrawCommand, kCommand.current.length,
                   kCurrentParamVersion, if (holder == nullptr) setType(DtVdcUndefined))
VDC_DRAW_PDU_CLASS(DtVdcCommandPduV0, DtVdcCommandPduBase, DtVcDrawCommand, kCommand.v0.length, 0,
                   if (holder == nullptr) setType(DtVdcUndefined))
