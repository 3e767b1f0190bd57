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
  // Moves what has arrived into the incoming queue. Throws DtException when the federation is lost; what
  // arrived before stays in the queue.
  virtual void poll() = 0;
  // Empty while joined; why the federation was lost once poll() found it so.
  virtual std::string lostReason() const { return {}; }
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

// The FOM's interaction classes with the handles an RTI gives them, in FOM order; a class or a parameter that
// the execution's FOM lacks is left out. RTIs differ in the class names they accept: the dotted full name, or
// the name below the root ("InteractionRoot." in HLA 1.3, "HLAinteractionRoot." in HLA Evolved). The link
// answers interactionClassHandle(name, unsigned long*) and parameterHandle(name, class, unsigned long*).
template <class Link>
std::vector<std::unique_ptr<DtInterClassDesc>> DtClassesWithRtiHandles(const DtFedFile& fom, Link& link,
                                                                       const std::string& root) {
  std::vector<std::unique_ptr<DtInterClassDesc>> out;
  for (const DtFedInteractionClass& c : fom.interactionClasses()) {
    unsigned long handle = 0;
    const bool found = link.interactionClassHandle(c.fullName, &handle) ||
                       (c.fullName.compare(0, root.size(), root) == 0 &&
                        link.interactionClassHandle(c.fullName.substr(root.size()), &handle));
    if (!found) continue;
    auto desc = std::make_unique<DtInterClassDesc>(c.fullName, c.name,
                                                   static_cast<RTI::InteractionClassHandle>(handle));
    for (const std::string& p : c.parameters) {
      unsigned long parameter = 0;
      if (link.parameterHandle(p, handle, &parameter))
        desc->addParameter(p, static_cast<RTI::ParameterHandle>(parameter));
    }
    out.push_back(std::move(desc));
  }
  return out;
}

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
