#include "vistralcontrol/vdcAttachablePdu.h"

#include <cstdio>
#include <cstring>
#include <vector>

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vdcLayout.h"

using VdcLayout::kAttachable;

namespace {
const char* const kAttachmentNames[] = {
    "VcObjectNoAttach",
    "VcObjectNoAttachNoAttach",
    "VcObjectAttachedToEntity",
    "VcObjectAttachedToObject",
    "VcObjectAttachedToEntityNoAttach",
    "VcObjectAttachedToObjectNoAttach",
    "VcObjectAttachedToNoAttachEntity",
    "VcObjectAttachedToNoAttachObject",
    "VcObjectAttachedToEntityObject",
    "VcObjectAttachedToObjectEntity",
    "VcObjectAttachedToEntityEntity",
    "VcObjectAttachedToObjectObject",
};

bool anchorIndex(int index) { return index == 0 || index == 1; }

// A screen position given as two signed percent bytes.
double percentOf(char byte) { return static_cast<float>(static_cast<signed char>(byte)) / 100.0; }
}  // namespace

DtVdcAttachablePdu::DtVdcAttachablePdu() = default;
DtVdcAttachablePdu::DtVdcAttachablePdu(const DtVdcAttachablePdu& other) = default;
DtVdcAttachablePdu& DtVdcAttachablePdu::operator=(const DtVdcAttachablePdu& other) = default;
DtVdcAttachablePdu::~DtVdcAttachablePdu() = default;

const char* DtVdcAttachablePdu::typeString(DtVcObjectAttachment type) {
  return type < std::size(kAttachmentNames) ? kAttachmentNames[type] : "UnknownEnum";
}

DtVdcAttachablePdu::DtVcObjectAttachment DtVdcAttachablePdu::attachmentType() const {
  return static_cast<DtVcObjectAttachment>(u8At(VdcLayout::of(*this, kAttachable).attachmentType));
}

void DtVdcAttachablePdu::setAttachmentType(DtVcObjectAttachment type) {
  setU8At(VdcLayout::of(*this, kAttachable).attachmentType, type);
}

void DtVdcAttachablePdu::setEntity(int index, const DtString& entity) {
  setDesignatorAt(VdcLayout::of(*this, kAttachable).entity[index], entity);
}

void DtVdcAttachablePdu::setObject(int index, DtNetU32 objectId) {
  setU32At(VdcLayout::of(*this, kAttachable).object[index], objectId);
}

void DtVdcAttachablePdu::setPosition(int index, const DtVector64& position) {
  setF64VectorAt(VdcLayout::of(*this, kAttachable).position[index], position);
}

void DtVdcAttachablePdu::attachTo(const char* pos) {
  if (pos == nullptr) return;
  setAttachmentType(DtVcObjectNoAttach);
  const DtVector64 old = position(0);
  setPosition(0, DtVector64(percentOf(pos[0]), percentOf(pos[1]), old.z()));
}

void DtVdcAttachablePdu::attachTo(const char* pos1, const char* pos2) {
  if (pos1 == nullptr || pos2 == nullptr) return;
  setAttachmentType(DtVcObjectNoAttachNoAttach);
  const DtVector64 old1 = position(0);
  const DtVector64 old2 = position(1);
  setPosition(0, DtVector64(percentOf(pos1[0]), percentOf(pos1[1]), old1.z()));
  setPosition(1, DtVector64(percentOf(pos2[0]), percentOf(pos2[1]), old2.z()));
}

void DtVdcAttachablePdu::attachTo(const DtVector64& p) {
  setAttachmentType(DtVcObjectNoAttach);
  setPosition(0, p);
}

void DtVdcAttachablePdu::attachTo(DtNetU32 objectId) {
  setAttachmentType(DtVcObjectAttachedToObject);
  setObject(0, objectId);
}

void DtVdcAttachablePdu::attachTo(const DtString& entity) {
  setAttachmentType(DtVcObjectAttachedToEntity);
  setEntity(0, entity);
}

void DtVdcAttachablePdu::attachTo(DtNetU32 objectId1, DtNetU32 objectId2) {
  setAttachmentType(DtVcObjectAttachedToObjectObject);
  setObject(0, objectId1);
  setObject(1, objectId2);
}

