#include "vistralcontrol/vdcColor.h"

#include <cmath>

#include "vdcFill.h"
#include "vdcThrow.h"

const DtVdcColor DtVdcColor::DtVdcWhite(255, 255, 255, 255);
const DtVdcColor DtVdcColor::DtVdcBlack(0, 0, 0, 255);
const DtVdcColor DtVdcColor::DtVdcRed(255, 0, 0, 255);
const DtVdcColor DtVdcColor::DtVdcGreen(0, 255, 0, 255);
const DtVdcColor DtVdcColor::DtVdcBlue(0, 0, 255, 255);
const DtVdcColor DtVdcColor::DtVdcYellow(255, 255, 0, 255);
const DtVdcColor DtVdcColor::DtVdcPurple(255, 0, 255, 255);
const DtVdcColor DtVdcColor::DtVdcOrange(255, 128, 0, 255);

void DtVdcColor::setRed(unsigned int red) {
  red_ = red;
  toHSV();
}
void DtVdcColor::setGreen(unsigned int green) {
  green_ = green;
  toHSV();
}
void DtVdcColor::setBlue(unsigned int blue) {
  blue_ = blue;
  toHSV();
}
void DtVdcColor::setAlpha(unsigned int alpha) { alpha_ = alpha; }

void DtVdcColor::setHue(unsigned int hue) {
  hue_ = hue;
  fromHSV();
}
void DtVdcColor::setSaturation(double saturation) {
  saturation_ = saturation;
  fromHSV();
}
void DtVdcColor::setValue(double value) {
  value_ = value;
  fromHSV();
}
void DtVdcColor::setHSV(unsigned int hue, double saturation, double value, unsigned int alpha) {
  hue_ = hue;
  saturation_ = saturation;
  value_ = value;
  alpha_ = alpha;
  fromHSV();
}

void DtVdcColor::fromHSV() {
  // Each channel is 255 times a fraction, truncated and neither rounded nor clamped: a value above 1 gives
  // channels above 255.
  using VdcFill::truncU32;
  const unsigned int v = truncU32(255.0 * value_);
  if (saturation_ == 0.0) {
    red_ = green_ = blue_ = v;
    return;
  }
  double h = hue_;
  if (h == 360.0) h = 0.0;
  h /= 60.0;
  const double i = std::floor(h);
  const double f = h - i;
  const unsigned int p = truncU32(255.0 * (1.0 - saturation_) * value_);
  const unsigned int q = truncU32(255.0 * (1.0 - saturation_ * f) * value_);
  const unsigned int t = truncU32(255.0 * (1.0 - saturation_ * (1.0 - f)) * value_);
  const unsigned int rgb[6][3] = {{v, t, p}, {q, v, p}, {p, v, t}, {p, q, v}, {t, p, v}, {v, p, q}};
  // Sector 5 and every hue past 360 share the last row.
  const int sector = i < 5.0 ? static_cast<int>(i) : 5;
  red_ = rgb[sector][0];
  green_ = rgb[sector][1];
  blue_ = rgb[sector][2];
}

namespace {
// Red, green, blue, alpha by index 0..3; another index is refused, naming the operator that was asked.
template <class Channel>
Channel& channelAt(Channel* const (&rgba)[4], int index, const char* function, int line) {
  if (index < 0 || index > 3) VDC_THROW_IN("Invalid index (should be 0..3)", function, "vdcColor.cpp", line);
  return *rgba[index];
}
}  // namespace

unsigned int DtVdcColor::operator[](int index) const {
  const unsigned int* const rgba[4] = {&red_, &green_, &blue_, &alpha_};
  return channelAt(rgba, index, __PRETTY_FUNCTION__, 93);
}

unsigned int& DtVdcColor::operator[](int index) {
  unsigned int* const rgba[4] = {&red_, &green_, &blue_, &alpha_};
  return channelAt(rgba, index, __PRETTY_FUNCTION__, 115);
}
