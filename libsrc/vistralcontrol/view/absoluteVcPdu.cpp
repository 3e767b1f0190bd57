#include "vistralcontrol/absoluteVcPdu.h"

#include <cstdio>

#include "tarvex/dtDump.h"
#include "vcViewLayout.h"

using VcLayout::Absolute;

DtAbsoluteVCPdu::DtAbsoluteVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Absolute::length, "storage for the image");
  useStorage(storage_);
  initPdu(Absolute::length, holder);
  setViewerCommand(DtVcAbsolute);
}

DtAbsoluteVCPdu::DtAbsoluteVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                 DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtAbsoluteVCPdu::~DtAbsoluteVCPdu() = default;

const DtVector64& DtAbsoluteVCPdu::worldLocation() const {
  location_ = f64VectorAt(Absolute::location);
  return location_;
}

void DtAbsoluteVCPdu::setWorldLocation(const DtVector64& location) {
  setF64VectorAt(Absolute::location, location);
}

const DtTaitBryan& DtAbsoluteVCPdu::orientation() const {
  orientation_ = eulerAt(Absolute::orientation);
  return orientation_;
}

void DtAbsoluteVCPdu::setOrientation(const DtTaitBryan& orientation) {
  setEulerAt(Absolute::orientation, orientation);
}

const char* DtAbsoluteVCPdu::string() const {
  const DtVector64 l = worldLocation();
  const DtTaitBryan o = orientation();
  return formatText("%lf %lf %lf %f %f %f", l.x(), l.y(), l.z(), o.psi(), o.theta(), o.phi());
}

void DtAbsoluteVCPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  // Fields the text does not give are set to zero.
  double x = 0, y = 0, z = 0;
  float psi = 0, theta = 0, phi = 0;
  std::sscanf(text, "%lf %lf %lf %f %f %f", &x, &y, &z, &psi, &theta, &phi);
  setWorldLocation(DtVector64(x, y, z));
  setOrientation(DtTaitBryan(psi, theta, phi));
}

void DtAbsoluteVCPdu::printData() const {
  DtVistralControlPdu::printData();
  DtDumpString("Location:", worldLocation().string());
  DtDumpString("Orientation:", orientation().string());
}
