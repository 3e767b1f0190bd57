#include "vistralcontrol/vdcAreaPdu.h"

#include <cstdio>
#include <cstring>
#include <vector>

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vdcPduClass.h"

using VdcLayout::kArea;
using VdcLayout::kHalfWay;

namespace {
constexpr int kCoordinates = 3 * DtVdcAreaPduBase::kMaxPoints;
// The area's own fields are read from the character after this blank of the whole line. The point count
// follows the 28th blank of what string() writes, so the reading starts at the 22nd coordinate; senders and
// receivers have always read the line so.
constexpr int kFieldsAfterBlank = 50;
static_assert(DtVdcAreaPduBase::kMaxPoints == VdcLayout::kAreaPoints, "sixteen points");

bool pointIndex(int index) { return index >= 0 && index < DtVdcAreaPduBase::kMaxPoints; }

// The fields of an area's text, zero where the text does not give them.
struct AreaFields {
  explicit AreaFields(std::size_t longestWord) : directory(longestWord + 1, '\0'), filename(directory) {}
  int count = 0;
  float coordinates[kCoordinates] = {};
  std::vector<char> directory;
  std::vector<char> filename;
  int tiles = 0;
};

// Reads "%d", the coordinates as "%f" each, then "%s %s %d", stopping at the first field that does not
// match, as one sscanf over the whole format would.
AreaFields readAreaFields(const char* text, std::size_t longestWord) {
  AreaFields f(longestWord);
  int used = 0;
  if (std::sscanf(text, "%d%n", &f.count, &used) != 1) return f;
  text += used;
  for (float& c : f.coordinates) {
    if (std::sscanf(text, "%f%n", &c, &used) != 1) return f;
    text += used;
  }
  std::sscanf(text, "%s %s %d", f.directory.data(), f.filename.data(), &f.tiles);
  return f;
}
}  // namespace

VDC_DRAW_PDU_BASE(DtVdcAreaPduBase, VdcLayout::longest(kArea))

VDC_DRAW_PDU_CLASS(
    DtVdcAreaPdu, DtVdcAreaPduBase, DtVcDrawArea, kArea.current.length, kCurrentParamVersion,
    if (holder == nullptr) {
      setRelativeLocations(kHalfWay);
      setNumPoints(0);
    })
VDC_DRAW_PDU_CLASS(DtVdcAreaPduV0, DtVdcAreaPduBase, DtVcDrawArea, kArea.v0.length, 0,
                   if (holder == nullptr) setRelativeLocations(kHalfWay))

// A version-0 area ends before the count and texture fields: they are kept in the PDU's storage behind its
// image and never sent.
void DtVdcAreaPduBase::setNumPoints(int count) {
  setU8At(VdcLayout::of(*this, kArea).numPoints, static_cast<std::uint8_t>(count));
}

int DtVdcAreaPduBase::numPoints() const { return u8At(VdcLayout::of(*this, kArea).numPoints); }

void DtVdcAreaPduBase::setPoint(int index, const DtVector64& point) {
  if (pointIndex(index))
    setF64VectorAt(VdcLayout::of(*this, kArea).points + index * VdcLayout::kPointSize, point);
}

DtVector64 DtVdcAreaPduBase::point(int index) const {
  return pointIndex(index) ? f64VectorAt(VdcLayout::of(*this, kArea).points + index * VdcLayout::kPointSize)
                           : DtVector64();
}

void DtVdcAreaPduBase::setTextureDirectory(const DtString& directory) {
  setTextAt(VdcLayout::of(*this, kArea).textureDirectory, VdcLayout::kTextureNameWidth, directory.c_str());
}

DtString DtVdcAreaPduBase::textureDirectory() const {
  return textAt(VdcLayout::of(*this, kArea).textureDirectory);
}

void DtVdcAreaPduBase::setTextureFilename(const DtString& filename) {
  setTextAt(VdcLayout::of(*this, kArea).textureFilename, VdcLayout::kTextureNameWidth, filename.c_str());
}

// A name that fills its field has no terminator and reads on into the directory.
DtString DtVdcAreaPduBase::textureFilename() const {
  return textAt(VdcLayout::of(*this, kArea).textureFilename);
}

void DtVdcAreaPduBase::setNumTextureTiles(int tiles) {
  setU8At(VdcLayout::of(*this, kArea).tiles, static_cast<std::uint8_t>(tiles));
}

int DtVdcAreaPduBase::numTextureTiles() const { return u8At(VdcLayout::of(*this, kArea).tiles); }

const char* DtVdcAreaPduBase::string() const {
  DtVdcPolyObjectPduBase::string();
  VcText::Writer out = VcText::Writer::continuing(textBuffer(), kTextBufferSize);
  // A blank between the poly-object line and the points, which open with a blank of their own.
  out.append("  %d", numPoints());
  for (int i = 0; i < kMaxPoints && !out.full(); ++i) {
    const DtVector64 p = point(i);
    out.append(" %s %s %s", DtString(p.x()).c_str(), DtString(p.y()).c_str(), DtString(p.z()).c_str());
  }
  if (!out.full()) {
    out.append(" %s %s %d", textureDirectory().c_str(), textureFilename().c_str(), numTextureTiles());
  }
  return out.text();
}

void DtVdcAreaPduBase::setFromString(const char* text) {
  if (text == nullptr) return;
  DtVdcPolyObjectPduBase::setFromString(text);
  // A texture name may be as long as the whole text.
  const AreaFields f = readAreaFields(VcText::afterBlank(text, kFieldsAfterBlank), std::strlen(text));
  setNumPoints(f.count);
  const float* c = f.coordinates;
  for (int i = 0; i < kMaxPoints; ++i, c += 3) setPoint(i, DtVector64(c[0], c[1], c[2]));
  setTextureDirectory(f.directory.data());
  setTextureFilename(f.filename.data());
  setNumTextureTiles(f.tiles);
}

void DtVdcAreaPduBase::printData() const {
  DtVdcPolyObjectPduBase::printData();
  const int count = numPoints();
  for (int i = 0; i < count; ++i) {
    DtDumpInteger("Point", i + 1);
    DtDumpString("location", point(i).string());
  }
  DtDumpString("texture filename", textureFilename().c_str());
  DtDumpString("texture directory", textureDirectory().c_str());
  DtDumpInteger("tiling factor", numTextureTiles());
}
