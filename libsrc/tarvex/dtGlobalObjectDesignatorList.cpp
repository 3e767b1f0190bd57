#include "tarvex/dtGlobalObjectDesignatorList.h"

const DtString& DtGlobalObjectDesignatorList::name(int i) const {
  static const DtString kNone("");
  return i >= 0 && i < count() ? names_[static_cast<std::size_t>(i)] : kNone;
}

void DtGlobalObjectDesignatorList::remove(int i) {
  if (i >= 0 && i < count()) names_.erase(names_.begin() + i);
}
