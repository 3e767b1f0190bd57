// The seam between the HLA Evolved backend (dtRti1516eFederation.cpp, built with the library) and the one
// source that includes the RTI's 1516e headers (dtRti1516eLink.cpp, built at the language level those headers
// accept). Only plain types cross it: the RTI's handles are opaque, so the link numbers the classes and
// parameters it is asked for and keeps the table from those numbers to the RTI's handles.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

// One parameter value; the bytes belong to whoever made the value and live as long as the call it is part of.
struct DtRti1516eValue {
  unsigned long parameter;
  const char* data;
  std::size_t length;
};

// Where and how to join: the RTI's local settings designator ("" for the RTI's own default), the execution's
// name, and the FOM modules to create it from (or to add to it when it exists).
struct DtRti1516eTarget {
  std::string localSettings;
  std::string execution;
  std::vector<std::string> fomModules;  // paths or URLs, as the RTI takes them
  std::string fomName;                  // how messages name the FOM
};

// One joined federate. Every call may throw DtException with the RTI's reason.
class DtRti1516eLink {
 public:
  // Takes what the RTI delivers inside evoke(); the values are valid during the call only. Parameters the
  // link was never asked for are left out.
  class Receiver {
   public:
    virtual void receive(unsigned long cls, const DtRti1516eValue* values, std::size_t count) = 0;

   protected:
    ~Receiver() = default;
  };

  virtual ~DtRti1516eLink();

  // True when this federate created the execution, false when it joined one that existed.
  virtual bool createdExecution() const = 0;
  // The link's number for a class (dotted full name or name) or for a parameter of a class it numbered;
  // false when the execution's FOM has no such class or parameter.
  virtual bool interactionClassHandle(const std::string& name, unsigned long* handle) = 0;
  virtual bool parameterHandle(const std::string& name, unsigned long cls, unsigned long* handle) = 0;
  // Publishes the class on its first use; an interaction sent right after is not lost.
  virtual void send(unsigned long cls, const DtRti1516eValue* values, std::size_t count) = 0;
  // Returns once the RTI routes the class's interactions to this federate (or no longer does).
  virtual void subscribe(unsigned long cls, bool on) = 0;
  // Runs the callbacks the RTI has waiting, without waiting for more.
  virtual void evoke() = 0;
};

// Connects, creates the execution unless it exists, and joins it as federate, through rtiAmbassador (an
// rti1516e::RTIambassador of the RTI's own headers, not yet connected, which the caller keeps owning) or,
// when that is null, an ambassador of the link's own.
std::unique_ptr<DtRti1516eLink> DtRti1516eJoin(const DtRti1516eTarget& target, const std::string& federate,
                                               void* rtiAmbassador, DtRti1516eLink::Receiver& receiver);
