#include "vistralcontrol/vistralDrawControlPdu.h"

#include <algorithm>
#include <iterator>

#include "tarvex/dtDump.h"
#include "vdcLayout.h"
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vdcTrianglePdu.h"

using VcLayout::Fixed;

DtVistralDrawControlPdu::DtVistralDrawControlPdu() = default;
DtVistralDrawControlPdu::DtVistralDrawControlPdu(const DtVistralDrawControlPdu& other) = default;
DtVistralDrawControlPdu& DtVistralDrawControlPdu::operator=(const DtVistralDrawControlPdu& other) = default;
DtVistralDrawControlPdu::~DtVistralDrawControlPdu() = default;

void DtVistralDrawControlPdu::initDraw(int length, DtBufferPlaceHolder* holder, DtViewerCommand command,
                                       unsigned version) {
  initPdu(length, holder);
  setViewerCommand(command);
  setParamVersion(version);
}

void DtVistralDrawControlPdu::initDraw(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                       DtPduFactory* factory, DtViewerCommand command) {
  initPdu(image, holder, factory);
  setViewerCommand(command);
}

DtNetU32 DtVistralDrawControlPdu::objectId() const {
  return u32At(VdcLayout::of(*this, VdcLayout::kHeader).objectId);
}

void DtVistralDrawControlPdu::setObjectId(DtNetU32 id) {
  setU32At(VdcLayout::of(*this, VdcLayout::kHeader).objectId, id);
}

void DtVistralDrawControlPdu::setType(DtNetU32 type) {
  setU32At(VdcLayout::of(*this, VdcLayout::kHeader).type, type);
}

DtNetU32 DtVistralDrawControlPdu::type() const {
  return u32At(VdcLayout::of(*this, VdcLayout::kHeader).type);
}

unsigned DtVistralDrawControlPdu::paramVersion() const {
  // The same test the receive side makes on a raw image, through the bounded accessors.
  return u32At(Fixed::drawMark) == kDrawControlMark ? u16At(Fixed::drawVersion) : 0;
}

void DtVistralDrawControlPdu::setParamVersion(unsigned int version) {
  if (version == 0) return;
  setU32At(Fixed::drawMark, kDrawControlMark);
  setU16At(Fixed::drawVersion, static_cast<std::uint16_t>(version));
}

// The text is taken by value, as the class has always declared it.
unsigned long DtVistralDrawControlPdu::setInternalText(
    DtString text,  // NOLINT(performance-unnecessary-value-param)
    unsigned long offset) {
  const std::size_t n = text.length();
  if (n == 0) return 0;
  // A text that would take the PDU past what its length field can state is not stored.
  if (offset > static_cast<unsigned long>(kMaxLength) || n > static_cast<std::size_t>(kMaxLength) - offset)
    return 0;
  const int at = static_cast<int>(offset);
  const int count = static_cast<int>(n);
  if (!changeSize(at + count)) return 0;
  setBytesAt(at, text.c_str(), count);
  return static_cast<unsigned long>(n);
}

DtString DtVistralDrawControlPdu::internalText(int length, unsigned long offset) const {
  if (length == 0) return DtString("");
  // The length comes from the PDU's own field and may be hostile: the read ends at the image's end.
  if (offset > static_cast<unsigned long>(kMaxLength)) {
    internalText_ = DtString("");
  } else {
    internalText_ = textAt(static_cast<int>(offset), static_cast<unsigned>(length));
  }
  return internalText_;
}

namespace {
struct TypeName {
  int type;
  const char* name;
};
constexpr TypeName kTypeNames[] = {
    {DtVdcUndefined, "VdcUndefined"},
    {DtVdcCommand, "VdcCommand"},
    {DtVdcCommandRemove, "VdcCommandRemove"},
    {DtVdcCommandHide, "VdcCommandHide"},
    {DtVdcCommandShow, "VdcCommandShow"},
    {DtVdcCommandAddToLayer, "VdcCommandAddToLayer"},
    {DtVdcCommandRemoveFromLayer, "VdcCommandRemoveFromLayer"},
    {DtVdcLine, "VdcLine"},
    {DtVdc2DLine, "Vdc2DLine"},
    {DtVdc3DLine, "Vdc3DLine"},
    {DtVdcSegmentedLine, "VdcSegmentedLine"},
    {DtVdc2DSegmentedLine, "Vdc2DSegmentedLine"},
    {DtVdc3DSegmentedLine, "Vdc3DSegmentedLine"},
    {DtVdcPolyObject, "VdcPolyObject"},
    {DtVdcCircle, "VdcCircle"},
    {DtVdcSphere, "VdcSphere"},
    {DtVdcSquare, "VdcSquare"},
    {DtVdcCube, "VdcCube"},
    {DtVdcCylinder, "VdcCylinder"},
    {DtVdcTriangle, "VdcTriangle"},
    {DtVdc2DTriangle, "Vdc2DTriangle"},
    {DtVdc3DTriangle, "Vdc3DTriangle"},
    {DtVdcArea, "VdcArea"},
    {DtVdc3DArea, "Vdc3DArea"},
    {DtVdcText, "VdcText"},
    {DtVdc2DText, "Vdc2DText"},
    {DtVdc3DText, "Vdc3DText"},
    {DtVdcAttribute, "VdcAttribute"},
    {DtVdcAttributeGroupTemplate, "VdcAttributeGroupTemplate"},
    {DtVdcAttributeGroup, "VdcAttributeGroup"},
    {DtVdcAttributeNoValue, "VdcAttributeNoValue"},
    {DtVdcAttributeSingleValue, "VdcAttributeSingleValue"},
    {DtVdcAttributeGraphicSingleValue, "VdcAttributeGraphicSingleValue"},
    {DtVdcAttributeGraphicListValue, "VdcAttributeGraphicListValue"},
    {DtVdcAttributeBitmap, "VdcAttributeBitmap"},
    {DtVdcAttributeUpdate, "VdcAttributeUpdate"},
    {DtVdcAttributeValueSet, "VdcAttributeValueSet"},
    {DtVdcAttributeValueReset, "VdcAttributeValueReset"},
    {DtVdcAttributeValueSetText, "VdcAttributeValueSetText"},
    {DtVdcLayer, "VdcLayer"},
};
}  // namespace

