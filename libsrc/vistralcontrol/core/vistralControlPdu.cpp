#include "vistralcontrol/vistralControlPdu.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>
#include <typeinfo>

#include "tarvex/dtDump.h"
#include "tarvex/dtMessage.h"
#include "vcCreate.h"
#include "vcLayout.h"
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

using VcLayout::Fixed;

// The received-image record and the classes' constants agree with the layout.
static_assert(offsetof(DtNetViewControlPdu, viewerId) == Fixed::viewerId &&
                  offsetof(DtNetViewControlPdu, senderId) == Fixed::senderId &&
                  offsetof(DtNetViewControlPdu, viewerCommand) == Fixed::command &&
                  offsetof(DtNetViewControlPdu, ignoreFlags) == Fixed::ignoreFlags,
              "DtNetViewControlPdu is the fixed part");
static_assert(DtRequestStateVCPdu::kLength == Fixed::length, "the request-state PDU is the fixed part alone");

namespace {
// The start-up banner is written once per process, by the first control PDU built empty or from an image.
bool theVersionIsPrinted = false;
constexpr const char* kApiVersion = "1.2";
constexpr const char* kToolkitVersion = "5.8";

const unsigned char* bytesOf(const void* image) { return static_cast<const unsigned char*>(image); }
}  // namespace

DtVistralControlPdu::TextBuffer::TextBuffer(const TextBuffer& other) { *this = other; }

DtVistralControlPdu::TextBuffer& DtVistralControlPdu::TextBuffer::operator=(const TextBuffer& other) {
  if (this == &other) return *this;
  if (other.text_) {
    std::memcpy(get(), other.text_.get(), kTextBufferSize);
  } else if (text_) {
    text_[0] = '\0';
  }
  return *this;
}

char* DtVistralControlPdu::TextBuffer::get() {
  if (!text_) {
    text_ = std::make_unique<char[]>(kTextBufferSize);
    text_[0] = '\0';
  }
  return text_.get();
}

char* DtVistralControlPdu::textBuffer() const { return text_.get(); }

DtVistralControlPdu::DtVistralControlPdu() {
  if (!theVersionIsPrinted) {
    DtInfo.message("Using Quorel Technologies vistral control API version %s for Tarvex %s.\n", kApiVersion,
                   kToolkitVersion);
    theVersionIsPrinted = true;
  }
}

DtVistralControlPdu::~DtVistralControlPdu() = default;

int DtVistralControlPdu::internalGetPduKind() const { return kPduKind; }

void DtVistralControlPdu::setFromString(const char* /*text*/) {}

const char* DtVistralControlPdu::string() const { return ""; }

const DtString& DtVistralControlPdu::viewerId() const {
  idCache_ = designatorAt(Fixed::viewerId);
  return idCache_;
}

void DtVistralControlPdu::setViewerId(const DtString& id) { setDesignatorAt(Fixed::viewerId, id); }

const DtString& DtVistralControlPdu::senderId() const {
  idCache_ = designatorAt(Fixed::senderId);
  return idCache_;
}

void DtVistralControlPdu::setSenderId(const DtString& id) { setDesignatorAt(Fixed::senderId, id); }

DtViewerCommand DtVistralControlPdu::viewerCommand() const {
  return static_cast<DtViewerCommand>(u16At(Fixed::command));
}

void DtVistralControlPdu::setViewerCommand(DtViewerCommand command) {
  setU16At(Fixed::command, static_cast<std::uint16_t>(command));
}

unsigned long DtVistralControlPdu::ignoreFlags() const {
  // Widened through a signed 32-bit value on purpose: receivers compare against the sign-extended form.
  return static_cast<unsigned long>(static_cast<long>(i32At(Fixed::ignoreFlags)));
}

void DtVistralControlPdu::setIgnoreFlags(unsigned long flags) {
  setU32At(Fixed::ignoreFlags, static_cast<std::uint32_t>(flags));
}

bool DtVistralControlPdu::statusCommand() const {
  const int command = viewerCommand();
  return command >= kStatusOffset && command <= kStatusLast;
}

void DtVistralControlPdu::setStatusCommand(bool status) {
  const int command = viewerCommand();
  if (status && command < kStatusOffset)
    setViewerCommand(static_cast<DtViewerCommand>(command + kStatusOffset));
  if (!status && command >= kStatusOffset)
    setViewerCommand(static_cast<DtViewerCommand>(command - kStatusOffset));
}

