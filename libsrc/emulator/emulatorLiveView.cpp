// The live view's server. The emulator's thread only copies: PDU bytes into a ring as they arrive, the state
// into a shared copy when it is due. Everything a page reads (text forms, JSON, pictures) is made from those
// copies on the server's threads, once per version for all the pages that are open.
#include "vistralemulator/emulatorLiveView.h"

#include <httplib.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstring>
#include <map>
#include <mutex>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <thread>
#include <vector>

#include "vistralcontrol/vistralControlPdu.h"
#include "vistralcontrol/vistralDrawControlPdu.h"
#include "vistralemulator/emulatorPicture.h"
#include "vistralemulator/emulatorSnapshot.h"

using nlohmann::json;

namespace {

// Event streams held open at once; each holds one of the server's threads, so some are left for requests.
constexpr int kMaxStreams = 4;
constexpr int kThreads = kMaxStreams + 4;
// A page hears from an idle stream this often, so that a dead connection is noticed.
constexpr std::chrono::seconds kKeepAlive{10};
// Requests carry no bodies worth the name.
constexpr std::size_t kMaxPayload = std::size_t{16} * 1024;

struct LogEntry {
  std::uint64_t sequence = 0;
  std::vector<unsigned char> bytes;
};

// The server's threads yield to the emulator's when the processors are busy: what they make is for people
// watching, and can wait a little. Once per thread; Linux gives each thread its own nice value.
void yieldToTheEmulator() {
  thread_local bool done = false;
  if (done) return;
  done = true;
  setpriority(PRIO_PROCESS, static_cast<id_t>(syscall(SYS_gettid)), 10);
}

// A logged image's text form, made on the server's thread through the library's receive path. The image
// goes into a zero-tailed buffer, so that nothing past its bytes is read whatever its header says.
std::string textForm(const std::vector<unsigned char>& bytes) {
  thread_local std::vector<unsigned char> image(DtPdu::kMaxLength + 1);
  const std::size_t kept = std::min(bytes.size(), image.size());
  std::copy_n(bytes.begin(), kept, image.begin());
  std::fill(image.begin() + static_cast<std::ptrdiff_t>(kept), image.end(), 0);
  std::unique_ptr<DtPdu> made(DtVistralControlPdu::createFromNet(
      reinterpret_cast<const DtNetPduHeader*>(image.data()), nullptr, nullptr));
  const auto* pdu = dynamic_cast<const DtVistralControlPdu*>(made.get());
  if (pdu == nullptr) return "not a control PDU (" + std::to_string(bytes.size()) + " bytes)";
  return std::string(DtEmulatorModeName(pdu->viewerCommand())) + " " + pdu->string();
}

json valueJson(const DtEmulatorValue& value) {
  return std::visit([](const auto& v) { return json(v); }, value);
}

// Host and port from "HOST:PORT" or "PORT".
std::pair<std::string, int> parseAddress(const std::string& address) {
  const std::size_t colon = address.rfind(':');
  std::string host = colon == std::string::npos ? "127.0.0.1" : address.substr(0, colon);
  const std::string port = colon == std::string::npos ? address : address.substr(colon + 1);
  if (host.size() > 2 && host.front() == '[' && host.back() == ']') host = host.substr(1, host.size() - 2);
  if (host.empty()) host = "127.0.0.1";
  const bool digits = !port.empty() && port.size() <= 5 &&
                      std::all_of(port.begin(), port.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (!digits || std::stoi(port) > 65535)
    throw std::invalid_argument("not an address to listen on: '" + address + "' (HOST:PORT or PORT)");
  return {host, std::stoi(port)};
}

}  // namespace

struct DtEmulatorLiveView::Impl {
  std::string host;
  int port = 0;
  std::string page;
  std::chrono::milliseconds interval{50};
  std::chrono::steady_clock::time_point lastPublish{};

