// Modeless command: set a primary and a secondary entity and edit an entity list without changing the viewing
// mode (viewer command 10; 292 bytes with empty lists, 64 more per listed entity). It has no text form.
#pragma once

#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtModelessVCPdu : public DtVistralControlPdu {
 public:
  explicit DtModelessVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtModelessVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtModelessVCPdu() override;

  void printData() const override;

  // primary(), secondary(), entityToRemove() and entityToAdd() all fill one cache: copy a result before
  // asking for another.
  const DtString& primary() const;
  void setPrimary(const DtString& id);
  const DtString& secondary() const;
  void setSecondary(const DtString& id);

  // As in the group PDU: set both counts before writing entries. -1 counts as 0; a count below -1, or one
  // that would make the PDU longer than 65535 bytes, is refused and changes nothing.
  int numEntitiesToRemove() const;
  void setNumEntitiesToRemove(int count);
  int numEntitiesToAdd() const;
  void setNumEntitiesToAdd(int count);
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
  DtPduStorage<420> storage_;  // two listed entities
};
