#include "loadStream.h"

#include <algorithm>
#include <cstring>

#include "tarvex/dtPdu.h"
#include "tarvex/dtVector.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/compassVcPdu.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/mimicVcPdu.h"
#include "vistralcontrol/modelessVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/pivotVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vdcTrianglePdu.h"
#include "vistralcontrol/vistralDrawControlPdu.h"

namespace {
// Of a hundred PDUs, how many are view commands (the rest draw).
constexpr unsigned kViewPercent = 35;
// Entities the view commands name: few, so that a viewed group stays small.
constexpr unsigned kEntities = 24;
// Attribute ids inside a panel.
constexpr unsigned kAttributeIds = 12;
// The draw-object types to ask the library for: from the undefined type to past the layer.
constexpr int kFirstDrawType = DtVdcUndefined;
constexpr int kLastDrawType = DtVdcLayer + 9;

void setHeaderLength(std::vector<unsigned char>& image, std::size_t length) {
  image[DtPdu::kLengthOffset] = static_cast<unsigned char>(length >> 8);
  image[DtPdu::kLengthOffset + 1] = static_cast<unsigned char>(length);
}

// Where the control PDU's fixed part ends: damage past it leaves the addressing and the command alone.
constexpr std::size_t kFixedPart = 156;
}  // namespace

const char* DtLoadDamageName(DtLoadDamage damage) {
  switch (damage) {
    case DtLoadDamage::intact:
      return "intact";
    case DtLoadDamage::badLength:
      return "badLength";
    case DtLoadDamage::truncated:
      return "truncated";
    case DtLoadDamage::badCounts:
      return "badCounts";
    case DtLoadDamage::unterminated:
      return "unterminated";
    case DtLoadDamage::unknownCommand:
      return "unknownCommand";
    case DtLoadDamage::flippedBytes:
      return "flippedBytes";
  }
  return "?";
}

bool DtLoadPdu::intactFrame() const {
  if (size < static_cast<std::size_t>(DtPdu::kHeaderSize)) return false;
  return static_cast<std::size_t>(bytes[DtPdu::kLengthOffset] << 8 | bytes[DtPdu::kLengthOffset + 1]) == size;
}

DtLoadStream::DtLoadStream(std::uint64_t seed, const DtString& viewerId, const DtString& senderId,
                           unsigned objectIds, unsigned hostileEvery)
    : random_(seed),
      viewerId_(viewerId),
      senderId_(senderId),
      objectIds_(std::max(1U, objectIds)),
      hostileEvery_(hostileEvery),
      options_(DtNewViewControlPdu(DtVcOptions)),
      request_(DtNewViewControlPdu(DtVcRequestState)) {
  for (int command = DtVcAbsolute; command <= DtVcRequestState; ++command) {
    if (command == DtVcOptions) continue;  // made afresh each time: its options accumulate
    std::unique_ptr<DtVistralControlPdu> pdu(DtNewVistralControlPdu(static_cast<DtViewerCommand>(command)));
    // The library builds no modeless PDU by number; applications construct it.
    if (!pdu && command == DtVcModeless) pdu = std::make_unique<DtModelessVCPdu>();
    if (pdu) prototypes_.push_back({std::move(pdu), true});
  }
  prototypes_.push_back({nullptr, true});
  for (int type = kFirstDrawType; type <= kLastDrawType; ++type) {
    for (auto make : {&DtNewDrawControlPdu, &DtNewDrawControlPduV0}) {
      if (DtVistralControlPdu* pdu = make(static_cast<DtViewerCommand>(type)))
        prototypes_.push_back({std::unique_ptr<DtVistralControlPdu>(pdu), false});
    }
  }
  request_->setViewerId(viewerId_);
  request_->setSenderId(senderId_);
  image_.reserve(DtPdu::kMaxLength);
}

DtLoadStream::~DtLoadStream() = default;

DtLoadPdu DtLoadStream::stateRequest() { return emit(*request_); }

