// Arbitrary text as a FED file, which users hand in: it parses or is refused with a DtException, and what
// parses can be walked and searched by every name it declares.
#include <cstdint>
#include <string>

#include "tarvex/dtException.h"
#include "tarvex/dtFedFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  try {
    const DtFedFile fom = DtFedFile::parse(text, "fuzz.fed");
    std::size_t seen = fom.federationName().size();
    for (const DtFedInteractionClass& c : fom.interactionClasses()) {
      if (fom.findInteractionClass(c.fullName) != &c) __builtin_trap();  // a full name finds its own class
      seen += fom.findInteractionClass(c.name) != nullptr ? 1 : 0;
      for (const std::string& p : c.parameters) seen += p.size();
      seen += c.transport.size() + c.order.size();
    }
    static_cast<void>(fom.findInteractionClass(text));
    static_cast<void>(seen);
  } catch (const DtException&) {
    // Refused, as malformed input must be.
  }
  return 0;
}
