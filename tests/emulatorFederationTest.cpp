// The viewer emulator as a federate: a controller in another federate steers it, asks for its state and hears
// the status form of its mode in its callback. Run on each federation backend, like the federation scenarios:
//   --execution=Emulator | thread:///Emulator | rti://127.0.0.1:PORT/Emulator [--port-file=<file>]
//   --execution=hla1516e+thread:///Emulator | hla1516e+rti://127.0.0.1:PORT/Emulator | hla1516e:Emulator
//   --env-file=<file>  NAME=value lines set in the environment before any connection
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
std::string theExecution = "Emulator";

bool evolved() { return theExecution.rfind("hla1516e", 0) == 0; }
bool overRti() { return evolved() || theExecution.find("://") != std::string::npos; }

struct Report {
  int command = 0;
  std::string sender;
  std::string attach;
  float radius = 0;
};

void heard(const DtVistralControlPdu& pdu, void* usr) {
  Report report;
  report.command = pdu.viewerCommand();
  report.sender = pdu.senderId().c_str();
  if (const auto* orbit = dynamic_cast<const DtOrbitVCPdu*>(&pdu)) {
    report.attach = orbit->attachId().c_str();
    report.radius = orbit->radius();
  }
  static_cast<std::vector<Report>*>(usr)->push_back(report);
}
}  // namespace

TEST(EmulatorFederation, ARequestIsAnsweredToTheControllersCallbackInAnotherFederate) {
  if (overRti() &&
      !(evolved() ? DtExerciseConn::rti1516eBackendBuiltIn() : DtExerciseConn::rtiBackendBuiltIn()))
    GTEST_SKIP() << "no RTI of that edition is built in (VISTRAL_RTI13_ROOT, VISTRAL_RTI1516E_ROOT) for "
                 << theExecution;
  const std::string execution = theExecution + "-answer";
  DtVistralEmulator emulator(execution.c_str(), "vistral-1");
  DtExerciseConn conn(execution.c_str(), "app", static_cast<DtFomMapper*>(nullptr), nullptr, nullptr);
  DtVistralControlRegister(&conn);
  DtVistralRemoteController controller(&conn, "vistral-1");
  controller.setControllerId("app");
  std::vector<Report> reports;
  controller.addViewModeChangeCallback(&heard, &reports, "vistral-1");

  const DtString tank("1:3001:12");
  const float radius = 75;
  controller.setOrbitMode(&tank, &radius, nullptr, nullptr, nullptr);
  DtVdcTextPdu label;
  label.setObjectId(3);
  label.setType(DtVdc2DText);
  label.setText("over the federation");
  DtVistralControlInteraction inter;
  inter.setVcPdu(label);
  ASSERT_TRUE(conn.sendInteraction(inter));
  // Over an RTI delivery takes time: ask once the emulator has the mode, and keep both sides running.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(overRti() ? 20 : 2);
  bool asked = false;
  do {
    emulator.processIncoming();
    if (!asked && emulator.state().view.mode == DtVcOrbit && emulator.state().objects.count(3) == 1) {
      controller.requestCurrentViewMode("vistral-1");
      asked = true;
    }
    conn.processIncoming();
    if (reports.empty()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  } while (reports.empty() && std::chrono::steady_clock::now() < deadline);

  ASSERT_TRUE(asked);
  EXPECT_EQ(emulator.state().objects.at(3).text, "over the federation");
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_EQ(reports[0].command, DtVcOrbitStatus);
  EXPECT_EQ(reports[0].sender, "vistral-1");
  EXPECT_EQ(reports[0].attach, "1:3001:12");
  EXPECT_EQ(reports[0].radius, 75);
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::string portFile;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg.rfind("--execution=", 0) == 0) theExecution = arg.substr(12);
    if (arg.rfind("--port-file=", 0) == 0) portFile = arg.substr(12);
    if (arg.rfind("--env-file=", 0) == 0) {
      std::ifstream in(arg.substr(11));
      for (std::string line; std::getline(in, line);) {
        const auto eq = line.find('=');
        if (eq != std::string::npos) setenv(line.substr(0, eq).c_str(), line.substr(eq + 1).c_str(), 1);
      }
    }
  }
  if (!portFile.empty()) {
    std::ifstream in(portFile);
    std::string port;
    in >> port;
    const auto at = theExecution.find("PORT");
    if (at != std::string::npos) theExecution.replace(at, 4, port.empty() ? "0" : port);
  }
  std::printf("federation: %s\n", theExecution.c_str());
  return RUN_ALL_TESTS();
}