DtLoadPdu DtLoadStream::next() {
  const auto views = static_cast<std::size_t>(
      std::count_if(prototypes_.begin(), prototypes_.end(), [](const Prototype& p) { return p.view; }));
  const std::size_t at = below(100) < kViewPercent
                             ? below(static_cast<unsigned>(views))
                             : views + below(static_cast<unsigned>(prototypes_.size() - views));
  Prototype& chosen = prototypes_[at];
  if (!chosen.pdu) {
    options_.reset(DtNewViewControlPdu(DtVcOptions));
    fillOptions();
  }
  DtVistralControlPdu& pdu = chosen.pdu ? *chosen.pdu : *options_;
  fill(pdu);
  const bool hostile = hostileEvery_ > 0 && below(hostileEvery_) == 0;
  if (!hostile) return emit(pdu);
  const DtViewerCommand command = pdu.viewerCommand();
  const DtLoadDamage how = damage(pdu);
  pdu.setViewerCommand(command);  // the prototype serves again
  return {image_.data(), image_.size(), how, command};
}

DtLoadPdu DtLoadStream::emit(const DtVistralControlPdu& pdu) {
  return {pdu.packet(), static_cast<std::size_t>(pdu.length()), DtLoadDamage::intact, pdu.viewerCommand()};
}

double DtLoadStream::real(double bound) {
  return std::uniform_real_distribution<double>(-bound, bound)(random_);
}

DtString DtLoadStream::entity() { return DtString(("1:3001:" + std::to_string(below(kEntities))).c_str()); }

std::string DtLoadStream::text(std::size_t longest) {
  std::string out(below(static_cast<unsigned>(longest)) + 1, ' ');
  for (char& c : out) c = static_cast<char>('a' + below(26));
  return out;
}

void DtLoadStream::fill(DtVistralControlPdu& pdu) {
  pdu.setSenderId(senderId_);
  if (dynamic_cast<DtVistralDrawControlPdu*>(&pdu) != nullptr) {
    pdu.setViewerId(viewerId_);
    fillDraw(pdu);
    return;
  }
  // Mostly this viewer; some for every viewer, some for another one (which this viewer ignores).
  const unsigned to = below(20);
  pdu.setViewerId(to < 17 ? viewerId_ : to < 19 ? DtString("0:0:0") : DtString("vistral-2"));
  fillView(pdu);
}

namespace {
template <class P>
void attach(P& p, const DtString& id, const DtString& marking) {
  p.setAttachId(id);
  p.setMarkingText(marking);
}

template <class P>
void twoEntities(P& p, const DtString& attach, const DtString& track, const DtString& a, const DtString& t) {
  p.setAttachId(attach);
  p.setTrackId(track);
  p.setAttachMarkingText(a);
  p.setTrackMarkingText(t);
}

template <class P>
void lists(P& p, DtLoadStream* stream, unsigned removes, unsigned adds, DtString (DtLoadStream::*name)()) {
  p.setNumEntitiesToRemove(static_cast<int>(removes));
  p.setNumEntitiesToAdd(static_cast<int>(adds));
  for (unsigned i = 0; i < removes; ++i) p.setEntityToRemove(static_cast<int>(i), (stream->*name)());
  for (unsigned i = 0; i < adds; ++i) p.setEntityToAdd(static_cast<int>(i), (stream->*name)());
}
}  // namespace

