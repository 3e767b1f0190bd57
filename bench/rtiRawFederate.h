// A federate that uses an RTI's API directly (HLA 1.3 or HLA Evolved), as an application without the library
// would: the floor that the library's path through an RTI is measured against. Its source is built at the
// level the RTI's headers accept and shows the benchmarks nothing of them.
#pragma once

#include <memory>
#include <string>

class RawFederate {
 public:
  virtual ~RawFederate() = default;

  // Joins an execution that exists already. Throws std::runtime_error with the RTI's reason.
  static std::unique_ptr<RawFederate> join(const std::string& execution, const std::string& name);
  // The same through an HLA Evolved RTI, connected with its local settings designator
  // (rti1516eRawFederate.cpp).
  static std::unique_ptr<RawFederate> join1516e(const std::string& localSettings,
                                                const std::string& execution, const std::string& name);

  // Subscribes to "ViewControl"; received() counts what arrives.
  virtual void subscribe() = 0;
  // Publishes "ViewControl" and builds, once, the parameter set that send() sends: the bytes as the value of
  // "ViewControlPdu".
  virtual void publish(const unsigned char* bytes, unsigned long length) = 0;
  virtual void send() = 0;
  // Sends bytes made for this message: the set is emptied and given them first.
  virtual void send(const unsigned char* bytes, unsigned long length) = 0;
  // Lets the RTI deliver what has arrived.
  virtual void tick() = 0;
  // Interactions received so far, and the bytes of their values.
  virtual long received() const = 0;
  virtual long receivedBytes() const = 0;
};
