// Heavy traffic through the in-process federation: everything arrives, in order, the queues give their memory
// back once processed, and a message costs only the heap allocations the interfaces force.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

#include "allocationCounter.h"
#include "tarvex/dtExerciseConn.h"
#include "testSupport.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralDrawControlPdu.h"

namespace {
// Each PDU carries its sequence number in the ignore flags.
struct Sequence {
  std::uint32_t next = 0;
  std::uint32_t outOfOrder = 0;
  static void received(DtVistralControlInteraction* inter, void* usr) {
    auto* self = static_cast<Sequence*>(usr);
    const DtVistralControlPdu* pdu = inter->vcPdu();
    const bool inOrder = pdu != nullptr && pdu->length() == 196 &&
                         static_cast<std::uint32_t>(pdu->ignoreFlags()) == self->next;
    if (!inOrder) ++self->outOfOrder;
    ++self->next;
  }
};

struct Pair {
  Pair() : sender("Load", "sender"), receiver("Load", "receiver") {
    DtVistralControlRegister(&sender);
    DtVistralControlRegister(&receiver);
    DtVistralControlInteraction::addCallback(&receiver, &Sequence::received, &sequence);
    pdu.setWorldLocation(DtVector64(1.0, 2.0, 3.0));
  }
  bool send(std::uint32_t n) {
    pdu.setIgnoreFlags(n);
    DtVistralControlInteraction inter;
    inter.setVcPdu(pdu);
    return sender.sendInteraction(inter);
  }
  DtExerciseConn sender;
  DtExerciseConn receiver;
  Sequence sequence;
  DtAbsoluteVCPdu pdu;
};

// What the receive queue may keep between batches.
constexpr std::size_t kRetainedLimit = 512 * 1024;
}  // namespace

TEST(FederationLoad, HundredThousandArriveInOrderAndTheQueueGivesItsMemoryBack) {
  Pair p;
  constexpr std::uint32_t kCount = 100000;
  for (int round = 0; round < 2; ++round) {
    for (std::uint32_t i = 0; i < kCount; ++i) ASSERT_TRUE(p.send(round * kCount + i));
    EXPECT_EQ(p.receiver.pendingIncoming(), kCount);
    EXPECT_GT(p.receiver.retainedIncomingBytes(), kCount * 196u);
    EXPECT_EQ(p.receiver.processIncoming(), static_cast<int>(kCount));
    EXPECT_EQ(p.sequence.next, (round + 1) * kCount);
    EXPECT_EQ(p.sequence.outOfOrder, 0u);
    EXPECT_EQ(p.receiver.pendingIncoming(), 0u);
    EXPECT_LE(p.receiver.retainedIncomingBytes(), kRetainedLimit);
    EXPECT_EQ(p.sender.processIncoming(), 0);
  }
}

TEST(FederationLoad, SteadyTrafficAllocatesOnlyWhatTheInterfacesForce) {
  Pair p;
  for (std::uint32_t i = 0; i < 100; ++i) {  // queues and buffers grow to the traffic
    ASSERT_TRUE(p.send(i));
    ASSERT_EQ(p.receiver.processIncoming(), 1);
  }
  const std::size_t retained = p.receiver.retainedIncomingBytes();
  constexpr std::uint32_t kCount = 10000;
  const std::uint64_t before = bench::allocationCount();
  for (std::uint32_t i = 100; i < 100 + kCount; ++i) {
    p.send(i);
    p.receiver.processIncoming();
  }
  const std::uint64_t allocations = bench::allocationCount() - before;
  // Per message: the sent interaction's copy of the PDU, and the received interaction and its PDU, which
  // the interaction factory and the PDU creation return as new objects.
  EXPECT_EQ(allocations, 3u * kCount);
  EXPECT_EQ(p.receiver.retainedIncomingBytes(), retained);
  EXPECT_EQ(p.sequence.next, 100 + kCount);
  EXPECT_EQ(p.sequence.outOfOrder, 0u);
}

// Every control PDU class keeps its image inside the object: building one new, or reading one back from its
// image, allocates the object and nothing more.
TEST(FederationLoad, EveryControlPduKeepsItsImageInsideItself) {
  int classes = 0;
  for (int command = 0; command < 3000; ++command) {
    for (auto make : {&DtNewViewControlPdu, &DtNewDrawControlPdu, &DtNewDrawControlPduV0}) {
      std::uint64_t before = bench::allocationCount();
      const std::unique_ptr<DtVistralControlPdu> pdu(make(static_cast<DtViewerCommand>(command)));
      if (pdu == nullptr) continue;
      ++classes;
      EXPECT_EQ(bench::allocationCount() - before, 1u)
          << "built: command " << command << ", " << pdu->length();
      before = bench::allocationCount();
      const std::unique_ptr<DtPdu> copy(DtVistralControlPdu::create(
          reinterpret_cast<const DtNetPduHeader*>(pdu->packet()), nullptr, nullptr));
      EXPECT_EQ(bench::allocationCount() - before, 1u)
          << "read: command " << command << ", " << pdu->length();
    }
  }
  EXPECT_GE(classes, 30);
}

// An interaction given PDU after PDU of one class rebuilds its own where it lies; another class, or the one
// the command selects, takes a new PDU; an image inside the held PDU is read before that PDU goes.
TEST(FederationLoad, AnInteractionRebuildsItsPduInPlaceForTheSameClass) {
  DtVistralControlInteraction inter;
  DtOrbitVCPdu first;
  first.setRadius(10);
  inter.setVcPdu(first);
  DtOrbitVCPdu second;
  second.setRadius(20);
  second.setStatusCommand(true);
  std::uint64_t before = bench::allocationCount();
  inter.setVcPdu(second);
  EXPECT_EQ(bench::allocationCount() - before, 0u);
  const auto* held = dynamic_cast<const DtOrbitVCPdu*>(inter.vcPdu());
  ASSERT_NE(held, nullptr);
  EXPECT_EQ(Bytes(held->packet(), held->packet() + held->length()),
            Bytes(second.packet(), second.packet() + second.length()));
  EXPECT_EQ(held->radius(), 20.0f);
  EXPECT_TRUE(held->statusCommand());

  second.setViewerCommand(DtVcTrack);  // an orbit object whose command selects the track class
  before = bench::allocationCount();
  inter.setVcPdu(second);
  EXPECT_EQ(bench::allocationCount() - before, 1u);
  EXPECT_NE(dynamic_cast<const DtTrackVCPdu*>(inter.vcPdu()), nullptr);

  inter.setVcPdu(*inter.vcPdu());
  inter.setFromNetPacket(reinterpret_cast<const DtNetPduHeader*>(inter.vcPdu()->packet()));
  ASSERT_NE(dynamic_cast<const DtTrackVCPdu*>(inter.vcPdu()), nullptr);
  EXPECT_EQ(inter.vcPdu()->viewerCommand(), DtVcTrack);
  inter.setFromNetPacket(nullptr);
  EXPECT_EQ(inter.vcPdu(), nullptr);
}
