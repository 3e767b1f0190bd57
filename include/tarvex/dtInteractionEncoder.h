// Turns an interaction object into the parameter values of its class: one parameter encoder per parameter,
// each a function that adds its value to the set under the parameter's handle, or adds nothing.
#pragma once

#include <string>
#include <vector>

#include "tarvex/dtInteraction.h"
#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtInteractionEncoder {
 public:
  // Adds inter's value to set under handle; false when it adds nothing.
  template <class I>
  using ParameterEncoder = bool (*)(const I& inter, RTI::ParameterHandleValuePairSet* set,
                                    unsigned int handle);

  // For one class on one connection; neither is owned.
  DtInteractionEncoder(DtExerciseConn* conn, DtInterClassDesc* classDesc);
  DtInteractionEncoder(const DtInteractionEncoder&) = default;
  DtInteractionEncoder& operator=(const DtInteractionEncoder&) = default;
  virtual ~DtInteractionEncoder();

  // Adds the encoder of the named parameter (the library's name; the connection's FOM mapper gives the
  // FOM's). A parameter that the class does not have is reported on DtWarn and not added; the result says
  // which.
  template <class I>
  bool addParameterEncoder(const char* name, ParameterEncoder<I> encoder) {
    return addErased(name, reinterpret_cast<DtInteractionDetail::ErasedFunction>(encoder), &encodeAs<I>);
  }

  // Runs the parameter encoders in the order they were added; returns how many of them added a value.
  int encode(const DtInteraction& inter, RTI::ParameterHandleValuePairSet* set) const;

  // The connection and class it encodes for, and how many parameter encoders it holds.
  DtExerciseConn* exerciseConn() const { return conn_; }
  DtInterClassDesc* classDesc() const { return classDesc_; }
  int parameterEncoderCount() const { return static_cast<int>(encoders_.size()); }

 private:
  using Thunk = bool (*)(DtInteractionDetail::ErasedFunction, const DtInteraction&,
                         RTI::ParameterHandleValuePairSet*, unsigned int);
  template <class I>
  static bool encodeAs(DtInteractionDetail::ErasedFunction fn, const DtInteraction& inter,
                       RTI::ParameterHandleValuePairSet* set, unsigned int handle) {
    const auto* typed = DtInteractionDetail::as<const I>(&inter);
    return typed != nullptr && reinterpret_cast<ParameterEncoder<I>>(fn)(*typed, set, handle);
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
  std::vector<Entry> encoders_;
};
