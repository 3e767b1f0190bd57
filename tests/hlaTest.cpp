// The "ViewControl" binding and the connection machinery under it: registration, encoding, decoding of any
// value, the interaction's ownership rules, backend choice and FOM mapping.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <sstream>
#include <string>
#include <typeinfo>

#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtMessage.h"
#include "tarvex/dtParameterSet.h"
#include "testSupport.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/hVistralControlDecoder.h"
#include "vistralcontrol/hVistralControlEncoder.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vistralControlRegister.h"

namespace {
const std::string kNotInFom =
    "Can't add decoders and encoders for interaction class ViewControl: Not in FOM.\n";

// A registered connection of its own execution, and the decoder and handles it uses.
struct Registered {
  explicit Registered(const char* exec) : conn(exec, "unit") {
    DtVistralControlRegister(&conn);
    desc = conn.interClassDescByName("ViewControl");
    desc->findParameter("ViewControlPdu", &pduHandle);
  }
  // Decodes one value of "ViewControlPdu" into a fresh interaction.
  std::unique_ptr<DtVistralControlInteraction> decode(const Bytes& value) {
    DtParameterSet set;
    set.add(pduHandle, reinterpret_cast<const char*>(value.data()), static_cast<RTI::ULong>(value.size()));
    auto inter = std::make_unique<DtVistralControlInteraction>();
    EXPECT_EQ(conn.decoderList().find(desc->handle())->decode(inter.get(), set), 1);
    return inter;
  }
  DtExerciseConn conn;
  DtInterClassDesc* desc = nullptr;
  RTI::ParameterHandle pduHandle = 0;
};
}  // namespace

TEST(ViewControlBinding, RegisterInstallsDecoderEncoderAndFactoryOnlyWhenInFom) {
  Registered ok("BindingRegister");
  const RTI::InteractionClassHandle h = ok.desc->handle();
  EXPECT_NE(dynamic_cast<DtVistralControlDecoder*>(ok.conn.decoderList().find(h)), nullptr);
  EXPECT_NE(dynamic_cast<DtVistralControlEncoder*>(ok.conn.encoderList().find(h)), nullptr);
  EXPECT_EQ(ok.conn.interactionFactory().find("ViewControl"), &DtVistralControlInteraction::create);

  std::ostringstream warnings;
  DtStreamRedirect redirect(DtWarn, warnings);
  DtExerciseConn other("BindingNoFom", "unit", nullptr, VISTRAL_TEST_FED_DIR "/noViewControl.fed");
  DtVistralControlRegister(&other);
  EXPECT_EQ(warnings.str(), kNotInFom);
  EXPECT_EQ(other.decoderList().count(), 0);
  EXPECT_EQ(other.encoderList().count(), 0);
  EXPECT_EQ(other.interactionFactory().count(), 0);
}

TEST(ViewControlBinding, EncodingRoundTripsClassAndBytes) {
  Registered r("BindingRoundTrip");
  DtInteractionEncoder* encoder = r.conn.encoderList().find(r.desc->handle());
  DtParameterSet set;

  DtVistralControlInteraction empty;
  EXPECT_FALSE(DtVistralControlEncoder::encodeViewControlPdu(empty, &set, r.pduHandle));
  EXPECT_EQ(encoder->encode(empty, &set), 0);
  EXPECT_EQ(set.size(), 0u);

  DtAbsoluteVCPdu absolute;
  absolute.setWorldLocation(DtVector64(1.0, -2.0, 3.5));
  absolute.setViewerId("v");
  DtMoveVCPdu move;
  move.setTurn(DtMoveVCPdu::DOWN);
  DtAbsoluteVCPdu status;
  status.setStatusCommand(true);
  DtRequestStateVCPdu request;
  const DtVistralControlPdu* pdus[] = {&absolute, &move, &status, &request};
  for (const DtVistralControlPdu* pdu : pdus) {
    DtVistralControlInteraction inter;
    inter.setVcPdu(*pdu);
    set.empty();
    ASSERT_EQ(encoder->encode(inter, &set), 1);
    ASSERT_EQ(set.size(), 1u);
    EXPECT_EQ(set.getHandle(0), r.pduHandle);
    RTI::ULong length = 0;
    const char* value = set.getValuePointer(0, length);
    ASSERT_EQ(length, static_cast<RTI::ULong>(pdu->length()));
    EXPECT_EQ(std::memcmp(value, pdu->packet(), length), 0);

    auto back = r.decode(Bytes(value, value + length));
    ASSERT_NE(back->vcPdu(), nullptr);
    EXPECT_EQ(typeid(*back->vcPdu()), typeid(*pdu));
    EXPECT_EQ(imageOf(*back->vcPdu()), imageOf(*pdu));
  }
}

