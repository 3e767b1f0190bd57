#include "vistralcontrol/vdcAttributeUpdatePdu.h"

#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "tarvex/dtDump.h"
#include "vdcPduClass.h"
#include "vdcTextForm.h"
#include "vdcTrailingText.h"

using VdcLayout::kAttributeUpdate;

VDC_DRAW_PDU_BASE(DtVdcAttributeUpdatePduBase, VdcLayout::longest(kAttributeUpdate) + VcLayout::kNameWidth)

void DtVdcAttributeUpdatePduBase::setText(DtString text) {
  VdcTrailingText::set(*this, kAttributeUpdate, std::move(text));
}
DtString DtVdcAttributeUpdatePduBase::text() const { return VdcTrailingText::get(*this, kAttributeUpdate); }

DtNetU32 DtVdcAttributeUpdatePduBase::groupId() const {
  return u32At(VdcLayout::of(*this, kAttributeUpdate).groupId);
}

void DtVdcAttributeUpdatePduBase::setGroupId(DtNetU32 groupId) {
  setU32At(VdcLayout::of(*this, kAttributeUpdate).groupId, groupId);
}

double DtVdcAttributeUpdatePduBase::valueX() const {
  return f64At(VdcLayout::of(*this, kAttributeUpdate).valueX);
}

double DtVdcAttributeUpdatePduBase::valueY() const {
  return f64At(VdcLayout::of(*this, kAttributeUpdate).valueY);
}

void DtVdcAttributeUpdatePduBase::setValueX(double x) {
  setF64At(VdcLayout::of(*this, kAttributeUpdate).valueX, x);
}

void DtVdcAttributeUpdatePduBase::setValueY(double y) {
  setF64At(VdcLayout::of(*this, kAttributeUpdate).valueY, y);
}

// The text form carries what the update's type uses: two values, a text, or nothing beyond id and type.
const char* DtVdcAttributeUpdatePduBase::string() const {
  const unsigned id = objectId();
  const std::uint32_t t = type();
  const int updateType = static_cast<int>(t);
  if (t == DtVdcAttributeValueSet) return formatText("%u %d %lf %lf", id, updateType, valueX(), valueY());
  if (t == DtVdcAttributeValueSetText) {
    const DtString value = text();
    return formatText("%u %d %s", id, updateType, value.c_str());
  }
  return formatText("%u %d", id, updateType);
}

void DtVdcAttributeUpdatePduBase::setFromString(const char* text) {
  if (text == nullptr) return;
  const int updateType = VdcTextForm::readObjectAndType(*this, text);
  if (updateType == DtVdcAttributeValueSet) {
    double x = 0;
    double y = 0;
    std::sscanf(text, "%*u %*d %lf %lf", &x, &y);
    setValueX(x);
    setValueY(y);
  } else if (updateType == DtVdcAttributeValueSetText) {
    // One word, which may be as long as the whole line.
    std::vector<char> word(std::strlen(text) + 1, '\0');
    std::sscanf(text, "%*u %*d %s", word.data());
    setText(DtString(word.data()));
  }
}

void DtVdcAttributeUpdatePduBase::printData() const {
  DtVistralDrawControlPdu::printData();
  DtDumpInteger("GroupId:", groupId());
  const std::uint32_t t = type();
  if (t == DtVdcAttributeValueSet) {
    DtDumpFloat("ValueX:", valueX());
    DtDumpFloat("ValueY:", valueY());
  } else if (t == DtVdcAttributeValueSetText) {
    DtDumpString("Text:", text().c_str());
  }
}

VDC_DRAW_PDU_CLASS(DtVdcAttributeUpdatePdu, DtVdcAttributeUpdatePduBase, DtVcDrawAttributeUpdate,
                   kAttributeUpdate.current.length, kCurrentParamVersion, )
VDC_DRAW_PDU_CLASS(DtVdcAttributeUpdatePduV0, DtVdcAttributeUpdatePduBase, DtVcDrawAttributeUpdate,
                   kAttributeUpdate.v0.length, 0, )