bool DtVistralControlPdu::isNumber(const char* text) const {
  if (text == nullptr) return false;
  bool sawDigit = false;
  int points = 0;
  for (std::size_t i = 0, n = std::strlen(text); i < n; ++i) {
    const char c = text[i];
    if (c >= '0' && c <= '9') {
      sawDigit = true;
    } else if (c == '.') {
      ++points;
    } else if (c != '-' || i != 0) {
      return false;
    }
  }
  return sawDigit && points < 2;
}

void DtVistralControlPdu::printData() const {
  const DtString viewer = viewerId();
  DtDumpString("ViewerId", viewer.c_str());
  DtDumpString("SenderId", senderId().c_str());
  const DtViewerCommand command = viewerCommand();
  DtDumpEnum("Command", DtEnumString(command), command);
  // The flags' four bytes as this host holds them.
  const std::uint32_t flags = u32At(Fixed::ignoreFlags);
  unsigned char hostBytes[sizeof flags];
  std::memcpy(hostBytes, &flags, sizeof flags);
  DtDumpHexBytes("IgnoreFlags", hostBytes, sizeof hostBytes);
}

const char* DtVistralControlPdu::formatText(const char* format, ...) const {
  va_list args;
  va_start(args, format);
  char* text = textBuffer();
  std::vsnprintf(text, kTextBufferSize, format, args);
  va_end(args);
  return text;
}

// ---------------------------------------------------------------------------------------------------------
// Request-state and unknown PDUs

DtRequestStateVCPdu::DtRequestStateVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == kLength, "storage for the image");
  useStorage(storage_);
  initPdu(kLength, holder);
  setViewerCommand(DtVcRequestState);
}

DtRequestStateVCPdu::DtRequestStateVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                         DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtRequestStateVCPdu::~DtRequestStateVCPdu() = default;

DtUnknownVistralControlPdu::DtUnknownVistralControlPdu(const DtNetViewControlPdu* image,
                                                       DtBufferPlaceHolder* holder, DtPduFactory* factory) {
  initPdu(image, holder, factory);
}

DtUnknownVistralControlPdu::~DtUnknownVistralControlPdu() = default;

// ---------------------------------------------------------------------------------------------------------
// Dispatch tables

