#include "vistralcontrol/vdcVector2D.h"

#include <algorithm>
#include <cmath>

const DtVdcVector2D DtVdcVector2D::vec_zero(0.0, 0.0);
const DtVdcVector2D DtVdcVector2D::vec_i(1.0, 0.0);
const DtVdcVector2D DtVdcVector2D::vec_j(0.0, 1.0);
const DtVdcVector2D DtVdcVector2D::vec_identity(1.0, 1.0);

double& DtVdcVector2D::operator[](int index) {
  if (index == 0 || index == 1) return v_[index];
  static thread_local double scratch;
  scratch = 0.0;
  return scratch;
}

void DtVdcVector2D::normalize() {
  const double m = magnitudeSquared();
  if (m == 0.0 || m == 1.0) return;
  const double length = std::sqrt(m);
  v_[0] /= length;
  v_[1] /= length;
}

bool DtVdcVector2D::approxEq(const DtVdcVector2D& other, double tolerance) const {
  return std::fabs(x() - other.x()) <= tolerance && std::fabs(y() - other.y()) <= tolerance;
}

bool DtVdcVector2D::magnitudeIsZero(double epsilon) const {
  return std::fabs(x()) <= epsilon && std::fabs(y()) <= epsilon;
}

DtVdcVector2D& DtVdcVector2D::operator+=(const DtVdcVector2D& other) {
  v_[0] += other.x();
  v_[1] += other.y();
  return *this;
}

DtVdcVector2D& DtVdcVector2D::operator-=(const DtVdcVector2D& other) {
  v_[0] -= other.x();
  v_[1] -= other.y();
  return *this;
}

DtVdcVector2D operator+(const DtVdcVector2D& a, const DtVdcVector2D& b) {
  return DtVdcVector2D(a.x() + b.x(), a.y() + b.y());
}
DtVdcVector2D operator-(const DtVdcVector2D& a, const DtVdcVector2D& b) {
  return DtVdcVector2D(a.x() - b.x(), a.y() - b.y());
}

void DtVecNeg(const DtVdcVector2D& a, DtVdcVector2D& out) { out = DtVdcVector2D(-a.x(), -a.y()); }

void DtVecNormalize(const DtVdcVector2D& a, DtVdcVector2D& out) {
  constexpr double kTolerance = 1e-9;
  const double m = a.magnitudeSquared();
  if (std::fabs(m) <= kTolerance) return;
  if (std::fabs(m - 1.0) <= kTolerance) {
    out = a;
    return;
  }
  const double length = std::sqrt(m);
  out = DtVdcVector2D(a.x() / length, a.y() / length);
}

void DtVecScale(const DtVdcVector2D& a, double s, DtVdcVector2D& out) {
  out = DtVdcVector2D(s * a.x(), s * a.y());
}

void DtVecSub(const DtVdcVector2D& a, const DtVdcVector2D& b, DtVdcVector2D& out) { out = a - b; }

double DtVecCosProd(const DtVdcVector2D& a, const DtVdcVector2D& b) {
  return a.dotProduct(b) / (std::sqrt(a.magnitudeSquared()) * std::sqrt(b.magnitudeSquared()));
}

double DtVecInfNorm(const DtVdcVector2D& a) { return std::max(std::fabs(a.x()), std::fabs(a.y())); }

double DtDistance(const DtVdcVector2D& a, const DtVdcVector2D& b) {
  const DtVdcVector2D d = a - b;
  return std::sqrt(d.dotProduct(d));
}

double DtDistSqr(const DtVdcVector2D& a, const DtVdcVector2D& b) {
  // Written over three components for the sake of 3D callers; the third reads as zero.
  const DtVdcVector2D d = a - b;
  return d[0] * d[0] + d[1] * d[1] + d[2] * d[2];
}
