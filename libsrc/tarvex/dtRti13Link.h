// The seam between the RTI backend (dtRti13Federation.cpp, built with the library) and the one source that
// includes the RTI's headers (dtRti13Link.cpp, built at the language level those headers accept). Nothing
// here needs more than C++14, and the parameter sets that cross it are the interface's own RTI:: types.
#pragma once

#include <memory>
#include <string>

#include "tarvex/tarvexConfig.h"

#if TARVEX_RTI13_TYPES_FROM_RTI
#include <RTI.hh>
using DtRti13InterfaceSet = RTI::ParameterHandleValuePairSet;
#else
#include "tarvex/dtRtiTypes.h"
using DtRti13InterfaceSet = tarvex::RTI::ParameterHandleValuePairSet;
#endif

// One joined federate. Every call may throw DtException with the RTI's reason.
class DtRti13Link {
 public:
  // Takes what the RTI delivers inside tick(); the set is valid during the call only.
  class Receiver {
   public:
    virtual void receive(unsigned long cls, const DtRti13InterfaceSet& set) = 0;

   protected:
    ~Receiver() = default;
  };

  virtual ~DtRti13Link();

  // True when this federate created the execution, false when it joined one that existed.
  virtual bool createdExecution() const = 0;
  // False when the execution's FOM has no such class, or no such parameter of the class.
  virtual bool interactionClassHandle(const std::string& name, unsigned long* handle) const = 0;
  virtual bool parameterHandle(const std::string& name, unsigned long cls, unsigned long* handle) const = 0;
  // The set an interaction is encoded into before send(); reused, so emptied by the caller first.
  virtual DtRti13InterfaceSet& sendSet() = 0;
  // Publishes the class on its first use; an interaction sent right after is not lost.
  virtual void send(unsigned long cls, const DtRti13InterfaceSet& set) = 0;
  // Returns once the RTI routes the class's interactions to this federate (or no longer does).
  virtual void subscribe(unsigned long cls, bool on) = 0;
  // Throws once the RTI can no longer serve this federate (its server went away); lostReason() then says why.
  virtual void tick() = 0;
  // Empty while the federate is joined; the RTI's reason once tick() found the federation lost.
  virtual const std::string& lostReason() const = 0;
};

// Creates the execution from the FED file at fedPath (fedName in messages) unless it exists, and joins it as
// federate, through rtiAmbassador (an RTI::RTIambassador of the RTI's own headers) or, when that is null, an
// ambassador of its own.
std::unique_ptr<DtRti13Link> DtRti13Join(const std::string& execution, const std::string& federate,
                                         const std::string& fedPath, const std::string& fedName,
                                         void* rtiAmbassador, DtRti13Link::Receiver& receiver);
