#include "vistralcontrol/vdcAttributeUpdatePdu.h"

#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "tarvex/dtDump.h"
#include "vdcLayout.h"

using VdcLayout::kAttributeUpdate;

DtVdcAttributeUpdatePduBase::~DtVdcAttributeUpdatePduBase() = default;

void DtVdcAttributeUpdatePduBase::setText(DtString text) {
  const VdcLayout::AttributeUpdate& l = VdcLayout::of(*this, kAttributeUpdate);
  // The length field says what was stored: 0 for an empty text, whose old bytes stay behind it.
  setU32At(l.textLength,
           static_cast<std::uint32_t>(setInternalText(std::move(text), static_cast<unsigned long>(l.text))));
}

DtString DtVdcAttributeUpdatePduBase::text() const {
  const VdcLayout::AttributeUpdate& l = VdcLayout::of(*this, kAttributeUpdate);
  return internalText(static_cast<int>(u32At(l.textLength)), static_cast<unsigned long>(l.text));
}

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
  unsigned id = 0;
  int updateType = 0;
  std::sscanf(text, "%u %d", &id, &updateType);
  setObjectId(id);
  setType(static_cast<std::uint32_t>(updateType));
  if (updateType == DtVdcAttributeValueSet) {
    double x = 0;
    double y = 0;
    std::sscanf(text, "%u %d %lf %lf", &id, &updateType, &x, &y);
    setValueX(x);
    setValueY(y);
  } else if (updateType == DtVdcAttributeValueSetText) {
    // One word, which may be as long as the whole line.
    std::vector<char> word(std::strlen(text) + 1, '\0');
    std::sscanf(text, "%u %d %s", &id, &updateType, word.data());
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

DtVdcAttributeUpdatePdu::DtVdcAttributeUpdatePdu(DtBufferPlaceHolder* holder) {
  initDraw(kAttributeUpdate.current.length, holder, DtVcDrawAttributeUpdate, kCurrentParamVersion);
}

DtVdcAttributeUpdatePdu::DtVdcAttributeUpdatePdu(const DtNetViewControlPdu* image,
                                                 DtBufferPlaceHolder* holder, DtPduFactory* factory) {
  initDraw(image, holder, factory, DtVcDrawAttributeUpdate);
}

DtVdcAttributeUpdatePdu::~DtVdcAttributeUpdatePdu() = default;

DtVdcAttributeUpdatePduV0::DtVdcAttributeUpdatePduV0(DtBufferPlaceHolder* holder) {
  initDraw(kAttributeUpdate.v0.length, holder, DtVcDrawAttributeUpdate, 0);
}

DtVdcAttributeUpdatePduV0::DtVdcAttributeUpdatePduV0(const DtNetViewControlPdu* image,
                                                     DtBufferPlaceHolder* holder, DtPduFactory* factory) {
  initDraw(image, holder, factory, DtVcDrawAttributeUpdate);
}

DtVdcAttributeUpdatePduV0::~DtVdcAttributeUpdatePduV0() = default;
