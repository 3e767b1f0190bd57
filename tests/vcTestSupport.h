// Helpers for the view-control tests: fixed text fields as they travel, received copies, dumps as text.
#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "testSupport.h"

// A text in a fixed field: its bytes, cut to the width, zero-padded.
inline Bytes textField(const std::string& text, int width) {
  Bytes out(text.begin(), text.begin() + static_cast<long>(std::min<std::size_t>(text.size(), width)));
  out.resize(static_cast<std::size_t>(width), 0);
  return out;
}

// The image a receiver builds from the PDU's bytes, as the class the dispatch chooses.
template <class T>
std::unique_ptr<T> receivedAs(const DtPdu& sent) {
  ReceivedImage image(sent);
  std::unique_ptr<DtPdu> made(DtVistralControlPdu::createFromNet(image.header(), nullptr, nullptr));
  return std::unique_ptr<T>(dynamic_cast<T*>(made.release()));
}

// A received copy of the PDU whose header states another length (an older or a lying sender).
template <class T>
T withLength(const T& pdu, int length) {
  Bytes b(pdu.packet(), pdu.packet() + pdu.length());
  b[8] = static_cast<std::uint8_t>(length >> 8);
  b[9] = static_cast<std::uint8_t>(length);
  ReceivedImage image(b);
  return T(image.vc(), nullptr, nullptr);
}

inline std::string dumpOf(const DtPdu& pdu) {
  std::ostringstream out;
  pdu.printDataToStream(out);
  return out.str();
}

// The dump after the fixed part's four lines.
inline std::string bodyDumpOf(const DtPdu& pdu) {
  std::string dump = dumpOf(pdu);
  std::size_t at = 0;
  for (int line = 0; line < 4 && at != std::string::npos; ++line) at = dump.find('\n', at) + 1;
  return dump.substr(at);
}
