// The remote drawer: a retained overlay scene on the client side. The application hands it drawing objects,
// which it then owns and keys by object id, and from then on changes, hides, shows, layers and removes them
// by id. Every such step goes out as draw-control PDUs, over an exercise connection inside a "ViewControl"
// interaction or through the application's custom sender.
#pragma once

#include <memory>
#include <unordered_map>

#include "tarvex/dtString.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vdcObject.h"
#include "vistralcontrol/vistralRemoteController.h"

class DtExerciseConn;
class DtFomMapper;

// A retained overlay scene: owns drawing objects by id and sends what becomes of them as draw-control PDUs.
class VISTRAL_EXPORT DtVistralRemoteDrawer {
 public:
  // The receiver id that addresses every viewer.
  static const DtString SEND_TO_ALL;

  // Every constructor takes the first id nextId() hands out. The receiver id is kept but addresses nothing:
  // each PDU goes out with the viewer id its own constructor gave it.
  //
  // Through the application's connection, not owned; the sender id is the connection's federate name.
  DtVistralRemoteDrawer(DtExerciseConn* conn, const DtString& receiverId, unsigned int firstId);
  // Through a custom sender, not owned.
  DtVistralRemoteDrawer(DtCustomRemoteControlSender* sender, const DtString& senderId,
                        const DtString& receiverId, unsigned int firstId);
  // Through a connection of its own, made from the leading arguments; the sender id is the federate name.
  DtVistralRemoteDrawer(const char* execName, const char* federateName, DtFomMapper* mapper,
                        const char* fedFile, const DtString& receiverId, unsigned int firstId);
  // The same, naming the backend and an RTI ambassador as DtExerciseConn's second constructor does.
  DtVistralRemoteDrawer(const char* execName, const char* federateName, const char* fedFile,
                        const char* backend, void* rtiAmbassador, const DtString& receiverId,
                        unsigned int firstId);
  // Removes every object still held, in ascending id order, on the wire too, and deletes it.
  virtual ~DtVistralRemoteDrawer();
  DtVistralRemoteDrawer(const DtVistralRemoteDrawer&) = delete;
  DtVistralRemoteDrawer& operator=(const DtVistralRemoteDrawer&) = delete;

  // The next id, then counts on; ids already in use are not skipped.
  virtual unsigned int nextId();
  // Takes ownership and sends the object's PDU (a group template's attribute templates follow it). An object
  // already held under the same id is dropped from the map without being deleted or removed on the viewer.
  virtual void add(DtVdcObject* obj);
  // Sends the command that puts the object into the layer.
  virtual void addToLayer(unsigned int objectId, unsigned int layerId);
  // Sends the remove command (a group template's held attribute templates first) and hands the object back
  // to the caller; null, sending nothing, for an id not held.
  virtual DtVdcObject* remove(unsigned int objectId);
  // Sends the command that takes the object out of the layer.
  virtual void removeFromLayer(unsigned int objectId, unsigned int layerId);
  // The object under the id. An id not held is entered with no object, and null is returned.
  virtual DtVdcObject* lookup(unsigned int objectId);
  // Re-sends the object under the id; throws DtException when there is none.
  virtual void update(unsigned int objectId);
  // show, hide and the layer commands go out for any id, held or not.
  virtual void show(unsigned int objectId);
  // The group must be held; an attribute group and any other object get different commands.
  virtual void showAttribute(unsigned int groupId, unsigned int attributeId);
  // Sends the hide command for the object.
  virtual void hide(unsigned int objectId);
  // Hides one attribute of a held attribute group, as showAttribute shows it.
  virtual void hideAttribute(unsigned int groupId, unsigned int attributeId);
  // Stamps the drawer's sender id into the PDU and sends it; throws DtException with nowhere to send.
  virtual void sendDrawControlPdu(DtVistralDrawControlPdu& pdu);
  // Brings the object's PDU up to date and sends it; an attribute group then sends its dirty values.
  virtual void update(DtVdcObject* obj);

 private:
  void sendCommand(unsigned int commandType, unsigned int objectId, const unsigned int* layerId);
  bool isAttributeGroup(unsigned int objectId);

  DtExerciseConn* conn_ = nullptr;
  DtCustomRemoteControlSender* sender_ = nullptr;
  unsigned int nextId_;
  // Owned; an entry left by lookup may hold null. Hashed rather than ordered: with a million objects an
  // ordered map's walk waited on memory at every level, and only the destructor needs the ids in order.
  std::unordered_map<unsigned int, DtVdcObject*> objects_;
  std::unique_ptr<DtExerciseConn> ownedConn_;
  DtString receiverId_;
  DtString senderId_;
  DtVistralControlInteraction interaction_;
};
