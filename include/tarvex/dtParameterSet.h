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

  RTI::ULong size() const override;
  RTI::Handle getHandle(RTI::ULong index) const override;
  RTI::ULong getValueLength(RTI::ULong index) const override;
  void getValue(RTI::ULong index, char* buffer, RTI::ULong& length) const override;
  char* getValuePointer(RTI::ULong index, RTI::ULong& length) const override;
  // Interactions of this toolkit travel reliably and in receive order; there are no regions.
  RTI::TransportType getTransportType() const override;
  RTI::OrderType getOrderType() const override;
  RTI::Region* getRegion() const override;
  // A handle that is already in the set gets the new value.
  void add(RTI::Handle handle, const char* value, RTI::ULong length) override;
  void remove(RTI::Handle handle) override;
  // Moves the entry at index of other into this set and advances index.
  void moveFrom(const RTI::ParameterHandleValuePairSet& other, RTI::ULong& index) override;
  void empty() override;
  RTI::ULong start() const override;
  RTI::ULong valid(RTI::ULong index) const override;
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
