// Steers a remote viewer from the command line: every remote-controller operation is a sub-command.
//
//   vistralSteer [--viewer NAME] [--controller NAME] [--federation NAME] [--fed FILE] [--print] COMMAND
//   [ARGS]
//
// With --print (or when no other federate could hear the command) each PDU sent is also dumped.
// request-state waits up to --wait seconds (default 2) for the viewer's report and prints it.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tarvex/dtCmdLine.h"
#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace {
using Controller = DtVistralRemoteController;

// A bad argument of a sub-command: reported with the command's synopsis.
struct ArgumentError {
  std::string what;
};

class Args {
 public:
  explicit Args(std::vector<std::string> words) : words_(std::move(words)) {}
  int count() const { return static_cast<int>(words_.size()); }
  bool has(int i) const { return i < count(); }
  DtString text(int i) const { return DtString(word(i)); }
  double number(int i) const {
    const std::string& w = word(i);
    char* end = nullptr;
    const double v = std::strtod(w.c_str(), &end);
    if (w.empty() || *end != '\0') throw ArgumentError{"'" + w + "' is not a number"};
    return v;
  }
  float single(int i) const { return static_cast<float>(number(i)); }
  int integer(int i) const {
    const std::string& w = word(i);
    char* end = nullptr;
    const long v = std::strtol(w.c_str(), &end, 10);
    if (w.empty() || *end != '\0' || v < -2147483647L || v > 2147483647L)
      throw ArgumentError{"'" + w + "' is not a whole number"};
    return static_cast<int>(v);
  }
  bool flag(int i) const {
    const std::string& w = word(i);
    if (w == "on" || w == "true" || w == "1") return true;
    if (w == "off" || w == "false" || w == "0") return false;
    throw ArgumentError{"'" + w + "' is not on or off"};
  }
  DtVector64 vector(int i) const { return DtVector64(number(i), number(i + 1), number(i + 2)); }
  DtTaitBryan angles(int i) const { return DtTaitBryan(number(i), number(i + 1), number(i + 2)); }
  Controller::Direction direction(int i) const {
    static const char* const kNames[] = {"left", "right", "up", "down", "forwards", "backwards"};
    for (int d = 0; d < 6; ++d)
      if (word(i) == kNames[d]) return static_cast<Controller::Direction>(d);
    throw ArgumentError{"'" + word(i) + "' is not left, right, up, down, forwards or backwards"};
  }
  DtGlobalObjectDesignatorList names(int from) const {
    DtGlobalObjectDesignatorList list;
    for (int i = from; i < count(); ++i) list.add(text(i));
    return list;
  }

 private:
  const std::string& word(int i) const {
    if (!has(i)) throw ArgumentError{"missing argument " + std::to_string(i + 1)};
    return words_[static_cast<std::size_t>(i)];
  }
  std::vector<std::string> words_;
};

// Optional arguments: a value when the word is there, null when not.
struct Optional {
  explicit Optional(const Args& a) : args(a) {}
  const float* single(int i) {
    if (!args.has(i)) return nullptr;
    floats.push_back(args.single(i));
    return &floats.back();
  }
  const DtVector64* vector(int i) {
    if (!args.has(i)) return nullptr;
    vectors.push_back(args.vector(i));
    return &vectors.back();
  }
  const DtTaitBryan* angles(int i) {
    if (!args.has(i)) return nullptr;
    orientation = args.angles(i);
    return &orientation;
  }
  const DtString* text(int i) {
    if (!args.has(i)) return nullptr;
    texts.push_back(args.text(i));
    return &texts.back();
  }
  const Args& args;
  // Deques: growing them never moves the values already handed out.
  std::deque<float> floats;
  std::deque<DtVector64> vectors;
  std::deque<DtString> texts;
  DtTaitBryan orientation;
};

struct SubCommand {
  const char* name;
  const char* synopsis;
  int minArgs;
  int maxArgs;  // -1: any number
  std::function<void(Controller&, const Args&)> run;
};