namespace {
using Reuse = std::unique_ptr<DtVistralControlPdu>;
using FromImage = DtVistralControlPdu* (*)(const DtNetViewControlPdu*, DtBufferPlaceHolder*, DtPduFactory*,
                                           Reuse*);
using MakeEmpty = DtVistralControlPdu* (*)();

// A new T read from the image; built in the block of *reuse instead when that PDU is a T itself, so that
// reading PDU after PDU of one class allocates nothing. A block whose new PDU fails to build is freed.
template <class T>
DtVistralControlPdu* fromImage(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                               DtPduFactory* factory, Reuse* reuse) {
  if (reuse == nullptr || *reuse == nullptr) return new T(image, holder, factory);
  const DtVistralControlPdu& held = **reuse;  // typeid of a plain reference: nothing to evaluate inside it
  if (typeid(held) != typeid(T)) return new T(image, holder, factory);
  T* block = static_cast<T*>(reuse->release());
  block->~T();
  try {
    return new (static_cast<void*>(block)) T(image, holder, factory);
  } catch (...) {
    ::operator delete(static_cast<void*>(block));
    throw;
  }
}

template <class T>
DtVistralControlPdu* makeEmpty() {
  return new T(nullptr);
}

// One row per view-control command 0..14: the class built from a received image, the class built empty by
// DtNewViewControlPdu (null where that table deliberately has a hole), and whether the command has a status
// form (command + 500).
struct ViewRow {
  FromImage fromImage;
  MakeEmpty makeEmpty;
  bool hasStatusForm;
};

constexpr ViewRow kViewTable[] = {
    /*  0 absolute      */ {fromImage<DtAbsoluteVCPdu>, makeEmpty<DtAbsoluteVCPdu>, true},
    /*  1 tether        */ {fromImage<DtTetherVCPdu>, makeEmpty<DtTetherVCPdu>, true},
    /*  2 compass       */ {fromImage<DtCompassVCPdu>, makeEmpty<DtCompassVCPdu>, true},
    /*  3 mimic         */ {fromImage<DtMimicVCPdu>, makeEmpty<DtMimicVCPdu>, true},
    /*  4 offset mimic  */ {fromImage<DtOffsetMimicVCPdu>, makeEmpty<DtOffsetMimicVCPdu>, true},
    /*  5 orbit         */ {fromImage<DtOrbitVCPdu>, makeEmpty<DtOrbitVCPdu>, true},
    /*  6 track         */ {fromImage<DtTrackVCPdu>, makeEmpty<DtTrackVCPdu>, true},
    /*  7 tether-track  */ {fromImage<DtTetherTrackVCPdu>, makeEmpty<DtTetherTrackVCPdu>, true},
    /*  8 mimic-track   */ {fromImage<DtMimicTrackVCPdu>, makeEmpty<DtMimicTrackVCPdu>, true},
    /*  9 group         */ {fromImage<DtGroupVCPdu>, makeEmpty<DtGroupVCPdu>, true},
    // Received modeless images are read, but a modeless PDU is never built by number: 10 and 510 give null.
    /* 10 modeless      */ {fromImage<DtModelessVCPdu>, nullptr, true},
    /* 11 options       */ {fromImage<DtOptionsPdu>, makeEmpty<DtOptionsPdu>, false},
    /* 12 pivot         */ {fromImage<DtPivotVCPdu>, makeEmpty<DtPivotVCPdu>, true},
    /* 13 move          */ {fromImage<DtMoveVCPdu>, makeEmpty<DtMoveVCPdu>, false},
    /* 14 request state */ {fromImage<DtRequestStateVCPdu>, makeEmpty<DtRequestStateVCPdu>, false},
};
constexpr int kViewCommands = static_cast<int>(std::size(kViewTable));

// The row of a command or of its status form; null when neither applies.
const ViewRow* viewRow(int command, bool* status) {
  *status = command >= DtVistralControlPdu::kStatusOffset;
  const int base = *status ? command - DtVistralControlPdu::kStatusOffset : command;
  if (base < 0 || base >= kViewCommands) return nullptr;
  const ViewRow* row = &kViewTable[base];
  return !*status || row->hasStatusForm ? row : nullptr;
}

// The two draw-control receive tables in one: by viewer command, the class built in the current layout and
// the class built in version 0. 2530 is read as a plain line in the current layout, which carries segments
// itself.
struct DrawRow {
  int command;
  FromImage current;
  FromImage v0;
};
constexpr DrawRow kDrawTable[] = {
    {DtVcDrawCommand, fromImage<DtVdcCommandPdu>, fromImage<DtVdcCommandPduV0>},

    {DtVcDrawLine, fromImage<DtVdcLinePdu>, fromImage<DtVdcLinePduV0>},
    {DtVcDrawSegmentedLine, fromImage<DtVdcLinePdu>, fromImage<DtVdcSegmentedLinePduV0>},

    {DtVcDrawPolyObject, fromImage<DtVdcPolyObjectPdu>, fromImage<DtVdcPolyObjectPduV0>},

    {DtVcDrawTriangle, fromImage<DtVdcTrianglePdu>, fromImage<DtVdcTrianglePduV0>},

    {DtVcDrawArea, fromImage<DtVdcAreaPdu>, fromImage<DtVdcAreaPduV0>},

    {DtVcDrawText, fromImage<DtVdcTextPdu>, fromImage<DtVdcTextPduV0>},

    {DtVcDrawAttribute, fromImage<DtVdcAttributePdu>, fromImage<DtVdcAttributePduV0>},

    {DtVcDrawAttributeUpdate, fromImage<DtVdcAttributeUpdatePdu>, fromImage<DtVdcAttributeUpdatePduV0>},

    {DtVcDrawLayer, fromImage<DtVdcLayerPdu>, fromImage<DtVdcLayerPduV0>},
};

// The factory is not handed on to draw-control objects.
DtVistralControlPdu* buildDraw(FromImage DrawRow::*layout, const DtNetViewControlPdu* image,
                               DtBufferPlaceHolder* holder, Reuse* reuse) {
  const int command = DtWire::loadU16(bytesOf(image) + Fixed::command);
  for (const DrawRow& row : kDrawTable) {
    if (row.command == command) return (row.*layout)(image, holder, nullptr, reuse);
  }
  return nullptr;
}

DtVistralControlPdu* buildView(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                               DtPduFactory* factory, Reuse* reuse) {
  bool status = false;
  const ViewRow* row = viewRow(DtWire::loadU16(bytesOf(image) + Fixed::command), &status);
  if (row == nullptr || row->fromImage == nullptr) return nullptr;
  DtVistralControlPdu* pdu = row->fromImage(image, holder, factory, reuse);
  if (status) pdu->setStatusCommand(true);
  return pdu;
}

// A kind-202 image as a view-control class, else as a draw-control class (in the current layout when the
// image comes from the network or says it is current, else in version 0), else as an unknown control PDU.
DtVistralControlPdu* createBy(bool fromNet, const DtNetPduHeader* image, DtBufferPlaceHolder* holder,
                              DtPduFactory* factory, Reuse* reuse) {
  if (image == nullptr || image->kind != DtVistralControlPdu::kPduKind) return nullptr;
  // Nothing past the stated length decides the class: a shorter image is classified as if zero past its end.
  unsigned char padded[Fixed::classifiedBy];
  const int stated = DtWire::loadU16(bytesOf(image) + DtPdu::kLengthOffset);
  if (stated < Fixed::classifiedBy) {
    std::memset(padded, 0, sizeof padded);
    std::memcpy(padded, image, static_cast<std::size_t>(std::max(stated, DtPdu::kHeaderSize)));
    image = reinterpret_cast<const DtNetPduHeader*>(padded);
  }
  const auto* vc = reinterpret_cast<const DtNetViewControlPdu*>(image);
  if (DtVistralControlPdu* pdu = buildView(vc, holder, factory, reuse)) return pdu;
  const bool current = fromNet || DtVistralControlPdu::drawControlParamVersion(vc) != 0;
  if (DtVistralControlPdu* pdu = buildDraw(current ? &DrawRow::current : &DrawRow::v0, vc, holder, reuse))
    return pdu;
  return fromImage<DtUnknownVistralControlPdu>(vc, holder, factory, reuse);
}
}  // namespace

