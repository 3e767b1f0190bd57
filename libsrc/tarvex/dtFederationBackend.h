// What an exercise connection needs from the federation it is joined to. One backend object is one joined
// federate; it puts what arrives for it into the connection's incoming queue.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dtIncomingQueue.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtFedFile.h"
#include "tarvex/dtInteraction.h"

class DtFederationBackend {
 public:
  virtual ~DtFederationBackend();

  virtual const char* name() const = 0;
  virtual DtInitStatus initStatus() const = 0;
  // The interaction classes of the execution's FOM with the federation's handles, in FOM order.
  virtual std::vector<std::unique_ptr<DtInterClassDesc>> interactionClasses() const = 0;
  // The set an interaction is encoded into before send(); reused, so emptied by the caller first.
  virtual RTI::ParameterHandleValuePairSet& sendSet() = 0;
  virtual void send(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) = 0;
  // Sends and says whether the federation took it; backends whose sends can be refused override it.
  virtual bool trySend(RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) {
    send(cls, set);
    return true;
  }
  virtual DtDatagramStatistics datagramStatistics() const { return {}; }
  virtual void subscribe(RTI::InteractionClassHandle cls, bool on) = 0;
  // Moves what has arrived into the incoming queue.
  virtual void poll() = 0;
};

// Where the connection's FOM comes from: the FED file named, or the built-in one; for HLA Evolved, the FOM
// modules named, or the built-in one.
struct DtFomSource {
  std::string path;  // empty for the built-in FOM
  DtFedFile fom;
  std::vector<std::string> modules;  // the FOM modules' paths, in the order given; empty for the built-in one
  const DtFomMapper* mapper = nullptr;  // the connection's names for the FOM's, for backends that need them
};

// The FOM's interaction classes with handles of their positions: classes from 1 in FOM order, parameters from
// 1 within a class, inherited ones first (so that a parameter keeps its handle in subclasses). For backends
// whose federation hands out no handles of its own.
std::vector<std::unique_ptr<DtInterClassDesc>> DtClassesByPosition(const DtFedFile& fom);

// Joins a federation of one kind. rtiAmbassador: an ambassador the application made, for the kinds that take
// one (null otherwise). Null when this build does not have that kind.
using DtFederationJoin = std::unique_ptr<DtFederationBackend> (*)(const std::string& execution,
                                                                  const std::string& federate,
                                                                  const DtFomSource& fom, void* rtiAmbassador,
                                                                  DtIncomingQueue& queue);

// One kind of federation a connection can join.
struct DtFederationKind {
  const char* name;  // the backend argument's and backendName()'s word for it
  // Whether an execution name chooses this kind when no backend is named.
  bool (*claims)(const std::string& execution);
  DtFederationJoin join;
  bool takesAmbassador;
  const char* notBuilt;          // what a build without it lacks, and how to configure it in
  bool readsFomModules = false;  // HLA Evolved FOM modules (XML) instead of a FED file
};

std::unique_ptr<DtFederationBackend> DtJoinInProcessFederation(const std::string& execution,
                                                               const std::string& federate,
                                                               const DtFomSource& fom, void* rtiAmbassador,
                                                               DtIncomingQueue& queue);
std::unique_ptr<DtFederationBackend> DtJoinDisNetwork(const std::string& execution,
                                                      const std::string& federate, const DtFomSource& fom,
                                                      void* rtiAmbassador, DtIncomingQueue& queue);
// Null when no RTI is built in.
std::unique_ptr<DtFederationBackend> DtJoinRti13Federation(const std::string& execution,
                                                           const std::string& federate,
                                                           const DtFomSource& fom, void* rtiAmbassador,
                                                           DtIncomingQueue& queue);

// Null when no HLA Evolved RTI is built in.
std::unique_ptr<DtFederationBackend> DtJoinRti1516eFederation(const std::string& execution,
                                                              const std::string& federate,
                                                              const DtFomSource& fom, void* rtiAmbassador,
                                                              DtIncomingQueue& queue);
// Whether an execution name names the HLA Evolved edition ("hla1516e:..." or "hla1516e+<url>").
bool DtNamesRti1516e(const std::string& execution);

// The built-in ViewControl FOM (generated from fom/ViewControl.fed) and FOM module (from
// fom/ViewControl.xml).
extern const char* const DtBuiltInFomText;
extern const char* const DtBuiltInFomName;
extern const char* const DtBuiltInFomModuleText;
extern const char* const DtBuiltInFomModuleName;