void DtLoadStream::fillView(DtVistralControlPdu& pdu) {
  pdu.setIgnoreFlags(static_cast<unsigned long>(random_() & random_() & 0xFFFFFFFFULL));
  const auto vec = [this] { return DtVector64(real(1e5), real(1e5), real(1e4)); };
  const auto angles = [this] { return DtTaitBryan(real(3.2), real(1.6), real(3.2)); };
  const auto num = [this] { return static_cast<float>(real(1e3)); };
  const DtString marking(text(20).c_str());
  if (auto* p = dynamic_cast<DtAbsoluteVCPdu*>(&pdu)) {
    p->setWorldLocation(vec());
    p->setOrientation(angles());
    return;
  }
  if (auto* p = dynamic_cast<DtTetherVCPdu*>(&pdu)) {
    attach(*p, entity(), marking);
    p->setTopoUpOffset(vec());
    p->setOrientation(angles());
    return;
  }
  if (auto* p = dynamic_cast<DtCompassVCPdu*>(&pdu)) {
    attach(*p, entity(), marking);
    p->setRadius(num());
    p->setBodyHeading(num());
    p->setPitch(num());
    p->setHeadingOffset(num());
    p->setPitchOffset(num());
    p->setRoll(num());
    return;
  }
  if (auto* p = dynamic_cast<DtMimicVCPdu*>(&pdu)) {  // and the offset mimic
    attach(*p, entity(), marking);
    p->setOffset(vec());
    p->setBodyOrientation(angles());
    return;
  }
  if (auto* p = dynamic_cast<DtOrbitVCPdu*>(&pdu)) {
    attach(*p, entity(), marking);
    p->setRadius(num());
    p->setAzimuthRate(num());
    p->setHeading(num());
    p->setPitch(num());
    p->setHeadingOffset(num());
    p->setPitchOffset(num());
    p->setRoll(num());
    return;
  }
  if (auto* p = dynamic_cast<DtTrackVCPdu*>(&pdu)) {
    p->setTrackId(entity());
    p->setMarkingText(marking);
    p->setWorldLocation(vec());
    return;
  }
  if (auto* p = dynamic_cast<DtTetherTrackVCPdu*>(&pdu)) {
    twoEntities(*p, entity(), entity(), marking, DtString(text(20).c_str()));
    p->setOffset(vec());
    return;
  }
  if (auto* p = dynamic_cast<DtMimicTrackVCPdu*>(&pdu)) {
    twoEntities(*p, entity(), entity(), marking, DtString(text(20).c_str()));
    p->setOffset(vec());
    return;
  }
  if (auto* p = dynamic_cast<DtGroupVCPdu*>(&pdu)) {
    p->setRadialOffset(num());
    p->setHeading(num());
    p->setPitch(num());
    p->setHeadingOffset(num());
    p->setPitchOffset(num());
    p->setGroupCmd(static_cast<int>(below(4)));
    lists(*p, this, below(4), below(6), &DtLoadStream::entity);
    return;
  }
  if (auto* p = dynamic_cast<DtModelessVCPdu*>(&pdu)) {
    p->setPrimary(entity());
    p->setSecondary(entity());
    lists(*p, this, below(4), below(6), &DtLoadStream::entity);
    return;
  }
  if (auto* p = dynamic_cast<DtPivotVCPdu*>(&pdu)) {
    p->setRadius(num());
    p->setBodyHeading(num());
    p->setPitch(num());
    p->setHeadingOffset(num());
    p->setPitchOffset(num());
    p->setRoll(num());
    p->setPivotPoint(vec());
    return;
  }
  if (auto* p = dynamic_cast<DtMoveVCPdu*>(&pdu)) {
    p->setTurn(static_cast<DtMoveVCPdu::Direction>(below(6)));
    p->setMove(static_cast<DtMoveVCPdu::Direction>(below(6)));
    p->setPosition(vec());
    p->setOrientation(angles());
    p->setReset(below(8) == 0);
  }
}

