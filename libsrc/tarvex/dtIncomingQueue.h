// Received interactions waiting for processIncoming(): class handles and parameter values laid end to end in
// arrays that are reused from one batch to the next, so that queueing costs no heap traffic once they have
// grown to the traffic, and that give memory back after a burst.
#pragma once

#include <cstddef>
#include <vector>

#include "tarvex/dtRti.h"

class DtIncomingQueue {
 public:
  // Copies the set's values.
  void push(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set);
  // The same for a backend whose RTI delivers values in a form of its own: a record for the class, then each
  // of its values copied in, with no set built in between.
  void pushClass(RTI::InteractionClassHandle cls);
  void pushValue(RTI::Handle handle, const char* data, std::size_t length);
  // Copies one value: an interaction of one parameter, as a datagram brings it.
  void push(RTI::InteractionClassHandle cls, RTI::Handle parameter, const char* value, RTI::ULong length) {
    pushClass(cls);
    pushValue(parameter, value, length);
  }

  // Calls deliver(cls, values) for each waiting interaction in arrival order. Interactions pushed meanwhile
  // wait for the next call. If deliver throws, the interactions after the one it threw on wait for the next
  // call.
  template <class Deliver>
  std::size_t drain(Deliver&& deliver) {
    std::size_t n = deliverRest(deliver);  // what an earlier drain left when a callback threw
    resetDraining();
    std::swap(filling_, draining_);
    n += deliverRest(deliver);
    resetDraining();
    return n;
  }

  std::size_t pending() const { return filling_.records.size() + draining_.records.size() - position_; }
  std::size_t retainedBytes() const { return filling_.retainedBytes() + draining_.retainedBytes(); }

 private:
  struct Value {
    RTI::Handle handle;
    std::size_t offset;
    RTI::ULong length;
  };
  struct Record {
    RTI::InteractionClassHandle cls;
    std::size_t firstValue;
    std::size_t valueCount;
  };
  struct Batch {
    std::vector<Record> records;
    std::vector<Value> values;
    std::vector<char> bytes;
    std::size_t retainedBytes() const {
      return records.capacity() * sizeof(Record) + values.capacity() * sizeof(Value) + bytes.capacity();
    }
  };

  // The values of one queued interaction, as the set a decoder reads. It cannot be changed.
  class View final : public RTI::ParameterHandleValuePairSet {
   public:
    View(const Value* values, RTI::ULong count, char* bytes)
        : values_(values), count_(count), bytes_(bytes) {}
    RTI::ULong size() const override { return count_; }
    RTI::Handle getHandle(RTI::ULong index) const override { return at(index).handle; }
    RTI::ULong getValueLength(RTI::ULong index) const override { return at(index).length; }
    void getValue(RTI::ULong index, char* buffer, RTI::ULong& length) const override;
    char* getValuePointer(RTI::ULong index, RTI::ULong& length) const override;
    RTI::TransportType getTransportType() const override;
    RTI::OrderType getOrderType() const override;
    RTI::Region* getRegion() const override { return nullptr; }
    void add(RTI::Handle, const char*, RTI::ULong) override { readOnly(); }
    void remove(RTI::Handle) override { readOnly(); }
    void moveFrom(const RTI::ParameterHandleValuePairSet&, RTI::ULong&) override { readOnly(); }
    void empty() override { readOnly(); }
    RTI::ULong start() const override { return 0; }
    RTI::ULong valid(RTI::ULong index) const override { return index < count_ ? 1 : 0; }
    RTI::ULong next(RTI::ULong index) const override { return index + 1; }

   private:
    const Value& at(RTI::ULong index) const;
    [[noreturn]] static void readOnly();
    const Value* values_;
    RTI::ULong count_;
    char* bytes_;
  };

  template <class Deliver>
  std::size_t deliverRest(Deliver& deliver) {
    std::size_t n = 0;
    while (position_ < draining_.records.size()) {
      const Record r = draining_.records[position_++];
      const View view(draining_.values.data() + r.firstValue, static_cast<RTI::ULong>(r.valueCount),
                      draining_.bytes.data());
      deliver(r.cls, static_cast<const RTI::ParameterHandleValuePairSet&>(view));
      ++n;
    }
    return n;
  }
  void resetDraining();

  Batch filling_;
  Batch draining_;
  std::size_t position_ = 0;  // next record of draining_ to deliver
};
