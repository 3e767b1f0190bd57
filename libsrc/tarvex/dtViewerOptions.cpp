#include "tarvex/dtViewerOptions.h"

#include <iterator>

namespace {
template <std::size_t N>
const char* nameOf(const char* const (&names)[N], int value) {
  return value >= 0 && value < static_cast<int>(N) ? names[value] : "UnknownEnum";
}

// Indexed by value.
constexpr const char* kOverlayNames[] = {"OverlayNone", "OverlayMinimal", "OverlayFull"};
constexpr const char* kSmoothingNames[] = {"SmoothingOff", "SmoothingLinear", "SmoothingCubic"};
static_assert(std::size(kOverlayNames) == DtOverlayFull + 1, "one name per overlay option");
static_assert(std::size(kSmoothingNames) == DtSmoothingCubic + 1, "one name per smoothing option");
}  // namespace

const char* DtEnumString(DtOverlayOption option) { return nameOf(kOverlayNames, option); }

const char* DtEnumString(DtSmoothingOption option) { return nameOf(kSmoothingNames, option); }