void DtLoadStream::fillOptions() {
  auto& o = static_cast<DtOptionsPdu&>(*options_);
  // A few options each time, as an application changes them.
  for (unsigned n = 1 + below(5); n > 0; --n) {
    switch (below(10)) {
      case 0:
        o.setLocatorRange(real(1e4));
        break;
      case 1:
        o.setSound(below(2) == 1);
        break;
      case 2:
        o.setFog(below(2) == 1);
        o.setNearFog(real(1e3));
        o.setFarFog(real(1e4));
        break;
      case 3:
        o.setNearClip(real(10));
        o.setFarClip(real(1e5));
        break;
      case 4:
        o.setTimeOfDay(real(24));
        break;
      case 5:
        o.setFov(real(120));
        break;
      case 6:
        o.setDatabaseToLoad(DtString(text(30).c_str()));
        break;
      case 7:
        o.setAggregateLevel(below(8));
        break;
      case 8:
        o.setVideoCaptureFilename(DtString(text(40).c_str()));
        o.setVideoCaptureFramesPerSecond(static_cast<int>(below(60)));
        break;
      default:
        o.setStepsize(static_cast<float>(real(100)));
        o.setTurnrate(static_cast<float>(real(10)));
        break;
    }
  }
}

void DtLoadStream::fillDraw(DtVistralControlPdu& pdu) {
  auto& draw = static_cast<DtVistralDrawControlPdu&>(pdu);
  const auto id = [this] { return 1 + below(objectIds_); };
  const auto vec = [this] { return DtVector64(real(1e4), real(1e4), real(1e3)); };
  const int type = static_cast<int>(draw.type());
  const bool attributeDef = type >= DtVdcAttributeNoValue && type <= DtVdcAttributeBitmap;
  draw.setObjectId(attributeDef ? 1 + below(kAttributeIds) : id());
  if (auto* p = dynamic_cast<DtVdcAttachablePdu*>(&pdu)) {
    const DtNetU32 object(id());
    switch (below(9)) {
      case 0:
        p->attachTo(vec());
        break;
      case 1:
        p->attachTo(entity());
        break;
      case 2:
        p->attachTo(object);
        break;
      case 3:
        p->attachTo(vec(), vec());
        break;
      case 4:
        p->attachTo(entity(), object);
        break;
      case 5:
        p->attachTo(object, entity());
        break;
      case 6:
        p->attachTo(entity(), entity());
        break;
      case 7:
        p->attachTo(object, DtNetU32(id()));
        break;
      default:
        p->attachTo(vec(), entity());
        break;
    }
    for (int end = 0; end < 2; ++end) p->setRelativeLocation(static_cast<unsigned char>(below(101)), end);
    p->setOffset(vec());
    unsigned char rgba[4] = {static_cast<unsigned char>(below(256)), static_cast<unsigned char>(below(256)),
                             static_cast<unsigned char>(below(256)), static_cast<unsigned char>(below(256))};
    p->setColor(rgba);
    p->setFlashing(below(4) == 0);
  }
  if (auto* p = dynamic_cast<DtVdcLinePdu*>(&pdu)) {
    const unsigned segments = 1 + below(6);
    p->setNumSegments(static_cast<unsigned char>(segments));
    for (unsigned s = 0; s < segments; ++s) {
      unsigned char rgba[4] = {static_cast<unsigned char>(below(256)), 0,
                               static_cast<unsigned char>(below(256)), 255};
      p->setColor(s, rgba);
      p->setPattern(s, static_cast<DtNetU32>(random_()));
      p->setThickness(s, static_cast<unsigned char>(1 + below(8)));
      p->setArrowStyle(s, static_cast<DtVdcLinePdu::DtVdcLineArrowStyle>(below(4)));
      p->setPercentage(s, static_cast<unsigned char>(100 / segments));
    }
    p->setCheckLos(below(2) == 1);
    p->setProjected(below(2) == 1);
    return;
  }
  if (auto* p = dynamic_cast<DtVdcPolyObjectPduBase*>(&pdu)) {
    p->setFill(below(2) == 1);
    p->setPattern(static_cast<DtNetU32>(random_()));
    p->setScale(DtVector64(real(100), real(100), real(100)));
    p->setRotation(DtTaitBryan(real(3.2), real(1.6), real(3.2)));
    if (auto* t = dynamic_cast<DtVdcTrianglePduBase*>(&pdu))
      for (int i = 0; i < 3; ++i) t->setPoint(i, vec());
    if (auto* a = dynamic_cast<DtVdcAreaPduBase*>(&pdu)) {
      const int points = static_cast<int>(3 + below(14));
      a->setNumPoints(points);
      for (int i = 0; i < points; ++i) a->setPoint(i, vec());
      a->setTextureDirectory(DtString(text(20).c_str()));
      a->setTextureFilename(DtString(text(20).c_str()));
      a->setNumTextureTiles(static_cast<int>(below(9)));
    }
    return;
  }
  if (auto* p = dynamic_cast<DtVdcTextPduBase*>(&pdu)) {
    p->setText(DtString(text(80).c_str()));
    return;
  }
  if (auto* p = dynamic_cast<DtVdcAttributePduBase*>(&pdu)) {
    p->setAttributeGroupId(id());
    p->setName(DtString(text(24).c_str()));
    p->setRange(real(100), real(1000));
    return;
  }
  if (auto* p = dynamic_cast<DtVdcLayerPduBase*>(&pdu)) {
    p->setName(DtString(text(24).c_str()));
    return;
  }
  if (auto* p = dynamic_cast<DtVdcCommandPduBase*>(&pdu)) {
    p->setLayerId(id());
    return;
  }
  if (auto* p = dynamic_cast<DtVdcAttributeUpdatePduBase*>(&pdu)) {
    draw.setObjectId(1 + below(kAttributeIds));
    p->setGroupId(id());
    p->setValueX(real(1000));
    p->setValueY(real(1000));
    p->setText(DtString(text(30).c_str()));
  }
}

