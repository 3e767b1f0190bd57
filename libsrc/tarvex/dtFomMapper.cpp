#include "tarvex/dtFomMapper.h"

void DtFomMapper::set(const std::string& scope, const std::string& name, const std::string& fomName) {
  for (Mapping& m : mappings_) {
    if (m.scope == scope && m.name == name) {
      m.fomName = fomName;
      return;
    }
  }
  mappings_.push_back(Mapping{scope, name, fomName});
}

const char* DtFomMapper::lookup(const char* scope, const char* name) const {
  if (name == nullptr) return nullptr;
  for (const Mapping& m : mappings_)
    if (m.scope == scope && m.name == name) return m.fomName.c_str();
  return name;
}

void DtFomMapper::mapInteractionClass(const std::string& name, const std::string& fomName) {
  set("", name, fomName);
}

void DtFomMapper::mapParameter(const std::string& fomClassName, const std::string& name,
                               const std::string& fomName) {
  set(fomClassName, name, fomName);
}

const char* DtFomMapper::fomInteractionClass(const char* name) const { return lookup("", name); }

const char* DtFomMapper::fomParameter(const char* fomClassName, const char* name) const {
  return lookup(fomClassName ? fomClassName : "", name);
}
