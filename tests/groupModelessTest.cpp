// Group and modeless PDUs: entity lists that grow and shrink the PDU in place, their text form and dump, and
// hostile counts and lengths.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <vector>

#include "vcTestSupport.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/modelessVcPdu.h"

TEST(Group, GoldenImageAndLengthsFollowTheCounts) {
  DtGroupVCPdu pdu;
  ASSERT_EQ(pdu.length(), 188);
  pdu.setRadialOffset(100);
  pdu.setHeading(0.5f);
  pdu.setPitch(-0.5f);
  pdu.setHeadingOffset(1);
  pdu.setPitchOffset(2);
  pdu.setGroupCmd(1);
  pdu.setNumEntitiesToRemove(2);
  EXPECT_EQ(pdu.length(), 316);
  pdu.setNumEntitiesToAdd(1);
  EXPECT_EQ(pdu.length(), 380);
  pdu.setEntityToRemove(0, "r0");
  pdu.setEntityToRemove(1, "r1");
  pdu.setEntityToAdd(0, "a0");
  EXPECT_EQ(bytesAt(pdu.packet(), 8, 2), bytes({1, 124}));
  EXPECT_EQ(bytesAt(pdu.packet(), 146, 2), bytes({0, 9}));
  EXPECT_EQ(bytesAt(pdu.packet(), 156, 224),
            concat({be32f(100), be32f(0.5f), be32f(-0.5f), be32f(1), be32f(2),
                    bytes({0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 1}), textField("r0", 64), textField("r1", 64),
                    textField("a0", 64)}));
}

TEST(Group, HostileCountsAreRefusedOrReadAsZero) {
  DtGroupVCPdu pdu;
  pdu.setNumEntitiesToRemove(1);
  pdu.setNumEntitiesToAdd(1);
  const Bytes before = bytesAt(pdu.packet(), 0, pdu.length());
  // Below -1, or past what the 16-bit length field states: nothing changes.
  for (int refused : {-2, INT_MIN, INT_MAX, 1021, 100000}) {
    pdu.setNumEntitiesToRemove(refused);
    pdu.setNumEntitiesToAdd(refused);
    EXPECT_EQ(bytesAt(pdu.packet(), 0, pdu.length()), before) << refused;
  }
  pdu.setNumEntitiesToAdd(1020);  // 188 + 64 * 1021 = 65532: the largest that fits
  EXPECT_EQ(pdu.length(), 65532);
  EXPECT_EQ(pdu.numEntitiesToAdd(), 1020);
  pdu.setEntityToAdd(1019, "last");
  EXPECT_EQ(pdu.entityToAdd(1019), "last");

  // -1 is stored and written as such.
  pdu.setNumEntitiesToRemove(-1);
  pdu.setNumEntitiesToAdd(-1);
  EXPECT_STREQ(pdu.string(), "0 -1 -1 0.000000 0.000000 0.000000 0.000000 0.000000 ");
}

TEST(Group, ReceivedCountsThatLieAboutTheImage) {
  DtGroupVCPdu sent;
  sent.setNumEntitiesToRemove(1);
  sent.setEntityToRemove(0, "only");
  Bytes b(sent.packet(), sent.packet() + sent.length());
  for (const int lie : {INT_MAX, -5, 1 << 20}) {
    b[180] = static_cast<std::uint8_t>(static_cast<unsigned>(lie) >> 24);
    b[181] = static_cast<std::uint8_t>(lie >> 16);
    b[182] = static_cast<std::uint8_t>(lie >> 8);
    b[183] = static_cast<std::uint8_t>(lie);
    b[187] = 3;  // three adds claimed, none there
    ReceivedImage image(b);
    DtGroupVCPdu pdu(image.vc(), nullptr, nullptr);
    // The one entry in the image is the first removed, or, with no usable remove count, the first added.
    EXPECT_EQ(pdu.entitiesToRemoveInImage(), lie > 0 ? 1 : 0);
    EXPECT_EQ(pdu.entitiesToAddInImage(), lie > 0 ? 0 : 1);
    EXPECT_EQ(pdu.entityToRemove(0), lie > 0 ? "only" : "");
    EXPECT_EQ(pdu.entityToRemove(5), "");
    EXPECT_EQ(pdu.entityToAdd(2), "");
    pdu.setEntityToAdd(2, "past the end");
    EXPECT_EQ(pdu.length(), 252);
    const std::string text = pdu.string();
    EXPECT_LT(text.size(), 400u);
    const std::string dump = dumpOf(pdu);
    EXPECT_LT(dump.size(), 2000u) << "only entries inside the image are dumped";
    pdu.setFromString(text.c_str());
    pdu.setNumEntitiesToAdd(0);
    pdu.setNumEntitiesToRemove(0);
    EXPECT_LE(pdu.length(), 65535);
  }
}

