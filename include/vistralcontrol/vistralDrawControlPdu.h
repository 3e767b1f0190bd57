// The draw-control PDU: base of every control PDU that draws, changes or removes an overlay graphic. After
// the control PDU's fixed part it carries an object id and a draw-object type, in one of two layouts: the
// current one opens with a version mark and a parameter version, version 0 has neither.
#pragma once

#include "tarvex/dtNetTypes.h"
#include "tarvex/dtString.h"
#include "vistralcontrol/vistralControlPdu.h"

// What a draw-control PDU draws or does. The numbering has gaps on purpose (no 2554: 2553 is the plain area,
// 2555 the 3D area); the group values are the viewer commands of the classes that carry them.
enum DtVdcObjectType : int {
  DtVdcUndefined = 2489,
  DtVdcCommand = 2510,
  DtVdcCommandRemove = 2511,
  DtVdcCommandHide = 2512,
  DtVdcCommandShow = 2513,
  DtVdcCommandAddToLayer = 2514,
  DtVdcCommandRemoveFromLayer = 2515,
  DtVdcLine = 2520,
  DtVdc2DLine = 2521,
  DtVdc3DLine = 2522,
  DtVdcSegmentedLine = 2530,
  DtVdc2DSegmentedLine = 2531,
  DtVdc3DSegmentedLine = 2532,
  DtVdcPolyObject = 2540,
  DtVdcCircle = 2541,
  DtVdcSphere = 2542,
  DtVdcSquare = 2543,
  DtVdcCube = 2544,
  DtVdcCylinder = 2545,
  DtVdcTriangle = 2550,
  DtVdc2DTriangle = 2551,
  DtVdc3DTriangle = 2552,
  DtVdcArea = 2553,
  DtVdc3DArea = 2555,
  DtVdcText = 2560,
  DtVdc2DText = 2561,
  DtVdc3DText = 2562,
  DtVdcAttribute = 2570,
  DtVdcAttributeGroupTemplate = 2571,
  DtVdcAttributeGroup = 2572,
  DtVdcAttributeNoValue = 2573,
  DtVdcAttributeSingleValue = 2574,
  DtVdcAttributeGraphicSingleValue = 2575,
  DtVdcAttributeGraphicListValue = 2576,
  DtVdcAttributeBitmap = 2577,
  DtVdcAttributeUpdate = 2580,
  DtVdcAttributeValueSet = 2581,
  DtVdcAttributeValueReset = 2582,
  DtVdcAttributeValueSetText = 2583,
  DtVdcLayer = 2590,
};

// The base of the draw-control PDUs: the object id and draw-object type after the fixed part, in the layout
// its version mark names.
class VISTRAL_EXPORT DtVistralDrawControlPdu : public DtVistralControlPdu {
 public:
  // The parameter version of the current layout.
  static constexpr unsigned kCurrentParamVersion = 1;
  // Where the version mark and the parameter version sit (view-control images keep their ignore flags there).
  static constexpr int kMarkOffset = 152;
  static constexpr int kParamVersionOffset = 156;

  DtVistralDrawControlPdu();
  // Copies the other PDU's image.
  DtVistralDrawControlPdu(const DtVistralDrawControlPdu& other);
  // Copies the other PDU's image into this one's storage.
  DtVistralDrawControlPdu& operator=(const DtVistralDrawControlPdu& other);
  ~DtVistralDrawControlPdu() override;

  // The drawn object the PDU is about (the drawer's object id).
  virtual DtNetU32 objectId() const;
  virtual void setObjectId(DtNetU32 id);
  // The draw-object type (DtVdcObjectType): the shape, or for commands the command.
  virtual void setType(DtNetU32 type);
  virtual DtNetU32 type() const;
  // The version the image's own bytes state (0 without the mark). Exactly 1 selects the current layout for
  // every accessor; any other value the version-0 layout.
  virtual unsigned paramVersion() const;
  // Stores a trailing text at offset, resizing the PDU to end right after it; returns the bytes stored. An
  // empty text changes nothing and stores 0.
  virtual unsigned long setInternalText(DtString text, unsigned long offset);
  // The trailing text of the given length at offset; reading stops at a zero byte or the image's end.
  virtual DtString internalText(int length, unsigned long offset) const;
  // 0 writes nothing (a version-0 PDU has no mark); any other value writes the mark and the version.
  virtual void setParamVersion(unsigned int version);

  // paramVersion() == kCurrentParamVersion, read straight from the bytes: the choice every accessor makes,
  // kept inline because it sits in front of every field access.
  bool currentLayout() const {
    return u32At(kMarkOffset) == kDrawControlMark && u16At(kParamVersionOffset) == kCurrentParamVersion;
  }

  // The type's name without "Dt" ("VdcLine"), or "UnknownEnum".
  static const char* typeString(int type);
  void printData() const override;

 protected:
  // A new, zero-filled image of the class: its length and viewer command, then the mark with the version
  // (version 0 writes none).
  void initDraw(int length, DtBufferPlaceHolder* holder, DtViewerCommand command, unsigned version);
  // A received image, taken as it is but for the class's viewer command, which is set again.
  void initDraw(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory,
                DtViewerCommand command);

 private:
  mutable DtString internalText_;  // the last text internalText read
};

// An empty draw-control PDU for a draw-object type (owned by the caller), current layout or version 0; null
// for the group values and for types that have no class in that layout.
VISTRAL_EXPORT DtVistralControlPdu* DtNewDrawControlPdu(DtViewerCommand type);
VISTRAL_EXPORT DtVistralControlPdu* DtNewDrawControlPduV0(DtViewerCommand type);
