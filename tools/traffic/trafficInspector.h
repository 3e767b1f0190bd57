// Decodes the images the readers find into the library's PDU objects and prints them, as text or as one JSON
// object a line, with filters on viewer id, command and object id. Faults go to their own stream, each naming
// the input and its byte offset, and are counted for the exit status.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "trafficReader.h"

class DtPdu;

namespace traffic {

// Which PDUs to print.
struct Filter {
  std::optional<std::string> viewer;
  std::optional<unsigned> command;
  std::optional<std::uint32_t> object;  // draw-control PDUs only
};

class Inspector final : public Sink {
 public:
  Inspector(std::ostream& out, std::ostream& faults, bool json, Filter filter = {});

  // The input the following records and faults come from, as faults name it.
  void setInput(std::string name) { input_ = std::move(name); }
  // Reads a whole input of the given form (a capture through libpcap, from memory).
  void read(const unsigned char* bytes, std::size_t size, Form form, int port);

  void pdu(const Record& record) override;
  void fault(std::size_t offset, const std::string& what) override;

  std::size_t printed() const { return printed_; }
  std::size_t faults() const { return faults_; }

 private:
  void printText(const Record& record, const DtPdu& pdu);
  void printJson(const Record& record, const DtPdu& pdu);

  std::ostream& out_;
  std::ostream& faultStream_;
  bool json_;
  Filter filter_;
  std::string input_;
  std::vector<unsigned char> image_;  // zero beyond the current image, as the receive path hands images over
  std::size_t used_ = 0;
  std::ostringstream dump_;
  std::string line_;
  std::size_t printed_ = 0;
  std::size_t faults_ = 0;
};

// The PDU class's name, as the library spells it.
std::string className(const DtPdu& pdu);

// Appends text as a JSON string, quotes included.
void appendJsonString(std::string& out, const std::string& text);

}  // namespace traffic
