#include "vistralcontrol/vdcTextPdu.h"

#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vdcPduClass.h"
#include "vdcTrailingText.h"

using VdcLayout::kHalfWay;
using VdcLayout::kText;

VDC_DRAW_PDU_BASE(DtVdcTextPduBase, VdcLayout::longest(kText) + VcLayout::kNameWidth)

void DtVdcTextPduBase::setText(DtString text) { VdcTrailingText::set(*this, kText, std::move(text)); }
DtString DtVdcTextPduBase::text() const { return VdcTrailingText::get(*this, kText); }

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

VDC_DRAW_PDU_CLASS(DtVdcTextPdu, DtVdcTextPduBase, DtVcDrawText, kText.current.length, kCurrentParamVersion,
                   if (holder == nullptr) setRelativeLocations(kHalfWay))
VDC_DRAW_PDU_CLASS(DtVdcTextPduV0, DtVdcTextPduBase, DtVcDrawText, kText.v0.length, 0,
                   if (holder == nullptr) setRelativeLocations(kHalfWay))