TEST(Group, TextForms) {
  DtGroupVCPdu pdu;
  pdu.setGroupCmd(0);
  pdu.setFromString("1 2 1 10 20 30 40 50 r0 r1 a0");
  EXPECT_EQ(pdu.groupCmd(), 0);  // the text's group command is not applied
  EXPECT_EQ(pdu.length(), 188 + 64 * 3);
  EXPECT_EQ(pdu.pitchOffset(), 50.0f);
  EXPECT_STREQ(pdu.string(), "0 2 1 10.000000 20.000000 30.000000 40.000000 50.000000  r0 r1 a0");

  // Ids with blanks: a comma before each id, read back by splitting on commas.
  pdu.setEntityToRemove(1, "tank 1");
  const std::string comma = pdu.string();
  EXPECT_EQ(comma, "0 2 1 10.000000 20.000000 30.000000 40.000000 50.000000 ,r0,tank 1,a0");
  DtGroupVCPdu back;
  back.setFromString(comma.c_str());
  EXPECT_EQ(bytesAt(back.packet(), 0, back.length()), bytesAt(pdu.packet(), 0, pdu.length()));

  // Too few ids: the rest keep what they held. Numbers that do not scan: the ids come from the start.
  pdu.setFromString("0 2 1 0 0 0 0 0 new0 new1");
  EXPECT_EQ(pdu.entityToRemove(1), "new1");
  EXPECT_EQ(pdu.entityToAdd(0), "a0");
  DtGroupVCPdu odd;
  odd.setFromString("0 2 1 x");
  EXPECT_EQ(odd.numEntitiesToRemove(), 2);
  EXPECT_EQ(odd.entityToRemove(0), "0");
  EXPECT_EQ(odd.entityToRemove(1), "2");
  EXPECT_EQ(odd.entityToAdd(0), "1");

  // Long lists are cut at the 400-character buffer.
  DtGroupVCPdu big;
  big.setNumEntitiesToAdd(10);
  for (int i = 0; i < 10; ++i) big.setEntityToAdd(i, std::string(64, static_cast<char>('a' + i)));
  std::string whole = "0 0 10 0.000000 0.000000 0.000000 0.000000 0.000000 ";
  for (int i = 0; i < 10; ++i) whole += " " + std::string(64, static_cast<char>('a' + i));
  EXPECT_EQ(big.string(), whole.substr(0, 399));
}

TEST(Group, Dump) {
  DtGroupVCPdu pdu;
  pdu.setFromString("0 1 2 1 2 3 4 5 gone first second");
  pdu.setGroupCmd(3);
  EXPECT_EQ(bodyDumpOf(pdu), dumpLine("RadOffset", "1.000000") + dumpLine("Heading:", "2.000000") +
                                 dumpLine("Pitch:", "3.000000") + dumpLine("HeadingOff:", "4.000000") +
                                 dumpLine("PitchOff:", "5.000000") + dumpLine("GroupCmd:", "WideGroup (3)") +
                                 dumpLine("NumToRemove:", "1") + dumpLine("", "gone") +
                                 dumpLine("NumToAdd:", "2") + dumpLine("", "first") + dumpLine("", "second"));
}

