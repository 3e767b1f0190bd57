// A parameter set that keeps its values in two reusable arrays: emptying it keeps their capacity, so a set
// filled again and again for each interaction sent costs no heap traffic once it has grown to its work.
#pragma once

#include <vector>

#include "tarvex/dtRti.h"
#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtParameterSet final : public RTI::ParameterHandleValuePairSet {
 public:
  DtParameterSet() = default;
  // Room for expectedSize values before the arrays grow.
  explicit DtParameterSet(RTI::ULong expectedSize);
  ~DtParameterSet() override;

  // How many values the set holds.
  RTI::ULong size() const override;
  // The handle of the value at index; an index past the end throws RTI::ArrayIndexOutOfBounds, as every
  // indexed access here does.
  RTI::Handle getHandle(RTI::ULong index) const override;
  // The length in bytes of the value at index.
  RTI::ULong getValueLength(RTI::ULong index) const override;
  // Copies the value at index into buffer, which must hold getValueLength(index) bytes, and sets length.
  void getValue(RTI::ULong index, char* buffer, RTI::ULong& length) const override;
  // The value at index where the set keeps it, valid until the set changes, with its length.
  char* getValuePointer(RTI::ULong index, RTI::ULong& length) const override;
  // Interactions of this toolkit travel reliably and in receive order; there are no regions.
  RTI::TransportType getTransportType() const override;
  // Receive order.
  RTI::OrderType getOrderType() const override;
  // Null: there are no regions.
  RTI::Region* getRegion() const override;
  // A handle that is already in the set gets the new value.
  void add(RTI::Handle handle, const char* value, RTI::ULong length) override;
  // Removes the value under handle; a handle not in the set throws RTI::ArrayIndexOutOfBounds.
  void remove(RTI::Handle handle) override;
  // Moves the entry at index of other into this set and advances index.
  void moveFrom(const RTI::ParameterHandleValuePairSet& other, RTI::ULong& index) override;
  // Removes every value and keeps the arrays' capacity.
  void empty() override;
  // The first index, 0.
  RTI::ULong start() const override;
  // 1 while index holds a value, else 0.
  RTI::ULong valid(RTI::ULong index) const override;
  // The index after index.
  RTI::ULong next(RTI::ULong index) const override;

  // Bytes held for values, used or not (for tests of reuse).
  std::size_t byteCapacity() const { return bytes_.capacity(); }

 private:
  struct Entry {
    RTI::Handle handle;
    std::size_t offset;
    RTI::ULong length;
  };
  const Entry& at(RTI::ULong index) const;

  std::vector<Entry> entries_;
  mutable std::vector<char> bytes_;
};
