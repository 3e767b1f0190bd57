// DIS over UDP on the loopback interface: names, the checks on received datagrams, connections in one
// process, and a controller and a drawer steering and drawing into an emulator in another process (this
// program, started again with --emulator), by unicast and by multicast.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "tarvex/dtDisSocket.h"
#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtMessage.h"
#include "vistralcontrol/disRemoteControlSender.h"
#include "vistralcontrol/hVistralControlEncoder.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vdcLine2DObj.h"
#include "vistralcontrol/vdcRemoteDrawer.h"
#include "vistralcontrol/vdcText2DObj.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"
#include "vistralemulator/vistralEmulator.h"

extern char** environ;

namespace {
using Bytes = std::vector<unsigned char>;
using Clock = std::chrono::steady_clock;

// A free UDP port on the loopback interface, as the kernel hands one out.
int freePort() {
  const int fd = socket(AF_INET, SOCK_DGRAM, 0);
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  bind(fd, reinterpret_cast<sockaddr*>(&a), sizeof a);
  socklen_t size = sizeof a;
  getsockname(fd, reinterpret_cast<sockaddr*>(&a), &size);
  close(fd);
  return ntohs(a.sin_port);
}

// Sends to port to, listens on listen.
std::string unicast(int to, int listen) {
  return "dis://127.0.0.1:" + std::to_string(to) + "?listen=" + std::to_string(listen);
}

// A raw datagram from a socket of the test's own, as any program on the network could send it.
void sendRaw(const std::string& host, int port, const Bytes& bytes) {
  const int fd = socket(AF_INET, SOCK_DGRAM, 0);
  in_addr loopback{};
  loopback.s_addr = htonl(INADDR_LOOPBACK);
  setsockopt(fd, IPPROTO_IP, IP_MULTICAST_IF, &loopback, sizeof loopback);  // for a group on loopback
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(static_cast<std::uint16_t>(port));
  inet_pton(AF_INET, host.c_str(), &to.sin_addr);
  sendto(fd, bytes.data(), bytes.size(), 0, reinterpret_cast<sockaddr*>(&to), sizeof to);
  close(fd);
}

// A PDU header: kind, exercise and stated length, padded with zeros to size.
Bytes pduImage(int kind, int exercise, std::size_t stated, std::size_t size) {
  Bytes b(size, 0);
  const unsigned char header[] = {
      6, static_cast<unsigned char>(exercise),    static_cast<unsigned char>(kind),         129, 0, 0, 0,
      0, static_cast<unsigned char>(stated >> 8), static_cast<unsigned char>(stated & 0xFF)};
  for (std::size_t i = 0; i < sizeof header && i < size; ++i) b[i] = header[i];
  return b;
}

// Records the image of every ViewControl interaction the connection sends, before it goes out.
std::vector<Bytes> theSent;
bool recordAndEncode(const DtVistralControlInteraction& inter, RTI::ParameterHandleValuePairSet* set,
                     unsigned int handle) {
  if (const DtVistralControlPdu* pdu = inter.vcPdu())
    theSent.emplace_back(pdu->packet(), pdu->packet() + pdu->length());
  return DtVistralControlEncoder::encodeViewControlPdu(inter, set, handle);
}
void recordSends(DtExerciseConn& conn) {
  DtInterClassDesc* desc = conn.interClassDescByName(DtVistralControlInteraction::kClassName);
  auto* encoder = new DtInteractionEncoder(&conn, desc);
  encoder->addParameterEncoder<DtVistralControlInteraction>("ViewControlPdu", &recordAndEncode);
  conn.encoderList().add(desc->handle(), encoder);
}

void pump(DtExerciseConn& conn, const std::function<bool()>& done, double seconds = 10) {
  const auto deadline = Clock::now() + std::chrono::duration<double>(seconds);
  while (!done() && Clock::now() < deadline)
    if (conn.processIncoming() == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

// ---- the emulator's process: takes what comes until told to stop, then writes every image it took and its
// connection's counters to a file.
volatile std::sig_atomic_t theStop = 0;
void record(DtVistralControlInteraction* inter, void* usr) {
  if (const DtVistralControlPdu* pdu = inter->vcPdu())
    static_cast<std::vector<Bytes>*>(usr)->emplace_back(pdu->packet(), pdu->packet() + pdu->length());
}
int emulatorProcess(const std::string& name, const std::string& out) {
  std::signal(SIGTERM, [](int) { theStop = 1; });
  DtVistralEmulator emulator(name.c_str(), "vistral-1");
  std::vector<Bytes> taken;
  DtVistralControlInteraction::addCallback(emulator.connection(), &record, &taken);
  std::ofstream(out + ".ready") << "ready\n";
  while (theStop == 0)
    if (emulator.processIncoming() == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  emulator.processIncoming();
  const DtDatagramStatistics s = emulator.connection()->datagramStatistics();
  std::ofstream file(out);
  file << s.delivered << " " << s.tooShort << " " << s.badLength << " " << s.otherKind << " "
       << s.otherExercise << " " << emulator.state().objects.size() << "\n";
  for (const Bytes& b : taken) {
    for (unsigned char c : b) file << static_cast<int>(c) << " ";
    file << "\n";
  }
  return 0;
}

std::string theSelf;

// This program again as the emulator on name; stopped and waited for by stop().
struct EmulatorProcess {
  EmulatorProcess(const std::string& name, const std::string& file) : out(file) {
    std::remove((out + ".ready").c_str());
    const std::string a1 = "--emulator=" + name, a2 = "--out=" + out;
    char* argv[] = {theSelf.data(), const_cast<char*>(a1.c_str()), const_cast<char*>(a2.c_str()), nullptr};
    started = posix_spawn(&pid, theSelf.c_str(), nullptr, nullptr, argv, environ) == 0;
    const auto deadline = Clock::now() + std::chrono::seconds(20);
    while (started && !std::ifstream(out + ".ready") && Clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  // Its counters (delivered, too short, bad length, other kind, other exercise, objects) and what it took.
  std::vector<Bytes> stop(std::vector<std::uint64_t>* counters) {
    kill(pid, SIGTERM);
    int status = 0;
    waitpid(pid, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    std::ifstream in(out);
    std::string line;
    std::getline(in, line);
    std::istringstream head(line);
    for (std::uint64_t n = 0; head >> n;) counters->push_back(n);
    std::vector<Bytes> taken;
    while (std::getline(in, line)) {
      std::istringstream bytes(line);
      taken.emplace_back();
      for (int b = 0; bytes >> b;) taken.back().push_back(static_cast<unsigned char>(b));
    }
    return taken;
  }
  std::string out;
  pid_t pid = 0;
  bool started = false;
};

void heard(const DtVistralControlPdu& pdu, void* usr) {
  if (pdu.statusCommand()) static_cast<std::vector<int>*>(usr)->push_back(pdu.viewerCommand());
}

// The controller and drawer's side, against an emulator in another process; hostile datagrams go to
// hostileHost:hostilePort between the commands.
// dropsHere: how many of them this side hears too (all of them, in a group).
void steerAndDraw(const std::string& appName, const std::string& emulatorName, const std::string& hostileHost,
                  int hostilePort, std::uint64_t dropsHere) {
  const std::string out = testing::TempDir() + "disEmulator" + std::to_string(getpid()) + ".txt";
  EmulatorProcess viewer(emulatorName, out);
  ASSERT_TRUE(viewer.started);
  DtExerciseConn conn(appName.c_str(), "app", static_cast<DtFomMapper*>(nullptr), nullptr, nullptr);
  DtVistralControlRegister(&conn);
  recordSends(conn);
  theSent.clear();
  std::vector<int> reports;
  {
    DtVistralRemoteController controller(&conn, "vistral-1");
    controller.setControllerId("app");
    controller.addViewModeChangeCallback(&heard, &reports, "vistral-1");
    DtVistralRemoteDrawer drawer(&conn, "vistral-1", 1);
    const DtString tank("1:3001:12");
    const float radius = 75;
    controller.setOrbitMode(&tank, &radius, nullptr, nullptr, nullptr);
    sendRaw(hostileHost, hostilePort, {});                               // empty
    sendRaw(hostileHost, hostilePort, Bytes(5, 202));                    // shorter than a header
    sendRaw(hostileHost, hostilePort, pduImage(202, 7, 312, 200));       // states more than it holds
    sendRaw(hostileHost, hostilePort, pduImage(202, 7, 152, 160));       // holds more than it states
    sendRaw(hostileHost, hostilePort, pduImage(202, 7, 0xFFFF, 65507));  // 64 KiB
    sendRaw(hostileHost, hostilePort, pduImage(1, 7, 144, 144));         // an entity state PDU
    sendRaw(hostileHost, hostilePort, pduImage(202, 3, 152, 152));       // another exercise
    controller.setFogEnabled(true);
    drawer.add(new DtVdcText2DObject(drawer.nextId(), "over DIS", DtVdcVector2D(0.5, 0.5),
                                     DtVdcColor::DtVdcWhite, false));
    const unsigned line = drawer.nextId();
    drawer.add(new DtVdcLine2DObject(line, DtVdcVector2D(0.1, 0.1), DtVdcVector2D(0.9, 0.5), 2,
                                     DtVdcColor::DtVdcYellow, DtVdcLineSegment::DtVdcSegmentStraight,
                                     DtVdcLineSegment::DtVdcSegmentArrowEnd, 2,
                                     DtVdcLineSegment::kSolidPattern, false));
    drawer.hide(line);
    controller.requestCurrentViewMode("vistral-1");
    pump(conn, [&] { return !reports.empty(); });
    controller.removeViewModeChangeCallback(&heard, &reports, "vistral-1");
  }  // the drawer removes what it holds
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  std::vector<std::uint64_t> counters;
  const std::vector<Bytes> taken = viewer.stop(&counters);

  EXPECT_EQ(reports, std::vector<int>{DtVcOrbitStatus});
  ASSERT_EQ(counters.size(), 6u);
  EXPECT_EQ(counters[0], theSent.size());  // delivered
  EXPECT_EQ(counters[1], 2u);              // empty, five bytes
  EXPECT_EQ(counters[2], 3u);              // lengths that are not the datagram's
  EXPECT_EQ(counters[3], 1u);              // another kind
  EXPECT_EQ(counters[4], 1u);              // another exercise
  EXPECT_EQ(counters[5], 0u);              // the drawer took its objects away
  ASSERT_EQ(taken.size(), theSent.size());
  ASSERT_GE(theSent.size(), 8u);
  for (std::size_t i = 0; i < taken.size(); ++i) {
    Bytes expected = theSent[i];
    expected[1] = 7;  // the connection's exercise, stamped on the way out
    EXPECT_EQ(taken[i], expected) << "PDU " << i;
  }
  EXPECT_EQ(conn.datagramStatistics().dropped(), dropsHere);
  EXPECT_EQ(conn.datagramStatistics().delivered, 1u);  // the report
}
}  // namespace

TEST(DisAddress, NamesGiveTheirAddressCastAndOptionsAndBadOnesSayWhatIsWrong) {
  const DtDisAddress u = DtDisAddress::parse("dis://127.0.0.1:3000?listen=3001&exercise=9");
  EXPECT_EQ(u.host, 0x7F000001u);
  EXPECT_EQ(u.port, 3000);
  EXPECT_EQ(u.listenPort, 3001);
  EXPECT_EQ(u.exercise, 9);
  EXPECT_EQ(u.cast, DtDisAddress::Cast::Unicast);
  const DtDisAddress m = DtDisAddress::parse("dis://239.1.2.3:3000?ttl=4&loopback=0&interface=127.0.0.1");
  EXPECT_EQ(m.cast, DtDisAddress::Cast::Multicast);
  EXPECT_EQ(m.listenPort, 3000);
  EXPECT_EQ(m.ttl, 4);
  EXPECT_FALSE(m.loopback);
  EXPECT_EQ(m.interface, 0x7F000001u);
  EXPECT_EQ(DtDisAddress::parse("dis://255.255.255.255:3000").cast, DtDisAddress::Cast::Broadcast);
  EXPECT_EQ(DtDisAddress::parse("dis://127.255.255.255:3000?broadcast=1").cast,
            DtDisAddress::Cast::Broadcast);
  EXPECT_EQ(DtDisAddress::parse("dis://127.0.0.1:3000").exercise, -1);
  for (const char* badName :
       {"dis://127.0.0.1", "dis://:3000", "dis://127.0.0.1:0", "dis://127.0.0.1:70000",
        "dis://127.0.0.1:3000?ttl=300", "dis://127.0.0.1:3000?exercise=0", "dis://127.0.0.1:3000?colour=red",
        "dis://no-such-host.invalid:3000", "rti://127.0.0.1:3000"})
    EXPECT_THROW(DtDisAddress::parse(badName), DtException) << badName;
  EXPECT_TRUE(DtDisAddress::isDisName("dis://x:1"));
  EXPECT_FALSE(DtDisAddress::isDisName("thread:///dis://"));
}

TEST(DisSocket, OnlyOneWholePduOfTheKindAndExerciseIsAccepted) {
  using V = DtDisSocket::Verdict;
  const auto check = [](const Bytes& b, int exercise) {
    return DtDisSocket::check(b.data(), b.size(), exercise);
  };
  EXPECT_EQ(check(pduImage(202, 1, 152, 152), -1), V::Accepted);
  EXPECT_EQ(check(pduImage(202, 1, 152, 152), 1), V::Accepted);
  EXPECT_EQ(check(pduImage(202, 1, 152, 152), 2), V::OtherExercise);
  EXPECT_EQ(check(pduImage(1, 1, 152, 152), -1), V::OtherKind);
  EXPECT_EQ(check(pduImage(202, 1, 153, 152), -1), V::BadLength);
  EXPECT_EQ(check(pduImage(202, 1, 151, 152), -1), V::BadLength);
  EXPECT_EQ(check(pduImage(202, 1, 0, 12), -1), V::BadLength);
  EXPECT_EQ(check(pduImage(202, 1, 11, 11), -1), V::TooShort);
  // One byte more than a datagram holds is what a receive buffer shows of a cut one, whatever it states.
  const std::size_t tooLarge = DtDisBinding::kMaxDatagram + 1;
  EXPECT_EQ(check(pduImage(202, 1, tooLarge, tooLarge), -1), V::BadLength);
  EXPECT_EQ(DtDisSocket::check(nullptr, 0, -1), V::TooShort);
}

TEST(DisNetwork, ConnectionsInOneProcessHearEachOtherNeverThemselvesWhateverTheFomCallsTheClass) {
  const int a = freePort(), b = freePort();
  DtExerciseConn left(unicast(b, a).c_str(), "left"), right(unicast(a, b).c_str(), "right");
  EXPECT_STREQ(left.backendName(), "dis");
  EXPECT_THROW(DtExerciseConn(unicast(b, a).c_str(), "clash"), DtException);  // its port is taken
  DtVistralControlRegister(&left);
  DtVistralControlRegister(&right);
  DtVistralEmulator viewer(&right, "vistral-1");
  DtVistralRemoteController controller(&left, "vistral-1");
  std::vector<int> reports;
  controller.addViewModeChangeCallback(&heard, &reports, DtVistralRemoteController::SEND_TO_ALL);
  controller.requestCurrentViewMode("vistral-1");
  pump(left, [&] {
    viewer.processIncoming();
    return !reports.empty();
  });
  EXPECT_EQ(reports, std::vector<int>{DtVcAbsoluteStatus});
  controller.removeViewModeChangeCallback(&heard, &reports, DtVistralRemoteController::SEND_TO_ALL);

  // A connection that listens where it sends hears its own datagrams come back, and drops them.
  const std::string self = "dis://127.0.0.1:" + std::to_string(freePort());
  DtExerciseConn loop(self.c_str(), "loop");
  DtVistralControlRegister(&loop);
  DtVistralRemoteController alone(&loop, "vistral-1");
  alone.addViewModeChangeCallback(&heard, &reports, DtVistralRemoteController::SEND_TO_ALL);
  alone.requestCurrentViewMode("vistral-1");
  pump(
      loop, [&] { return loop.datagramStatistics().ownEchoes == 1; }, 2);
  EXPECT_EQ(loop.datagramStatistics().ownEchoes, 1u);
  EXPECT_EQ(loop.datagramStatistics().delivered, 0u);
  alone.removeViewModeChangeCallback(&heard, &reports, DtVistralRemoteController::SEND_TO_ALL);

  // A datagram carries no class name: a FOM that calls the class otherwise meets the built-in one.
  DtFomMapper mapper;
  mapper.mapInteractionClass("ViewControl", "ViewerCommand");
  mapper.mapParameter("ViewerCommand", "ViewControlPdu", "Image");
  const int c = freePort(), d = freePort();
  DtExerciseConn renamed(unicast(d, c).c_str(), "renamed", &mapper, VISTRAL_TEST_FED_DIR "/renamed.fed");
  DtExerciseConn plain(unicast(c, d).c_str(), "plain");
  DtVistralControlRegister(&renamed);
  DtVistralEmulator far(&plain, "vistral-1");
  DtVistralRemoteController steer(&renamed, "vistral-1");
  steer.setFogEnabled(true);
  pump(
      plain, [&] { return far.state().counters.received == 1; }, 2);
  EXPECT_EQ(far.state().counters.received, 1u);

  // A FOM without ViewControl carries nothing; the connection says so once.
  std::ostringstream warnings;
  DtWarn.setStream(warnings);
  const std::string other = "dis://127.0.0.1:" + std::to_string(freePort());
  DtExerciseConn bare(other.c_str(), "bare", static_cast<DtFomMapper*>(nullptr),
                      VISTRAL_TEST_FED_DIR "/noViewControl.fed", nullptr);
  DtWarn.resetStream();
  EXPECT_NE(warnings.str().find("nothing travels over DIS"), std::string::npos) << warnings.str();
}

TEST(DisNetwork, ARefusedAddressFailsTheSendAndIsCountedAndWarned) {
  const std::string nobody = unicast(freePort(), freePort());
  DtExerciseConn conn(nobody.c_str(), "lonely");
  DtVistralControlRegister(&conn);
  DtDisRemoteControlSender copy(nobody);
  std::ostringstream warnings;
  DtWarn.setStream(warnings);
  DtVistralRemoteController controller(&conn, "vistral-1");
  controller.setCustomSender(&copy);
  bool refused = false;
  for (int i = 0; i < 50 && !refused; ++i) {  // the refusal comes back after the first datagram
    controller.setFogEnabled(true);
    refused = conn.datagramStatistics().sendFailures > 0 && copy.failures() > 0;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  DtWarn.resetStream();
  EXPECT_TRUE(refused);
  EXPECT_GT(copy.sent(), 0u);
  EXPECT_NE(copy.lastError().find("refused"), std::string::npos) << copy.lastError();
  EXPECT_NE(warnings.str().find(nobody), std::string::npos) << warnings.str();
}

TEST(DisNetwork, AControllerAndADrawerSteerAnEmulatorInAnotherProcessByUnicast) {
  const int a = freePort(), b = freePort();
  steerAndDraw(unicast(b, a) + "&exercise=7", unicast(a, b) + "&exercise=7", "127.0.0.1", b, 0);
}

TEST(DisNetwork, AControllerAndADrawerSteerAnEmulatorInAnotherProcessByMulticast) {
  const std::string group = "239.255.77.1", port = std::to_string(freePort());
  const std::string name = "dis://" + group + ":" + port + "?interface=127.0.0.1&loopback=1&exercise=7";
  try {
    // Multicast on the loopback interface needs the interface to take groups; some containers refuse.
    DtDisSocket probe = DtDisSocket::receiver(DtDisAddress::parse(name));
  } catch (const DtException& e) {
    GTEST_SKIP() << "this machine cannot join " << group << " on the loopback interface: " << e.what();
  }
  steerAndDraw(name, name, group, std::stoi(port), 7);
}

int main(int argc, char** argv) {
  theSelf = "/proc/self/exe";
  std::string emulator, out;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg.rfind("--emulator=", 0) == 0) emulator = arg.substr(11);
    if (arg.rfind("--out=", 0) == 0) out = arg.substr(6);
  }
  if (!emulator.empty()) return emulatorProcess(emulator, out);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
