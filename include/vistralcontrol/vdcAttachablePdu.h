// The attachable draw PDU: base of every draw-control PDU whose object is placed somewhere. It says what the
// object is anchored to (free positions, entities by designator, other drawn objects by id, or a pair of
// these), where along the anchor, with which offset, in which colour, and whether it flashes.
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralDrawControlPdu.h"

class VISTRAL_EXPORT DtVdcAttachablePdu : public DtVistralDrawControlPdu {
 public:
  // Which anchors are used: anchor 1, then anchor 2 where there is one.
  enum DtVcObjectAttachment : unsigned char {
    DtVcObjectNoAttach = 0,
    DtVcObjectNoAttachNoAttach = 1,
    DtVcObjectAttachedToEntity = 2,
    DtVcObjectAttachedToObject = 3,
    DtVcObjectAttachedToEntityNoAttach = 4,
    DtVcObjectAttachedToObjectNoAttach = 5,
    DtVcObjectAttachedToNoAttachEntity = 6,
    DtVcObjectAttachedToNoAttachObject = 7,
    DtVcObjectAttachedToEntityObject = 8,
    DtVcObjectAttachedToObjectEntity = 9,
    DtVcObjectAttachedToEntityEntity = 10,
    DtVcObjectAttachedToObjectObject = 11,
  };

  DtVdcAttachablePdu();
  // Copies the other PDU's image.
  DtVdcAttachablePdu(const DtVdcAttachablePdu& other);
  // Copies the other PDU's image into this one's storage.
  DtVdcAttachablePdu& operator=(const DtVdcAttachablePdu& other);
  ~DtVdcAttachablePdu() override;

  // "objectId type attachment p1x p1y p1z p2x p1y p1z entity1 entity2 object1 object2 relLoc r g b a
  // flashing"
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // How the object is anchored, as the last attachTo (or setAttachmentType) left it.
  virtual DtVcObjectAttachment attachmentType() const;
  // Position 1 in screen percent: two signed bytes, x and y; z keeps its value.
  virtual void attachTo(const char* pos);
  virtual void attachTo(const char* pos1, const char* pos2);
  virtual void attachTo(const DtVector64& position);
  virtual void attachTo(DtNetU32 objectId);
  virtual void attachTo(const DtString& entity);
  virtual void attachTo(DtNetU32 objectId1, DtNetU32 objectId2);
  virtual void attachTo(const DtString& entity1, const DtString& entity2);
  virtual void attachTo(const DtVector64& position1, const DtVector64& position2);
  virtual void attachTo(const DtString& entity1, DtNetU32 objectId2);
  virtual void attachTo(DtNetU32 objectId1, const DtString& entity2);
  virtual void attachTo(const DtString& entity1, const DtVector64& position2);
  virtual void attachTo(const DtVector64& position1, const DtString& entity2);
  virtual void attachTo(DtNetU32 objectId1, const DtVector64& position2);
  virtual void attachTo(const DtVector64& position1, DtNetU32 objectId2);
  // Percent along the anchor; version 0 keeps one value whatever the index.
  virtual void setRelativeLocation(unsigned char percent, int index);
  virtual unsigned char relativeLocation(int index) const;
  // An offset from the anchor.
  virtual void setOffset(const DtVector64& offset);
  virtual DtVector64 offset() const;
  // Anchors by index 0 or 1; any other index gives the null string, 0 or the zero vector.
  virtual DtString attachEntityId(int index) const;
  virtual DtNetU32 attachObjectId(int index) const;
  virtual DtVector64 position(int index) const;
  // Four bytes r, g, b, a; color() points into the PDU (null only for an image too short to hold them).
  virtual void setColor(unsigned char* rgba);
  virtual const unsigned char* color() const;
  // Whether the object flashes.
  virtual void setFlashing(bool flashing);
  virtual bool flashing() const;
  // Sets the attachment type alone, leaving the anchors' fields as they are.
  virtual void setAttachmentType(DtVcObjectAttachment type);

  // The type's name without "Dt", or "UnknownEnum".
  static const char* typeString(DtVcObjectAttachment type);

 protected:
  // Both relative locations of a new PDU (version 0 keeps one).
  void setRelativeLocations(unsigned char percent);
  // The flag byte, which subclasses share: bits they set keep the others.
  void setFlagBits(unsigned mask, unsigned bits);
  unsigned flagBits(unsigned mask) const;

 private:
  void setEntity(int index, const DtString& entity);
  void setObject(int index, DtNetU32 objectId);
  void setPosition(int index, const DtVector64& position);
};
