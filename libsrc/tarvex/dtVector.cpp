#include "tarvex/dtVector.h"

#include <cstdio>

namespace {
DtString threeNumbers(double a, double b, double c) {
  char buffer[1100];
  std::snprintf(buffer, sizeof buffer, "%f %f %f", a, b, c);
  return DtString(buffer);
}
}  // namespace

DtString DtVector64::string() const { return threeNumbers(x(), y(), z()); }

DtString DtTaitBryan::string() const { return threeNumbers(psi(), theta(), phi()); }
