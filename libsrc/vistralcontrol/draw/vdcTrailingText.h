// The text that several draw PDUs carry at their end (a text, a layer's name, an attribute's name or text
// value), behind a u32 length field. The length field says what was stored: 0 for an empty text, whose old
// bytes stay behind it. A family's layout names the two fields textLength and text, or gives their names.
#pragma once

#include <cstdint>
#include <utility>

#include "vdcLayout.h"

namespace VdcTrailingText {

template <class L>
void set(DtVistralDrawControlPdu& pdu, const VdcLayout::Pair<L>& pair, DtString text,
         int L::*length = &L::textLength, int L::*at = &L::text) {
  const L& l = VdcLayout::of(pdu, pair);
  const unsigned long stored = pdu.setInternalText(std::move(text), static_cast<unsigned long>(l.*at));
  pdu.setU32At(l.*length, static_cast<std::uint32_t>(stored));
}

template <class L>
DtString get(const DtVistralDrawControlPdu& pdu, const VdcLayout::Pair<L>& pair,
             int L::*length = &L::textLength, int L::*at = &L::text) {
  const L& l = VdcLayout::of(pdu, pair);
  return pdu.internalText(static_cast<int>(pdu.u32At(l.*length)), static_cast<unsigned long>(l.*at));
}

}  // namespace VdcTrailingText