TEST(ViewControlBinding, InteractionOwnsACopyReadFromTheImage) {
  DtMoveVCPdu move;
  move.setFromString("1 4 1.5 2 3");
  ASSERT_STRNE(move.string(), "");  // the text buffer now holds the text form
  DtVistralControlInteraction inter;
  inter.setVcPdu(move);
  ASSERT_NE(inter.vcPdu(), nullptr);
  EXPECT_NE(inter.vcPdu(), &move);
  EXPECT_EQ(typeid(*inter.vcPdu()), typeid(DtMoveVCPdu));
  EXPECT_EQ(imageOf(*inter.vcPdu()), imageOf(move));
  EXPECT_STREQ(textBufferOf(*inter.vcPdu()), "");  // bytes are copied, the text buffer is not
  inter.setVcPdu(*inter.vcPdu());                  // from its own PDU: read before the old one goes
  EXPECT_EQ(imageOf(*inter.vcPdu()), imageOf(move));

  DtVistralControlInteraction copy(inter);
  ASSERT_NE(copy.vcPdu(), nullptr);
  EXPECT_NE(copy.vcPdu(), inter.vcPdu());
  EXPECT_EQ(imageOf(*copy.vcPdu()), imageOf(move));

  // Assignment leaves the PDU held before undeleted; it stays valid and is its holder's to free. This test
  // holds it and frees it, so the leak checker sees no leak and a double free would show.
  DtAbsoluteVCPdu absolute;
  DtVistralControlInteraction other;
  other.setVcPdu(absolute);
  const DtVistralControlPdu* first = copy.vcPdu();
  copy = other;
  const DtVistralControlPdu* second = copy.vcPdu();
  copy = other;
  EXPECT_EQ(typeid(*copy.vcPdu()), typeid(DtAbsoluteVCPdu));
  EXPECT_EQ(imageOf(*first), imageOf(move));  // still a live object
  EXPECT_EQ(imageOf(*second), imageOf(absolute));
  delete first;
  delete second;
  copy = copy;  // self-assignment keeps the PDU
  EXPECT_EQ(imageOf(*copy.vcPdu()), imageOf(absolute));
  const DtVistralControlPdu* third = copy.vcPdu();
  copy = DtVistralControlInteraction();  // a source without a PDU leaves none
  EXPECT_EQ(copy.vcPdu(), nullptr);
  delete third;
}

TEST(ViewControlBinding, CodersNeedAClassDescription) {
  std::ostringstream warnings;
  DtStreamRedirect redirect(DtWarn, warnings);
  DtVistralControlInteraction inter;
  EXPECT_EQ(inter.createDecoder(nullptr), nullptr);
  EXPECT_EQ(inter.createEncoder(nullptr), nullptr);
  EXPECT_EQ(warnings.str(),
            "Cannot add decoder for FOM class ViewControl\nCannot add encoder for FOM class ViewControl\n");
  EXPECT_EQ(inter.name(), std::string("DtVistralControlInteraction"));
  EXPECT_EQ(inter.interactionClassToUse(nullptr), std::string("ViewControl"));

  Registered r("BindingCoders");
  inter.setClassDesc(r.desc);
  std::unique_ptr<DtInteractionDecoder> decoder(inter.createDecoder(&r.conn));
  std::unique_ptr<DtInteractionEncoder> encoder(inter.createEncoder(&r.conn));
  ASSERT_NE(decoder, nullptr);
  EXPECT_EQ(decoder->parameterDecoderCount(), 1);
  EXPECT_EQ(encoder->parameterEncoderCount(), 1);
}