TEST(Modeless, GoldenImageSharedCacheAndDump) {
  DtModelessVCPdu pdu;
  ASSERT_EQ(pdu.length(), 292);
  pdu.setPrimary("primary");
  pdu.setSecondary("secondary");
  pdu.setNumEntitiesToRemove(1);
  pdu.setNumEntitiesToAdd(2);
  pdu.setEntityToRemove(0, "r");
  pdu.setEntityToAdd(1, "a1");
  ASSERT_EQ(pdu.length(), 292 + 64 * 3);
  EXPECT_EQ(bytesAt(pdu.packet(), 146, 2), bytes({0, 10}));
  EXPECT_EQ(bytesAt(pdu.packet(), 156, 328),
            concat({textField("primary", 64), textField("secondary", 64), bytes({0, 0, 0, 1, 0, 0, 0, 2}),
                    textField("r", 64), Bytes(64, 0), textField("a1", 64)}));

  const DtString& shared = pdu.primary();
  EXPECT_EQ(shared, "primary");
  pdu.entityToAdd(1);
  EXPECT_EQ(shared, "a1");  // primary, secondary and both lists fill one cache
  pdu.secondary();
  EXPECT_EQ(shared, "secondary");

  pdu.setFromString("anything");  // no text form
  EXPECT_STREQ(pdu.string(), "");
  EXPECT_EQ(bodyDumpOf(pdu), dumpLine("Primary:", "primary") + dumpLine("Secondary:", "secondary") +
                                 dumpLine("NumToRemove:", "1") + dumpLine("", "r") +
                                 dumpLine("NumToAdd:", "2") + dumpLine("", "") + dumpLine("", "a1"));
}

// Any sequence of count changes and entry writes, checked against a model of the two lists: remove slots are
// inserted at the front and dropped at the end, add slots grow and shrink at the end, refused counts change
// nothing, and the length is always the list start plus 64 bytes per slot.
template <class T>
void checkAgainstModel(int listStart) {
  std::mt19937 random(2024);
  T pdu;
  std::vector<std::string> removes, adds;
  int storedRemove = 0, storedAdd = 0;
  const auto pick = [&] {
    const int r = static_cast<int>(random() % 100);
    return r < 3 ? INT_MAX - r : r < 6 ? -2 - r : r < 12 ? -1 : r < 14 ? 1000 : r % 25;
  };
  for (int step = 0; step < 3000; ++step) {
    const int op = static_cast<int>(random() % 4);
    if (op < 2) {
      const int n = pick();
      std::vector<std::string> list = op == 0 ? removes : adds;
      const std::size_t wanted = static_cast<std::size_t>(std::max(n, 0));
      const std::size_t other = op == 0 ? adds.size() : removes.size();
      const bool fits = n >= -1 && listStart + 64 * (static_cast<long long>(wanted) + other) <= 65535;
      if (fits && op == 0 && wanted > list.size()) list.insert(list.begin(), wanted - list.size(), "");
      if (fits) list.resize(wanted);
      if (op == 0) {
        pdu.setNumEntitiesToRemove(n);
        if (fits) removes = list, storedRemove = n;
      } else {
        pdu.setNumEntitiesToAdd(n);
        if (fits) adds = list, storedAdd = n;
      }
    } else {
      std::vector<std::string>& list = op == 2 ? removes : adds;
      const int index = static_cast<int>(random() % 30) - 2;
      const std::string id = "e" + std::to_string(step);
      if (op == 2)
        pdu.setEntityToRemove(index, id);
      else
        pdu.setEntityToAdd(index, id);
      if (index >= 0 && index < static_cast<int>(list.size())) list[static_cast<std::size_t>(index)] = id;
    }
    ASSERT_EQ(pdu.length(), listStart + 64 * static_cast<int>(removes.size() + adds.size())) << step;
    ASSERT_EQ(pdu.numEntitiesToRemove(), storedRemove);
    ASSERT_EQ(pdu.numEntitiesToAdd(), storedAdd);
    ASSERT_EQ(pdu.entitiesToRemoveInImage(), static_cast<int>(removes.size()));
    ASSERT_EQ(pdu.entitiesToAddInImage(), static_cast<int>(adds.size()));
    for (std::size_t i = 0; i < removes.size(); ++i)
      ASSERT_EQ(pdu.entityToRemove(static_cast<int>(i)), removes[i]);
    for (std::size_t i = 0; i < adds.size(); ++i) ASSERT_EQ(pdu.entityToAdd(static_cast<int>(i)), adds[i]);
  }
}

TEST(EntityLists, AnySequenceOfCountChangesKeepsLengthAndEntries) {
  checkAgainstModel<DtGroupVCPdu>(188);
  checkAgainstModel<DtModelessVCPdu>(292);
  DtGroupVCPdu pdu;
  pdu.setNumEntitiesToRemove(1);
  pdu.setNumEntitiesToAdd(1);
  pdu.setEntityToRemove(0, "r");
  pdu.setEntityToAdd(0, "a");
  const DtString& shared = pdu.entityToRemove(0);
  pdu.entityToAdd(0);
  EXPECT_EQ(shared, "a");  // both list getters fill one cache
}
