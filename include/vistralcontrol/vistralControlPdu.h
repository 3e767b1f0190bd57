// The control PDU (PDU kind 202): base class of every view-control and draw-control PDU, and the operations
// that turn a received image or a command number into an object of the right class.
#pragma once

#include <memory>

#include "tarvex/dtNetViewControlPdu.h"
#include "tarvex/dtPdu.h"
#include "tarvex/dtString.h"
#include "tarvex/dtViewerCommand.h"
#include "vistralcontrol/vistralExport.h"

class VISTRAL_EXPORT DtVistralControlPdu : public DtPdu {
 public:
  // The PDU kind of every control PDU, the size of the text-form buffer, and where status commands begin.
  static constexpr int kPduKind = 202;
  static constexpr int kTextBufferSize = 400;
  static constexpr int kStatusOffset = 500;
  static constexpr int kStatusLast = 600;  // the highest command number that is a status form
  // The version mark at byte 152 that tells a current-layout draw PDU from a version-0 one.
  static constexpr unsigned kDrawControlMark = 0x600DF00D;

  DtVistralControlPdu();
  DtVistralControlPdu(const DtVistralControlPdu& other) = default;
  DtVistralControlPdu& operator=(const DtVistralControlPdu& other) = default;
  ~DtVistralControlPdu() override;

  void printData() const override;
  int internalGetPduKind() const override;
  // The text form: a subclass writes one line into the text buffer, valid until the next call.
  virtual void setFromString(const char* text);
  virtual const char* string() const;

  // The viewer addressed and the sending application. Both getters fill one shared cache: copy the first
  // result before asking for the second.
  const DtString& viewerId() const;
  void setViewerId(const DtString& id);
  const DtString& senderId() const;
  void setSenderId(const DtString& id);

  // What the PDU commands; status forms (command + 500) are what viewers answer with.
  DtViewerCommand viewerCommand() const;
  void setViewerCommand(DtViewerCommand command);

  // The 32-bit flags widened with sign extension: bit 31 set gives the upper 32 bits all ones.
  unsigned long ignoreFlags() const;
  void setIgnoreFlags(unsigned long flags);

  // The command is a status (answer) form: kStatusOffset to kStatusLast.
  bool statusCommand() const;
  void setStatusCommand(bool status);

  // Digits, at most one point, a minus sign only first, at least one digit.
  bool isNumber(const char* text) const;

  // Creation from a received image (owned by the caller; null when the kind or command is not recognised).
  static DtPdu* create(const DtNetPduHeader* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  static DtPdu* createFromNet(const DtNetPduHeader* image, DtBufferPlaceHolder* holder,
                              DtPduFactory* factory);
  static DtPdu* createViewControl(DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                  DtPduFactory* factory);
  static DtPdu* createDrawControl(DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                  DtPduFactory* factory);
  static DtPdu* createDrawControlCurrent(DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                         DtPduFactory* factory);
  static DtPdu* createDrawControlV0(DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                    DtPduFactory* factory);
  // The draw-control parameter version of an image: the word at 156 when the mark is at 152, else 0.
  static int drawControlParamVersion(const DtNetViewControlPdu* image);

 protected:
  // The text buffer that string() fills (kTextBufferSize bytes, made on first use); const because string()
  // is.
  char* textBuffer() const;
  // printf-style formatting into the text buffer, cut at its end; returns the buffer.
  const char* formatText(const char* format, ...) const
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;

 private:
  // The text form's buffer exists only once string() has been called: a PDU kept for long, as a drawn
  // object's is, does not carry it otherwise. Copies carry the text along.
  class TextBuffer {
   public:
    TextBuffer() = default;
    TextBuffer(const TextBuffer& other);
    TextBuffer& operator=(const TextBuffer& other);
    char* get();

   private:
    std::unique_ptr<char[]> text_;
  };

  mutable DtString idCache_;
  mutable TextBuffer text_;
};

// The request-state PDU: the fixed part alone, 152 bytes, command 14. Its ignore flags lie past its end and
// are never sent.
class VISTRAL_EXPORT DtRequestStateVCPdu : public DtVistralControlPdu {
 public:
  // The PDU's length in bytes.
  static constexpr int kLength = 152;
  explicit DtRequestStateVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtRequestStateVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtRequestStateVCPdu() override;

 private:
  DtPduStorage<152> storage_;
};

// Any kind-202 image that no table recognises, so that its fixed part can still be read and printed.
class VISTRAL_EXPORT DtUnknownVistralControlPdu : public DtVistralControlPdu {
 public:
  DtUnknownVistralControlPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                             DtPduFactory* factory);
  ~DtUnknownVistralControlPdu() override;
};

// An empty PDU for a command number (view-control first, then draw-control); null when none exists.
VISTRAL_EXPORT DtVistralControlPdu* DtNewVistralControlPdu(DtViewerCommand command);
// An empty view-control PDU for a command or status number; null when none exists.
VISTRAL_EXPORT DtVistralControlPdu* DtNewViewControlPdu(DtViewerCommand command);
// An empty draw-control PDU for a draw-object type, current layout; null when none exists.
VISTRAL_EXPORT DtVistralControlPdu* DtNewDrawControlPdu(DtViewerCommand type);
