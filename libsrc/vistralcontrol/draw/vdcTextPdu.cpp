#include "vistralcontrol/vdcTextPdu.h"

#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vdcLayout.h"

using VdcLayout::kText;

namespace {
constexpr unsigned char kHalfWay = 50;
}  // namespace

DtVdcTextPduBase::~DtVdcTextPduBase() = default;

void DtVdcTextPduBase::setText(DtString text) {
  const VdcLayout::Texted& l = VdcLayout::of(*this, kText);
  // The length field says what was stored: 0 for an empty text, whose old bytes stay behind it.
  setU32At(l.textLength,
           static_cast<std::uint32_t>(setInternalText(std::move(text), static_cast<unsigned long>(l.text))));
}

DtString DtVdcTextPduBase::text() const {
  const VdcLayout::Texted& l = VdcLayout::of(*this, kText);
  return internalText(static_cast<int>(u32At(l.textLength)), static_cast<unsigned long>(l.text));
}

const char* DtVdcTextPduBase::string() const {
  DtVdcAttachablePdu::string();
  const DtString t = text();
  VcText::Writer out = VcText::Writer::continuing(textBuffer(), kTextBufferSize);
  out.append(" %s", t.c_str());
  return out.text();
}

void DtVdcTextPduBase::setFromString(const char* text) {
  if (text == nullptr) return;
  DtVdcAttachablePdu::setFromString(text);
  // The text is the line's last word: a text that held blanks comes back as its last word only. A line
  // without a blank is a word as a whole.
  const char* last = std::strrchr(text, ' ');
  last = last ? last + 1 : text;
  std::vector<char> word(std::strlen(last) + 1, '\0');
  std::sscanf(last, "%s", word.data());
  setText(DtString(word.data()));
}

void DtVdcTextPduBase::printData() const {
  DtVdcAttachablePdu::printData();
  DtDumpString("Text:", text().c_str());
}

DtVdcTextPdu::DtVdcTextPdu(DtBufferPlaceHolder* holder) {
  initDraw(kText.current.length, holder, DtVcDrawText, kCurrentParamVersion);
  if (holder == nullptr) setRelativeLocations(kHalfWay);
}

DtVdcTextPdu::DtVdcTextPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                           DtPduFactory* factory) {
  initDraw(image, holder, factory, DtVcDrawText);
}

DtVdcTextPdu::~DtVdcTextPdu() = default;

DtVdcTextPduV0::DtVdcTextPduV0(DtBufferPlaceHolder* holder) {
  initDraw(kText.v0.length, holder, DtVcDrawText, 0);
  if (holder == nullptr) setRelativeLocations(kHalfWay);
}

DtVdcTextPduV0::DtVdcTextPduV0(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                               DtPduFactory* factory) {
  initDraw(image, holder, factory, DtVcDrawText);
}

DtVdcTextPduV0::~DtVdcTextPduV0() = default;
