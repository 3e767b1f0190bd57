// The platform layer's own declaration of the HLA 1.3 names that interaction encoders and decoders use, with
// the standard interface. It lives in namespace tarvex so that it never meets the RTI's own class RTI in one
// program: tarvex/dtRti.h makes it the global RTI where the RTI's own headers are not in the interface.
#pragma once

#include "tarvex/tarvexExport.h"

namespace tarvex {

// The HLA 1.3 names that encoders and decoders use, under the class name the standard API gives them.
class TARVEX_EXPORT RTI {
 public:
  // The standard API's integer, floating-point and boolean types.
  typedef unsigned short UShort;
  typedef short Short;
  typedef unsigned int ULong;
  typedef int Long;
  typedef double Double;
  typedef float Float;

  // The standard API's truth values.
  enum Boolean { RTI_FALSE = 0, RTI_TRUE };

  // The RTI's exception base: a reason text and the exception's class name, both static texts.
  class TARVEX_EXPORT Exception {
   public:
    // The standard API's fields: a serial number (always 0 here), the reason and the class name.
    ULong _serial;
    const char* _reason;
    const char* _name;
    // reason must outlive the exception: it is kept, not copied.
    explicit Exception(const char* reason) : _serial(0), _reason(reason), _name("Exception") {}
    virtual ~Exception();
  };

// Declares one of the standard API's exception classes, named after itself.
#define TARVEX_RTI_EXCEPTION(Name)                                           \
  class TARVEX_EXPORT Name : public Exception {                              \
   public:                                                                   \
    explicit Name(const char* reason) : Exception(reason) { _name = #Name; } \
  };
  TARVEX_RTI_EXCEPTION(ArrayIndexOutOfBounds)
  TARVEX_RTI_EXCEPTION(InvalidHandleValuePairSetContext)
  TARVEX_RTI_EXCEPTION(ValueCountExceeded)
  TARVEX_RTI_EXCEPTION(ValueLengthExceeded)
#undef TARVEX_RTI_EXCEPTION

  // The standard API's handle types: all of them plain numbers.
  typedef ULong Handle;
  typedef Handle ParameterHandle;
  typedef ULong InteractionClassHandle;
  typedef ULong FederateHandle;
  typedef Handle TransportationHandle;
  typedef TransportationHandle TransportType;
  typedef Handle OrderingHandle;
  typedef OrderingHandle OrderType;

  class Region;

  // The parameter values of one interaction, addressed by index 0 .. size()-1.
  class TARVEX_EXPORT ParameterHandleValuePairSet {
   public:
    virtual ~ParameterHandleValuePairSet();

    // How many values the set holds.
    virtual ULong size() const = 0;
    // The parameter handle of the value at index.
    virtual Handle getHandle(ULong index) const = 0;
    // The length in bytes of the value at index.
    virtual ULong getValueLength(ULong index) const = 0;
    // Copies the whole value into buffer (which must hold getValueLength(index) bytes) and sets length.
    virtual void getValue(ULong index, char* buffer, ULong& length) const = 0;
    // The value at index in place, without a copy, with its length.
    virtual char* getValuePointer(ULong index, ULong& length) const = 0;
    // How the interaction travels, in which order it is delivered, and its region.
    virtual TransportType getTransportType() const = 0;
    virtual OrderType getOrderType() const = 0;
    virtual Region* getRegion() const = 0;
    // Adds a copy of the value under the handle.
    virtual void add(Handle handle, const char* value, ULong length) = 0;
    // Removes the value under the handle.
    virtual void remove(Handle handle) = 0;
    // Takes the entry at index of other.
    virtual void moveFrom(const ParameterHandleValuePairSet& other, ULong& index) = 0;
    // Removes every value.
    virtual void empty() = 0;
    // Walks the indices: start() gives the first, next() the one after, and valid() says whether an index
    // holds a value.
    virtual ULong start() const = 0;
    virtual ULong valid(ULong index) const = 0;
    virtual ULong next(ULong index) const = 0;
  };

  // Makes parameter sets for encoders to fill.
  class TARVEX_EXPORT ParameterSetFactory {
   public:
    // A new, empty set; the caller owns it.
    static ParameterHandleValuePairSet* create(ULong expectedSize);
  };
};

}  // namespace tarvex
