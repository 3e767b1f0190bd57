#include "vistralcontrol/modelessVcPdu.h"

#include "tarvex/dtDump.h"
#include "vcEntityLists.h"
#include "vcViewLayout.h"

using VcEntityLists::List;
using VcLayout::Modeless;

DtModelessVCPdu::DtModelessVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Modeless::length + 2 * VcLayout::kNameWidth,
                "storage for the image");
  useStorage(storage_);
  initPdu(Modeless::length, holder);
  setViewerCommand(DtVcModeless);
}

DtModelessVCPdu::DtModelessVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                 DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtModelessVCPdu::~DtModelessVCPdu() = default;

const DtString& DtModelessVCPdu::primary() const {
  entity_ = designatorAt(Modeless::primary);
  return entity_;
}
void DtModelessVCPdu::setPrimary(const DtString& id) { setDesignatorAt(Modeless::primary, id); }
const DtString& DtModelessVCPdu::secondary() const {
  entity_ = designatorAt(Modeless::secondary);
  return entity_;
}
void DtModelessVCPdu::setSecondary(const DtString& id) { setDesignatorAt(Modeless::secondary, id); }

int DtModelessVCPdu::numEntitiesToRemove() const {
  return VcEntityLists::count(*this, Modeless::lists, List::Remove);
}
void DtModelessVCPdu::setNumEntitiesToRemove(int count) {
  (void)VcEntityLists::setRemoveCount(*this, Modeless::lists, count);
}
int DtModelessVCPdu::numEntitiesToAdd() const {
  return VcEntityLists::count(*this, Modeless::lists, List::Add);
}
void DtModelessVCPdu::setNumEntitiesToAdd(int count) {
  (void)VcEntityLists::setAddCount(*this, Modeless::lists, count);
}

const DtString& DtModelessVCPdu::entityToRemove(int index) const {
  entity_ = VcEntityLists::entry(*this, Modeless::lists, List::Remove, index);
  return entity_;
}
void DtModelessVCPdu::setEntityToRemove(int index, const DtString& id) {
  VcEntityLists::setEntry(*this, Modeless::lists, List::Remove, index, id);
}
const DtString& DtModelessVCPdu::entityToAdd(int index) const {
  entity_ = VcEntityLists::entry(*this, Modeless::lists, List::Add, index);
  return entity_;
}
void DtModelessVCPdu::setEntityToAdd(int index, const DtString& id) {
  VcEntityLists::setEntry(*this, Modeless::lists, List::Add, index, id);
}
int DtModelessVCPdu::entitiesToRemoveInImage() const {
  return VcEntityLists::entriesInImage(*this, Modeless::lists, List::Remove);
}
int DtModelessVCPdu::entitiesToAddInImage() const {
  return VcEntityLists::entriesInImage(*this, Modeless::lists, List::Add);
}

void DtModelessVCPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpString("Primary:", primary().c_str());
  DtDumpString("Secondary:", secondary().c_str());
  VcEntityLists::dump(*this, Modeless::lists);
}
