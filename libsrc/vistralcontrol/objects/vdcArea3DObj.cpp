#include "vistralcontrol/vdcArea3DObj.h"

#include <utility>

#include "vdcObjectParts.h"

DtVdcArea3DObject::DtVdcArea3DObject(unsigned int id, std::vector<DtVector64> points, DtVdcColor color,
                                     const DtString& textureDirectory, const DtString& textureFilename,
                                     int numTextureTiles, bool flashing)
    : DtVdcObject(id),
      color_(color),
      flashing_(flashing),
      numPoints_(static_cast<int>(points.size())),
      points_(std::move(points)),
      textureFilename_(textureFilename),
      textureDirectory_(textureDirectory),
      numTextureTiles_(numTextureTiles) {
  VdcFill::startPdu(*this, pdu_, DtVdc3DArea);
}

VDC_OBJECT_PDU(DtVdcArea3DObject)
VDC_OBJECT_COLOR(DtVdcArea3DObject)
VDC_OBJECT_FLASHING(DtVdcArea3DObject)

void DtVdcArea3DObject::updatePdu() {
  setPduPoints();
  setPduColor();
  setPduFlashing();
  setPduTexture();
}

const DtString& DtVdcArea3DObject::textureDirectory() const { return textureDirectory_; }
void DtVdcArea3DObject::setTextureDirectory(const DtString& directory) { textureDirectory_ = directory; }
const DtString& DtVdcArea3DObject::textureFilename() const { return textureFilename_; }
void DtVdcArea3DObject::setTextureFilename(const DtString& filename) { textureFilename_ = filename; }
int DtVdcArea3DObject::numTextureTiles() const { return numTextureTiles_; }
void DtVdcArea3DObject::setNumTextureTiles(int tiles) { numTextureTiles_ = tiles; }

DtVector64 DtVdcArea3DObject::vertex(int i) const {
  // One past the last point reads as the zero vector, like every index beyond it.
  return i >= 0 && i < numPoints_ ? points_[static_cast<std::size_t>(i)] : DtVector64();
}

void DtVdcArea3DObject::setVertex(int i, const DtVector64& point) {
  if (i >= 0 && i < numPoints_) points_[static_cast<std::size_t>(i)] = point;
}

void DtVdcArea3DObject::setPduPoints() {
  pdu_.setNumPoints(numPoints_);
  // The PDU keeps what fits its table and ignores the rest.
  for (int i = 0; i < numPoints_; ++i) pdu_.setPoint(i, points_[static_cast<std::size_t>(i)]);
}
void DtVdcArea3DObject::setPduTexture() {
  pdu_.setTextureDirectory(textureDirectory_);
  pdu_.setTextureFilename(textureFilename_);
  pdu_.setNumTextureTiles(numTextureTiles_);
}
