// Geometry value types: a vector of three doubles and Tait-Bryan angles (psi heading, theta pitch, phi roll).
#pragma once

#include "tarvex/dtString.h"
#include "tarvex/tarvexExport.h"

class TARVEX_EXPORT DtVector64 {
 public:
  constexpr DtVector64() = default;
  // A vector of the three components.
  constexpr DtVector64(double x, double y, double z) : v_{x, y, z} {}

  // The components.
  constexpr double x() const { return v_[0]; }
  constexpr double y() const { return v_[1]; }
  constexpr double z() const { return v_[2]; }
  // Change one component.
  void setX(double x) { v_[0] = x; }
  void setY(double y) { v_[1] = y; }
  void setZ(double z) { v_[2] = z; }
  // Components 0, 1, 2; any other index reads as zero.
  double operator[](int i) const { return i >= 0 && i < 3 ? v_[i] : 0.0; }

  // Component-wise sum, difference and scaling, and exact comparison.
  DtVector64 operator+(const DtVector64& o) const { return {x() + o.x(), y() + o.y(), z() + o.z()}; }
  DtVector64 operator-(const DtVector64& o) const { return {x() - o.x(), y() - o.y(), z() - o.z()}; }
  DtVector64 operator*(double s) const { return {x() * s, y() * s, z() * s}; }
  bool operator==(const DtVector64& o) const { return x() == o.x() && y() == o.y() && z() == o.z(); }
  bool operator!=(const DtVector64& o) const { return !(*this == o); }

  // "x y z", each "%f".
  DtString string() const;

 private:
  double v_[3] = {0.0, 0.0, 0.0};
};

// An orientation as Tait-Bryan angles: psi (heading), theta (pitch) and phi (roll).
class TARVEX_EXPORT DtTaitBryan {
 public:
  constexpr DtTaitBryan() = default;
  // The orientation of the three angles.
  constexpr DtTaitBryan(double psi, double theta, double phi) : psi_(psi), theta_(theta), phi_(phi) {}

  // The angles.
  constexpr double psi() const { return psi_; }
  constexpr double theta() const { return theta_; }
  constexpr double phi() const { return phi_; }
  // Change one angle.
  void setPsi(double v) { psi_ = v; }
  void setTheta(double v) { theta_ = v; }
  void setPhi(double v) { phi_ = v; }

  // Exact comparison of the three angles.
  bool operator==(const DtTaitBryan& o) const {
    return psi_ == o.psi_ && theta_ == o.theta_ && phi_ == o.phi_;
  }
  // Any angle differs.
  bool operator!=(const DtTaitBryan& o) const { return !(*this == o); }

  // "psi theta phi", each "%f".
  DtString string() const;

 private:
  double psi_ = 0.0;
  double theta_ = 0.0;
  double phi_ = 0.0;
};
