// The two entity lists at the end of group and modeless PDUs: entities to remove, then entities to add, 64
// bytes each, behind two signed 32-bit counts. Changing a count grows or shrinks the PDU in place.
#pragma once

#include "tarvex/dtString.h"
#include "vcViewLayout.h"

class DtPdu;

namespace VcEntityLists {

using Layout = VcLayout::EntityLists;
enum class List { Remove, Add };

// A count as it enters a position or a length: -1 (all bits set), like any negative count a sender may put on
// the wire, counts as 0.
int usable(int count);

// The counts as stored, -1 included.
int count(const DtPdu& pdu, const Layout& layout, List list);

// An entry, or an empty text for an index outside the list or an entry lying past the PDU's end.
DtString entry(const DtPdu& pdu, const Layout& layout, List list, int index);
// Ignored under the same conditions.
void setEntry(DtPdu& pdu, const Layout& layout, List list, int index, const DtString& id);

// Raising the remove count inserts the new slots at the front of the lists, lowering it drops the last remove
// entries; the add count sets the length behind the add list. A count below -1, or one that would take the
// PDU past what its length field can state, is refused: count and length stay as they were (result false).
bool setRemoveCount(DtPdu& pdu, const Layout& layout, int count);
bool setAddCount(DtPdu& pdu, const Layout& layout, int count);

// How many entries of a list lie inside the PDU: a received count may claim more than the image holds.
int entriesInImage(const DtPdu& pdu, const Layout& layout, List list);

// "NumToRemove:" and "NumToAdd:", each followed by its entries under an empty label.
void dump(const DtPdu& pdu, const Layout& layout);

}  // namespace VcEntityLists
