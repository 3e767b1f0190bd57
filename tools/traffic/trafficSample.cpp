// Writes a pcapng recording of control PDUs for the tests and the benchmark: every class the library has, in
// both draw layouts, filled, then (with --hostile) images whose counts, lengths and texts a reader must not
// trust. COUNT PDUs in all (default: one of each), cycling through the set, a millisecond apart.
//
//   trafficSample OUT.pcapng [COUNT] [--hostile]
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "demoPdus.h"
#include "tarvex/dtMessage.h"
#include "traffic/pcapngWriter.h"
#include "vistralcontrol/vistralDrawControlPdu.h"

namespace {

using Image = std::vector<unsigned char>;

Image imageOf(const DtVistralControlPdu& pdu) { return Image(pdu.packet(), pdu.packet() + pdu.length()); }

// The version-0 layouts, filled through their text forms (type first, as the current layouts' are).
void addVersion0(std::vector<Image>& out) {
  const struct {
    int type;
    const char* text;
  } kV0[] = {
      {2515, "9 2515 4"},
      {2521, "9 2521 10 1 2 3 4 5 6 tank-1 tank-2 3 4 0 10 20 30 40 1"},
      {2531, "9 2531 10 1 2 3 4 5 6 tank-1 tank-2 3 4 0 10 20 30 40 1"},
      {2541, "9 2541 10 1 2 3 4 5 6 tank-1 tank-2 3 4 0 10 20 30 40 1 255 1 2 3 4 0.5 0.25 0.125"},
      {2551, "9 2551 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 1 0 1 1 1 1 0 0 0 1 2 3 4 5 6 7 8 9"},
      {2561, "9 2561 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 1 Hello"},
      {2577, "9 2577 10 1 2 3 4 5 6 e1 e2 3 4 0 10 20 30 40 0 12 1 Speed 1 0.5 99.5"},
      {2583, "9 2583 fast"},
      {2590, "9 Overlays"},
  };
  for (const auto& v : kV0) {
    std::unique_ptr<DtVistralControlPdu> pdu(DtNewDrawControlPduV0(static_cast<DtViewerCommand>(v.type)));
    if (!pdu) continue;
    pdu->setViewerId("vistral-1");
    pdu->setSenderId("trafficSample");
    pdu->setFromString(v.text);
    out.push_back(imageOf(*pdu));
  }
}

// Images whose counts and lengths say more than they hold, cut short, or of texts without an end.
void addHostile(std::vector<Image>& out, const std::vector<Image>& good) {
  for (const Image& image : good) {
    Image lying = image;
    // Every count-like byte in the body at its largest, the header's length left true.
    for (std::size_t i = 156; i < lying.size() && i < 420; i += 7) lying[i] = 0xFF;
    out.push_back(lying);
    Image cut(image.begin(), image.begin() + static_cast<long>(image.size() / 2));
    cut[8] = static_cast<unsigned char>(cut.size() >> 8);
    cut[9] = static_cast<unsigned char>(cut.size());
    out.push_back(cut);
    Image unterminated = image;
    std::memset(unterminated.data() + 12, 'A', 128);  // ids without a terminating zero
    out.push_back(unterminated);
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::ostream quiet(nullptr);
  DtInfo.setStream(quiet);
  bool hostile = false;
  std::vector<std::string> words;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--hostile") == 0)
      hostile = true;
    else
      words.emplace_back(argv[i]);
  }
  if (words.empty() || words.size() > 2) {
    std::fprintf(stderr, "usage: trafficSample OUT.pcapng [COUNT] [--hostile]\n");
    return 2;
  }
  std::vector<Image> images;
  for (const auto& entry : demoPdus("vistral-1", "trafficSample")) images.push_back(imageOf(*entry.second));
  addVersion0(images);
  if (hostile) addHostile(images, std::vector<Image>(images));
  const unsigned long count = words.size() == 2 ? std::strtoul(words[1].c_str(), nullptr, 10) : images.size();
  std::FILE* out = std::fopen(words[0].c_str(), "wb");
  if (out == nullptr) {
    std::perror(words[0].c_str());
    return 1;
  }
  traffic::PcapngWriter writer(out);
  const std::int64_t start = 1'764'000'000'000'000'000LL;
  for (unsigned long i = 0; i < count; ++i) {
    const Image& image = images[i % images.size()];
    writer.add(start + static_cast<std::int64_t>(i) * 1'000'000, image.data(), image.size());
  }
  const bool ok = writer.ok() && std::fclose(out) == 0;
  return ok ? 0 : 1;
}
