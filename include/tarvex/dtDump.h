// Labelled dump lines written to DtDumpStream. Each line is the label, left-aligned in a column of
// DtDumpLabelWidth characters, one blank, then the value.
#pragma once

#include "tarvex/tarvexExport.h"

// The width of the label column.
constexpr int DtDumpLabelWidth = 24;

// The text as it is; a null text is written as nothing.
TARVEX_EXPORT void DtDumpString(const char* label, const char* text);
// "<text> (<value>)"
TARVEX_EXPORT void DtDumpEnum(const char* label, const char* text, long long value);
// Two lowercase hex digits per byte, separated by blanks.
TARVEX_EXPORT void DtDumpHexBytes(const char* label, const void* bytes, int count);
// A 32-bit word in hexadecimal: "0x%08x".
TARVEX_EXPORT void DtDumpHexWord(const char* label, unsigned long value);
// "%f"
TARVEX_EXPORT void DtDumpFloat(const char* label, double value);
// In decimal.
TARVEX_EXPORT void DtDumpInteger(const char* label, long long value);
// "true" or "false"
TARVEX_EXPORT void DtDumpBoolean(const char* label, bool value);
// The text exactly as given: for lines that carry no value.
TARVEX_EXPORT void DtDumpText(const char* text);