TEST(ViewControlBinding, AnyReceivedValueIsSafe) {
  Registered r("BindingHostile");
  DtAbsoluteVCPdu absolute;
  absolute.setWorldLocation(DtVector64(7.0, 8.0, 9.0));
  const Bytes good = imageOf(absolute);

  // A long value of 0xFF bytes, then a short one whose header claims the full length: the bytes past the
  // short value read as zero, not as what the long one left in the buffer.
  const Bytes ones(3000, 0xFF);
  EXPECT_EQ(r.decode(ones)->vcPdu(), nullptr);  // kind 255 is not a control PDU
  Bytes cut(good.begin(), good.begin() + 150);
  auto shortOne = r.decode(cut);
  ASSERT_NE(shortOne->vcPdu(), nullptr);
  EXPECT_EQ(shortOne->vcPdu()->length(), 196);
  EXPECT_EQ(bytesAt(shortOne->vcPdu()->packet(), 0, 150), cut);
  EXPECT_EQ(bytesAt(shortOne->vcPdu()->packet(), 150, 46), Bytes(46, 0));

  // Values long enough to be read where they lie still never lend the PDU bytes beyond their own: here a
  // value cut short of its header's length, followed in the set by another parameter's bytes.
  DtParameterSet twoValues;
  twoValues.add(r.pduHandle, reinterpret_cast<const char*>(good.data()), 180);
  twoValues.add(r.pduHandle + 1, reinterpret_cast<const char*>(ones.data()), 64);
  DtVistralControlInteraction inPlace;
  r.conn.decoderList().find(r.desc->handle())->decode(&inPlace, twoValues);
  ASSERT_NE(inPlace.vcPdu(), nullptr);
  EXPECT_EQ(bytesAt(inPlace.vcPdu()->packet(), 0, 180), bytesAt(good.data(), 0, 180));
  EXPECT_EQ(bytesAt(inPlace.vcPdu()->packet(), 180, 16), Bytes(16, 0));

  Bytes otherKind = good;
  otherKind[2] = 201;
  EXPECT_EQ(r.decode(otherKind)->vcPdu(), nullptr);
  EXPECT_EQ(r.decode(Bytes())->vcPdu(), nullptr);
  Bytes huge = good;
  huge[8] = 0xFF;  // claims 65535 bytes
  huge[9] = 0xFF;
  auto claimed = r.decode(huge);
  ASSERT_NE(claimed->vcPdu(), nullptr);
  EXPECT_EQ(claimed->vcPdu()->length(), 65535);
  EXPECT_EQ(claimed->vcPdu()->u8At(65534), 0);
  Bytes oversized(70000, 0);
  std::copy(good.begin(), good.end(), oversized.begin());
  EXPECT_EQ(imageOf(*r.decode(oversized)->vcPdu()), good);

  // A PDU whose length field claims more than it holds is copied by its bytes, zeros after them.
  DtAbsoluteVCPdu lying(absolute);
  lying.setU16At(8, 60000);
  DtVistralControlInteraction copy;
  copy.setVcPdu(lying);
  ASSERT_EQ(copy.vcPdu()->length(), 60000);
  EXPECT_EQ(bytesAt(copy.vcPdu()->packet(), 12, 184), bytesAt(good.data(), 12, 184));
  EXPECT_EQ(copy.vcPdu()->u8At(59999), 0);
  // And one that claims less: nothing past its stated length decides the class, so a current-layout draw
  // image cut before its version word is read as version 0.
  DtVdcCommandPdu command;
  command.setU16At(8, 156);
  copy.setVcPdu(command);
  EXPECT_EQ(typeid(*copy.vcPdu()), typeid(DtVdcCommandPduV0));
}

TEST(ExerciseConn, ClassLookupsFollowTheTextAskedFor) {
  DtExerciseConn conn("Lookups", "unit");
  DtInterClassDesc* viewControl = conn.interClassDescByName("ViewControl");
  DtInterClassDesc* root = conn.interClassDescByName("InteractionRoot");
  ASSERT_NE(viewControl, nullptr);
  ASSERT_NE(root, nullptr);
  // The same buffer with other text: a longer name, a prefix, then the name again.
  char name[32] = "ViewControlX";
  EXPECT_EQ(conn.interClassDescByName(name), nullptr);
  std::strcpy(name, "View");
  EXPECT_EQ(conn.interClassDescByName(name), nullptr);
  std::strcpy(name, "ViewControl");
  EXPECT_EQ(conn.interClassDescByName(name), viewControl);
  for (int i = 0; i < 40; ++i)  // more names than are remembered
    EXPECT_EQ(conn.interClassDescByName(("Missing" + std::to_string(i)).c_str()), nullptr);
  EXPECT_EQ(conn.interClassDescByName("InteractionRoot.ViewControl"), viewControl);
  EXPECT_EQ(conn.interClassDescByName("InteractionRoot"), root);
  // By handle, alternating between classes and past the last one.
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(conn.interClassDescByHandle(viewControl->handle()), viewControl);
    EXPECT_EQ(conn.interClassDescByHandle(root->handle()), root);
  }
  EXPECT_EQ(conn.interClassDescByHandle(viewControl->handle() + 1000), nullptr);
}

