// The load stream: deterministic, covering every class in both draw layouts, with its damaged PDUs damaged
// as labelled and its intact ones read back whole; and an emulator's digest telling streams apart.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "loadStream.h"
#include "tarvex/dtPdu.h"
#include "vistralcontrol/vistralDrawControlPdu.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
std::vector<std::vector<unsigned char>> take(std::uint64_t seed, int n,
                                             std::vector<DtLoadDamage>* damage = nullptr) {
  DtLoadStream stream(seed, "vistral-1", "loader", 50);
  std::vector<std::vector<unsigned char>> out;
  for (int i = 0; i < n; ++i) {
    const DtLoadPdu pdu = stream.next();
    out.emplace_back(pdu.bytes, pdu.bytes + pdu.size);
    if (damage) damage->push_back(pdu.damage);
  }
  return out;
}

std::unique_ptr<DtPdu> read(const std::vector<unsigned char>& image) {
  std::vector<unsigned char> padded(image);
  padded.resize(DtPdu::kMaxLength + 1);  // as a receiver lays it out: zeros past the bytes
  return std::unique_ptr<DtPdu>(
      DtVistralControlPdu::create(reinterpret_cast<const DtNetPduHeader*>(padded.data()), nullptr, nullptr));
}
}  // namespace

TEST(LoadStream, TheSameSeedGivesTheSameBytesAndAnotherSeedOthers) {
  const auto a = take(7, 3000);
  EXPECT_EQ(a, take(7, 3000));
  const auto b = take(8, 3000);
  int same = 0;
  for (std::size_t i = 0; i < a.size(); ++i) same += a[i] == b[i];
  EXPECT_LT(same, 30);
}

TEST(LoadStream, EveryClassInBothLayoutsWithIntactPdusReadBackWhole) {
  std::vector<DtLoadDamage> damage;
  const auto images = take(11, 20000, &damage);
  std::set<int> viewCommands;
  std::set<std::pair<int, bool>> drawTypes;  // type, current layout
  std::set<std::uint32_t> objectIds;
  for (std::size_t i = 0; i < images.size(); ++i) {
    if (damage[i] != DtLoadDamage::intact) continue;
    const std::unique_ptr<DtPdu> pdu = read(images[i]);
    const auto* vc = dynamic_cast<const DtVistralControlPdu*>(pdu.get());
    ASSERT_NE(vc, nullptr) << i;
    ASSERT_EQ(static_cast<std::size_t>(vc->length()), images[i].size());
    EXPECT_EQ(std::vector<unsigned char>(vc->packet(), vc->packet() + vc->length()), images[i]);
    if (const auto* draw = dynamic_cast<const DtVistralDrawControlPdu*>(vc)) {
      drawTypes.insert({static_cast<int>(draw->type()), draw->currentLayout()});
      objectIds.insert(draw->objectId());
    } else {
      viewCommands.insert(vc->viewerCommand());
    }
  }
  EXPECT_EQ(viewCommands.size(), 15U);  // absolute to request-state, the options among them
  // Every type the library builds, in each layout it builds it.
  std::set<std::pair<int, bool>> built;
  for (int type = DtVdcUndefined; type <= DtVdcLayer + 9; ++type) {
    for (auto make : {&DtNewDrawControlPdu, &DtNewDrawControlPduV0}) {
      std::unique_ptr<DtVistralControlPdu> made(make(static_cast<DtViewerCommand>(type)));
      if (const auto* draw = dynamic_cast<const DtVistralDrawControlPdu*>(made.get()))
        built.insert({static_cast<int>(draw->type()), draw->currentLayout()});
    }
  }
  EXPECT_GT(built.size(), 50U);
  EXPECT_EQ(drawTypes, built);
  EXPECT_LE(*objectIds.rbegin(), 50U);  // the bounded set the stream was given
}

TEST(LoadStream, AboutOneInAHundredIsDamagedEveryWayAndOnlyLengthDamageBreaksTheFrame) {
  DtLoadStream stream(3, "vistral-1", "loader");
  std::map<DtLoadDamage, int> seen;
  DtVistralEmulator viewer("vistral-1");
  for (int i = 0; i < 30000; ++i) {
    const DtLoadPdu pdu = stream.next();
    ++seen[pdu.damage];
    const bool lengthDamage = pdu.damage == DtLoadDamage::badLength || pdu.damage == DtLoadDamage::truncated;
    ASSERT_EQ(pdu.intactFrame(), !lengthDamage) << DtLoadDamageName(pdu.damage);
    const std::size_t stated =
        static_cast<std::size_t>(pdu.bytes[DtPdu::kLengthOffset] << 8 | pdu.bytes[DtPdu::kLengthOffset + 1]);
    EXPECT_TRUE(pdu.damage != DtLoadDamage::truncated || pdu.size < stated);
    EXPECT_TRUE(pdu.damage != DtLoadDamage::unterminated || pdu.bytes[pdu.size - 1] != 0);
    if (pdu.damage == DtLoadDamage::unknownCommand) {  // a viewer takes it and changes nothing
      DtVistralEmulator fresh("vistral-1");
      fresh.applyImage(pdu.bytes, pdu.size);
      EXPECT_EQ(fresh.state().counters.ignored, 1);
      EXPECT_TRUE(fresh.state().objects.empty() && fresh.state().view.modes.empty());
    }
    viewer.applyImage(pdu.bytes, pdu.size);  // damaged ones too: nothing may go wrong in the viewer
  }
  const int damaged = 30000 - seen[DtLoadDamage::intact];
  EXPECT_GT(damaged, 200);
  EXPECT_LT(damaged, 400);
  for (int d = 1; d <= 6; ++d)
    EXPECT_GT(seen[static_cast<DtLoadDamage>(d)], 20) << DtLoadDamageName(static_cast<DtLoadDamage>(d));
  EXPECT_EQ(viewer.state().counters.received, 30000);
  EXPECT_LE(viewer.state().objects.size(), 400U + 12U);  // object ids, and attribute ids of panels
}

TEST(LoadStream, TheViewersDigestSeesOrderLossAndRepetitionOfWhatItActedOn) {
  // Draw PDUs, which a viewer acts on whatever they are addressed to.
  std::vector<std::vector<unsigned char>> images;
  for (auto& image : take(5, 400)) {
    if (dynamic_cast<const DtVistralDrawControlPdu*>(read(image).get()) != nullptr) images.push_back(image);
  }
  ASSERT_GT(images.size(), 150U);
  const auto digestOf = [](const std::vector<std::vector<unsigned char>>& stream) {
    DtVistralEmulator viewer("vistral-1");
    for (const auto& image : stream) viewer.applyImage(image.data(), image.size());
    return viewer.state().counters.digest;
  };
  const std::uint64_t digest = digestOf(images);
  EXPECT_EQ(digest, digestOf(images));
  auto swapped = images;
  std::swap(swapped[10], swapped[11]);
  auto lost = images;
  lost.erase(lost.begin() + 100);
  auto repeated = images;
  repeated.insert(repeated.begin() + 50, images[50]);
  auto changed = images;
  changed[120][changed[120].size() / 2] ^= 1;
  for (const auto& other : {swapped, lost, repeated, changed}) EXPECT_NE(digestOf(other), digest);

  // Another viewer's report is counted, and leaves the digest as it was.
  std::unique_ptr<DtVistralControlPdu> report(DtNewVistralControlPdu(DtVcOrbitStatus));
  report->setViewerId("vistral-2");
  auto withReport = images;
  withReport.emplace(withReport.begin() + 30, report->packet(), report->packet() + report->length());
  EXPECT_EQ(digestOf(withReport), digest);
}
