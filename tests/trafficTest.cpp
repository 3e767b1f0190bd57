// The traffic readers and the inspector: hex text, binary images and captures (pcapng as the recorder writes
// it, pcap over Ethernet as libpcap writes it), each with hostile parts among good ones; the printed forms
// and the filters.
#include <gtest/gtest.h>
#include <pcap/pcap.h>

#include <cstdio>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tarvex/dtMessage.h"
#include "traffic/pcapngWriter.h"
#include "traffic/trafficInspector.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/vdcTextPdu.h"

namespace {

struct Collected : traffic::Sink {
  struct Pdu {
    traffic::Record record;
    std::vector<unsigned char> bytes;
  };
  void pdu(const traffic::Record& r) override {
    pdus.push_back({r, std::vector<unsigned char>(r.bytes, r.bytes + r.size)});
    pdus.back().record.bytes = nullptr;
  }
  void fault(std::size_t offset, const std::string& what) override { faults.emplace_back(offset, what); }
  std::vector<Pdu> pdus;
  std::vector<std::pair<std::size_t, std::string>> faults;
};

std::vector<unsigned char> bytesOf(const DtPdu& pdu) {
  return std::vector<unsigned char>(pdu.packet(), pdu.packet() + pdu.length());
}

class Traffic : public ::testing::Test {
 protected:
  void SetUp() override {
    DtInfo.setStream(quiet_);
    absolute_.setViewerId("vistral-1");
    absolute_.setWorldLocation(DtVector64(1.0, 2.0, 3.0));
    text_.setViewerId("vistral-2");
    text_.setObjectId(77);
    text_.setText("hello");
  }
  std::ostream quiet_{nullptr};
  DtAbsoluteVCPdu absolute_;
  DtVdcTextPdu text_;
};

std::string hexLine(const std::vector<unsigned char>& bytes, bool spaced) {
  std::string out;
  traffic::appendHex(out, bytes.data(), bytes.size());
  if (spaced) out.insert(8, " ").insert(3, "\t ");
  return out + "\n";
}

// Runs a writer into a memory file and returns what it wrote.
template <class Write>
std::vector<unsigned char> written(Write write) {
  char* data = nullptr;
  std::size_t size = 0;
  std::FILE* file = open_memstream(&data, &size);
  write(file);
  std::fclose(file);
  std::vector<unsigned char> out(data, data + size);
  std::free(data);
  return out;
}

TEST_F(Traffic, HexTextKeepsGoingPastBadLinesAndNamesTheirOffsets) {
  const auto a = bytesOf(absolute_);
  const auto t = bytesOf(text_);
  std::string input = "# a comment\n" + hexLine(a, true);
  const std::size_t badDigit = input.size() + 4;
  input += "0102zz\n";
  const std::size_t odd = input.size();
  input += "abc\n\n";
  const std::size_t shortImage = input.size();
  auto cut = a;
  cut[9] = 100;  // length field no longer the image's
  input += hexLine(cut, false);
  const std::size_t last = input.size();
  input += hexLine(t, false);  // no newline at the very end
  input.pop_back();
  EXPECT_EQ(traffic::guessForm(reinterpret_cast<const unsigned char*>(input.data()), input.size()),
            traffic::Form::Hex);
  Collected got;
  traffic::readHex(input.data(), input.size(), got);
  ASSERT_EQ(got.pdus.size(), 2U);
  EXPECT_EQ(got.pdus[0].bytes, a);
  EXPECT_EQ(got.pdus[0].record.offset, 12U);
  EXPECT_EQ(got.pdus[1].bytes, t);
  EXPECT_EQ(got.pdus[1].record.offset, last);
  EXPECT_EQ(got.pdus[1].record.packet, 5U);
  ASSERT_EQ(got.faults.size(), 3U);
  EXPECT_EQ(got.faults[0], std::make_pair(badDigit, std::string("not a hex digit: 'z'")));
  EXPECT_EQ(got.faults[1], std::make_pair(odd + 2, std::string("odd number of hex digits")));
  EXPECT_EQ(got.faults[2].first, shortImage);
  EXPECT_EQ(got.faults[2].second, "length field says 100 bytes, the image has 196");
}

TEST_F(Traffic, BinaryImagesSplitByTheirLengthsUntilOneCannotBeRight) {
  auto input = bytesOf(absolute_);
  auto other = bytesOf(text_);
  other[2] = 1;  // another PDU kind: skipped by its length, reported
  input.insert(input.end(), other.begin(), other.end());
  const auto t = bytesOf(text_);
  input.insert(input.end(), t.begin(), t.end());
  const std::size_t tail = input.size();
  input.insert(input.end(), t.begin(), t.begin() + 40);
  Collected got;
  traffic::readBinary(input.data(), input.size(), got);
  ASSERT_EQ(got.pdus.size(), 2U);
  EXPECT_EQ(got.pdus[1].bytes, t);
  EXPECT_EQ(got.pdus[1].record.offset, 196 + t.size());
  ASSERT_EQ(got.faults.size(), 2U);
  EXPECT_EQ(got.faults[0],
            std::make_pair(std::size_t{196}, std::string("PDU kind 1, not a control PDU (202)")));
  EXPECT_EQ(got.faults[1].first, tail);
  EXPECT_NE(got.faults[1].second.find("cannot be split"), std::string::npos);
  EXPECT_EQ(traffic::guessForm(input.data(), input.size()), traffic::Form::Binary);
}

TEST_F(Traffic, PcapngRecordingKeepsTimesAddressesAndPortFilter) {
  const auto a = bytesOf(absolute_);
  const auto t = bytesOf(text_);
  auto hostile = t;
  hostile[8] = 0;
  hostile[9] = 160;  // claims fewer bytes than the datagram holds
  const auto file = written([&](std::FILE* out) {
    traffic::PcapngWriter writer(out);
    writer.add(1'700'000'000'123'456'789LL, a.data(), a.size());
    writer.add(1'700'000'001'000'000'001LL, t.data(), t.size(), 0x0A000001, 4000, 0x0A000002, 5000);
    writer.add(1'700'000'002'000'000'000LL, hostile.data(), hostile.size());
    EXPECT_TRUE(writer.ok());
  });
  EXPECT_EQ(traffic::guessForm(file.data(), file.size()), traffic::Form::Capture);
  Collected all;
  traffic::readCapture(fmemopen(const_cast<unsigned char*>(file.data()), file.size(), "rb"), 0, all);
  ASSERT_EQ(all.pdus.size(), 2U);
  EXPECT_EQ(all.pdus[0].bytes, a);
  EXPECT_EQ(all.pdus[0].record.seconds, 1'700'000'000);
  EXPECT_EQ(all.pdus[0].record.nanoseconds, 123'456'789U);
  EXPECT_EQ(all.pdus[0].record.source, "127.0.0.1:3001");
  EXPECT_EQ(all.pdus[0].record.destination, "127.0.0.1:3000");
  EXPECT_EQ(all.pdus[1].bytes, t);
  EXPECT_EQ(all.pdus[1].record.nanoseconds, 1U);
  EXPECT_EQ(all.pdus[1].record.source, "10.0.0.1:4000");
  EXPECT_EQ(all.pdus[1].record.destination, "10.0.0.2:5000");
  ASSERT_EQ(all.faults.size(), 1U);
  EXPECT_EQ(all.faults[0].second,
            "packet 3: length field says 160 bytes, the image has " + std::to_string(t.size()));
  Collected onPort;
  traffic::readCapture(fmemopen(const_cast<unsigned char*>(file.data()), file.size(), "rb"), 5000, onPort);
  ASSERT_EQ(onPort.pdus.size(), 1U);
  EXPECT_EQ(onPort.pdus[0].record.packet, 2U);

  // A capture cut in the middle of a packet: what came before is still read.
  Collected cut;
  traffic::readCapture(fmemopen(const_cast<unsigned char*>(file.data()), file.size() - 30, "rb"), 0, cut);
  EXPECT_EQ(cut.pdus.size(), 2U);
  ASSERT_EQ(cut.faults.size(), 1U);
  EXPECT_NE(cut.faults[0].second.find("capture breaks off"), std::string::npos);
}

TEST_F(Traffic, PcapOverEthernetWithOtherTrafficAndTruncatedPackets) {
  const auto a = bytesOf(absolute_);
  auto frame = [&](std::uint8_t protocol, std::size_t keep) {
    std::vector<unsigned char> f(14, 0);
    f[12] = 0x08;  // IPv4
    const std::size_t total = 20 + 8 + a.size();
    const unsigned char ip[20] = {0x45,
                                  0,
                                  static_cast<unsigned char>(total >> 8),
                                  static_cast<unsigned char>(total),
                                  0,
                                  0,
                                  0,
                                  0,
                                  64,
                                  protocol,
                                  0,
                                  0,
                                  192,
                                  168,
                                  1,
                                  5,
                                  192,
                                  168,
                                  1,
                                  6};
    f.insert(f.end(), ip, ip + 20);
    const unsigned char udp[8] = {0x0B,
                                  0xB8,
                                  0x0B,
                                  0xB9,
                                  static_cast<unsigned char>((8 + a.size()) >> 8),
                                  static_cast<unsigned char>(8 + a.size()),
                                  0,
                                  0};
    f.insert(f.end(), udp, udp + 8);
    f.insert(f.end(), a.begin(), a.end());
    f.resize(keep == 0 ? f.size() : keep);
    return f;
  };
  const auto file = written([&](std::FILE* out) {
    pcap_t* dead = pcap_open_dead(DLT_EN10MB, 65535);
    pcap_dumper_t* dumper = pcap_dump_fopen(dead, out);
    for (const auto& f : {frame(17, 0), frame(6, 0), frame(17, 100)}) {
      pcap_pkthdr h{};
      h.ts.tv_sec = 5;
      h.caplen = static_cast<bpf_u_int32>(f.size());
      h.len = static_cast<bpf_u_int32>(frame(17, 0).size());
      pcap_dump(reinterpret_cast<unsigned char*>(dumper), &h, f.data());
    }
    pcap_dump_flush(dumper);
    pcap_close(dead);  // the dumper's file is closed by the caller
  });
  Collected got;
  traffic::readCapture(fmemopen(const_cast<unsigned char*>(file.data()), file.size(), "rb"), 3000, got);
  ASSERT_EQ(got.pdus.size(), 1U);  // the TCP packet is not ours
  EXPECT_EQ(got.pdus[0].bytes, a);
  EXPECT_EQ(got.pdus[0].record.source, "192.168.1.5:3000");
  ASSERT_EQ(got.faults.size(), 1U);
  EXPECT_EQ(got.faults[0].first, 24U + 16 + 238 + 16 + 238);  // file header, then two whole records
  EXPECT_EQ(got.faults[0].second, "packet 3: captured 58 of the datagram's 196 bytes");
  Collected garbage;
  const unsigned char notCapture[] = {0x0A, 0x0D, 0x0D, 0x0A, 1, 2};
  traffic::readCapture(fmemopen(const_cast<unsigned char*>(notCapture), sizeof notCapture, "rb"), 0, garbage);
  ASSERT_EQ(garbage.faults.size(), 1U);
  EXPECT_EQ(garbage.faults[0].first, 0U);
}

TEST_F(Traffic, InspectorPrintsTextAndJsonAndFilters) {
  std::string input = hexLine(bytesOf(absolute_), false) + hexLine(bytesOf(text_), false) + "0102\n";
  auto run = [&](bool json, traffic::Filter filter, std::string* faults) {
    std::ostringstream out;
    std::ostringstream err;
    traffic::Inspector inspector(out, err, json, filter);
    inspector.setInput("in.hex");
    inspector.read(reinterpret_cast<const unsigned char*>(input.data()), input.size(), traffic::Form::Hex, 0);
    *faults = err.str();
    EXPECT_EQ(inspector.faults(), 1U);
    return out.str();
  };
  std::string faults;
  const std::string text = run(false, {}, &faults);
  EXPECT_EQ(faults, "in.hex: byte " + std::to_string(2 * (196 + text_.length()) + 2) +
                        ": 2 bytes, too few for a PDU header (12)\n");
  std::ostringstream dump;
  absolute_.printDataToStream(dump);
  std::string indented;
  for (std::size_t at = 0, end; at < dump.str().size(); at = end + 1) {
    end = dump.str().find('\n', at);
    indented += "  " + dump.str().substr(at, end - at) + "\n";
  }
  EXPECT_EQ(text.substr(0, text.find("image 2") - 7),
            "in.hex image 1 at byte 0: DtAbsoluteVCPdu, 196 bytes\n  text: " +
                std::string(absolute_.string()) + "\n" + indented);
  EXPECT_NE(text.find("in.hex image 2 at byte 393: DtVdcTextPdu,"), std::string::npos);

  std::istringstream lines(run(true, {}, &faults));
  std::vector<nlohmann::json> objects;
  for (std::string line; std::getline(lines, line);) objects.push_back(nlohmann::json::parse(line));
  ASSERT_EQ(objects.size(), 2U);
  EXPECT_EQ(objects[0]["class"], "DtAbsoluteVCPdu");
  EXPECT_EQ(objects[0]["viewer"], "vistral-1");
  EXPECT_EQ(objects[0]["text"], absolute_.string());
  EXPECT_EQ(objects[0]["dump"][3], "IgnoreFlags              00 00 00 00");
  EXPECT_FALSE(objects[0].contains("object"));
  EXPECT_EQ(objects[1]["object"], 77);
  EXPECT_EQ(objects[1]["command"], static_cast<unsigned>(text_.viewerCommand()));
  EXPECT_EQ(objects[1]["bytes"].get<std::string>(),
            hexLine(bytesOf(text_), false).substr(0, 2 * text_.length()));

  auto count = [&](traffic::Filter f) {
    const std::string out = run(true, f, &faults);
    return std::count(out.begin(), out.end(), '\n');
  };
  EXPECT_EQ(count({std::string("vistral-2"), {}, {}}), 1);
  EXPECT_EQ(count({std::string("vistral"), {}, {}}), 0);
  EXPECT_EQ(count({{}, 0U, {}}), 1);
  EXPECT_EQ(count({{}, {}, 77U}), 1);
  EXPECT_EQ(count({{}, {}, 78U}), 0);
}

}  // namespace