const char* DtVistralDrawControlPdu::typeString(int type) {
  const auto* end = std::end(kTypeNames);
  const auto* row =
      std::find_if(std::begin(kTypeNames), end, [type](const TypeName& r) { return r.type == type; });
  return row != end ? row->name : "UnknownEnum";
}

void DtVistralDrawControlPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpInteger("ObjectId", objectId());
  const std::uint32_t t = type();
  DtDumpEnum("Type", typeString(static_cast<int>(t)), t);
  if (const unsigned version = paramVersion()) DtDumpInteger("Param Version", version);
}

// ---------------------------------------------------------------------------------------------------------
// Building by draw-object type

namespace {
using MakeEmpty = DtVistralDrawControlPdu* (*)();

template <class T>
DtVistralDrawControlPdu* makeEmpty() {
  return new T(nullptr);
}

// Types first..last build the current class with the type shifted by currentTypeShift (segmented lines fold
// into plain lines of the same dimension), or the version-0 class with the type as given. A null class means
// the layout has none for these types (there is no version-0 area).
struct NewRow {
  int first;
  int last;
  MakeEmpty current;
  int currentTypeShift;
  MakeEmpty v0;
};
constexpr NewRow kNewTable[] = {
    {DtVdcCommandRemove, DtVdcCommandRemoveFromLayer, makeEmpty<DtVdcCommandPdu>, 0,
     makeEmpty<DtVdcCommandPduV0>},

    {DtVdc2DLine, DtVdc3DLine, makeEmpty<DtVdcLinePdu>, 0, makeEmpty<DtVdcLinePduV0>},
    {DtVdc2DSegmentedLine, DtVdc3DSegmentedLine, makeEmpty<DtVdcLinePdu>, DtVdc2DLine - DtVdc2DSegmentedLine,
     makeEmpty<DtVdcSegmentedLinePduV0>},

    {DtVdcCircle, DtVdcCylinder, makeEmpty<DtVdcPolyObjectPdu>, 0, makeEmpty<DtVdcPolyObjectPduV0>},

    {DtVdc2DTriangle, DtVdc3DTriangle, makeEmpty<DtVdcTrianglePdu>, 0, makeEmpty<DtVdcTrianglePduV0>},

    {DtVdc3DArea, DtVdc3DArea, makeEmpty<DtVdcAreaPdu>, 0, nullptr},

    {DtVdc2DText, DtVdc3DText, makeEmpty<DtVdcTextPdu>, 0, makeEmpty<DtVdcTextPduV0>},

    {DtVdcAttributeGroupTemplate, DtVdcAttributeBitmap, makeEmpty<DtVdcAttributePdu>, 0,
     makeEmpty<DtVdcAttributePduV0>},

    {DtVdcAttributeValueSet, DtVdcAttributeValueSetText, makeEmpty<DtVdcAttributeUpdatePdu>, 0,
     makeEmpty<DtVdcAttributeUpdatePduV0>},

    {DtVdcLayer, DtVdcLayer, makeEmpty<DtVdcLayerPdu>, 0, makeEmpty<DtVdcLayerPduV0>},
};

const NewRow* newRow(int type) {
  for (const NewRow& row : kNewTable) {
    if (type >= row.first && type <= row.last) return &row;
  }
  return nullptr;
}

DtVistralControlPdu* build(MakeEmpty make, int type) {
  if (make == nullptr) return nullptr;
  DtVistralDrawControlPdu* pdu = make();
  pdu->setType(static_cast<std::uint32_t>(type));
  return pdu;
}
}  // namespace

DtVistralControlPdu* DtNewDrawControlPdu(DtViewerCommand type) {
  const NewRow* row = newRow(type);
  return row ? build(row->current, type + row->currentTypeShift) : nullptr;
}

DtVistralControlPdu* DtNewDrawControlPduV0(DtViewerCommand type) {
  const NewRow* row = newRow(type);
  return row ? build(row->v0, type) : nullptr;
}
