// Federates exchanging control PDUs as "ViewControl" interactions. The same program runs against each
// federation backend, chosen on the command line:
//   --execution=Scenario                     the in-process federation
//   --execution=thread:///Scenario           an RTI in this process
//   --execution=rti://127.0.0.1:PORT/Scenario  an RTI server (PORT may be read from --port-file=<file>)
//   --backend=rti13 --execution=Scenario     an RTI that finds its server by the environment
//   --execution=hla1516e+thread:///Scenario, hla1516e+rti://127.0.0.1:PORT/Scenario, hla1516e:Scenario
//                                            the same over an HLA Evolved RTI
//   --env-file=<file>                        NAME=value lines set in the environment before any connection
//   --fed-dir=<dir>                          where the test FED files are
// Over an RTI, a build without one skips every test and says so.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <typeinfo>
#include <vector>

#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtMessage.h"
#include "testSupport.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace {
std::string theExecution = "Scenario";
std::string theBackend;  // empty: chosen by the execution name
std::string theFedDir = ".";

bool evolved() { return theBackend == "rti1516e" || theExecution.rfind("hla1516e", 0) == 0; }
bool overRti() { return theBackend == "rti13" || evolved() || theExecution.find("://") != std::string::npos; }
bool rtiBuiltIn() {
  return evolved() ? DtExerciseConn::rti1516eBackendBuiltIn() : DtExerciseConn::rtiBackendBuiltIn();
}

// A test FOM of the federation's edition: a FOM module or a FED file.
std::string testFom(const std::string& name) {
  return theFedDir + "/" + name + (evolved() ? ".xml" : ".fed");
}

const char* backend() { return theBackend.empty() ? nullptr : theBackend.c_str(); }

// One execution per test, so that tests do not hear each other.
std::string execution(const std::string& suffix) { return theExecution + "-" + suffix; }

#define SKIP_WITHOUT_BACKEND()                                                                          \
  if (overRti() && !rtiBuiltIn())                                                                       \
  GTEST_SKIP() << "no RTI of that edition is built in (VISTRAL_RTI13_ROOT, VISTRAL_RTI1516E_ROOT) for " \
               << theExecution

// A federate that records every control PDU it receives: its class and its bytes.
struct Federate {
  Federate(const std::string& exec, const char* name, const char* fed = nullptr)
      : conn(exec.c_str(), name, fed, backend(), nullptr) {
    DtVistralControlRegister(&conn);
    DtVistralControlInteraction::addCallback(&conn, &Federate::received, this);
  }
  ~Federate() { DtVistralControlInteraction::removeCallback(&conn, &Federate::received, this); }

  static void received(DtVistralControlInteraction* inter, void* usr) {
    auto* self = static_cast<Federate*>(usr);
    const DtVistralControlPdu* pdu = inter->vcPdu();
    if (pdu == nullptr) {
      self->got.push_back({"null", {}});
      return;
    }
    self->got.push_back({typeid(*pdu).name(), Bytes(pdu->packet(), pdu->packet() + pdu->length())});
  }

  bool send(const DtVistralControlPdu& pdu) {
    DtVistralControlInteraction inter;
    inter.setVcPdu(pdu);
    return conn.sendInteraction(inter);
  }

  struct Received {
    std::string type;
    Bytes image;
  };
  DtExerciseConn conn;
  std::vector<Received> got;
};

// Lets every federate process what has come in, until each has at least its count or (over an RTI, where
// delivery takes time) a deadline passes. The in-process federation delivers at once.
void settle(const std::vector<std::pair<Federate*, std::size_t>>& expected) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(overRti() ? 20 : 0);
  for (;;) {
    bool done = true;
    for (const auto& [federate, count] : expected) {
      federate->conn.processIncoming();
      done = done && federate->got.size() >= count;
    }
    if (done || std::chrono::steady_clock::now() > deadline) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

// Over an RTI, a little longer for anything that should not come.
void quietPeriod(Federate& f) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(overRti() ? 300 : 0);
  do {
    f.conn.processIncoming();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  } while (std::chrono::steady_clock::now() < end);
}

