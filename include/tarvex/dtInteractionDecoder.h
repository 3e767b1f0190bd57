// Fills an interaction object from received parameter values: one parameter decoder per parameter, each a
// function that reads the value at an index of the set.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tarvex/dtInteraction.h"
#include "tarvex/dtPdu.h"
#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtInteractionDecoder {
 public:
  // Reads the value at index of set into inter.
  template <class I>
  using ParameterDecoder = void (*)(I* inter, const RTI::ParameterHandleValuePairSet& set, int index);

  // The decoding buffer is never smaller than the largest image a PDU header can state, so a PDU read from
  // it by its header's length never reads past it.
  static constexpr std::size_t kMinDecodingBufferSize = static_cast<std::size_t>(DtPdu::kMaxLength) + 1;

  // For one class on one connection; neither is owned.
  DtInteractionDecoder(DtExerciseConn* conn, DtInterClassDesc* classDesc);
  DtInteractionDecoder(const DtInteractionDecoder&) = default;
  DtInteractionDecoder& operator=(const DtInteractionDecoder&) = default;
  virtual ~DtInteractionDecoder();

  // Adds the decoder of the named parameter (the library's name; the connection's FOM mapper gives the
  // FOM's). A parameter that the class does not have is reported on DtWarn and not added; the result says
  // which.
  template <class I>
  bool addParameterDecoder(const char* name, ParameterDecoder<I> decoder) {
    return addErased(name, reinterpret_cast<DtInteractionDetail::ErasedFunction>(decoder), &decodeAs<I>);
  }

  // Hands each value of the set to the decoder of its parameter handle; values of other handles are skipped.
  // Returns how many values were decoded.
  int decode(DtInteraction* inter, const RTI::ParameterHandleValuePairSet& set) const;

  // The reusable decoding buffer of this thread, at least max(length, kMinDecodingBufferSize) bytes, in which
  // every byte from length on is zero. It stays valid until the next call on the same thread; only the first
  // length bytes may be written.
  static char* decodingBuffer(RTI::ULong length);

  // The connection and class it decodes for, and how many parameter decoders it holds.
  DtExerciseConn* exerciseConn() const { return conn_; }
  DtInterClassDesc* classDesc() const { return classDesc_; }
  int parameterDecoderCount() const { return static_cast<int>(decoders_.size()); }

 private:
  using Thunk = void (*)(DtInteractionDetail::ErasedFunction, DtInteraction*,
                         const RTI::ParameterHandleValuePairSet&, int);
  template <class I>
  static void decodeAs(DtInteractionDetail::ErasedFunction fn, DtInteraction* inter,
                       const RTI::ParameterHandleValuePairSet& set, int index) {
    if (auto* typed = DtInteractionDetail::as<I>(inter))
      reinterpret_cast<ParameterDecoder<I>>(fn)(typed, set, index);
  }
  bool addErased(const char* name, DtInteractionDetail::ErasedFunction fn, Thunk thunk);

  struct Entry {
    std::string name;
    RTI::ParameterHandle handle;
    DtInteractionDetail::ErasedFunction fn;
    Thunk thunk;
  };
  DtExerciseConn* conn_;
  DtInterClassDesc* classDesc_;
  std::vector<Entry> decoders_;
};
