// The exercise connection: one federate joined to one federation execution, the one way onto a federation.
//
// Backends. The in-process federation (always built, the default) joins every connection of this process that
// names the same execution into one federation. An HLA 1.3 RTI backend is built in when the project is
// configured with an RTI (VISTRAL_RTI13_ROOT); it speaks only the standard HLA 1.3 API. A connection uses the
// RTI when its execution name carries a URL scheme ("rti://host:port/Exec" for a running RTI server,
// "thread:///Exec" for an RTI in this process; the whole name goes to the RTI), or when the backend is asked
// for by name; otherwise it uses the in-process federation. Asking for the RTI in a build without one is a
// DtException.
//
// HLA Evolved. An IEEE 1516-2010 RTI backend is built in when the project is configured with one
// (VISTRAL_RTI1516E_ROOT); it speaks only the standard 1516e C++ API, and the same PDU bytes travel as the
// HLAopaqueData parameter of the same interaction. A connection uses it when its execution name names the
// edition, or when the backend "rti1516e" is asked for by name:
//   "hla1516e+<scheme>://<host>/<execution>"  the RTI's local settings designator "<scheme>://<host>", e.g.
//       "hla1516e+rti://127.0.0.1:14321/Exec" (an RTI server), "hla1516e+thread:///Exec" (an RTI in this
//       process)
//   "hla1516e:<execution>" or "hla1516e:///<execution>"  the RTI's own default connection (one that finds its
//       server by its environment)
// Its FOM is one or more FOM modules (OMT 1516-2010 XML), given in place of the FED file as paths separated
// by ';' and merged in that order; with none, the project's ViewControl.xml, which is built into the library.
// A FED file there is a DtException: this edition takes FOM modules. Federates of the two editions never
// share an execution, since each edition is its own RTI.
//
// FOM. The connection reads the FED file it is given (HLA 1.3 OMT text format; an unreadable or malformed
// file is a DtException naming the file and line); with none, the project's ViewControl.fed, which is built
// into the library. Its interaction classes form the connection's interaction-class table, with the handles
// of the federation. In the in-process federation the first federate to join creates the execution with its
// FOM and later ones share it, as with an RTI. The FOM mapper renames library names to FOM names.
//
// Sending and receiving. An interaction sent by one federate reaches every other federate of the execution
// that has a callback for its class, never the sender, in send order. It arrives when the receiving
// application calls processIncoming() on its connection; callbacks run inside that call, on the caller's
// thread.
//
// DIS over UDP: an execution name of the form dis://HOST:PORT[?options] (tarvex/dtDisSocket.h gives the
// form, the options and how two processes on one host meet) joins no federation but the DIS network at that
// address. Only the FOM's "ViewControl" class travels (under the FOM mapper's names, if it has others), its
// "ViewControlPdu" parameter (a whole PDU, kind 202) as one datagram; each datagram that arrives holding one
// such PDU (of the address's exercise, when it names one) is delivered as a ViewControl interaction, in
// arrival order, inside processIncoming(). Datagrams this connection sent are never delivered back to it.
// Others are dropped and counted (datagramStatistics()), with a warning at most once a second. Sending
// another class, or sending with a FOM that has no ViewControl class, sends nothing and returns false; a send
// the network refuses returns false too.
//
// Threads: none are started and no locks are taken. A connection and every interaction it hands out belong to
// the thread that uses it; connections to the in-process federation must all be used from one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tarvex/dtFomMapper.h"
#include "tarvex/dtInteraction.h"
#include "tarvex/dtInteractionDecoder.h"
#include "tarvex/dtInteractionEncoder.h"
#include "tarvex/dtString.h"
#include "tarvex/tarvexExport.h"

// What a connection's construction did: made the federation execution, or joined one that existed.
enum DtInitStatus { DtInitCreatedExecution = 0, DtInitJoinedExecution = 1 };

// Encoders or decoders keyed by interaction class handle. The list owns them; adding one under a handle that
// already has one replaces (and deletes) the old one.
template <class Coder>
class DtInteractionCoderList {
 public:
  // Takes ownership of coder.
  void add(RTI::InteractionClassHandle handle, Coder* coder) {
    for (auto& entry : entries_) {
      if (entry.first == handle) {
        entry.second.reset(coder);
        return;
      }
    }
    entries_.emplace_back(handle, std::unique_ptr<Coder>(coder));
  }
  // The coder of the class, or null.
  Coder* find(RTI::InteractionClassHandle handle) const {
    for (const auto& entry : entries_)
      if (entry.first == handle) return entry.second.get();
    return nullptr;
  }
  // How many classes have one.
  int count() const { return static_cast<int>(entries_.size()); }