std::vector<std::unique_ptr<DtVistralControlPdu>> samplePdus() {
  std::vector<std::unique_ptr<DtVistralControlPdu>> out;
  auto absolute = std::make_unique<DtAbsoluteVCPdu>();
  absolute->setViewerId("vistral-1");
  absolute->setSenderId("controller");
  absolute->setWorldLocation(DtVector64(-2476512.25, -4665431.5, 3588000.75));
  absolute->setOrientation(DtTaitBryan(1.5, -0.25, 0.125));
  absolute->setIgnoreFlags(0xFFFFFFC0);
  out.push_back(std::move(absolute));
  auto status = std::make_unique<DtAbsoluteVCPdu>();
  status->setStatusCommand(true);
  out.push_back(std::move(status));
  auto move = std::make_unique<DtMoveVCPdu>();
  move->setFromString("1 4 1.5 2 3");
  out.push_back(std::move(move));
  out.push_back(std::make_unique<DtRequestStateVCPdu>());
  return out;
}

std::string typeOf(const DtVistralControlPdu& pdu) { return typeid(pdu).name(); }
}  // namespace

TEST(FederationScenario, EveryOtherFederateReceivesEachPduInOrderNeverTheSender) {
  SKIP_WITHOUT_BACKEND();
  Federate a(execution("fanout"), "A");
  Federate b(execution("fanout"), "B");
  Federate c(execution("fanout"), "C");
  Federate elsewhere(execution("elsewhere"), "D");
  EXPECT_EQ(a.conn.initStatus(), DtInitCreatedExecution);
  EXPECT_EQ(b.conn.initStatus(), DtInitJoinedExecution);

  const auto pdus = samplePdus();
  for (const auto& pdu : pdus) ASSERT_TRUE(a.send(*pdu));
  ASSERT_TRUE(b.send(*pdus[0]));
  settle({{&a, 1}, {&b, pdus.size()}, {&c, pdus.size() + 1}});
  quietPeriod(a);
  quietPeriod(b);
  quietPeriod(elsewhere);

  for (Federate* receiver : {&b, &c}) {
    ASSERT_GE(receiver->got.size(), pdus.size()) << receiver->conn.federateName();
    for (std::size_t i = 0; i < pdus.size(); ++i) {
      EXPECT_EQ(receiver->got[i].type, typeOf(*pdus[i])) << i;
      EXPECT_EQ(receiver->got[i].image, imageOf(*pdus[i])) << i;
    }
  }
  ASSERT_EQ(a.got.size(), 1u);  // only B's, never its own
  EXPECT_EQ(a.got[0].image, imageOf(*pdus[0]));
  EXPECT_EQ(b.got.size(), pdus.size());  // not its own
  ASSERT_EQ(c.got.size(), pdus.size() + 1);
  EXPECT_EQ(c.got.back().image, imageOf(*pdus[0]));
  EXPECT_TRUE(elsewhere.got.empty());  // another execution hears nothing
}

TEST(FederationScenario, NothingTravelsWhenTheFomLacksViewControl) {
  SKIP_WITHOUT_BACKEND();
  const std::string fed = testFom("noViewControl");
  const std::string notInFom =
      "Can't add decoders and encoders for interaction class ViewControl: Not in FOM.\n";
  std::ostringstream warnings;
  DtStreamRedirect redirect(DtWarn, warnings);
  Federate a(execution("nofom"), "A", fed.c_str());
  Federate b(execution("nofom"), "B", fed.c_str());
  EXPECT_EQ(warnings.str(), notInFom + notInFom);  // once for each registration
  EXPECT_NE(a.conn.interClassDescByName("Chat"), nullptr);
  EXPECT_EQ(a.conn.decoderList().count(), 0);
  EXPECT_EQ(a.conn.encoderList().count(), 0);

  EXPECT_FALSE(a.send(*samplePdus()[0]));
  quietPeriod(b);
  EXPECT_TRUE(b.got.empty());
  EXPECT_EQ(warnings.str(), notInFom + notInFom);  // sending says nothing more
}

// Tests named Evolved... run on HLA Evolved only (main() leaves them out elsewhere).
TEST(FederationScenario, EvolvedFomModulesJoinedTogetherAreOneTable) {
  SKIP_WITHOUT_BACKEND();
  const std::string modules = testFom("noViewControl") + ";" + theFedDir + "/../../fom/ViewControl.xml";
  Federate a(execution("modules"), "A", modules.c_str());
  Federate b(execution("modules"), "B");  // the built-in module alone: the execution merges it
  EXPECT_NE(a.conn.interClassDescByName("HLAinteractionRoot.Chat"), nullptr);
  EXPECT_EQ(b.conn.interClassDescByName("Chat"), nullptr);
  ASSERT_TRUE(b.send(*samplePdus()[0]));
  settle({{&a, 1}});
  ASSERT_EQ(a.got.size(), 1u);
  EXPECT_EQ(a.got[0].image, imageOf(*samplePdus()[0]));
}

