#include "vistralcontrol/vdcRemoteDrawer.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "tarvex/dtExerciseConn.h"
#include "vdcThrow.h"
#include "vistralcontrol/vdcAttGroup.h"
#include "vistralcontrol/vdcAttTemplate.h"
#include "vistralcontrol/vdcCommandPdu.h"

namespace {
bool hasType(DtVdcObject& obj, DtVdcObjectType type) {
  return static_cast<std::uint32_t>(obj.pdu().type()) == static_cast<std::uint32_t>(type);
}
}  // namespace

const DtString DtVistralRemoteDrawer::SEND_TO_ALL("0:0:0");

DtVistralRemoteDrawer::DtVistralRemoteDrawer(DtExerciseConn* conn, const DtString& receiverId,
                                             unsigned int firstId)
    : conn_(conn),
      nextId_(firstId),
      receiverId_(receiverId),
      senderId_(conn != nullptr ? conn->federateName() : DtString()) {}

DtVistralRemoteDrawer::DtVistralRemoteDrawer(DtCustomRemoteControlSender* sender, const DtString& senderId,
                                             const DtString& receiverId, unsigned int firstId)
    : sender_(sender), nextId_(firstId), receiverId_(receiverId), senderId_(senderId) {}

DtVistralRemoteDrawer::DtVistralRemoteDrawer(const char* execName, const char* federateName,
                                             DtFomMapper* mapper, const char* fedFile,
                                             const DtString& receiverId, unsigned int firstId)
    : nextId_(firstId),
      ownedConn_(std::make_unique<DtExerciseConn>(execName, federateName, mapper, fedFile, nullptr)),
      receiverId_(receiverId),
      senderId_(federateName) {
  conn_ = ownedConn_.get();
}

DtVistralRemoteDrawer::DtVistralRemoteDrawer(const char* execName, const char* federateName,
                                             const char* fedFile, const char* backend, void* rtiAmbassador,
                                             const DtString& receiverId, unsigned int firstId)
    : nextId_(firstId),
      ownedConn_(std::make_unique<DtExerciseConn>(execName, federateName, fedFile, backend, rtiAmbassador)),
      receiverId_(receiverId),
      senderId_(federateName) {
  conn_ = ownedConn_.get();
}

DtVistralRemoteDrawer::~DtVistralRemoteDrawer() {
  // Not ours to delete: attribute templates that their group template, also held, owns; and an object entered
  // under two ids (its id changed between two adds) is deleted once.
  std::unordered_set<DtVdcObject*> deleted;
  for (const auto& entry : objects_) {
    auto* groupTemplate = dynamic_cast<DtVdcAttributeGroupTemplateObject*>(entry.second);
    if (groupTemplate == nullptr) continue;
    for (const auto& t : groupTemplate->attributeTemplates()) deleted.insert(t.get());
  }
  // Ascending id order: removals only take entries out (a group template's members with it), so walking the
  // sorted ids and skipping those already gone takes the smallest remaining id each time.
  std::vector<unsigned int> ids;
  ids.reserve(objects_.size());
  for (const auto& entry : objects_) ids.push_back(entry.first);
  std::sort(ids.begin(), ids.end());
  for (const unsigned int id : ids) {
    const auto found = objects_.find(id);
    if (found == objects_.end()) continue;
    DtVdcObject* obj = found->second;
    if (obj == nullptr) {
      // Left by a lookup of an id that was never added: nothing to remove on the viewer.
      objects_.erase(found);
      continue;
    }
    try {
      remove(id);
    } catch (...) {
      // Nowhere to send the remove command (a drawer with neither connection nor sender): the object goes
      // all the same, rather than the exception ending the program from a destructor.
      objects_.erase(id);
    }
    if (deleted.insert(obj).second) delete obj;
  }
  conn_ = nullptr;  // the owned connection goes with ownedConn_
}

unsigned int DtVistralRemoteDrawer::nextId() { return nextId_++; }

void DtVistralRemoteDrawer::add(DtVdcObject* obj) {
  if (obj == nullptr) return;
  objects_[obj->id()] = obj;
  update(obj);
  if (hasType(*obj, DtVdcAttributeGroupTemplate)) {
    // The templates go out after their group template, and stay owned by it rather than by the map.
    if (auto* groupTemplate = dynamic_cast<DtVdcAttributeGroupTemplateObject*>(obj)) {
      for (const auto& t : groupTemplate->attributeTemplates()) update(t.get());
    }
  }
}

