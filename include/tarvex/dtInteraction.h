// The HLA interaction framework: the description of an interaction class as a federation knows it, and the
// base classes of interaction objects. An interaction object holds one received or to-be-sent interaction;
// an encoder (dtInteractionEncoder.h) turns it into parameter values and a decoder (dtInteractionDecoder.h)
// fills it from them.
#pragma once

#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "tarvex/dtRti.h"
#include "tarvex/tarvexExport.h"

class DtExerciseConn;
class DtInteractionDecoder;
class DtInteractionEncoder;
// A data-distribution region. This toolkit routes without regions: every region argument is an empty pointer.
class DtDDMRegion;

// One interaction class of a federation's FOM: its names, its handle and its parameters' handles.
class TARVEX_EXPORT DtInterClassDesc {
 public:
  // fullName is the dotted path from the root ("InteractionRoot.ViewControl"), name its last part.
  DtInterClassDesc(const std::string& fullName, const std::string& name, RTI::InteractionClassHandle handle);

  // The class's names and the handle the federation gave it.
  const std::string& name() const { return name_; }
  const std::string& fullName() const { return fullName_; }
  RTI::InteractionClassHandle handle() const { return handle_; }

  // Parameters in the order the FOM lists them, inherited ones first; an index runs from 0 to
  // parameterCount() - 1.
  void addParameter(const std::string& name, RTI::ParameterHandle handle);
  int parameterCount() const { return static_cast<int>(parameters_.size()); }
  const std::string& parameterName(int index) const {
    return parameters_.at(static_cast<std::size_t>(index)).name;
  }
  RTI::ParameterHandle parameterHandle(int index) const {
    return parameters_.at(static_cast<std::size_t>(index)).handle;
  }
  // The handle of the parameter of that name; false when the class has none.
  bool findParameter(const std::string& name, RTI::ParameterHandle* handle) const;

 private:
  struct Parameter {
    std::string name;
    RTI::ParameterHandle handle;
  };
  std::string fullName_;
  std::string name_;
  RTI::InteractionClassHandle handle_;
  std::vector<Parameter> parameters_;
};

// Base of every interaction object. The class description is set by the exercise connection when it
// creates or sends the interaction; it is not owned.
class TARVEX_EXPORT DtInteraction {
 public:
  DtInteraction() = default;
  DtInteraction(const DtInteraction&) = default;
  DtInteraction& operator=(const DtInteraction&) = default;
  virtual ~DtInteraction();

  // Dumps the interaction's data to DtDumpStream.
  virtual void printData() const = 0;
  // The name of the interaction object's class.
  virtual const char* name() const = 0;
  // The FOM interaction class this object is sent as (before the connection's FOM mapping).
  virtual const char* interactionClassToUse(DtExerciseConn* conn) const = 0;

  // The class description the connection set, or null before it did.
  DtInterClassDesc* classDesc() const { return classDesc_; }
  void setClassDesc(DtInterClassDesc* desc) { classDesc_ = desc; }

 private:
  DtInterClassDesc* classDesc_ = nullptr;
};

// An interaction that knows how to make its own encoder and decoder, so a connection can make them when it
// first needs them. Both are new objects owned by the caller, or null when they cannot be made.
class TARVEX_EXPORT DtInteractionWithEncDec : public DtInteraction {
 public:
  DtInteractionWithEncDec() = default;
  DtInteractionWithEncDec(const DtInteractionWithEncDec&) = default;
  DtInteractionWithEncDec& operator=(const DtInteractionWithEncDec&) = default;
  ~DtInteractionWithEncDec() override;

  // The decoder and the encoder of this interaction's class on conn.
  virtual DtInteractionDecoder* createDecoder(DtExerciseConn* conn) const = 0;
  virtual DtInteractionEncoder* createEncoder(DtExerciseConn* conn) const = 0;
};

// Interaction callbacks and parameter coders are plain functions typed on the caller's interaction class.
// They are kept as an untyped pointer beside a thunk that casts back to the exact type the function was
// stored with, after checking that the interaction at hand is of that class.
namespace DtInteractionDetail {
using ErasedFunction = void (*)();

template <class To, class From, class = void>
struct DowncastsStatically : std::false_type {};
template <class To, class From>
struct DowncastsStatically<To, From, std::void_t<decltype(static_cast<To*>(std::declval<From*>()))>>
    : std::true_type {};

// The interaction as the class a function was stored for, or null. It is nearly always of exactly that
// class, which comparing types settles without the walk through the hierarchy that dynamic_cast makes on
// every message.
template <class I, class From>
I* as(From* inter) {
  if constexpr (DowncastsStatically<I, From>::value) {
    if (inter != nullptr && typeid(*inter) == typeid(I)) return static_cast<I*>(inter);
  }
  return dynamic_cast<I*>(inter);
}
}  // namespace DtInteractionDetail