TEST(FederationScenario, EvolvedMappedNamesTravelUnderTheModulesNames) {
  SKIP_WITHOUT_BACKEND();
  DtFomMapper mapper;
  mapper.mapInteractionClass("ViewControl", "ViewerCommand");
  mapper.mapParameter("ViewerCommand", "ViewControlPdu", "Image");
  const std::string fom = testFom("renamed");
  DtExerciseConn sender(execution("mapped").c_str(), "sender", &mapper, fom.c_str());
  DtExerciseConn receiver(execution("mapped").c_str(), "receiver", &mapper, fom.c_str());
  const DtInterClassDesc* desc = sender.interClassDescByName("ViewControl");
  ASSERT_NE(desc, nullptr);
  EXPECT_EQ(desc->fullName(), "HLAinteractionRoot.Tools.ViewerCommand");
  EXPECT_EQ(desc->parameterCount(), 2);  // Origin, inherited, and Image
  DtVistralControlRegister(&sender);
  DtVistralControlRegister(&receiver);
  std::vector<Bytes> got;
  auto keep = [](DtVistralControlInteraction* inter, void* usr) {
    static_cast<std::vector<Bytes>*>(usr)->push_back(imageOf(*inter->vcPdu()));
  };
  DtVistralControlInteraction::addCallback(&receiver, keep, &got);
  const auto pdus = samplePdus();
  DtVistralControlInteraction inter;
  inter.setVcPdu(*pdus[2]);
  ASSERT_TRUE(sender.sendInteraction(inter));
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (got.empty() && std::chrono::steady_clock::now() < deadline) {
    receiver.processIncoming();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  ASSERT_EQ(got.size(), 1u);
  EXPECT_EQ(got[0], imageOf(*pdus[2]));
  DtVistralControlInteraction::removeCallback(&receiver, keep, &got);
}

TEST(FederationScenario, RemovedCallbackHearsNothingMore) {
  SKIP_WITHOUT_BACKEND();
  Federate a(execution("remove"), "A");
  Federate b(execution("remove"), "B");
  const auto pdus = samplePdus();
  ASSERT_TRUE(a.send(*pdus[0]));
  settle({{&b, 1}});
  ASSERT_EQ(b.got.size(), 1u);
  DtVistralControlInteraction::removeCallback(&b.conn, &Federate::received, &b);
  ASSERT_TRUE(a.send(*pdus[1]));
  quietPeriod(b);
  EXPECT_EQ(b.got.size(), 1u);
}

namespace {
// Keeps the bytes a controller hands to its custom sender.
struct BytesSender : DtCustomRemoteControlSender {
  void sendPdu(const unsigned char* bytes, int length) override { sent.emplace_back(bytes, bytes + length); }
  std::vector<Bytes> sent;
};

void heardReport(const DtVistralControlPdu& pdu, void* usr) {
  static_cast<std::vector<Bytes>*>(usr)->push_back(imageOf(pdu));
}
}  // namespace

TEST(FederationScenario, ControllerSteersAViewerAndHearsItsReport) {
  SKIP_WITHOUT_BACKEND();
  Federate viewer(execution("steer"), "vistral-1");
  const char* builtInFom = nullptr;
  DtExerciseConn conn(execution("steer").c_str(), "controller", builtInFom, backend(), nullptr);
  DtVistralControlRegister(&conn);
  BytesSender copy;
  std::vector<Bytes> reports, reportsForOther;
  {
    DtVistralRemoteController controller(&conn, "vistral-1");
    controller.setControllerId("controller");
    controller.setCustomSender(&copy);
    controller.addViewModeChangeCallback(&heardReport, &reports, "vistral-1");
    controller.addViewModeChangeCallback(&heardReport, &reportsForOther, "vistral-2");

    const DtString tank("tank 1");
    const float radius = 50;
    controller.setOrbitMode(&tank, &radius, nullptr, nullptr, nullptr);
    controller.requestCurrentViewMode("vistral-1");
    settle({{&viewer, 2}});
    ASSERT_EQ(viewer.got.size(), 2u);
    ASSERT_EQ(copy.sent.size(), 2u);
    EXPECT_EQ(viewer.got[0].image, copy.sent[0]);  // the same bytes both ways
    EXPECT_EQ(viewer.got[0].type, typeid(DtOrbitVCPdu).name());
    EXPECT_EQ(viewer.got[1].type, typeid(DtRequestStateVCPdu).name());

    // The viewer answers with the status form of its mode, addressed as from itself.
    ReceivedImage image(viewer.got[0].image);
    std::unique_ptr<DtPdu> mode(DtVistralControlPdu::createFromNet(image.header(), nullptr, nullptr));
    auto& report = static_cast<DtVistralControlPdu&>(*mode);
    report.setStatusCommand(true);
    report.setSenderId("vistral-1");
    ASSERT_TRUE(viewer.send(report));
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(overRti() ? 20 : 0);
    do {
      conn.processIncoming();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    } while (reports.empty() && std::chrono::steady_clock::now() < deadline);
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports[0], imageOf(report));
    EXPECT_TRUE(reportsForOther.empty());
  }
  // The controller is gone and has taken its connection callback with it.
  ASSERT_TRUE(viewer.send(*samplePdus()[0]));
  quietPeriod(viewer);
  conn.processIncoming();
  EXPECT_EQ(reports.size(), 1u);
}

