// Maps the interaction class and parameter names that a library uses to the names a federation's FOM gives
// them, for federations whose FOM names the same data differently. Names without a mapping are used as they
// are, so a default-constructed mapper maps every name to itself.
#pragma once

#include <string>
#include <vector>

#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtFomMapper {
 public:
  DtFomMapper() = default;

  // The interaction class the library calls name is called fomName in the FOM.
  void mapInteractionClass(const std::string& name, const std::string& fomName);
  // The parameter name of the FOM class fomClassName is called fomName in the FOM.
  void mapParameter(const std::string& fomClassName, const std::string& name, const std::string& fomName);

  // The FOM's name for a class, or for a parameter of a FOM class; the name given when it has no mapping.
  const char* fomInteractionClass(const char* name) const;
  const char* fomParameter(const char* fomClassName, const char* name) const;

 private:
  struct Mapping {
    std::string scope;  // the class of a parameter; empty for a class
    std::string name;
    std::string fomName;
  };
  const char* lookup(const char* scope, const char* name) const;
  void set(const std::string& scope, const std::string& name, const std::string& fomName);

  std::vector<Mapping> mappings_;
};
