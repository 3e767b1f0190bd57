// Arbitrary text as an HLA Evolved FOM module, which users hand in: it parses or is refused with a
// DtException; what parses can be walked, searched by every name it declares, and merged with itself.
#include <cstdint>
#include <string>

#include "tarvex/dtException.h"
#include "tarvex/dtFedFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  try {
    DtFedFile fom = DtFedFile::parseFomModule(text, "fuzz.xml");
    std::size_t seen = 0;
    for (const DtFedInteractionClass& c : fom.interactionClasses()) {
      if (fom.findInteractionClass(c.fullName) != &c) __builtin_trap();  // a full name finds its own class
      for (const std::string& p : c.parameters) seen += p.size();
    }
    const std::size_t classes = fom.interactionClasses().size();
    fom.merge(DtFedFile(fom));
    if (fom.interactionClasses().size() != classes)
      __builtin_trap();  // merging a module with itself adds nothing
    static_cast<void>(seen);
  } catch (const DtException&) {
    // Refused, as malformed input must be.
  }
  return 0;
}
