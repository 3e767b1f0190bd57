#include "vcText.h"

#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "vistralcontrol/vistralControlPdu.h"

namespace VcText {

Writer::Writer(char* buffer, int size) : buffer_(buffer), size_(size) {
  if (size_ > 0) buffer_[0] = '\0';
}

Writer Writer::continuing(char* buffer, int size) {
  Writer out(buffer, 0);
  out.size_ = size;
  out.used_ = size > 0 ? static_cast<int>(strnlen(buffer, static_cast<std::size_t>(size - 1))) : 0;
  return out;
}

void Writer::append(const char* format, ...) {
  if (full()) return;
  va_list args;
  va_start(args, format);
  const int room = size_ - used_;
  const int wanted = std::vsnprintf(buffer_ + used_, static_cast<std::size_t>(room), format, args);
  va_end(args);
  if (wanted > 0) used_ += wanted < room ? wanted : room - 1;
}

bool hasBlank(const char* text) { return text != nullptr && std::strchr(text, ' ') != nullptr; }

const char* afterBlank(const char* text, int n) {
  for (int seen = 0; seen < n; ++seen) {
    const char* blank = std::strchr(text, ' ');
    if (blank == nullptr) return text + std::strlen(text);
    text = blank + 1;
  }
  return text;
}

const char* writeAttachForm(Writer& out, std::initializer_list<const char*> ids,
                            std::initializer_list<double> numbers, std::initializer_list<const char*> marks) {
  bool comma = false;
  for (const char* id : ids) comma = comma || hasBlank(id);
  for (const char* mark : marks) comma = comma || hasBlank(mark);
  const char separator = comma ? ',' : ' ';
  bool first = true;
  for (const char* id : ids) {
    if (first) {
      out.append("%s", id);
    } else {
      out.append("%c%s", separator, id);
    }
    first = false;
  }
  for (double number : numbers) out.append("%c%f", separator, number);
  for (const char* mark : marks) out.append("%c%s", separator, mark);
  return out.text();
}

namespace {
const char* skipSpace(const char* p) {
  while (*p != '\0' && std::isspace(static_cast<unsigned char>(*p))) ++p;
  return p;
}

// Scans numbers as sscanf would with the mode's format ("%f %f ..." or "%f,%f,..."): each number may follow
// white space; in the comma form a comma must come right after the previous number. Stops at the first
// mismatch.
void scanNumbers(const char* p, const char* kinds, char separator, double* out) {
  for (int i = 0; p != nullptr && kinds[i] != '\0' && i < AttachFields::kMaxNumbers; ++i) {
    if (i > 0 && separator == ',') {
      if (*p != ',') return;
      ++p;
    }
    int used = 0;
    if (kinds[i] == 'f') {
      float value = 0;
      if (std::sscanf(p, "%f%n", &value, &used) != 1) return;
      out[i] = value;
    } else {
      double value = 0;
      if (std::sscanf(p, "%lf%n", &value, &used) != 1) return;
      out[i] = value;
    }
    p += used;
  }
}

// The text after the last separator, and the text between the last two; null where there is no such piece.
struct LastPieces {
  const char* last = nullptr;
  const char* beforeLast = nullptr;
  std::size_t beforeLastLength = 0;
};

LastPieces lastPieces(const char* text, char separator) {
  LastPieces pieces;
  const char* lastSeparator = std::strrchr(text, separator);
  if (lastSeparator == nullptr) return pieces;
  pieces.last = lastSeparator + 1;
  const char* previous = lastSeparator;
  while (previous > text && *(previous - 1) != separator) --previous;
  if (previous > text) {
    pieces.beforeLast = previous;
    pieces.beforeLastLength = static_cast<std::size_t>(lastSeparator - previous);
  }
  return pieces;
}

DtString unlessNumber(const DtVistralControlPdu& pdu, const char* piece, std::size_t length) {
  if (piece == nullptr) return DtString("");
  const DtString text(piece, length);
  return pdu.isNumber(text.c_str()) ? DtString("") : text;
}
}  // namespace

AttachFields parseAttachForm(const DtVistralControlPdu& pdu, const char* text, const AttachForm& form) {
  AttachFields fields;
  for (DtString& id : fields.ids) id = "";
  for (DtString& mark : fields.marks) mark = "";
  if (text == nullptr) return fields;

  const char separator = std::strchr(text, ',') != nullptr ? ',' : ' ';
  const char* p = text;
  for (int i = 0; i < form.ids && i < 2 && p != nullptr; ++i) {
    if (separator == ',') {
      // The first id is the text before the first comma; a second one runs to the next comma.
      const char* end = std::strchr(p, ',');
      fields.ids[i] = DtString(p, end ? static_cast<std::size_t>(end - p) : std::strlen(p));
      p = end ? end + 1 : nullptr;
    } else {
      // A "%s" token: white space skipped, then everything up to the next white space.
      p = skipSpace(p);
      const char* end = p;
      while (*end != '\0' && !std::isspace(static_cast<unsigned char>(*end))) ++end;
      if (end == p) {
        p = nullptr;
        break;
      }
      fields.ids[i] = DtString(p, static_cast<std::size_t>(end - p));
      p = end;
    }
  }
  scanNumbers(p, form.numbers, separator, fields.numbers);

  const LastPieces pieces = lastPieces(text, separator);
  if (form.marks == 1) {
    fields.marks[0] = unlessNumber(pdu, pieces.last, pieces.last ? std::strlen(pieces.last) : 0);
  } else if (form.marks == 2) {
    fields.marks[1] = unlessNumber(pdu, pieces.last, pieces.last ? std::strlen(pieces.last) : 0);
    fields.marks[0] = unlessNumber(pdu, pieces.beforeLast, pieces.beforeLastLength);
  }
  return fields;
}

DtString markingText(const DtPdu& pdu, int offset, int fullLength) {
  return pdu.length() == fullLength ? pdu.textAt(offset) : DtString("");
}

}  // namespace VcText
