// A connection whose RTI server is killed tells its lost callbacks once, from processIncoming(), after what
// arrived before and before the call throws. The test starts a server of its own, since it kills it:
//   lostCallbackTest <rtiserver.sh> <server program> <execution, PORT for the server's port> [backend]
// Without an RTI built in it skips and says so.
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"

namespace {
std::string theScript, theServer, theExecution, theBackend;

const char* backend() { return theBackend.empty() ? nullptr : theBackend.c_str(); }
const char* const kBuiltInFom = nullptr;

std::string firstLine(const std::string& path) {
  std::ifstream in(path);
  std::string line;
  std::getline(in, line);
  return line;
}

// An RTI server on a free port for one test, stopped when it ends (if the test has not killed it).
struct Server {
  Server() : state(testing::TempDir() + "lostCallbackServer") {
    const std::string start = theScript + " start " + theServer + " " + state + " >/dev/null";
    started = std::system(start.c_str()) == 0;
    if (!started) return;
    std::ifstream env(state + "/env");
    for (std::string line; std::getline(env, line);) {
      const auto eq = line.find('=');
      if (eq != std::string::npos) setenv(line.substr(0, eq).c_str(), line.substr(eq + 1).c_str(), 1);
    }
    execution = theExecution;
    const auto at = execution.find("PORT");
    if (at != std::string::npos) execution.replace(at, 4, firstLine(state + "/port"));
  }
  ~Server() { std::system((theScript + " stop " + state + " >/dev/null").c_str()); }
  void kill() const { ::kill(std::stoi(firstLine(state + "/pid")), SIGKILL); }

  std::string state;
  std::string execution;
  bool started = false;
};

// What happened to the viewer, in order.
struct Viewer {
  explicit Viewer(const std::string& execution)
      : conn(execution.c_str(), "viewer", kBuiltInFom, backend(), nullptr) {
    DtVistralControlRegister(&conn);
    DtVistralControlInteraction::addCallback(&conn, &Viewer::received, this);
  }
  ~Viewer() { DtVistralControlInteraction::removeCallback(&conn, &Viewer::received, this); }
  static void received(DtVistralControlInteraction* inter, void* usr) {
    if (inter->vcPdu() != nullptr) static_cast<Viewer*>(usr)->events.push_back("pdu");
  }
  DtExerciseConn conn;
  std::vector<std::string> events;
};

struct Lost {
  Viewer* viewer;
  std::string name;
  DtExerciseConn::LostCallback alsoRemove = nullptr;
  Lost* other = nullptr;
};

void noteLoss(DtExerciseConn* conn, void* usr) {
  auto* self = static_cast<Lost*>(usr);
  EXPECT_EQ(conn, &self->viewer->conn);
  EXPECT_TRUE(conn->lost());
  EXPECT_FALSE(conn->lostReason().str().empty());
  self->viewer->events.push_back("lost " + self->name);
  // A callback that removes one not yet called: that one is not called.
  if (self->other != nullptr) {
    EXPECT_TRUE(conn->removeLostCallback(self->alsoRemove, self->other));
  }
}

TEST(LostCallback, CalledOnceAfterWhatArrivedBeforeTheThrowAndNeverAgain) {
  if (!DtExerciseConn::rtiBackendBuiltIn() && !DtExerciseConn::rti1516eBackendBuiltIn())
    GTEST_SKIP() << "no RTI is built in";
  const Server server;
  ASSERT_TRUE(server.started) << "could not start " << theServer;
  Viewer viewer(server.execution);
  DtExerciseConn controller(server.execution.c_str(), "controller", kBuiltInFom, backend(), nullptr);
  DtVistralControlRegister(&controller);

  Lost first{&viewer, "first"}, removed{&viewer, "removed"}, removedByFirst{&viewer, "removed by first"};
  first.alsoRemove = &noteLoss;
  first.other = &removedByFirst;
  viewer.conn.addLostCallback(&noteLoss, &first);
  viewer.conn.addLostCallback(&noteLoss, &removed);
  viewer.conn.addLostCallback(&noteLoss, &removedByFirst);
  viewer.conn.addLostCallback(nullptr, &removed);  // adds nothing
  EXPECT_TRUE(viewer.conn.removeLostCallback(&noteLoss, &removed));
  EXPECT_FALSE(viewer.conn.removeLostCallback(&noteLoss, &removed));

  DtAbsoluteVCPdu pdu;
  pdu.setViewerId("vistral-1");
  DtVistralControlInteraction inter;
  inter.setVcPdu(pdu);
  ASSERT_TRUE(controller.sendInteraction(inter));
  const auto start = std::chrono::steady_clock::now();
  while (viewer.events.empty() && std::chrono::steady_clock::now() - start < std::chrono::seconds(10)) {
    viewer.conn.processIncoming();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  ASSERT_EQ(viewer.events, std::vector<std::string>{"pdu"});

  server.kill();
  const auto killed = std::chrono::steady_clock::now();
  bool threw = false;
  while (!threw && std::chrono::steady_clock::now() - killed < std::chrono::seconds(10)) {
    try {
      viewer.conn.processIncoming();
      EXPECT_FALSE(viewer.conn.lost());
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    } catch (const DtException&) {
      threw = true;
    }
  }
  ASSERT_TRUE(threw) << "the loss was not noticed within 10 s";
  EXPECT_LT(std::chrono::steady_clock::now() - killed, std::chrono::seconds(3));
  EXPECT_EQ(viewer.events, (std::vector<std::string>{"pdu", "lost first"}));

  // Once only: a later call throws again and calls nobody, not even a callback added since.
  Lost late{&viewer, "late"};
  viewer.conn.addLostCallback(&noteLoss, &late);
  EXPECT_THROW(viewer.conn.processIncoming(), DtException);
  EXPECT_EQ(viewer.events.size(), 2u);
  EXPECT_FALSE(viewer.conn.sendInteraction(inter));
  EXPECT_TRUE(viewer.conn.removeLostCallback(&noteLoss, &first));

  // With nobody serving there, joining is refused rather than made a federation of its own.
  EXPECT_THROW(DtExerciseConn(server.execution.c_str(), "latecomer", kBuiltInFom, backend(), nullptr),
               DtException);
}
}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc < 4) {
    std::fprintf(stderr, "usage: %s <rtiserver.sh> <server program> <execution> [backend]\n", argv[0]);
    return 2;
  }
  theScript = argv[1];
  theServer = argv[2];
  theExecution = argv[3];
  if (argc > 4) theBackend = argv[4];
  return RUN_ALL_TESTS();
}
