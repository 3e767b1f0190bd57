// A headless stand-in for a remote viewer. It joins a federation under a viewer id, takes every control PDU
// addressed to it (its own id or "0:0:0"; draw PDUs whatever viewer id they carry), applies them as a viewer
// would, honouring the ignore flags field by field, and answers a request for its state with the status form
// of its current mode. Its state is plain data (emulatorState.h) for pictures, snapshots and tests.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "tarvex/dtString.h"
#include "vistralcontrol/vistralControlPdu.h"
#include "vistralemulator/emulatorState.h"
#include "vistralemulator/vistralEmulatorExport.h"

class DtEmulatorLiveView;
class DtExerciseConn;
class DtVistralControlInteraction;

// The emulated viewer: takes the PDUs addressed to it and keeps its state as a viewer would.
class VISTRAL_EMULATOR_EXPORT DtVistralEmulator {
 public:
  // On the application's connection (not owned): registers "ViewControl" on it and listens.
  DtVistralEmulator(DtExerciseConn* conn, const DtString& viewerId);
  // Joins the execution itself as a federate named after the viewer id (a URL selects an RTI, as for any
  // connection); fedFile null for the built-in FOM.
  DtVistralEmulator(const char* executionName, const DtString& viewerId, const char* fedFile = nullptr);
  // Without a federation: PDUs come through apply() and applyImage(); answers are only counted.
  explicit DtVistralEmulator(const DtString& viewerId);
  ~DtVistralEmulator();
  DtVistralEmulator(const DtVistralEmulator&) = delete;
  DtVistralEmulator& operator=(const DtVistralEmulator&) = delete;

  // Lets the connection deliver what has arrived; returns the interactions handled.
  int processIncoming();

  // After its own connection was lost (an RTI server that went away): leaves it and joins the same execution
  // again, as the same federate under the same viewer id, keeping its state and counters. False while the
  // execution cannot be joined yet (its server is not back): call it again, say every second. Until a call
  // succeeds the emulator has no connection (connection() is null) and processIncoming() does nothing. The
  // application's callbacks on the lost connection go with it. A DtException when the emulator joined no
  // execution itself, or when its connection is not lost.
  bool rejoin();

  // Takes one PDU as if it had arrived, addressing rules included.
  void apply(const DtVistralControlPdu& pdu);
  // Takes a received image (bytes as they travel) through the library's receive path.
  void applyImage(const unsigned char* bytes, std::size_t length);

  // The status form of the current mode with every parameter the mode holds; fields it was never given
  // have their ignore bits set. From and to the emulator's viewer id.
  std::unique_ptr<DtVistralControlPdu> stateReport() const;

  // Shows this viewer in a live view (not owned; null for none): each PDU taken goes into its log, and
  // processIncoming() hands it a copy of the state after a change, as often as the view takes one.
  void setLiveView(DtEmulatorLiveView* view);

  // What the viewer holds now; valid until the next PDU is taken.
  const DtEmulatorState& state() const { return state_; }
  // The viewer id it answers to, and its connection (null when it has none).
  const DtString& viewerId() const { return viewerId_; }
  DtExerciseConn* connection() const { return conn_; }

 private:
  static void received(DtVistralControlInteraction* inter, void* usr);
  void listen();
  void answer();
  // Acts on a PDU taken; false when it is not for this viewer or names nothing the viewer knows.
  bool take(const DtVistralControlPdu& pdu);
  // Counts a received value that was no control PDU.
  void takeUnreadable();

  DtString viewerId_;
  std::string execution_;  // what the emulator joined itself, for rejoin(); empty otherwise
  std::string fedFile_;
  std::unique_ptr<DtExerciseConn> ownedConn_;
  DtExerciseConn* conn_ = nullptr;
  DtEmulatorState state_;
  DtEmulatorLiveView* liveView_ = nullptr;
  bool unpublished_ = false;
};
