#include "vistralcontrol/vdcCommandPdu.h"

#include <cstdio>

#include "tarvex/dtDump.h"
#include "vdcLayout.h"

using VdcLayout::kCommand;

namespace {
// Only the two layer commands carry a layer id, in the text form and in the dump.
bool namesLayer(std::uint32_t type) {
  return type == DtVdcCommandAddToLayer || type == DtVdcCommandRemoveFromLayer;
}
}  // namespace

DtVdcCommandPduBase::~DtVdcCommandPduBase() = default;

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
  unsigned id = 0;
  int drawType = 0;
  std::sscanf(text, "%u %d", &id, &drawType);
  setObjectId(id);
  setType(static_cast<std::uint32_t>(drawType));
  if (namesLayer(static_cast<std::uint32_t>(drawType))) {
    unsigned layer = 0;
    std::sscanf(text, "%u %d %u", &id, &drawType, &layer);
    setLayerId(layer);
  }
}

void DtVdcCommandPduBase::printData() const {
  DtVistralDrawControlPdu::printData();
  if (namesLayer(type())) DtDumpInteger("LayerId:", layerId());
}

DtVdcCommandPdu::DtVdcCommandPdu(DtBufferPlaceHolder* holder) {
  initDraw(kCommand.current.length, holder, DtVcDrawCommand, kCurrentParamVersion);
  if (holder == nullptr) setType(DtVdcUndefined);
}

DtVdcCommandPdu::DtVdcCommandPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                 DtPduFactory* factory) {
  initDraw(image, holder, factory, DtVcDrawCommand);
}

DtVdcCommandPdu::~DtVdcCommandPdu() = default;

DtVdcCommandPduV0::DtVdcCommandPduV0(DtBufferPlaceHolder* holder) {
  initDraw(kCommand.v0.length, holder, DtVcDrawCommand, 0);
  if (holder == nullptr) setType(DtVdcUndefined);
}

DtVdcCommandPduV0::DtVdcCommandPduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                     DtPduFactory* factory) {
  initDraw(image, holder, factory, DtVcDrawCommand);
}

DtVdcCommandPduV0::~DtVdcCommandPduV0() = default;
