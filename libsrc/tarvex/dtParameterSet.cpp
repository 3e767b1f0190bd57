#include "tarvex/dtParameterSet.h"

#include <algorithm>
#include <cstring>
#include <functional>

#if !TARVEX_RTI13_TYPES_FROM_RTI
tarvex::RTI::Exception::~Exception() = default;
tarvex::RTI::ParameterHandleValuePairSet::~ParameterHandleValuePairSet() = default;
tarvex::RTI::ParameterHandleValuePairSet* tarvex::RTI::ParameterSetFactory::create(ULong expectedSize) {
  return new DtParameterSet(expectedSize);
}
#endif

namespace {
// Transport and order handles as this toolkit numbers them: reliable, receive order.
constexpr RTI::TransportType kReliable = 1;
constexpr RTI::OrderType kReceiveOrder = 1;
}  // namespace

DtParameterSet::DtParameterSet(RTI::ULong expectedSize) { entries_.reserve(expectedSize); }

DtParameterSet::~DtParameterSet() = default;

const DtParameterSet::Entry& DtParameterSet::at(RTI::ULong index) const {
  if (index >= entries_.size()) throw RTI::ArrayIndexOutOfBounds("parameter index out of range");
  return entries_[index];
}

RTI::ULong DtParameterSet::size() const { return static_cast<RTI::ULong>(entries_.size()); }

RTI::Handle DtParameterSet::getHandle(RTI::ULong index) const { return at(index).handle; }

RTI::ULong DtParameterSet::getValueLength(RTI::ULong index) const { return at(index).length; }

void DtParameterSet::getValue(RTI::ULong index, char* buffer, RTI::ULong& length) const {
  const Entry& e = at(index);
  if (e.length > 0) std::memcpy(buffer, bytes_.data() + e.offset, e.length);
  length = e.length;
}

char* DtParameterSet::getValuePointer(RTI::ULong index, RTI::ULong& length) const {
  const Entry& e = at(index);
  length = e.length;
  return bytes_.data() + e.offset;
}

RTI::TransportType DtParameterSet::getTransportType() const { return kReliable; }
RTI::OrderType DtParameterSet::getOrderType() const { return kReceiveOrder; }
RTI::Region* DtParameterSet::getRegion() const { return nullptr; }

void DtParameterSet::add(RTI::Handle handle, const char* value, RTI::ULong length) {
  if (value == nullptr) length = 0;
  const std::size_t offset = bytes_.size();
  const std::less<const char*> before;
  const bool fromItself =
      length > 0 && !before(value, bytes_.data()) && before(value, bytes_.data() + bytes_.size());
  if (fromItself) {  // growing may move the bytes being copied
    const std::vector<char> copy(value, value + length);
    bytes_.insert(bytes_.end(), copy.begin(), copy.end());
  } else {
    bytes_.insert(bytes_.end(), value, value + length);
  }
  auto same =
      std::find_if(entries_.begin(), entries_.end(), [handle](const Entry& e) { return e.handle == handle; });
  if (same != entries_.end()) {
    *same = Entry{handle, offset, length};
  } else {
    entries_.push_back(Entry{handle, offset, length});
  }
}

void DtParameterSet::remove(RTI::Handle handle) {
  auto same =
      std::find_if(entries_.begin(), entries_.end(), [handle](const Entry& e) { return e.handle == handle; });
  if (same == entries_.end()) throw RTI::ArrayIndexOutOfBounds("parameter handle not in the set");
  entries_.erase(same);
}

void DtParameterSet::moveFrom(const RTI::ParameterHandleValuePairSet& other, RTI::ULong& index) {
  RTI::ULong length = 0;
  const char* value = other.getValuePointer(index, length);
  add(other.getHandle(index), value, length);
  ++index;
}

void DtParameterSet::empty() {
  entries_.clear();
  bytes_.clear();
}

RTI::ULong DtParameterSet::start() const { return 0; }
RTI::ULong DtParameterSet::valid(RTI::ULong index) const { return index < entries_.size() ? 1 : 0; }
RTI::ULong DtParameterSet::next(RTI::ULong index) const { return index + 1; }
