#include "vcEntityLists.h"

#include <algorithm>
#include <climits>

#include "tarvex/dtDump.h"
#include "tarvex/dtPdu.h"

namespace VcEntityLists {

namespace {
constexpr long long kEntry = VcLayout::kNameWidth;

int countOffset(const Layout& layout, List list) {
  return list == List::Remove ? layout.removeCount : layout.addCount;
}

// Where a list's entries begin; 64-bit, since a received count can be anything.
long long listOffset(const DtPdu& pdu, const Layout& layout, List list) {
  const long long start = layout.listStart;
  return list == List::Remove ? start : start + kEntry * usable(count(pdu, layout, List::Remove));
}

// The offset of an entry that exists and lies inside the PDU, or -1.
int entryOffset(const DtPdu& pdu, const Layout& layout, List list, int index) {
  if (index < 0 || index >= usable(count(pdu, layout, list))) return -1;
  const long long offset = listOffset(pdu, layout, list) + kEntry * index;
  return offset + kEntry <= pdu.length() ? static_cast<int>(offset) : -1;
}

bool fitsLength(long long bytes) { return bytes >= 0 && bytes <= DtPdu::kMaxLength; }
}  // namespace

int usable(int count) { return count < 0 ? 0 : count; }

int count(const DtPdu& pdu, const Layout& layout, List list) { return pdu.i32At(countOffset(layout, list)); }

DtString entry(const DtPdu& pdu, const Layout& layout, List list, int index) {
  const int offset = entryOffset(pdu, layout, list, index);
  return offset < 0 ? DtString("") : pdu.designatorAt(offset);
}

void setEntry(DtPdu& pdu, const Layout& layout, List list, int index, const DtString& id) {
  const int offset = entryOffset(pdu, layout, list, index);
  if (offset >= 0) pdu.setDesignatorAt(offset, id);
}

bool setRemoveCount(DtPdu& pdu, const Layout& layout, int newCount) {
  if (newCount < -1) return false;
  const long long before = usable(count(pdu, layout, List::Remove));
  const long long after = usable(newCount);
  bool resized = true;
  if (after > before) {
    // New slots come first: the stored entries move to higher indices, the add list moves back with them.
    const long long bytes = kEntry * (after - before);
    resized = fitsLength(bytes) && pdu.insertBytes(layout.listStart, static_cast<int>(bytes));
  } else if (after < before) {
    // The last remove entries go.
    const long long from = layout.listStart + kEntry * after;
    const long long bytes = std::min<long long>(kEntry * (before - after), INT_MAX);
    resized = fitsLength(from) && pdu.deleteBytes(static_cast<int>(from), static_cast<int>(bytes));
  }
  if (resized) pdu.setI32At(layout.removeCount, newCount);
  return resized;
}

bool setAddCount(DtPdu& pdu, const Layout& layout, int newCount) {
  if (newCount < -1) return false;
  const long long length = listOffset(pdu, layout, List::Add) + kEntry * usable(newCount);
  if (!fitsLength(length) || !pdu.changeSize(static_cast<int>(length))) return false;
  pdu.setI32At(layout.addCount, newCount);
  return true;
}

int entriesInImage(const DtPdu& pdu, const Layout& layout, List list) {
  const long long room = (pdu.length() - listOffset(pdu, layout, list)) / kEntry;
  return static_cast<int>(std::clamp<long long>(room, 0, usable(count(pdu, layout, list))));
}

void dump(const DtPdu& pdu, const Layout& layout) {
  const struct {
    const char* label;
    List list;
  } kLists[] = {{"NumToRemove:", List::Remove}, {"NumToAdd:", List::Add}};
  for (const auto& l : kLists) {
    DtDumpInteger(l.label, count(pdu, layout, l.list));
    for (int i = 0, n = entriesInImage(pdu, layout, l.list); i < n; ++i)
      DtDumpString("", entry(pdu, layout, l.list, i).c_str());
  }
}

}  // namespace VcEntityLists
