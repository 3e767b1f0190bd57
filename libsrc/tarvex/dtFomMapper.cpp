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

const std::string& DtFomMapper::lookup(const std::string& scope, const std::string& name) const {
  for (const Mapping& m : mappings_)
    if (m.scope == scope && m.name == name) return m.fomName;
  return name;
}

void DtFomMapper::mapInteractionClass(const std::string& name, const std::string& fomName) {
  set("", name, fomName);
}

void DtFomMapper::mapParameter(const std::string& className, const std::string& name,
                               const std::string& fomName) {
  set(className, name, fomName);
}

const std::string& DtFomMapper::fomInteractionClass(const std::string& name) const {
  return lookup("", name);
}

const std::string& DtFomMapper::fomParameter(const std::string& className, const std::string& name) const {
  return lookup(className, name);
}
