// The client-side drawing object: the base of everything the remote drawer keeps by id. Each concrete object
// owns one draw-control PDU for its whole life and copies its state into it on updatePdu().
#pragma once

#include "vistralcontrol/vistralDrawControlPdu.h"

class VISTRAL_EXPORT DtVdcObject {
 public:
  // An object under the id the drawer keys it by.
  explicit DtVdcObject(unsigned int id) : id_(id) {}
  DtVdcObject(const DtVdcObject& other) = default;
  DtVdcObject& operator=(const DtVdcObject& other) = default;
  virtual ~DtVdcObject();

  // The object id.
  virtual unsigned int id() const;
  // Writes the id into the object's PDU at once, so that object and PDU never disagree.
  virtual void setId(unsigned int id);
  // The object's own PDU.
  virtual DtVistralDrawControlPdu& pdu() = 0;
  // Copies the object's whole current state into its PDU.
  virtual void updatePdu() = 0;

 private:
  unsigned int id_;
};