  // Shared with the emulator's thread, under mutex: the latest copy of the state and its version, the log
  // ring and how much of it that copy has seen, the open streams, and whether the server is stopping.
  std::mutex mutex;
  std::condition_variable changed;
  std::shared_ptr<const DtEmulatorState> state = std::make_shared<DtEmulatorState>();
  std::uint64_t version = 0;
  std::vector<LogEntry> log = std::vector<LogEntry>(kLogSize);
  std::uint64_t logged = 0;
  std::uint64_t loggedAtPublish = 0;
  int streams = 0;
  bool stopping = false;
  // The copy a new one replaced: freed by the server's threads, so that the emulator's thread only copies.
  std::shared_ptr<const DtEmulatorState> retired;

  // The server's own: the document pages read, made once per version, and the text forms of logged PDUs.
  std::mutex documentMutex;
  std::uint64_t documentVersion = ~std::uint64_t{0};
  std::string document;
  std::string pictureEvent;
  std::map<std::uint64_t, std::string> texts;

  httplib::Server server;
  std::thread thread;
  std::atomic<bool> listenEnded{false};

  std::shared_ptr<const DtEmulatorState> current() {
    std::lock_guard<std::mutex> lock(mutex);
    return state;
  }

  // What a page shows: one line of JSON (version, mode and fields, options, objects, counters, the log's text
  // forms) and, apart, the picture as SVG. Both are made once per version.
  struct Document {
    std::uint64_t version;
    std::string state;
    std::string pictureEvent;  // the SVG as an event's data lines
  };
  Document liveDocument() {
    std::lock_guard<std::mutex> building(documentMutex);
    std::shared_ptr<const DtEmulatorState> s;
    std::uint64_t v = 0;
    std::vector<LogEntry> fresh;  // entries without a text form yet
    std::vector<std::uint64_t> shown;
    std::shared_ptr<const DtEmulatorState> done;
    {
      std::lock_guard<std::mutex> lock(mutex);
      done = std::move(retired);
      s = state;
      v = version;
      if (v == documentVersion) return {v, document, pictureEvent};
      const std::uint64_t first = loggedAtPublish > kLogSize ? loggedAtPublish - kLogSize : 0;
      for (std::uint64_t seq = first; seq < loggedAtPublish; ++seq) {
        shown.push_back(seq);
        if (!texts.count(seq)) fresh.push_back(log[seq % kLogSize]);
      }
    }
    for (const LogEntry& e : fresh) texts[e.sequence] = textForm(e.bytes);
    texts.erase(texts.begin(), shown.empty() ? texts.end() : texts.lower_bound(shown.front()));

    const DtEmulatorState& st = *s;
    json out;
    out["version"] = v;
    out["viewerId"] = st.viewerId;
    out["mode"] = DtEmulatorModeName(st.view.mode);
    json fields = json::object();
    if (const auto found = st.view.modes.find(st.view.mode); found != st.view.modes.end())
      for (const auto& [name, value] : found->second.fields) fields[name] = valueJson(value);
    out["fields"] = fields;
    json options = json::object();
    for (const auto& [name, value] : st.options) options[name] = valueJson(value);
    out["options"] = options;
    json objects = json::array();
    for (const auto& [id, o] : st.objects)
      objects.push_back({{"id", id},
                         {"kind", DtEmulatorKindName(o.viewerCommand)},
                         {"type", DtVistralDrawControlPdu::typeString(o.type)},
                         {"visible", o.visible},
                         {"shown", st.shown(o)},
                         {"layers", o.layers},
                         {"text", o.text}});
    out["objects"] = objects;
    out["counters"] = {{"received", st.counters.received},
                       {"ignored", st.counters.ignored},
                       {"answered", st.counters.answered},
                       {"unknownTargets", st.counters.unknownTargets}};
    json lines = json::array();
    for (const std::uint64_t seq : shown) lines.push_back({{"seq", seq + 1}, {"text", texts[seq]}});
    out["log"] = lines;
    document = out.dump(-1, ' ', false, json::error_handler_t::replace);
    // Cheaper than escaping the SVG into the JSON: each of its lines becomes a data line of its own event.
    std::string svg = DtEmulatorPictureSvg(st);
    std::replace(svg.begin(), svg.end(), '\r', '\n');  // a lone CR would end a data line too
    pictureEvent = "event: picture\n";
    std::size_t at = 0;
    while (at < svg.size()) {
      std::size_t end = svg.find('\n', at);
      if (end == std::string::npos) end = svg.size();
      pictureEvent.append("data: ").append(svg, at, end - at).append("\n");
      at = end + 1;
    }
    pictureEvent += "\n";
    documentVersion = v;
    return {v, document, pictureEvent};
  }