std::vector<SubCommand> subCommands() {
  std::vector<SubCommand> table;
  const auto add = [&table](const char* name, const char* synopsis, int minArgs, int maxArgs,
                            std::function<void(Controller&, const Args&)> run) {
    table.push_back({name, synopsis, minArgs, maxArgs, std::move(run)});
  };
  // View modes.
  add("absolute", "[X Y Z [PSI THETA PHI]]", 0, 6, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setAbsoluteMode(o.vector(0), o.angles(3));
  });
  add("tether", "[ATTACH [DX DY DZ [PSI THETA PHI]]]", 0, 7, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setTetherMode(o.text(0), o.vector(1), o.angles(4));
  });
  add("compass", "[ATTACH [RADIUS [BODY-HEADING [PITCH]]]]", 0, 4, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setCompassMode(o.text(0), o.single(1), o.single(2), o.single(3));
  });
  add("mimic", "[ATTACH [DX DY DZ]]", 0, 4, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setMimicMode(o.text(0), o.vector(1));
  });
  add("turret", "[ATTACH [DX DY DZ]]", 0, 4, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setTurretMode(o.text(0), o.vector(1));
  });
  add("orbit", "[ATTACH [RADIUS [HEADING [PITCH [AZIMUTH-RATE]]]]]", 0, 5, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setOrbitMode(o.text(0), o.single(1), o.single(2), o.single(3), o.single(4));
  });
  add("pivot", "[X Y Z [RADIUS [BODY-HEADING [PITCH]]]]", 0, 6, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setPivotMode(o.vector(0), o.single(3), o.single(4), o.single(5));
  });
  add("track", "[TRACK [X Y Z]]", 0, 4, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setTrackMode(o.text(0), o.vector(1));
  });
  add("mimic-track", "[ATTACH [TRACK [DX DY DZ]]]", 0, 5, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setMimicTrackMode(o.text(0), o.text(1), o.vector(2));
  });
  add("tether-track", "[ATTACH [TRACK [DX DY DZ]]]", 0, 5, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setTetherTrackMode(o.text(0), o.text(1), o.vector(2));
  });
  add("group", "RADIAL HEADING PITCH [ENTITY...]", 3, -1, [](Controller& c, const Args& a) {
    const float radial = a.single(0), heading = a.single(1), pitch = a.single(2);
    const auto list = a.names(3);
    c.setGroupMode(a.has(3) ? &list : nullptr, &radial, &heading, &pitch);
  });
  add("wide-group", "RADIAL HEADING PITCH [ENTITY...]", 3, -1, [](Controller& c, const Args& a) {
    const float radial = a.single(0), heading = a.single(1), pitch = a.single(2);
    const auto list = a.names(3);
    c.setWideGroupMode(a.has(3) ? &list : nullptr, &radial, &heading, &pitch);
  });
  add("mode", "COMMAND-NUMBER [X Y Z [PSI THETA PHI]]", 1, 7, [](Controller& c, const Args& a) {
    Optional o(a);
    c.setMode(static_cast<DtViewerCommand>(a.integer(0)), o.vector(1), o.angles(4));
  });
  add("set", "X Y Z [PSI THETA PHI]", 3, 6, [](Controller& c, const Args& a) {
    Optional o(a);
    c.set(o.vector(0), o.angles(3));
  });
  add("request-state", "", 0, 0,
      [](Controller& c, const Args&) { c.requestCurrentViewMode(c.targetVistralId()); });
  // Modeless and group membership.
  add("primary", "ENTITY", 1, 1, [](Controller& c, const Args& a) { c.setPrimary(a.text(0)); });
  add("secondary", "ENTITY", 1, 1, [](Controller& c, const Args& a) { c.setSecondary(a.text(0)); });
  add("primary-secondary", "PRIMARY SECONDARY", 2, 2,
      [](Controller& c, const Args& a) { c.setPrimarySecondary(a.text(0), a.text(1)); });
  add("set-group", "[ENTITY...]", 0, -1, [](Controller& c, const Args& a) { c.setGroup(a.names(0)); });
  add("add-to-group", "ENTITY...", 1, -1, [](Controller& c, const Args& a) { c.addToGroup(a.names(0)); });
  add("remove-from-group", "ENTITY...", 1, -1,
      [](Controller& c, const Args& a) { c.removeFromGroup(a.names(0)); });
  // Eye point steps.
  add("reset", "", 0, 0, [](Controller& c, const Args&) { c.reset(); });
  add("move", "left|right|up|down|forwards|backwards", 1, 1,
      [](Controller& c, const Args& a) { c.moveEyepoint(a.direction(0)); });
  add("turn", "left|right|up|down|forwards|backwards", 1, 1,
      [](Controller& c, const Args& a) { c.turnEyepoint(a.direction(0)); });
  add("stepsize", "SIZE", 1, 1, [](Controller& c, const Args& a) { c.setStepsize(a.single(0)); });
  add("turnrate", "RATE", 1, 1, [](Controller& c, const Args& a) { c.setTurnrate(a.single(0)); });
  add("increase-stepsize", "", 0, 0, [](Controller& c, const Args&) { c.increaseStepsize(); });
  add("increase-turnrate", "", 0, 0, [](Controller& c, const Args&) { c.increaseTurnrate(); });
  add("decrease-stepsize", "", 0, 0, [](Controller& c, const Args&) { c.decreaseStepsize(); });
  add("decrease-turnrate", "", 0, 0, [](Controller& c, const Args&) { c.decreaseTurnrate(); });
  // Viewer options.
  // Each takes a controller operation, const or not, of one argument of its kind.
  const auto onOff = [&add](const char* name, auto op) {
    add(name, "on|off", 1, 1, [op](Controller& c, const Args& a) { (c.*op)(a.flag(0)); });
  };
  const auto number = [&add](const char* name, auto op) {
    add(name, "VALUE", 1, 1, [op](Controller& c, const Args& a) { (c.*op)(a.number(0)); });
  };
  const auto text = [&add](const char* name, auto op) {
    add(name, "TEXT", 1, 1, [op](Controller& c, const Args& a) { (c.*op)(a.text(0)); });
  };
  const auto action = [&add](const char* name, void (Controller::*op)()) {
    add(name, "", 0, 0, [op](Controller& c, const Args&) { (c.*op)(); });
  };
  onOff("overlay", &Controller::setOverlayEnabled);
  add("smoothing", "OPTION-NUMBER", 1, 1,
      [](Controller& c, const Args& a) { c.setSmoothing(static_cast<DtSmoothingOption>(a.integer(0))); });
  number("smoothing-period", &Controller::setSmoothingPeriod);
  onOff("sound", &Controller::setSoundEnabled);
  onOff("entity-labels", &Controller::setEntityLabelsEnabled);
  onOff("trailing-effects", &Controller::setTrailingEffectsEnabled);
  onOff("trajectory-histories", &Controller::setTrajectoryHistoriesEnabled);
  add("aggregate-level", "LEVEL", 1, 1,
      [](Controller& c, const Args& a) { c.setAggregateLevel(a.integer(0)); });
  onOff("aggregate-highest-only", &Controller::setAggregateHighestOnly);
  onOff("ground-clamping", &Controller::setGroundClampingEnabled);
  number("ground-clamp-range", &Controller::setGroundClampRange);
  number("time-of-day", &Controller::setTimeOfDay);
  number("near-clip", &Controller::setNearClippingPlane);
  number("far-clip", &Controller::setFarClippingPlane);
  number("fov", &Controller::setVerticalFieldOfView);
  onOff("fog", &Controller::setFogEnabled);
  text("database", &Controller::setDatabaseToLoad);
  text("date", &Controller::setDate);
  action("exit", &Controller::exit);
  onOff("clouds", &Controller::setClouds);
  onOff("sky-dome", &Controller::setSkyDome);
  onOff("mirror-message-every-frame", &Controller::setMirrorMessageEveryFrame);
  onOff("mirroring", &Controller::setMirroring);
  onOff("broadcasting", &Controller::setBroadcasting);
  onOff("clustering-labels", &Controller::setClusteringLabels);
  onOff("tactical-graphics-labels", &Controller::setTacticalGraphicsLabels);
  onOff("show-aggregates", &Controller::setShowAggregates);
  onOff("show-emitters", &Controller::setShowEmitters);
  onOff("xr", &Controller::setXr);
  onOff("hat-labels", &Controller::setHatLabels);
  text("model-set", &Controller::setCurrentModelSet);
  action("next-model-set", &Controller::setNextModelSet);
  action("prev-model-set", &Controller::setPrevModelSet);
  text("texture-set", &Controller::setCurrentTextureSet);
  action("next-texture-set", &Controller::setNextTextureSet);
  action("prev-texture-set", &Controller::setPrevTextureSet);
  number("terrain-scale", &Controller::setTerrainScale);
  number("object-scale", &Controller::setObjectScale);
  add("start-recording", "[FILE]", 0, 1, [](Controller& c, const Args& a) {
    if (a.has(0)) {
      c.startVideoRecording(a.text(0));
    } else {
      c.startVideoRecording();
    }
  });
  action("stop-recording", &Controller::stopVideoRecording);
  action("pause-recording", &Controller::pauseVideoRecording);
  action("unpause-recording", &Controller::unpauseVideoRecording);
  onOff("record-insets", &Controller::setVideoCaptureRecordInsets);
  add("frames-per-second", "FPS", 1, 1,
      [](Controller& c, const Args& a) { c.setVideoCaptureFramesPerSecond(a.integer(0)); });
  text("capture-filename-base", &Controller::setVideoCaptureFilenameBase);
  text("capture-directory", &Controller::setVideoCaptureDirectory);
  onOff("constrain-with-floor", &Controller::setConstrainWithFloor);
  number("floor", &Controller::setFloor);
  onOff("constrain-to-all", &Controller::setConstrainViewToAll);
  number("blocked-distance", &Controller::setBlockedDistance);
  onOff("near-clip-for-blocked-distance", &Controller::setUseNearClipForBlockedDistance);
  text("load-features", &Controller::loadFeatures);
  action("clear-features", &Controller::clearFeatures);
  return table;
}

