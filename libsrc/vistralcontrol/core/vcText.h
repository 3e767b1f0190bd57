// Text-form pieces shared by the view-control PDUs: a bounded writer over the PDU's text buffer, the
// attach-target text form of every mode that names an entity with a marking text, and the marking-text rule.
#pragma once

#include <initializer_list>

#include "tarvex/dtString.h"

class DtPdu;
class DtVistralControlPdu;

namespace VcText {

// Appends to a fixed text buffer. Every piece is cut at the buffer's end and the buffer stays terminated, so
// no text, however long, writes past it.
class Writer {
 public:
  Writer(char* buffer, int size);  // starts with an empty text
  // Continues the text the buffer already holds (a base class's part of a text form).
  static Writer continuing(char* buffer, int size);
  void append(const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;
  bool full() const { return used_ >= size_ - 1; }
  const char* text() const { return buffer_; }

 private:
  char* buffer_;
  int size_;
  int used_ = 0;
};

// True when the text holds a blank: such a field forces the comma form.
bool hasBlank(const char* text);

// The text after its n-th blank (counted from the start, each blank one), or its terminating zero when it
// holds fewer: fixed-position fields of a text form are found so.
const char* afterBlank(const char* text, int n);

// The attach-target form: entity ids, then numbers ("%f"), then marking texts, joined by blanks, or by commas
// when any id or marking text holds a blank (a blank-free id is one token of the blank form).
const char* writeAttachForm(Writer& out, std::initializer_list<const char*> ids,
                            std::initializer_list<double> numbers, std::initializer_list<const char*> marks);

// What a mode's attach-target form holds: one or two ids, then numbers, one letter each ('f' scanned as a
// float, "%f"; 'l' as a double, "%lf"), then one or two marking texts.
struct AttachForm {
  int ids;
  const char* numbers;
  int marks;
};

// Tether, mimic and offset mimic: id, offset x y z as doubles, psi theta phi as floats, marking text.
constexpr AttachForm kOffsetAndAnglesForm{1, "lllfff", 1};

struct AttachFields {
  static constexpr int kMaxNumbers = 9;
  DtString ids[2];
  double numbers[kMaxNumbers] = {};  // numbers the text does not give stay zero
  DtString marks[2];
};

// Reads an attach-target text. Without a comma it is the blank form: ids are blank-free tokens, numbers
// follow; with one, the first id is the text before the first comma (blanks allowed), a second id runs to the
// next comma, and the numbers follow, comma-separated. The marking texts are the last one or two pieces
// between separators (blank or comma), each taken only when it is not a number: a numeric marking text cannot
// travel in text form, and a text without marking texts ends in numbers. Fields the text does not give are
// empty or zero.
AttachFields parseAttachForm(const DtVistralControlPdu& pdu, const char* text, const AttachForm& form);

// A marking text, which an older, shorter PDU does not carry: empty unless the PDU has its mode's full
// length. An unterminated field reads on into the bytes after it.
DtString markingText(const DtPdu& pdu, int offset, int fullLength);

}  // namespace VcText
