#include "trafficInspector.h"

#include <cxxabi.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <typeindex>

#include "tarvex/dtViewerCommand.h"
#include "vistralcontrol/vistralControlPdu.h"
#include "vistralcontrol/vistralDrawControlPdu.h"

namespace traffic {

std::string className(const DtPdu& pdu) {
  static std::map<std::type_index, std::string> names;
  const std::type_index type(typeid(pdu));
  const auto found = names.find(type);
  if (found != names.end()) return found->second;
  int status = 0;
  char* demangled = abi::__cxa_demangle(type.name(), nullptr, nullptr, &status);
  std::string name = status == 0 && demangled != nullptr ? demangled : type.name();
  std::free(demangled);
  return names.emplace(type, name).first->second;
}

void appendJsonString(std::string& out, const std::string& text) {
  out += '"';
  for (const char c : text) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\t':
        out += "\\t";
        break;
      case '\r':
        out += "\\r";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) >= 0x7F) {
          // Designators are bytes, not UTF-8: each byte outside ASCII stands for itself.
          char escaped[8];
          std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned char>(c));
          out += escaped;
        } else {
          out += c;
        }
    }
  }
  out += '"';
}

Inspector::Inspector(std::ostream& out, std::ostream& faults, bool json, Filter filter)
    : out_(out),
      faultStream_(faults),
      json_(json),
      filter_(std::move(filter)),
      image_(DtPdu::kMaxLength + 1) {}

void Inspector::read(const unsigned char* bytes, std::size_t size, Form form, int port) {
  switch (form) {
    case Form::Hex:
      readHex(reinterpret_cast<const char*>(bytes), size, *this);
      return;
    case Form::Binary:
      readBinary(bytes, size, *this);
      return;
    case Form::Capture: {
      // libpcap reads from a stream; an empty one cannot be opened in memory.
      std::FILE* file = size > 0 ? fmemopen(const_cast<unsigned char*>(bytes), size, "rb") : nullptr;
      if (file == nullptr) {
        fault(0, "an empty capture");
        return;
      }
      readCapture(file, port, *this);
      return;
    }
  }
}

void Inspector::fault(std::size_t offset, const std::string& what) {
  ++faults_;
  faultStream_ << input_ << ": byte " << offset << ": " << what << "\n";
}

void Inspector::pdu(const Record& record) {
  // The library reads a received image in a buffer as long as the longest PDU, zero past the image.
  if (record.size > used_) used_ = record.size;
  std::memset(image_.data() + record.size, 0, used_ - record.size);
  std::memcpy(image_.data(), record.bytes, record.size);
  used_ = record.size;
  const std::unique_ptr<DtPdu> made(DtVistralControlPdu::createFromNet(
      reinterpret_cast<const DtNetPduHeader*>(image_.data()), nullptr, nullptr));
  const auto* pdu = dynamic_cast<const DtVistralControlPdu*>(made.get());
  if (pdu == nullptr) {
    fault(record.offset, "the library makes no control PDU of this image");
    return;
  }
  if (filter_.viewer && pdu->viewerId() != DtString(filter_.viewer->c_str())) return;
  if (filter_.command && static_cast<unsigned>(pdu->viewerCommand()) != *filter_.command) return;
  if (filter_.object) {
    const auto* draw = dynamic_cast<const DtVistralDrawControlPdu*>(pdu);
    if (draw == nullptr || static_cast<std::uint32_t>(draw->objectId()) != *filter_.object) return;
  }
  ++printed_;
  dump_.str(std::string());
  pdu->printDataToStream(dump_);
  line_.clear();
  if (json_)
    printJson(record, *pdu);
  else
    printText(record, *pdu);
  out_.write(line_.data(), static_cast<std::streamsize>(line_.size()));
}

namespace {
std::string timeText(const Record& record) {
  char text[40];
  std::snprintf(text, sizeof text, "%lld.%09u", static_cast<long long>(record.seconds), record.nanoseconds);
  return text;
}
}  // namespace

void Inspector::printText(const Record& record, const DtPdu& pdu) {
  const auto& control = static_cast<const DtVistralControlPdu&>(pdu);
  line_ += input_;
  line_ += record.hasTime ? " packet " : " image ";
  line_ += std::to_string(record.packet);
  line_ += " at byte ";
  line_ += std::to_string(record.offset);
  if (record.hasTime) {
    line_ += ", ";
    line_ += timeText(record);
    line_ += ", ";
    line_ += record.source;
    line_ += " -> ";
    line_ += record.destination;
  }
  line_ += ": ";
  line_ += className(pdu);
  line_ += ", ";
  line_ += std::to_string(record.size);
  line_ += " bytes\n  text: ";
  line_ += control.string();
  line_ += '\n';
  const std::string dump = dump_.str();
  std::size_t start = 0;
  while (start < dump.size()) {
    std::size_t end = dump.find('\n', start);
    if (end == std::string::npos) end = dump.size();
    line_ += "  ";
    line_.append(dump, start, end - start);
    line_ += '\n';
    start = end + 1;
  }
}

void Inspector::printJson(const Record& record, const DtPdu& pdu) {
  const auto& control = static_cast<const DtVistralControlPdu&>(pdu);
  line_ += "{\"input\":";
  appendJsonString(line_, input_);
  line_ += ",\"index\":";
  line_ += std::to_string(record.packet);
  line_ += ",\"offset\":";
  line_ += std::to_string(record.offset);
  if (record.hasTime) {
    line_ += ",\"time\":";
    line_ += timeText(record);
    line_ += ",\"source\":";
    appendJsonString(line_, record.source);
    line_ += ",\"destination\":";
    appendJsonString(line_, record.destination);
  }
  line_ += ",\"class\":";
  appendJsonString(line_, className(pdu));
  line_ += ",\"length\":";
  line_ += std::to_string(record.size);
  const DtViewerCommand command = control.viewerCommand();
  line_ += ",\"command\":";
  line_ += std::to_string(static_cast<unsigned>(command));
  line_ += ",\"commandName\":";
  appendJsonString(line_, DtEnumString(command));
  const DtString viewer = control.viewerId();
  line_ += ",\"viewer\":";
  appendJsonString(line_, viewer.c_str());
  line_ += ",\"sender\":";
  appendJsonString(line_, control.senderId().c_str());
  if (const auto* draw = dynamic_cast<const DtVistralDrawControlPdu*>(&pdu)) {
    line_ += ",\"object\":";
    line_ += std::to_string(static_cast<std::uint32_t>(draw->objectId()));
  }
  line_ += ",\"text\":";
  appendJsonString(line_, control.string());
  line_ += ",\"dump\":[";
  const std::string dump = dump_.str();
  std::size_t start = 0;
  bool first = true;
  while (start < dump.size()) {
    std::size_t end = dump.find('\n', start);
    if (end == std::string::npos) end = dump.size();
    if (!first) line_ += ',';
    first = false;
    appendJsonString(line_, dump.substr(start, end - start));
    start = end + 1;
  }
  line_ += "],\"bytes\":\"";
  appendHex(line_, record.bytes, record.size);
  line_ += "\"}\n";
}

}  // namespace traffic
