// A federation object model read from an HLA 1.3 FED file (the OMT 1.3 text format), or from HLA Evolved FOM
// modules (OMT 1516-2010 XML): the interaction classes with their parameters. Object classes, routing spaces
// and data types are checked for syntax and otherwise not kept. A file that cannot be read or parsed is a
// DtException naming the file and the line.
#pragma once

#include <string>
#include <vector>

#include "tarvex/tarvexExport.h"

struct TARVEX_EXPORT DtFedInteractionClass {
  std::string fullName;                 // dotted path from the root, e.g. "InteractionRoot.ViewControl"
  std::string name;                     // the last part, e.g. "ViewControl"
  std::string transport;                // "reliable" or "best_effort", as written
  std::string order;                    // "receive" or "timestamp", as written
  std::vector<std::string> parameters;  // inherited ones first, then the class's own
  int line = 0;                         // where the class is declared
};

// The interaction classes a FED file declares, read once and kept as plain data.
class TARVEX_EXPORT DtFedFile {
 public:
  // Reads and parses the file at path.
  static DtFedFile read(const std::string& path);
  // Parses FED text; source names it in error messages.
  static DtFedFile parse(const std::string& text, const std::string& source);
  // Reads and parses the FOM module (XML) at path; the full names start at "HLAinteractionRoot".
  static DtFedFile readFomModule(const std::string& path);
  // Parses FOM module text; source names it in error messages.
  static DtFedFile parseFomModule(const std::string& text, const std::string& source);
  // Adds what other declares and this lacks: classes (after this one's, in other's order) and parameters of
  // classes both declare, as an execution merges the FOM modules it is given.
  void merge(const DtFedFile& other);

  // Where the text came from (the path, or the name given to parse), and the federation the file names.
  const std::string& source() const { return source_; }
  const std::string& federationName() const { return federationName_; }
  // In the order the file declares them, each superclass before its subclasses.
  const std::vector<DtFedInteractionClass>& interactionClasses() const { return interactions_; }
  // The class of that dotted full name or, failing that, the first one of that last name; null if none.
  const DtFedInteractionClass* findInteractionClass(const std::string& name) const;

 private:
  class Parser;
  class ModuleParser;
  const DtFedInteractionClass* findExact(const std::string& fullName) const;
  std::string source_;
  std::string federationName_;
  std::vector<DtFedInteractionClass> interactions_;
};