// From scenarioAmbassador.cpp and scenario1516eAmbassador.cpp, which include the RTI's headers (at the level
// they accept) and not ours.
#if TARVEX_HAVE_RTI13
void* scenarioMakeAmbassador();
void scenarioDropAmbassador(void* ambassador);
#endif
#if TARVEX_HAVE_RTI1516E
void* scenarioMake1516eAmbassador();
void scenarioDrop1516eAmbassador(void* ambassador);
#endif

TEST(FederationScenario, JoinsThroughTheApplicationsOwnAmbassador) {
  if (!overRti()) GTEST_SKIP() << "only the RTI backends take an RTI ambassador";
  void* (*make)() = nullptr;
  void (*drop)(void*) = nullptr;
#if TARVEX_HAVE_RTI13
  if (!evolved()) make = &scenarioMakeAmbassador, drop = &scenarioDropAmbassador;
#endif
#if TARVEX_HAVE_RTI1516E
  if (evolved()) make = &scenarioMake1516eAmbassador, drop = &scenarioDrop1516eAmbassador;
#endif
  if (make == nullptr) GTEST_SKIP() << "no RTI of that edition is built in for " << theExecution;
  // The application's; it outlives the connection.
  const std::unique_ptr<void, void (*)(void*)> ambassador(make(), drop);
  Federate viewer(execution("ambassador"), "viewer");
  const char* builtInFom = nullptr;
  DtExerciseConn app(execution("ambassador").c_str(), "app", builtInFom, evolved() ? "rti1516e" : "rti13",
                     ambassador.get());
  EXPECT_EQ(app.initStatus(), DtInitJoinedExecution);
  DtVistralControlRegister(&app);
  DtVistralControlInteraction inter;
  const auto pdus = samplePdus();
  inter.setVcPdu(*pdus[2]);
  ASSERT_TRUE(app.sendInteraction(inter));
  settle({{&viewer, 1}});
  ASSERT_EQ(viewer.got.size(), 1u);
  EXPECT_EQ(viewer.got[0].image, imageOf(*pdus[2]));
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::string portFile;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg.rfind("--execution=", 0) == 0) theExecution = arg.substr(12);
    if (arg.rfind("--fed-dir=", 0) == 0) theFedDir = arg.substr(10);
    if (arg.rfind("--port-file=", 0) == 0) portFile = arg.substr(12);
    if (arg.rfind("--backend=", 0) == 0) theBackend = arg.substr(10);
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
  if (!evolved()) {
    std::string& filter = testing::GTEST_FLAG(filter);
    filter += filter.find('-') == std::string::npos ? "-*.Evolved*" : ":*.Evolved*";
  }
  std::printf("federation: %s\n", theExecution.c_str());
  return RUN_ALL_TESTS();
}