TEST(ExerciseConn, BackendChoiceAndFomMapping) {
  const char* const builtInFom = nullptr;
  EXPECT_THROW(DtExerciseConn("Exec", "f", builtInFom, "pigeon", nullptr), DtException);
  int ambassador = 0;
  EXPECT_THROW(DtExerciseConn("Exec", "f", builtInFom, "inprocess", &ambassador), DtException);
  EXPECT_THROW(DtExerciseConn("", "f"), DtException);
  if (!DtExerciseConn::rtiBackendBuiltIn()) {
    const std::string noRti = thrown([] { DtExerciseConn("rti://127.0.0.1:1/Exec", "f"); });
    EXPECT_NE(noRti.find("-DVISTRAL_RTI13_ROOT"), std::string::npos) << noRti;
    EXPECT_THROW(DtExerciseConn("Exec", "f", builtInFom, "rti13", nullptr), DtException);
  }
  EXPECT_STREQ(DtExerciseConn("thread:///Exec", "f", builtInFom, "inprocess", nullptr).backendName(),
               "inprocess");

  // A FOM that names the class and its parameter differently, through the mapper.
  DtFomMapper mapper;
  mapper.mapInteractionClass("ViewControl", "ViewerCommand");
  mapper.mapParameter("ViewerCommand", "ViewControlPdu", "Image");
  DtExerciseConn sender("Mapped", "sender", &mapper, VISTRAL_TEST_FED_DIR "/renamed.fed");
  DtExerciseConn receiver("Mapped", "receiver", &mapper, VISTRAL_TEST_FED_DIR "/renamed.fed");
  DtInterClassDesc* desc = sender.interClassDescByName("ViewControl");
  ASSERT_NE(desc, nullptr);
  EXPECT_EQ(desc->fullName(), "InteractionRoot.Tools.ViewerCommand");
  EXPECT_EQ(desc->parameterCount(), 2);  // Origin, inherited, and Image
  EXPECT_EQ(sender.interClassDescByName("InteractionRoot.Tools.ViewerCommand"), desc);
  DtVistralControlRegister(&sender);
  DtVistralControlRegister(&receiver);
  Bytes got;
  auto keep = [](DtVistralControlInteraction* inter, void* usr) {
    *static_cast<Bytes*>(usr) = imageOf(*inter->vcPdu());
  };
  DtVistralControlInteraction::addCallback(&receiver, keep, &got);
  DtMoveVCPdu move;
  move.setMove(DtMoveVCPdu::UP);
  DtVistralControlInteraction inter;
  inter.setVcPdu(move);
  ASSERT_TRUE(sender.sendInteraction(inter));
  EXPECT_EQ(receiver.processIncoming(), 1);
  EXPECT_EQ(got, imageOf(move));
  DtVistralControlInteraction::removeCallback(&receiver, keep, &got);
}

TEST(ExerciseConn, CodersAreMadeOnFirstUseWithoutRegistration) {
  DtExerciseConn sender("Unregistered", "sender");
  DtExerciseConn receiver("Unregistered", "receiver");
  int calls = 0;
  auto count = [](DtVistralControlInteraction* inter, void* usr) {
    ++*static_cast<int*>(usr);
    EXPECT_EQ(typeid(*inter->vcPdu()), typeid(DtRequestStateVCPdu));
  };
  DtVistralControlInteraction::addCallback(&receiver, count, &calls);
  DtVistralControlInteraction::addCallback(&receiver, count, &calls);  // called twice
  DtVistralControlInteraction inter;
  inter.setVcPdu(DtRequestStateVCPdu());
  ASSERT_TRUE(sender.sendInteraction(inter));
  EXPECT_EQ(sender.encoderList().count(), 1);
  EXPECT_EQ(receiver.pendingIncoming(), 1u);
  EXPECT_EQ(sender.processIncoming(), 0);  // never back to the sender
  EXPECT_EQ(receiver.processIncoming(), 1);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(receiver.decoderList().count(), 1);
  DtVistralControlInteraction::removeCallback(&receiver, count, &calls);
  DtVistralControlInteraction::removeCallback(&receiver, count, &calls);
  ASSERT_TRUE(sender.sendInteraction(inter));
  EXPECT_EQ(receiver.pendingIncoming(), 0u);            // no callback, no subscription
  EXPECT_EQ(receiver.interactionFactory().count(), 1);  // the factory entry stays
}

TEST(ExerciseConn, ParameterSetKeepsOneValuePerHandle) {
  DtParameterSet set;
  set.add(7, "abc", 3);
  set.add(9, "xy", 2);
  set.add(7, "defg", 4);  // replaces
  ASSERT_EQ(set.size(), 2u);
  const auto value = [&set](RTI::ULong i) {
    RTI::ULong length = 0;
    const char* p = set.getValuePointer(i, length);
    return std::string(p, length);
  };
  EXPECT_EQ(value(0), "defg");
  RTI::ULong index = 1;
  set.moveFrom(set, index);  // its own value, re-added while the storage may move
  EXPECT_EQ(index, 2u);
  EXPECT_EQ(value(1), "xy");
  EXPECT_THROW(set.getValueLength(2), RTI::ArrayIndexOutOfBounds);
  set.empty();
  EXPECT_EQ(set.size(), 0u);
  EXPECT_GE(set.byteCapacity(), 9u);  // emptied, not released
}
