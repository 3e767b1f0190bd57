// The emulator's live view over real HTTP on a loopback port: what each path serves, what it refuses (unknown
// paths, methods that would change something, oversized and malformed requests, bad addresses), the event
// stream that carries each new state and the farewell, and the copies the emulator hands over.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <httplib.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <thread>

#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vistralRemoteController.h"
#include "vistralemulator/emulatorLiveView.h"
#include "vistralemulator/vistralEmulator.h"

using nlohmann::json;

namespace {

DtOrbitVCPdu orbitPdu(float radius) {
  DtOrbitVCPdu orbit;
  orbit.setViewerId("vistral-1");
  orbit.setAttachId("1:3001:12");
  orbit.setRadius(radius);
  orbit.setIgnoreFlags(DtVcIgnore::All & ~(DtVcIgnore::FirstEntity | DtVcIgnore::Radius));
  return orbit;
}

// What a raw exchange of bytes on the port gets back: the status line.
std::string rawExchange(int port, const std::string& request) {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(static_cast<std::uint16_t>(port));
  to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  std::string answer;
  if (::connect(fd, reinterpret_cast<const sockaddr*>(&to), sizeof to) == 0 &&
      ::send(fd, request.data(), request.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(request.size())) {
    char buffer[256];
    const ssize_t got = ::recv(fd, buffer, sizeof buffer, 0);
    if (got > 0) answer.assign(buffer, static_cast<std::size_t>(got));
  }
  ::close(fd);
  return answer.substr(0, answer.find("\r\n"));
}

template <class Condition>
bool within(std::chrono::seconds limit, Condition done) {
  const auto until = std::chrono::steady_clock::now() + limit;
  while (!done()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

}  // namespace

TEST(EmulatorLiveView, ServesStateLogAndPicturesAndRefusesEverythingElse) {
  DtVistralEmulator emulator("vistral-1");
  DtEmulatorLiveView view("0", "<html>the page</html>");
  EXPECT_EQ(view.host(), "127.0.0.1");  // a bare port listens on loopback only
  ASSERT_GT(view.port(), 0);
  EXPECT_EQ(view.url(), "http://127.0.0.1:" + std::to_string(view.port()) + "/");
  emulator.setLiveView(&view);
  emulator.apply(orbitPdu(120));
  emulator.processIncoming();  // no connection: only the copy is handed over
  ASSERT_EQ(view.version(), 1u);

  httplib::Client client("127.0.0.1", view.port());
  auto page = client.Get("/");
  ASSERT_TRUE(page);
  EXPECT_EQ(page->status, 200);
  EXPECT_EQ(page->body, "<html>the page</html>");
  auto state = client.Get("/state.json");
  ASSERT_TRUE(state);
  EXPECT_EQ(json::parse(state->body)["view"]["parameters"]["radius"], 120.0);
  auto live = client.Get("/live.json");
  ASSERT_TRUE(live);
  const json doc = json::parse(live->body);
  EXPECT_EQ(doc["version"], 1);
  EXPECT_EQ(doc["mode"], "VcOrbit");
  EXPECT_EQ(doc["fields"][DtEmulatorField::radius], 120.0);
  ASSERT_EQ(doc["log"].size(), 1u);
  EXPECT_EQ(doc["log"][0]["text"].get<std::string>().rfind("VcOrbit ", 0), 0u);
  EXPECT_NE(doc["log"][0]["text"].get<std::string>().find("1:3001:12"), std::string::npos);
  auto svg = client.Get("/picture.svg");
  ASSERT_TRUE(svg);
  EXPECT_EQ(svg->get_header_value("Content-Type"), "image/svg+xml");
  auto png = client.Get("/picture.png");
  ASSERT_TRUE(png);
  EXPECT_EQ(png->body.substr(1, 3), "PNG");

  auto unknown = client.Get("/state.json/../secret");
  ASSERT_TRUE(unknown);
  EXPECT_EQ(unknown->status, 404);
  auto post = client.Post("/state.json", "{}", "application/json");
  ASSERT_TRUE(post);
  EXPECT_NE(post->status, 200);
  auto longPath = client.Get("/" + std::string(20000, 'a'));
  ASSERT_TRUE(longPath);
  EXPECT_EQ(longPath->status, 400);
  EXPECT_EQ(rawExchange(view.port(), "GET / HTTP/1.1\r\nX-Big: " + std::string(20000, 'b') + "\r\n\r\n"),
            "HTTP/1.1 400 Bad Request");
  EXPECT_EQ(rawExchange(view.port(), "\x01\x02 not http at all\r\n\r\n"), "HTTP/1.1 400 Bad Request");
  EXPECT_EQ(emulator.state().counters.received, 1);  // nothing a client sends reaches the viewer

  // Addresses it cannot read, and one it cannot have.
  EXPECT_THROW(DtEmulatorLiveView("localhost:http", ""), std::invalid_argument);
  EXPECT_THROW(DtEmulatorLiveView("127.0.0.1:70000", ""), std::invalid_argument);
  EXPECT_THROW(DtEmulatorLiveView("127.0.0.1:" + std::to_string(view.port()), ""), std::runtime_error);
  emulator.setLiveView(nullptr);
}

TEST(EmulatorLiveView, EachChangeReachesAnOpenStreamAndTheStreamHearsTheViewerLeave) {
  DtVistralEmulator emulator("vistral-1");
  auto view = std::make_unique<DtEmulatorLiveView>("127.0.0.1:0", "");
  emulator.setLiveView(view.get());
  view->setInterval(std::chrono::hours(1));
  emulator.processIncoming();  // the first copy is due at once
  emulator.apply(orbitPdu(80));
  emulator.processIncoming();  // the next is not due for an hour
  EXPECT_EQ(view->version(), 1u);
  view->setInterval(std::chrono::milliseconds(0));

  std::mutex mutex;
  std::string heard;
  std::thread reader([&, port = view->port()] {
    httplib::Client client("127.0.0.1", port);
    client.set_read_timeout(20, 0);
    client.Get("/events", [&](const char* data, std::size_t length) {
      std::lock_guard<std::mutex> lock(mutex);
      heard.append(data, length);
      return true;
    });
  });
  const auto saw = [&](const std::string& text) {
    return within(std::chrono::seconds(10), [&] {
      std::lock_guard<std::mutex> lock(mutex);
      return heard.find(text) != std::string::npos;
    });
  };
  EXPECT_TRUE(saw("\"version\":1"));
  EXPECT_TRUE(saw("\"mode\":\"VcAbsolute\""));  // the first copy, before the orbit command

  emulator.processIncoming();  // the change still unshown is handed over though nothing new came
  EXPECT_TRUE(saw("\"mode\":\"VcOrbit\""));
  DtVdcLinePdu line;
  line.setObjectId(7);
  line.setType(DtVdc2DLine);
  emulator.apply(line);
  emulator.processIncoming();
  EXPECT_TRUE(saw("\"kind\":\"line\""));
  EXPECT_TRUE(saw("event: picture\ndata: <?xml"));  // the picture follows each state, a data line per line

  view.reset();  // leaving: the stream hears it before it closes
  reader.join();
  EXPECT_NE(heard.find("event: gone"), std::string::npos);
  EXPECT_LT(heard.find("\"kind\":\"line\""), heard.find("event: gone"));
  emulator.setLiveView(nullptr);
}