 private:
  std::vector<std::pair<RTI::InteractionClassHandle, std::unique_ptr<Coder>>> entries_;
};
// A connection's decoders and encoders.
using DtInteractionDecoderList = DtInteractionCoderList<DtInteractionDecoder>;
using DtInteractionEncoderList = DtInteractionCoderList<DtInteractionEncoder>;

// The functions that create an empty interaction object of a class, keyed by the class's name.
class TARVEX_EXPORT DtInteractionFactory {
 public:
  // Makes an empty interaction object; the caller owns it.
  using Creator = DtInteraction* (*)();
  // A name that already has a creator gets the new one.
  void add(const std::string& className, Creator creator);
  // The creator of the class, or null.
  Creator find(const std::string& className) const;
  // How many class names have a creator.
  int count() const { return static_cast<int>(entries_.size()); }
  // The entries in the order they were first added.
  const std::vector<std::pair<std::string, Creator>>& entries() const { return entries_; }
  // Changes whenever an entry is added, so that users can cache lookups.
  unsigned version() const { return version_; }

 private:
  std::vector<std::pair<std::string, Creator>> entries_;
  unsigned version_ = 0;
};

// What a connection's network did with the datagrams that reached it, and the sends it refused. Always zero
// on federations that do not travel as datagrams.
struct DtDatagramStatistics {
  std::uint64_t delivered = 0;      // queued for processIncoming() as interactions
  std::uint64_t tooShort = 0;       // fewer bytes than a PDU header, empty ones included
  std::uint64_t badLength = 0;      // the header's length is not the datagram's size
  std::uint64_t otherKind = 0;      // a PDU of another kind
  std::uint64_t otherExercise = 0;  // a PDU of another exercise than the one named
  std::uint64_t ownEchoes = 0;      // this connection's own datagrams, come back (not faults)
  std::uint64_t sendFailures = 0;   // sends the network refused
  // Datagrams dropped as malformed or not for this connection, all reasons together.
  std::uint64_t dropped() const { return tooShort + badLength + otherKind + otherExercise; }
};

// One federate joined to one federation execution: the way onto a federation for the controller, the
// drawer, the emulator and the application alike. The header's notes say how the backend, the FOM and
// delivery are chosen.
class TARVEX_EXPORT DtExerciseConn {
 public:
  // executionName: the federation execution; a URL ("rti://...", "thread://...") selects the HLA 1.3 RTI
  // backend, "hla1516e:..." or "hla1516e+<url>" the HLA Evolved one, "dis://..." DIS over UDP.
  // federateName: this federate's name. fomMapper: copied; null maps every name to itself. fedFile: path of a
  // FED file (HLA Evolved: FOM modules, separated by ';'); null or "" for the built-in ViewControl FOM.
  // initStatus: if given, receives whether this connection created the execution or joined it. Failures
  // throw DtException.
  DtExerciseConn(const char* executionName, const char* federateName, DtFomMapper* fomMapper = nullptr,
                 const char* fedFile = nullptr, DtInitStatus* initStatus = nullptr);
  // backend: "inprocess", "rti13", "rti1516e", "dis", or null/"" to decide by the execution name as above.
  // rtiAmbassador: an RTI::RTIambassador* (rti13) or an unconnected rti1516e::RTIambassador* (rti1516e) that
  // the application made and keeps owning, for the connection to join through (its first use must be by this
  // connection); null to let the connection make its own. Only the RTI backends take one.
  DtExerciseConn(const char* executionName, const char* federateName, const char* fedFile,
                 const char* backend, void* rtiAmbassador);
  // Resigns; the last federate to leave destroys the execution.
  ~DtExerciseConn();
  DtExerciseConn(const DtExerciseConn&) = delete;
  DtExerciseConn& operator=(const DtExerciseConn&) = delete;

  // Whether this build has an HLA 1.3 RTI backend (configured with VISTRAL_RTI13_ROOT).
  static bool rtiBackendBuiltIn();
  // Whether the HLA Evolved (IEEE 1516-2010) backend is built in.
  static bool rti1516eBackendBuiltIn();
  // The forms of execution names this build joins, in a line for a program's help: DIS always, each RTI's
  // when its backend is built in, and a plain name for a federation of the process's own.
  static std::string executionNameForms();

  // The names the connection joined with.
  const DtString& executionName() const;
  const DtString& federateName() const;
  // "inprocess", "rti13", "rti1516e" or "dis".
  const char* backendName() const;
  // Whether this connection created the execution or joined it.
  DtInitStatus initStatus() const;
  // The connection's copy of the mapper it was given.
  const DtFomMapper& fomMapper() const;

