#include "dtIncomingQueue.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {
// What a drained batch keeps for the next one. Steady traffic fits easily; a burst beyond it is given back.
constexpr std::size_t kKeptBytes = std::size_t{256} * 1024;
constexpr std::size_t kKeptRecords = 4096;

template <class T>
void release(std::vector<T>& v) {
  std::vector<T>().swap(v);
}
}  // namespace

// Records and values are filled where they lie in their arrays: built whole on the stack first, each was
// written in pieces and read back at once, which stalls the store on every push. Values are copied out with
// getValue: an RTI's received set may hand out a pointer only after making its own private copy of a value
// that other federates' sets share.
void DtIncomingQueue::push(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) {
  const RTI::ULong n = set.size();
  Record& record = filling_.records.emplace_back();
  record.cls = cls;
  record.firstValue = filling_.values.size();
  record.valueCount = n;
  std::vector<char>& bytes = filling_.bytes;
  for (RTI::ULong i = 0; i < n; ++i) {
    Value& v = filling_.values.emplace_back();
    v.handle = set.getHandle(i);
    v.offset = bytes.size();
    const RTI::ULong length = set.getValueLength(i);
    if (length == 0) continue;
    bytes.resize(v.offset + length);
    set.getValue(i, bytes.data() + v.offset, v.length);
    v.length = std::min(v.length, length);
    bytes.resize(v.offset + v.length);
  }
}

void DtIncomingQueue::pushClass(RTI::InteractionClassHandle cls) {
  Record& record = filling_.records.emplace_back();
  record.cls = cls;
  record.firstValue = filling_.values.size();
  record.valueCount = 0;
}

// A value longer than the interface can state is cut at what it can.
void DtIncomingQueue::pushValue(RTI::Handle handle, const char* data, std::size_t length) {
  if (filling_.records.empty()) return;  // a value of no interaction
  std::vector<char>& bytes = filling_.bytes;
  Value& v = filling_.values.emplace_back();
  v.handle = handle;
  v.offset = bytes.size();
  v.length = static_cast<RTI::ULong>(std::min<std::size_t>(length, std::numeric_limits<RTI::ULong>::max()));
  if (v.length > 0) bytes.insert(bytes.end(), data, data + v.length);
  ++filling_.records.back().valueCount;
}

void DtIncomingQueue::resetDraining() {
  Batch& b = draining_;
  b.records.clear();
  b.values.clear();
  b.bytes.clear();
  if (b.bytes.capacity() > kKeptBytes) release(b.bytes);
  if (b.records.capacity() > kKeptRecords) release(b.records);
  if (b.values.capacity() > kKeptRecords) release(b.values);
  position_ = 0;
}

const DtIncomingQueue::Value& DtIncomingQueue::View::at(RTI::ULong index) const {
  if (index >= count_) throw RTI::ArrayIndexOutOfBounds("parameter index out of range");
  return values_[index];
}

void DtIncomingQueue::View::getValue(RTI::ULong index, char* buffer, RTI::ULong& length) const {
  const Value& v = at(index);
  if (v.length > 0) std::memcpy(buffer, bytes_ + v.offset, v.length);
  length = v.length;
}

char* DtIncomingQueue::View::getValuePointer(RTI::ULong index, RTI::ULong& length) const {
  const Value& v = at(index);
  length = v.length;
  return bytes_ + v.offset;
}

RTI::TransportType DtIncomingQueue::View::getTransportType() const { return 1; }
RTI::OrderType DtIncomingQueue::View::getOrderType() const { return 1; }

void DtIncomingQueue::View::readOnly() {
  throw RTI::InvalidHandleValuePairSetContext("a received parameter set cannot be changed");
}