void DtVdcAttachablePdu::attachTo(const DtString& entity1, const DtString& entity2) {
  setAttachmentType(DtVcObjectAttachedToEntityEntity);
  setEntity(0, entity1);
  setEntity(1, entity2);
}

void DtVdcAttachablePdu::attachTo(const DtVector64& position1, const DtVector64& position2) {
  setAttachmentType(DtVcObjectNoAttachNoAttach);
  setPosition(0, position1);
  setPosition(1, position2);
}

void DtVdcAttachablePdu::attachTo(const DtString& entity1, DtNetU32 objectId2) {
  setAttachmentType(DtVcObjectAttachedToEntityObject);
  setEntity(0, entity1);
  setObject(1, objectId2);
}

void DtVdcAttachablePdu::attachTo(DtNetU32 objectId1, const DtString& entity2) {
  setAttachmentType(DtVcObjectAttachedToObjectEntity);
  setObject(0, objectId1);
  setEntity(1, entity2);
}

void DtVdcAttachablePdu::attachTo(const DtString& entity1, const DtVector64& position2) {
  setAttachmentType(DtVcObjectAttachedToEntityNoAttach);
  setEntity(0, entity1);
  setPosition(1, position2);
}

void DtVdcAttachablePdu::attachTo(const DtVector64& position1, const DtString& entity2) {
  setAttachmentType(DtVcObjectAttachedToNoAttachEntity);
  setPosition(0, position1);
  setEntity(1, entity2);
}

void DtVdcAttachablePdu::attachTo(DtNetU32 objectId1, const DtVector64& position2) {
  setAttachmentType(DtVcObjectAttachedToObjectNoAttach);
  setObject(0, objectId1);
  setPosition(1, position2);
}

void DtVdcAttachablePdu::attachTo(const DtVector64& position1, DtNetU32 objectId2) {
  setAttachmentType(DtVcObjectAttachedToNoAttachObject);
  setPosition(0, position1);
  setObject(1, objectId2);
}

void DtVdcAttachablePdu::setRelativeLocation(unsigned char percent, int index) {
  const VdcLayout::Attachable& l = VdcLayout::of(*this, kAttachable);
  setU8At(l.relativeLocation + index * l.relativeLocationStep, percent);
}

void DtVdcAttachablePdu::setRelativeLocations(unsigned char percent) {
  setRelativeLocation(percent, 0);
  setRelativeLocation(percent, 1);
}

unsigned char DtVdcAttachablePdu::relativeLocation(int index) const {
  const VdcLayout::Attachable& l = VdcLayout::of(*this, kAttachable);
  return u8At(l.relativeLocation + index * l.relativeLocationStep);
}

void DtVdcAttachablePdu::setOffset(const DtVector64& offset) {
  setF64VectorAt(VdcLayout::of(*this, kAttachable).offset, offset);
}

DtVector64 DtVdcAttachablePdu::offset() const {
  return f64VectorAt(VdcLayout::of(*this, kAttachable).offset);
}

DtString DtVdcAttachablePdu::attachEntityId(int index) const {
  return anchorIndex(index) ? designatorAt(VdcLayout::of(*this, kAttachable).entity[index]) : DtString();
}

DtNetU32 DtVdcAttachablePdu::attachObjectId(int index) const {
  return anchorIndex(index) ? u32At(VdcLayout::of(*this, kAttachable).object[index]) : 0U;
}

DtVector64 DtVdcAttachablePdu::position(int index) const {
  return anchorIndex(index) ? f64VectorAt(VdcLayout::of(*this, kAttachable).position[index]) : DtVector64();
}

void DtVdcAttachablePdu::setColor(unsigned char* rgba) {
  if (rgba != nullptr) setBytesAt(VdcLayout::of(*this, kAttachable).color, rgba, 4);
}

const unsigned char* DtVdcAttachablePdu::color() const {
  return bytesAt(VdcLayout::of(*this, kAttachable).color, 4);
}

void DtVdcAttachablePdu::setFlagBits(unsigned mask, unsigned bits) {
  const int at = VdcLayout::of(*this, kAttachable).flags;
  setU8At(at, static_cast<std::uint8_t>((u8At(at) & ~mask) | (bits & mask)));
}

