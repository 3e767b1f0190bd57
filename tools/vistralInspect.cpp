// Shows what control PDUs an input holds: hex text (one image a line), raw binary images back to back, or a
// pcap/pcapng capture of UDP datagrams. Or, with --build, makes one PDU from a command number and its text
// form and writes its bytes.
//
//   vistralInspect [--json] [--viewer NAME] [--command N] [--object ID] [--port N] [--form F] FILE...
//   vistralInspect --build COMMAND TEXT [--viewer NAME] [--binary]
//
// Exit status: 0 when every input was read without fault, 1 when any fault was found (each is reported on
// standard error, naming the input and the byte offset), 2 for a bad command line.
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "tarvex/dtCmdLine.h"
#include "tarvex/dtMessage.h"
#include "traffic/trafficInspector.h"
#include "vistralcontrol/vistralControlPdu.h"

namespace {

bool wholeNumber(const std::string& text, unsigned long long max, unsigned long long* value) {
  if (text.empty()) return false;
  char* end = nullptr;
  const unsigned long long v = std::strtoull(text.c_str(), &end, 0);
  if (*end != '\0' || text[0] == '-' || v > max) return false;
  *value = v;
  return true;
}

// The whole file in one read where its size is known (a capture may be hundreds of megabytes).
bool readWhole(const std::string& name, std::vector<unsigned char>& bytes) {
  std::FILE* file = std::fopen(name.c_str(), "rb");
  if (file == nullptr) return false;
  bytes.clear();
  unsigned char chunk[1 << 16];
  struct stat info {};
  if (fstat(fileno(file), &info) == 0 && info.st_size > 0)
    bytes.reserve(static_cast<std::size_t>(info.st_size));
  std::size_t got = 0;
  while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0) bytes.insert(bytes.end(), chunk, chunk + got);
  const bool ok = std::ferror(file) == 0;
  std::fclose(file);
  return ok;
}

int build(const std::string& command, const std::string& text, const std::string& viewer, bool binary) {
  unsigned long long number = 0;
  if (!wholeNumber(command, 0xFFFF, &number)) {
    std::cerr << "vistralInspect: '" << command << "' is not a command number\n";
    return 2;
  }
  const std::unique_ptr<DtVistralControlPdu> pdu(
      DtNewVistralControlPdu(static_cast<DtViewerCommand>(number)));
  if (!pdu) {
    std::cerr << "vistralInspect: the library has no PDU for command " << number << "\n";
    return 2;
  }
  if (!viewer.empty()) pdu->setViewerId(viewer.c_str());
  pdu->setFromString(text.c_str());
  if (binary) {
    std::cout.write(reinterpret_cast<const char*>(pdu->packet()), pdu->length());
  } else {
    std::string hex;
    traffic::appendHex(hex, pdu->packet(), static_cast<std::size_t>(pdu->length()));
    std::cout << hex << "\n";
  }
  return std::cout ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  DtCmdLine cmd("vistralInspect", "Shows the control PDUs of hex text, binary images or packet captures.",
                "54.0");
  const int json = cmd.addSwitch("json", "j", "one JSON object a line for each PDU");
  const int viewer =
      cmd.addValue("viewer", "t", "NAME", "only PDUs to this viewer (with --build: its viewer id)", "");
  const int command = cmd.addValue("command", "c", "N", "only PDUs of this command number", "");
  const int object = cmd.addValue("object", "o", "ID", "only draw-control PDUs of this object id", "");
  const int port = cmd.addValue("port", "p", "N", "captures: only UDP datagrams from or to this port", "");
  const int form =
      cmd.addValue("form", "", "FORM", "hex, binary or capture (default: guessed from the contents)", "");
  const int buildIt = cmd.addSwitch("build", "b", "make a PDU from COMMAND TEXT and write its bytes (hex)");
  const int binary = cmd.addSwitch("binary", "", "with --build: write the bytes themselves");
  cmd.setPositionalHelp(
      "FILE... | COMMAND TEXT",
      "the inputs ('-' for standard input), or with --build a command number and its text form");
  if (const int status = cmd.parseForProgram(argc, argv); status >= 0) return status;
  // The library's start-up banner would mix with what is printed.
  std::ostream quiet(nullptr);
  DtInfo.setStream(quiet);

  const auto& words = cmd.positionals();
  if (cmd.isSet(buildIt)) {
    if (words.size() != 2) {
      std::cerr << "vistralInspect: --build takes COMMAND TEXT\n";
      return 2;
    }
    return build(words[0], words[1], cmd.value(viewer), cmd.isSet(binary));
  }
  if (words.empty()) {
    std::cerr << "vistralInspect: no input given\n\n";
    cmd.printUsage(std::cerr);
    return 2;
  }

  traffic::Filter filter;
  unsigned long long number = 0;
  if (!cmd.value(viewer).empty()) filter.viewer = cmd.value(viewer);
  if (!cmd.value(command).empty()) {
    if (!wholeNumber(cmd.value(command), 0xFFFF, &number)) {
      std::cerr << "vistralInspect: --command: '" << cmd.value(command) << "' is not a command number\n";
      return 2;
    }
    filter.command = static_cast<unsigned>(number);
  }
  if (!cmd.value(object).empty()) {
    if (!wholeNumber(cmd.value(object), 0xFFFFFFFF, &number)) {
      std::cerr << "vistralInspect: --object: '" << cmd.value(object) << "' is not an object id\n";
      return 2;
    }
    filter.object = static_cast<std::uint32_t>(number);
  }
  int portNumber = 0;
  if (!cmd.value(port).empty()) {
    if (!wholeNumber(cmd.value(port), 65535, &number) || number == 0) {
      std::cerr << "vistralInspect: --port: '" << cmd.value(port) << "' is not a port\n";
      return 2;
    }
    portNumber = static_cast<int>(number);
  }
  const std::string& formName = cmd.value(form);
  if (!formName.empty() && formName != "hex" && formName != "binary" && formName != "capture") {
    std::cerr << "vistralInspect: --form: '" << formName << "' is not hex, binary or capture\n";
    return 2;
  }

  std::ios::sync_with_stdio(false);
  traffic::Inspector inspector(std::cout, std::cerr, cmd.isSet(json), filter);
  bool unreadable = false;
  for (const std::string& name : words) {
    std::vector<unsigned char> bytes;
    if (name == "-") {
      bytes.assign(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
    } else if (!readWhole(name, bytes)) {
      std::cerr << name << ": cannot be read: " << std::strerror(errno) << "\n";
      unreadable = true;
      continue;
    }
    const traffic::Form chosen = formName == "hex"       ? traffic::Form::Hex
                                 : formName == "binary"  ? traffic::Form::Binary
                                 : formName == "capture" ? traffic::Form::Capture
                                                         : traffic::guessForm(bytes.data(), bytes.size());
    inspector.setInput(name);
    inspector.read(bytes.data(), bytes.size(), chosen, portNumber);
  }
  std::cout.flush();
  return unreadable || inspector.faults() > 0 || !std::cout ? 1 : 0;
}
