// An ordered list of entity names, as carried in group and modeless commands.
#pragma once

#include <initializer_list>
#include <vector>

#include "tarvex/dtString.h"
#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtGlobalObjectDesignatorList {
 public:
  DtGlobalObjectDesignatorList() = default;
  // The names in the order given.
  DtGlobalObjectDesignatorList(std::initializer_list<DtString> names) : names_(names) {}

  // How many names the list holds.
  int count() const { return static_cast<int>(names_.size()); }
  // The name at index i, or an empty string when i is out of range.
  const DtString& name(int i) const;
  // Appends a name.
  void add(const DtString& name) { names_.push_back(name); }
  // Removes the entry at index i; an out-of-range index changes nothing.
  void remove(int i);
  // Removes every name.
  void clear() { names_.clear(); }

 private:
  std::vector<DtString> names_;
};