unsigned DtVdcAttachablePdu::flagBits(unsigned mask) const {
  return u8At(VdcLayout::of(*this, kAttachable).flags) & mask;
}

void DtVdcAttachablePdu::setFlashing(bool flashing) {
  setFlagBits(VdcLayout::kFlashingBit, flashing ? VdcLayout::kFlashingBit : 0);
}

bool DtVdcAttachablePdu::flashing() const { return flagBits(VdcLayout::kFlashingBit) != 0; }

const char* DtVdcAttachablePdu::string() const {
  const DtVector64 p1 = position(0);
  const DtVector64 p2 = position(1);
  const DtString entity1 = attachEntityId(0);
  const DtString entity2 = attachEntityId(1);
  const unsigned char* rgba = color();
  const unsigned char none[4] = {};
  if (rgba == nullptr) rgba = none;
  // The second triple is position 2's x with position 1's y and z: receivers read it so.
  return formatText("%u %d %d %f %f %f %f %f %f %s %s %u %u %d %d %d %d %d %d", unsigned{objectId()},
                    static_cast<int>(std::uint32_t{type()}), int{attachmentType()}, p1.x(), p1.y(), p1.z(),
                    p2.x(), p1.y(), p1.z(), entity1.c_str(), entity2.c_str(), unsigned{attachObjectId(0)},
                    unsigned{attachObjectId(1)}, int{relativeLocation(0)}, rgba[0], rgba[1], rgba[2], rgba[3],
                    flashing() ? 1 : 0);
}

void DtVdcAttachablePdu::setFromString(const char* text) {
  if (text == nullptr) return;
  // Fields the text does not give are zero; a designator word may be as long as the whole text.
  std::vector<char> entity1(std::strlen(text) + 1, '\0');
  std::vector<char> entity2(entity1.size(), '\0');
  unsigned id = 0, object1 = 0, object2 = 0;
  int drawType = 0, attachment = 0, relative = 0, r = 0, g = 0, b = 0, a = 0, flash = 0;
  float p[6] = {};
  std::sscanf(text, "%u %d %d %f %f %f %f %f %f %s %s %u %u %d %d %d %d %d %d", &id, &drawType, &attachment,
              &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], entity1.data(), entity2.data(), &object1, &object2,
              &relative, &r, &g, &b, &a, &flash);
  setObjectId(id);
  setType(static_cast<std::uint32_t>(drawType));
  attachTo(DtVector64(p[0], p[1], p[2]), DtVector64(p[3], p[4], p[5]));
  attachTo(DtString(entity1.data()), DtString(entity2.data()));
  attachTo(DtNetU32(object1), DtNetU32(object2));
  setAttachmentType(static_cast<DtVcObjectAttachment>(attachment));
  // The relative location is read but not applied, and the offset is not part of the text.
  unsigned char rgba[4] = {static_cast<unsigned char>(r), static_cast<unsigned char>(g),
                           static_cast<unsigned char>(b), static_cast<unsigned char>(a)};
  setColor(rgba);
  setFlashing(flash == 1);
}

void DtVdcAttachablePdu::printData() const {
  DtVistralDrawControlPdu::printData();
  const DtVcObjectAttachment t = attachmentType();
  DtDumpEnum("Attachment type", typeString(t), t);
  DtDumpString("pos1", position(0).string());
  DtDumpString("pos2", position(1).string());
  DtDumpString("AttachEntityId1", attachEntityId(0).c_str());
  DtDumpString("AttachEntityId2", attachEntityId(1).c_str());
  DtDumpInteger("AttachObjectId1", attachObjectId(0));
  DtDumpInteger("AttachObjectId2", attachObjectId(1));
  DtDumpInteger("RelativeLocation(percent)", relativeLocation(0));
  DtDumpString("Offset", offset().string());
  DtDumpString("Color", "");
  const unsigned char* rgba = color();
  const char* const labels[] = {" r", " g", " b", " a"};
  for (int i = 0; i < 4; ++i) DtDumpInteger(labels[i], rgba ? rgba[i] : 0);
  DtDumpBoolean("Flashing", flashing());
}
