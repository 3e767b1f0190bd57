// Group mode: view a group of entities from a radial offset, removing entities from and adding them to the
// viewed group (viewer command 9; 188 bytes with empty lists, 64 more per listed entity).
#pragma once

#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtGroupVCPdu : public DtVistralControlPdu {
 public:
  explicit DtGroupVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtGroupVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtGroupVCPdu() override;

  // "groupCmd R A radialOffset heading pitch headingOffset pitchOffset " followed by the R entities to remove
  // and the A entities to add, each after a blank, or each after a comma when any id holds a blank. Reading
  // sets the angles and both counts, then fills the entries from the ids that follow; the group command of
  // the text is not applied. A text longer than the text buffer is cut at its end.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // Where the eye looks at the group from: its distance (ignore bit DtVcIgnore::GroupRadialOffset), heading
  // and pitch, and heading and pitch offsets (GroupHeadingOffset, GroupPitchOffset). Each travels as a 32-bit
  // float.
  float radialOffset() const;
  void setRadialOffset(float offset);
  float heading() const;
  void setHeading(float heading);
  float pitch() const;
  void setPitch(float pitch);
  float headingOffset() const;
  void setHeadingOffset(float offset);
  float pitchOffset() const;
  void setPitchOffset(float offset);
  // 0 "Group", anything else "WideGroup".
  int groupCmd() const;
  void setGroupCmd(int command);

  // Set both counts before writing entries: raising the remove count inserts empty slots at the front of the
  // lists and shifts every stored entry; lowering it drops the last remove entries. -1 counts as 0. A count
  // below -1, or one that would make the PDU longer than 65535 bytes, is refused and changes nothing.
  int numEntitiesToRemove() const;
  void setNumEntitiesToRemove(int count);
  int numEntitiesToAdd() const;
  void setNumEntitiesToAdd(int count);

  // Both getters fill one cache: copy the first result before asking for the second. An index outside the
  // list gives an empty text, and is ignored by the setters.
  const DtString& entityToRemove(int index) const;
  void setEntityToRemove(int index, const DtString& id);
  const DtString& entityToAdd(int index) const;
  void setEntityToAdd(int index, const DtString& id);

  // How many entries of each list the image holds: a received count may claim more than its bytes carry.
  // Entries from the first up to these counts can be read.
  int entitiesToRemoveInImage() const;
  int entitiesToAddInImage() const;

 private:
  mutable DtString entity_;
  DtPduStorage<444> storage_;  // four listed entities
};
