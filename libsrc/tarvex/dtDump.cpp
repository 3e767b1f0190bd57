#include "tarvex/dtDump.h"

#include <cstdio>
#include <ostream>

#include "tarvex/dtMessage.h"

namespace {
std::ostream& line(const char* label) {
  std::ostream& out = DtDumpStream.stream();
  const char* text = label ? label : "";
  const std::size_t used = std::char_traits<char>::length(text);
  out << text;
  // Pad to the column; a longer label still gets its one separating blank.
  for (std::size_t i = used; i < static_cast<std::size_t>(DtDumpLabelWidth); ++i) out << ' ';
  return out << ' ';
}
}  // namespace

void DtDumpString(const char* label, const char* text) { line(label) << (text ? text : "") << '\n'; }

void DtDumpEnum(const char* label, const char* text, long long value) {
  line(label) << (text ? text : "") << " (" << value << ")\n";
}

void DtDumpHexBytes(const char* label, const void* bytes, int count) {
  std::ostream& out = line(label);
  const auto* p = static_cast<const unsigned char*>(bytes);
  char hex[4];
  for (int i = 0; p != nullptr && i < count; ++i) {
    std::snprintf(hex, sizeof hex, i == 0 ? "%02x" : " %02x", p[i]);
    out << hex;
  }
  out << '\n';
}

void DtDumpHexWord(const char* label, unsigned long value) {
  char word[16];
  std::snprintf(word, sizeof word, "0x%08lx", value & 0xFFFFFFFFUL);
  line(label) << word << '\n';
}

void DtDumpFloat(const char* label, double value) {
  char number[400];
  std::snprintf(number, sizeof number, "%f", value);
  line(label) << number << '\n';
}

void DtDumpInteger(const char* label, long long value) { line(label) << value << '\n'; }

void DtDumpBoolean(const char* label, bool value) { line(label) << (value ? "true" : "false") << '\n'; }

void DtDumpText(const char* text) { DtDumpStream.stream() << (text ? text : ""); }
