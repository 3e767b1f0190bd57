#include "dtRtiLocalPart.h"

#include <mutex>
#include <vector>

void DtAbandonAmbassador(const void* ambassador) {
  static std::mutex guard;
  static auto* const abandoned = new std::vector<const void*>();  // never freed: see the declaration
  const std::lock_guard<std::mutex> lock(guard);
  abandoned->push_back(ambassador);
}