void DtVistralRemoteDrawer::addToLayer(unsigned int objectId, unsigned int layerId) {
  sendCommand(DtVdcCommandAddToLayer, objectId, &layerId);
}

DtVdcObject* DtVistralRemoteDrawer::remove(unsigned int objectId) {
  const auto found = objects_.find(objectId);
  if (found == objects_.end()) return nullptr;
  DtVdcObject* obj = found->second;
  if (obj == nullptr) {
    // An entry that only a lookup made holds nothing the viewer knows of.
    objects_.erase(found);
    return nullptr;
  }
  if (hasType(*obj, DtVdcAttributeGroupTemplate)) {
    if (auto* groupTemplate = dynamic_cast<DtVdcAttributeGroupTemplateObject*>(obj)) {
      for (const auto& t : groupTemplate->attributeTemplates()) remove(t->id());
    }
  }
  // The member removals above may have changed the map: look the id up again.
  objects_.erase(objectId);
  sendCommand(DtVdcCommandRemove, objectId, nullptr);
  return obj;
}

void DtVistralRemoteDrawer::removeFromLayer(unsigned int objectId, unsigned int layerId) {
  sendCommand(DtVdcCommandRemoveFromLayer, objectId, &layerId);
}

DtVdcObject* DtVistralRemoteDrawer::lookup(unsigned int objectId) { return objects_[objectId]; }

void DtVistralRemoteDrawer::update(unsigned int objectId) {
  DtVdcObject* obj = lookup(objectId);
  if (obj == nullptr) VDC_THROW_AT("vdc object not found", "vdcRemoteDrawer.cpp", 169);
  update(obj);
}

void DtVistralRemoteDrawer::show(unsigned int objectId) { sendCommand(DtVdcCommandShow, objectId, nullptr); }

void DtVistralRemoteDrawer::showAttribute(unsigned int groupId, unsigned int attributeId) {
  sendCommand(isAttributeGroup(groupId) ? DtVdcCommandShowGroupAttribute : DtVdcCommandShowTemplateAttribute,
              attributeId, &groupId);
}

void DtVistralRemoteDrawer::hide(unsigned int objectId) { sendCommand(DtVdcCommandHide, objectId, nullptr); }

void DtVistralRemoteDrawer::hideAttribute(unsigned int groupId, unsigned int attributeId) {
  sendCommand(isAttributeGroup(groupId) ? DtVdcCommandHideGroupAttribute : DtVdcCommandHideTemplateAttribute,
              attributeId, &groupId);
}

void DtVistralRemoteDrawer::sendDrawControlPdu(DtVistralDrawControlPdu& pdu) {
  pdu.setSenderId(senderId_);
  if (conn_ != nullptr) {
    interaction_.setVcPdu(pdu);
    // A connection without the class or its encoder refuses the send and warns itself; the drawer, like the
    // controller, has no error to report.
    static_cast<void>(conn_->sendInteraction(interaction_));
  } else if (sender_ != nullptr) {
    sender_->sendPdu(pdu.packet(), pdu.length());
  } else {
    VDC_THROW_AT("No send mechanism in VistralRemoteDrawer", "vdcRemoteDrawer.cpp", 199);
  }
}

void DtVistralRemoteDrawer::update(DtVdcObject* obj) {
  if (obj == nullptr) return;
  obj->updatePdu();
  sendDrawControlPdu(obj->pdu());
  if (!hasType(*obj, DtVdcAttributeGroup)) return;
  auto* group = dynamic_cast<DtVdcAttributeGroupObject*>(obj);
  if (group == nullptr) return;
  // Only the values changed since the last update go out, in ascending attribute id.
  for (auto& [attributeId, value] : group->attributeValueMap()) {
    group->updateAttributePdu(attributeId);
    if (value && value->dirty()) {
      sendDrawControlPdu(value->attributeUpdatePdu());
      value->setDirty(false);
    }
  }
}

void DtVistralRemoteDrawer::sendCommand(unsigned int commandType, unsigned int objectId,
                                        const unsigned int* layerId) {
  DtVdcCommandPdu command;
  command.setType(commandType);
  command.setObjectId(objectId);
  if (layerId != nullptr) command.setLayerId(*layerId);
  sendDrawControlPdu(command);
}

bool DtVistralRemoteDrawer::isAttributeGroup(unsigned int objectId) {
  DtVdcObject* group = lookup(objectId);
  return group != nullptr && hasType(*group, DtVdcAttributeGroup);
}
