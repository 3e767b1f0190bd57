#include "vistralcontrol/vdcAttributePdu.h"

#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vdcPduClass.h"
#include "vdcTrailingText.h"

using VdcLayout::kAttribute;

namespace {
constexpr int kAttributeWords = 6;  // group id, name flag, name, range flag, minimum, maximum

// The start of the line's last six blank-separated words (the line's start if it has fewer blanks).
const char* lastWords(const char* line) {
  int blanks = 0;
  for (const char* p = line + std::strlen(line); p != line; --p) {
    if (p[-1] == ' ' && ++blanks == kAttributeWords) return p;
  }
  return line;
}
}  // namespace

VDC_DRAW_PDU_BASE(DtVdcAttributePduBase, VdcLayout::longest(kAttribute) + VcLayout::kNameWidth)

void DtVdcAttributePduBase::setName(DtString name) {
  VdcTrailingText::set(*this, kAttribute, std::move(name), &VdcLayout::Attribute::nameLength,
                       &VdcLayout::Attribute::name);
}
DtString DtVdcAttributePduBase::name() const {
  return VdcTrailingText::get(*this, kAttribute, &VdcLayout::Attribute::nameLength,
                              &VdcLayout::Attribute::name);
}

DtNetU32 DtVdcAttributePduBase::attributeGroupId() const {
  return u32At(VdcLayout::of(*this, kAttribute).groupId);
}

void DtVdcAttributePduBase::setAttributeGroupId(DtNetU32 groupId) {
  setU32At(VdcLayout::of(*this, kAttribute).groupId, groupId);
}

bool DtVdcAttributePduBase::hasRange() const { return u8At(VdcLayout::of(*this, kAttribute).rangeFlag) != 0; }

double DtVdcAttributePduBase::rangeMin() const { return f64At(VdcLayout::of(*this, kAttribute).rangeMin); }

double DtVdcAttributePduBase::rangeMax() const { return f64At(VdcLayout::of(*this, kAttribute).rangeMax); }

void DtVdcAttributePduBase::setRange(double minimum, double maximum) {
  const VdcLayout::Attribute& l = VdcLayout::of(*this, kAttribute);
  setF64At(l.rangeMin, minimum);
  setF64At(l.rangeMax, maximum);
  // The range flag is the whole flag byte, so setting it clears flashing.
  setU8At(l.rangeFlag, 1);
}

const char* DtVdcAttributePduBase::string() const {
  DtVdcAttachablePdu::string();
  const DtString n = name();
  const unsigned group = attributeGroupId();
  const int range = hasRange() ? 1 : 0;
  VcText::Writer out = VcText::Writer::continuing(textBuffer(), kTextBufferSize);
  if (n.length() != 0) {
    out.append(" %u 1 %s %d %lf %lf", group, n.c_str(), range, rangeMin(), rangeMax());
  } else {
    out.append(" %u 0 0 %d %lf %lf", group, range, rangeMin(), rangeMax());
  }
  return out.text();
}

void DtVdcAttributePduBase::setFromString(const char* text) {
  if (text == nullptr) return;
  DtVdcAttachablePdu::setFromString(text);
  const char* words = lastWords(text);
  unsigned group = 0;
  int named = 0;
  std::sscanf(words, "%u %d", &group, &named);
  // The name may be as long as the whole line.
  std::vector<char> word(std::strlen(words) + 1, '\0');
  int range = 0;
  double minimum = 0;
  double maximum = 0;
  std::sscanf(words, "%u %d %s %d %lf %lf", &group, &named, word.data(), &range, &minimum, &maximum);
  if (named != 0) setName(DtString(word.data()));
  setAttributeGroupId(group);
  if (range != 0) setRange(minimum, maximum);
}

void DtVdcAttributePduBase::printData() const {
  DtVdcAttachablePdu::printData();
  DtDumpInteger("Attribute group:", attributeGroupId());
  if (hasRange()) {
    DtDumpString("Range:", "");
    DtDumpFloat(" Min:", rangeMin());
    DtDumpFloat(" Max:", rangeMax());
  }
  DtDumpString("Name:", name().c_str());
}

VDC_DRAW_PDU_CLASS(DtVdcAttributePdu, DtVdcAttributePduBase, DtVcDrawAttribute, kAttribute.current.length,
                   kCurrentParamVersion, )
VDC_DRAW_PDU_CLASS(DtVdcAttributePduV0, DtVdcAttributePduBase, DtVcDrawAttribute, kAttribute.v0.length, 0, )