DtPdu* DtVistralControlPdu::create(const DtNetPduHeader* image, DtBufferPlaceHolder* holder,
                                   DtPduFactory* factory) {
  return createBy(false, image, holder, factory, nullptr);
}

// Received from the network: a draw-control image is read in the current layout whatever its version word.
DtPdu* DtVistralControlPdu::createFromNet(const DtNetPduHeader* image, DtBufferPlaceHolder* holder,
                                          DtPduFactory* factory) {
  return createBy(true, image, holder, factory, nullptr);
}

DtVistralControlPdu* VcCreate::recreate(const DtNetPduHeader* image, bool fromNet,
                                        DtVistralControlPdu* reuse) {
  Reuse held(reuse);  // deleted here unless the new PDU takes its block
  return createBy(fromNet, image, nullptr, nullptr, &held);
}

DtPdu* DtVistralControlPdu::createViewControl(DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                              DtPduFactory* factory) {
  if (image == nullptr) return nullptr;
  return buildView(image, holder, factory, nullptr);
}

DtPdu* DtVistralControlPdu::createDrawControl(DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                              DtPduFactory* /*factory*/) {
  if (image == nullptr) return nullptr;
  // The factory is not handed on to draw-control objects.
  return drawControlParamVersion(image) != 0 ? createDrawControlCurrent(image, holder, nullptr)
                                             : createDrawControlV0(image, holder, nullptr);
}

DtPdu* DtVistralControlPdu::createDrawControlCurrent(DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                                     DtPduFactory* /*factory*/) {
  if (image == nullptr) return nullptr;
  return buildDraw(&DrawRow::current, image, holder, nullptr);
}

DtPdu* DtVistralControlPdu::createDrawControlV0(DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                                DtPduFactory* /*factory*/) {
  if (image == nullptr) return nullptr;
  return buildDraw(&DrawRow::v0, image, holder, nullptr);
}

int DtVistralControlPdu::drawControlParamVersion(const DtNetViewControlPdu* image) {
  if (image == nullptr) return 0;
  const unsigned char* bytes = bytesOf(image);
  return DtWire::loadU32(bytes + Fixed::drawMark) == kDrawControlMark
             ? DtWire::loadU16(bytes + Fixed::drawVersion)
             : 0;
}

DtVistralControlPdu* DtNewViewControlPdu(DtViewerCommand command) {
  bool status = false;
  const ViewRow* row = viewRow(command, &status);
  if (row == nullptr || row->makeEmpty == nullptr) return nullptr;
  DtVistralControlPdu* pdu = row->makeEmpty();
  if (status) pdu->setStatusCommand(true);
  return pdu;
}

DtVistralControlPdu* DtNewVistralControlPdu(DtViewerCommand command) {
  if (DtVistralControlPdu* pdu = DtNewViewControlPdu(command)) return pdu;
  return DtNewDrawControlPdu(command);
}