DtLoadDamage DtLoadStream::damage(DtVistralControlPdu& pdu) {
  auto how = static_cast<DtLoadDamage>(1 + below(6));
  if (how == DtLoadDamage::unterminated && static_cast<std::size_t>(pdu.length()) <= kFixedPart)
    how = DtLoadDamage::flippedBytes;
  if (how == DtLoadDamage::unknownCommand) {
    // A command number the library has no class for.
    for (;;) {
      const auto command =
          static_cast<DtViewerCommand>(below(2) == 0 ? 15 + below(485) : 2600 + below(60000));
      if (!std::unique_ptr<DtVistralControlPdu>(DtNewVistralControlPdu(command))) {
        pdu.setViewerCommand(command);
        break;
      }
    }
  }
  image_.assign(pdu.packet(), pdu.packet() + pdu.length());
  const std::size_t size = image_.size();
  switch (how) {
    case DtLoadDamage::badLength: {
      std::size_t stated = below(2) == 0 ? size + 1 + below(200) : below(static_cast<unsigned>(size));
      setHeaderLength(image_, stated);
      break;
    }
    case DtLoadDamage::truncated:
      image_.resize(1 + below(static_cast<unsigned>(size - 1)));
      break;
    case DtLoadDamage::badCounts: {
      // The image ends before what its class and its counts (of entities, segments, points) call for, and
      // its header says so.
      const std::size_t cut =
          std::max<std::size_t>(kFixedPart, size / 2) + below(static_cast<unsigned>(size / 2));
      image_.resize(std::min(cut, size - 1));
      setHeaderLength(image_, image_.size());
      break;
    }
    case DtLoadDamage::unterminated: {
      const std::size_t n = 1 + below(static_cast<unsigned>(std::min<std::size_t>(64, size - kFixedPart)));
      for (std::size_t i = size - n; i < size; ++i) image_[i] = static_cast<unsigned char>('A' + i % 26);
      break;
    }
    case DtLoadDamage::flippedBytes:
      for (unsigned n = 1 + below(4); n > 0; --n)
        image_[DtPdu::kHeaderSize + below(static_cast<unsigned>(size - DtPdu::kHeaderSize))] ^=
            static_cast<unsigned char>(1 + below(255));
      break;
    default:
      break;
  }
  return how;
}
