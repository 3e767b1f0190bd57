// A two-component vector in the viewer's screen plane, with the small set of free functions that drawing
// code uses on it.
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralExport.h"

// Names for the two indices.
enum DtVdcVector2DOffset : int { DtVdcVector2DX = 0, DtVdcVector2DY = 1 };

// Two components in the screen plane: a point of the screen (0 to 1 on each axis) or a step between two.
class VISTRAL_EXPORT DtVdcVector2D {
 public:
  // The zero vector, the unit vectors along x and y, and (1, 1).
  static const DtVdcVector2D vec_zero;
  static const DtVdcVector2D vec_i;
  static const DtVdcVector2D vec_j;
  static const DtVdcVector2D vec_identity;

  constexpr DtVdcVector2D() = default;
  // The vector (x, y).
  constexpr DtVdcVector2D(double x, double y) : v_{x, y} {}

  // The components.
  double x() const { return v_[0]; }
  double y() const { return v_[1]; }
  // 0 is x, 1 is y. Any other index reads as zero, and a write through it lands in a scratch value that the
  // next such access resets: the vector itself is never written outside its two components.
  double operator[](int index) const { return index == 0 || index == 1 ? v_[index] : 0.0; }
  double& operator[](int index);
  double operator[](DtVdcVector2DOffset offset) const { return (*this)[static_cast<int>(offset)]; }
  // x then y.
  operator double*() { return v_; }              // NOLINT: implicit by design
  operator const double*() const { return v_; }  // NOLINT: implicit by design

  // The dot product, and the squared length.
  double dotProduct(const DtVdcVector2D& other) const { return x() * other.x() + y() * other.y(); }
  double magnitudeSquared() const { return dotProduct(*this); }
  // A zero or unit vector is left exactly as it is.
  void normalize();
  // Each component within tolerance of the other's.
  bool approxEq(const DtVdcVector2D& other, double tolerance) const;
  // Exactly zero, or within epsilon of zero length.
  bool magnitudeIsZero() const { return x() == 0.0 && y() == 0.0; }
  bool magnitudeIsZero(double epsilon) const;
  // Component-wise.
  DtVdcVector2D& operator+=(const DtVdcVector2D& other);
  DtVdcVector2D& operator-=(const DtVdcVector2D& other);
  // (x, y, 0).
  DtVector64 vector3D() const { return DtVector64(x(), y(), 0.0); }

 private:
  double v_[2] = {0.0, 0.0};
};

// Component-wise sum and difference.
VISTRAL_EXPORT DtVdcVector2D operator+(const DtVdcVector2D& a, const DtVdcVector2D& b);
VISTRAL_EXPORT DtVdcVector2D operator-(const DtVdcVector2D& a, const DtVdcVector2D& b);

// out = -a.
VISTRAL_EXPORT void DtVecNeg(const DtVdcVector2D& a, DtVdcVector2D& out);
// Within 1e-9 of zero length out is left untouched; within 1e-9 of unit length out is a copy of a.
VISTRAL_EXPORT void DtVecNormalize(const DtVdcVector2D& a, DtVdcVector2D& out);
// out = s * a, and out = a - b.
VISTRAL_EXPORT void DtVecScale(const DtVdcVector2D& a, double s, DtVdcVector2D& out);
VISTRAL_EXPORT void DtVecSub(const DtVdcVector2D& a, const DtVdcVector2D& b, DtVdcVector2D& out);
// No guard for zero-length vectors.
VISTRAL_EXPORT double DtVecCosProd(const DtVdcVector2D& a, const DtVdcVector2D& b);
// The larger of the components' magnitudes.
VISTRAL_EXPORT double DtVecInfNorm(const DtVdcVector2D& a);
// The distance between two points, and its square.
VISTRAL_EXPORT double DtDistance(const DtVdcVector2D& a, const DtVdcVector2D& b);
VISTRAL_EXPORT double DtDistSqr(const DtVdcVector2D& a, const DtVdcVector2D& b);