std::string commandsHelp(const std::vector<SubCommand>& table) {
  std::string help = "Commands:\n";
  for (const SubCommand& s : table)
    help += std::string("  ") + s.name + (*s.synopsis ? " " : "") + s.synopsis + "\n";
  return help;
}

// Prints each PDU the controller sends, as a viewer would read it.
class PrintingSender : public DtCustomRemoteControlSender {
 public:
  void sendPdu(const unsigned char* bytes, int length) override {
    std::unique_ptr<DtPdu> pdu(
        DtVistralControlPdu::createFromNet(reinterpret_cast<const DtNetPduHeader*>(bytes), nullptr, nullptr));
    std::cout << "sent " << length << " bytes:\n";
    if (pdu) pdu->printData();
  }
};
}  // namespace

int main(int argc, char** argv) {
  const std::vector<SubCommand> table = subCommands();
  DtCmdLine cmd("vistralSteer", "Steers a remote Vistral viewer: sends one remote-controller command.",
                "54.0");
  const int viewer = cmd.addValue("viewer", "t", "NAME", "the viewer to steer", "vistral-1");
  const int controller = cmd.addValue("controller", "c", "NAME", "this controller's id", "vistralSteer");
  const int federation =
      cmd.addValue("federation", "f", "NAME",
                   "the federation execution: " + DtExerciseConn::executionNameForms(), "VistralControl");
  const int fed =
      cmd.addValue("fed", "", "FILE", "the FED file (HLA Evolved: FOM modules, separated by ';')", "");
  const int print = cmd.addSwitch("print", "p", "also print every PDU sent");
  const int wait = cmd.addValue("wait", "w", "SECONDS", "how long request-state waits for the report", "2");
  cmd.setPositionalHelp("COMMAND [ARGS...]", commandsHelp(table));

  switch (cmd.parse(argc, argv)) {
    case DtCmdLine::Result::Help:
      cmd.printUsage(std::cout);
      return 0;
    case DtCmdLine::Result::Version:
      cmd.printVersion(std::cout);
      return 0;
    case DtCmdLine::Result::Error:
      cmd.printParseError(std::cerr);
      DtCmdLine::pressAnyKeyToContinue(std::cerr);
      return 2;
    case DtCmdLine::Result::Ok:
      break;
  }
  const auto& words = cmd.positionals();
  if (words.empty()) {
    std::cerr << "PARSE ERROR: no command given\n\n";
    cmd.printUsage(std::cerr);
    return 2;
  }
  const SubCommand* sub = nullptr;
  for (const SubCommand& s : table)
    if (words[0] == s.name) sub = &s;
  const int given = static_cast<int>(words.size()) - 1;
  if (sub == nullptr) {
    std::cerr << "PARSE ERROR: unknown command '" << words[0] << "'\n\n";
    cmd.printUsage(std::cerr);
    return 2;
  }
  if (given < sub->minArgs || (sub->maxArgs >= 0 && given > sub->maxArgs)) {
    std::cerr << "PARSE ERROR: usage: " << sub->name << " " << sub->synopsis << "\n";
    return 2;
  }
  try {
    const char* fedFile = cmd.value(fed).empty() ? nullptr : cmd.value(fed).c_str();
    const char* backend = nullptr;  // chosen by the execution name's form
    DtExerciseConn conn(cmd.value(federation).c_str(), cmd.value(controller).c_str(), fedFile, backend,
                        nullptr);
    DtVistralControlRegister(&conn);
    Controller steer(&conn, cmd.value(viewer));
    steer.setControllerId(cmd.value(controller));
    PrintingSender printer;
    if (cmd.isSet(print)) steer.setCustomSender(&printer);
    const double waitFor = Args({cmd.value(wait)}).number(0);
    int reports = 0;
    const auto heard = [](const DtVistralControlPdu& pdu, void* usr) {
      if (!pdu.statusCommand()) return;  // only the viewer's own reports, not other controllers' commands
      ++*static_cast<int*>(usr);
      std::cout << "report from " << pdu.senderId() << ": " << DtEnumString(pdu.viewerCommand()) << "\n";
      pdu.printData();
    };
    steer.addViewModeChangeCallback(heard, &reports, cmd.value(viewer));
    sub->run(steer, Args(std::vector<std::string>(words.begin() + 1, words.end())));
    // A federation lost while the report is awaited ends the wait at once.
    const auto take = [&] {
      try {
        return conn.processIncoming();
      } catch (const DtException&) {
        if (!conn.lost()) throw;
        std::cerr << "vistralSteer: lost federation " << cmd.value(federation) << ": " << conn.lostReason()
                  << "\n";
        return -1;
      }
    };
    if (take() < 0) return 1;
    if (words[0] == "request-state") {
      const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(waitFor);
      while (reports == 0 && std::chrono::steady_clock::now() < deadline) {
        const int taken = take();
        if (taken < 0) return 1;
        if (taken == 0) std::this_thread::sleep_for(std::chrono::milliseconds(2));
      }
      if (reports == 0) {
        std::cout << "no report from " << cmd.value(viewer) << " within " << cmd.value(wait) << " s\n";
        return 1;
      }
    }
  } catch (const ArgumentError& e) {
    std::cerr << "PARSE ERROR: " << e.what << "\nusage: " << sub->name << " " << sub->synopsis << "\n";
    return 2;
  } catch (const DtException& e) {
    std::cerr << e.what() << "\n";
    return 1;
  }
  return 0;
}