  // The interaction-class table. Lookup by name takes the library's name (mapped by the FOM mapper) or the
  // FOM's, as the last part or the dotted full name; null when the FOM has no such class.
  DtInterClassDesc* interClassDescByName(const char* name) const;
  DtInterClassDesc* interClassDescByHandle(RTI::InteractionClassHandle handle) const;
  int interClassCount() const;
  DtInterClassDesc* interClassDesc(int index) const;

  // The decoders, encoders and interaction creators by class; DtVistralControlRegister fills them.
  DtInteractionDecoderList& decoderList();
  DtInteractionEncoderList& encoderList();
  DtInteractionFactory& interactionFactory();

  // Calls cb(interaction, usr) for every received interaction of the class, in the order callbacks were
  // added. The interaction is valid during the call only. Regions are not supported: region must be empty.
  // Returns false (and adds nothing) when the FOM has no such class.
  template <class I>
  bool addInteractionCallback(const char* className, void (*cb)(I*, void*), void* usr,
                              const std::shared_ptr<DtDDMRegion>& region) {
    return addCallback(className, reinterpret_cast<DtInteractionDetail::ErasedFunction>(cb), &callAs<I>, usr,
                       region);
  }
  // Removes the first callback added with the same class, function and user pointer; false when there is
  // none.
  template <class I>
  bool removeInteractionCallback(const char* className, void (*cb)(I*, void*), void* usr,
                                 const std::shared_ptr<DtDDMRegion>& region) {
    return removeCallback(className, reinterpret_cast<DtInteractionDetail::ErasedFunction>(cb), usr, region);
  }

  // Sends the interaction as the class its interactionClassToUse() names, encoded by the encoder registered
  // for that class (made with createEncoder() when there is none and the interaction can make one; the
  // interaction then gets the class description). Returns false, sending nothing, when the FOM has no such
  // class, there is no encoder, or the connection is lost().
  [[nodiscard]] bool sendInteraction(DtInteraction& inter);

  // Delivers what has arrived since the last call: for each interaction, creates an object through the
  // interaction factory, decodes it with the class's decoder (made with createDecoder() when there is none)
  // and calls the class's callbacks. Interactions that arrive meanwhile wait for the next call; a call from
  // inside a callback does nothing. Returns how many interactions were handed to callbacks.
  //
  // A lost federation (an RTI whose server went away, or that can no longer serve this federate) is a
  // DtException from here, thrown after what arrived before the loss has been delivered and the lost
  // callbacks have been called, and again from every later call; lost() then holds and sendInteraction()
  // sends nothing. A lost connection does not rejoin: make a new one.
  int processIncoming();

  // Whether processIncoming() found the federation lost. Always false for the in-process federation and DIS,
  // which have no server to lose.
  bool lost() const;
  // The RTI's reason for the loss; empty while joined.
  const DtString& lostReason() const;

  // What a lost callback is given: the connection, now lost(), and the user pointer it was added with.
  using LostCallback = void (*)(DtExerciseConn* conn, void* usr);
  // Calls cb(this, usr) once, inside the processIncoming() that finds the federation lost: after what arrived
  // before the loss has been delivered, before that call throws. Callbacks run in the order they were added;
  // one added after the loss was found is never called (lost() already says so). Null cb adds nothing.
  void addLostCallback(LostCallback cb, void* usr);
  // Removes the first lost callback added with the same function and user pointer; false when there is none.
  bool removeLostCallback(LostCallback cb, void* usr);

  // Received interactions not yet processed, and the bytes this connection keeps for queueing them.
  std::size_t pendingIncoming() const;
  std::size_t retainedIncomingBytes() const;
  // Datagrams received, dropped (by reason) and refused, since the connection joined.
  DtDatagramStatistics datagramStatistics() const;

 private:
  struct Impl;
  using CallbackThunk = void (*)(DtInteractionDetail::ErasedFunction, DtInteraction*, void*);
  template <class I>
  static void callAs(DtInteractionDetail::ErasedFunction fn, DtInteraction* inter, void* usr) {
    if (auto* typed = DtInteractionDetail::as<I>(inter))
      reinterpret_cast<void (*)(I*, void*)>(fn)(typed, usr);
  }
  bool addCallback(const char* className, DtInteractionDetail::ErasedFunction fn, CallbackThunk thunk,
                   void* usr, const std::shared_ptr<DtDDMRegion>& region);
  bool removeCallback(const char* className, DtInteractionDetail::ErasedFunction fn, void* usr,
                      const std::shared_ptr<DtDDMRegion>& region);

  std::unique_ptr<Impl> impl_;
};