  void routes() {
    const auto noStore = [](httplib::Response& res) { res.set_header("Cache-Control", "no-store"); };
    server.Get("/", [this, noStore](const httplib::Request&, httplib::Response& res) {
      yieldToTheEmulator();
      noStore(res);
      res.set_content(page, "text/html; charset=utf-8");
    });
    server.Get("/state.json", [this, noStore](const httplib::Request&, httplib::Response& res) {
      yieldToTheEmulator();
      noStore(res);
      res.set_content(DtEmulatorSnapshotJson(*current()), "application/json");
    });
    server.Get("/live.json", [this, noStore](const httplib::Request&, httplib::Response& res) {
      yieldToTheEmulator();
      noStore(res);
      res.set_content(liveDocument().state, "application/json");
    });
    server.Get("/picture.svg", [this, noStore](const httplib::Request&, httplib::Response& res) {
      yieldToTheEmulator();
      noStore(res);
      res.set_content(DtEmulatorPictureSvg(*current()), "image/svg+xml");
    });
    server.Get("/picture.png", [this, noStore](const httplib::Request&, httplib::Response& res) {
      yieldToTheEmulator();
      noStore(res);
      res.set_content(DtEmulatorPicturePng(*current()), "image/png");
    });
    server.Get("/events", [this, noStore](const httplib::Request&, httplib::Response& res) {
      yieldToTheEmulator();
      {
        std::lock_guard<std::mutex> lock(mutex);
        if (streams >= kMaxStreams) {
          res.status = 503;
          res.set_content("too many pages open\n", "text/plain");
          return;
        }
        ++streams;
      }
      noStore(res);
      res.set_chunked_content_provider(
          "text/event-stream",
          [this, sent = ~std::uint64_t{0}](std::size_t, httplib::DataSink& sink) mutable {
            std::unique_lock<std::mutex> lock(mutex);
            changed.wait_for(lock, kKeepAlive, [&] { return stopping || version != sent; });
            if (stopping) {
              lock.unlock();
              static const char kGone[] = "event: gone\ndata: {}\n\n";
              sink.write(kGone, sizeof kGone - 1);
              sink.done();
              return true;
            }
            if (version == sent) {
              lock.unlock();
              static const char kAlive[] = ": still here\n\n";
              return sink.write(kAlive, sizeof kAlive - 1);
            }
            lock.unlock();
            const Document doc = liveDocument();
            sent = doc.version;
            const std::string message = "event: state\ndata: " + doc.state + "\n\n" + doc.pictureEvent;
            return sink.write(message.data(), message.size());
          },
          [this](bool) {
            std::lock_guard<std::mutex> lock(mutex);
            --streams;
            changed.notify_all();
          });
    });
    // Unknown paths are 404; requests too long or not HTTP at all are 400, whatever finer status the
    // library chose.
    server.set_error_handler(
        httplib::Server::HandlerWithResponse([](const httplib::Request&, httplib::Response& res) {
          if (res.status == 413 || res.status == 414 || res.status == 431) res.status = 400;
          res.set_content(res.status == 404   ? "not found\n"
                          : res.status == 400 ? "bad request\n"
                                              : "refused\n",
                          "text/plain");
          return httplib::Server::HandlerResponse::Handled;
        }));
  }
};

DtEmulatorLiveView::DtEmulatorLiveView(const std::string& address, std::string page)
    : impl_(std::make_unique<Impl>()) {
  Impl& m = *impl_;
  std::tie(m.host, m.port) = parseAddress(address);
  m.page = std::move(page);
  m.server.new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
  m.server.set_keep_alive_timeout(1);
  m.server.set_read_timeout(2, 0);
  m.server.set_write_timeout(2, 0);
  m.server.set_payload_max_length(kMaxPayload);
  // A port another program (or another emulator) holds is refused, not shared: no SO_REUSEPORT.
  m.server.set_socket_options([](socket_t sock) {
    const int yes = 1;
    ::setsockopt(sock, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  });
  m.routes();
  const bool bound =
      m.port == 0 ? (m.port = m.server.bind_to_any_port(m.host)) > 0 : m.server.bind_to_port(m.host, m.port);
  if (!bound) throw std::runtime_error("cannot listen on " + address);
  m.thread = std::thread([&m] {
    yieldToTheEmulator();
    m.server.listen_after_bind();
    m.listenEnded = true;
  });
}

DtEmulatorLiveView::~DtEmulatorLiveView() {
  Impl& m = *impl_;
  {
    // Open pages hear that the viewer has gone before their connections close.
    std::unique_lock<std::mutex> lock(m.mutex);
    m.stopping = true;
    m.changed.notify_all();
    m.changed.wait_for(lock, std::chrono::seconds(2), [&] { return m.streams == 0; });
  }
  // A server stopped before it runs would run on: wait for it to run (or to have failed) first.
  while (!m.server.is_running() && !m.listenEnded) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  m.server.stop();
  if (m.thread.joinable()) m.thread.join();
}

const std::string& DtEmulatorLiveView::host() const { return impl_->host; }
int DtEmulatorLiveView::port() const { return impl_->port; }

std::string DtEmulatorLiveView::url() const {
  const bool v6 = impl_->host.find(':') != std::string::npos;
  return "http://" + (v6 ? "[" + impl_->host + "]" : impl_->host) + ":" + std::to_string(impl_->port) + "/";
}

void DtEmulatorLiveView::setInterval(std::chrono::milliseconds interval) { impl_->interval = interval; }

void DtEmulatorLiveView::logPdu(const DtVistralControlPdu& pdu) {
  Impl& m = *impl_;
  std::lock_guard<std::mutex> lock(m.mutex);
  LogEntry& e = m.log[m.logged % kLogSize];
  e.sequence = m.logged++;
  // The slot's storage is reused once it is warm; a short image is padded with zeros, as it is read.
  const int length = pdu.length();
  if (const unsigned char* bytes = pdu.bytesAt(0, length)) {
    e.bytes.assign(bytes, bytes + length);
  } else {
    e.bytes.resize(static_cast<std::size_t>(length));
    pdu.copyBytesAt(0, e.bytes.data(), length);
  }
}

bool DtEmulatorLiveView::publish(const DtEmulatorState& state) {
  Impl& m = *impl_;
  const auto now = std::chrono::steady_clock::now();
  if (now - m.lastPublish < m.interval) return false;
  m.lastPublish = now;
  auto copy = std::make_shared<const DtEmulatorState>(state);
  std::shared_ptr<const DtEmulatorState> older;  // freed here only when no page took the last one away
  {
    std::lock_guard<std::mutex> lock(m.mutex);
    older = std::move(m.retired);
    m.retired = std::move(m.state);
    m.state = std::move(copy);
    ++m.version;
    m.loggedAtPublish = m.logged;
  }
  m.changed.notify_all();
  return true;
}

std::uint64_t DtEmulatorLiveView::version() const {
  std::lock_guard<std::mutex> lock(impl_->mutex);
  return impl_->version;
}
