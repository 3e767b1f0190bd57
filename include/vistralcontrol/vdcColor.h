// An RGBA overlay colour that keeps an HSV view of itself in step: RGB setters recompute hue, saturation and
// value, HSV setters recompute red, green and blue. Alpha takes part in neither conversion.
#pragma once

#include "vistralcontrol/vistralExport.h"

class VISTRAL_EXPORT DtVdcColor {
 public:
  // Opaque named colours.
  static const DtVdcColor DtVdcWhite;
  static const DtVdcColor DtVdcBlack;
  static const DtVdcColor DtVdcRed;
  static const DtVdcColor DtVdcGreen;
  static const DtVdcColor DtVdcBlue;
  static const DtVdcColor DtVdcYellow;
  static const DtVdcColor DtVdcPurple;
  static const DtVdcColor DtVdcOrange;

  // Opaque black; the HSV view is only meaningful after a setter.
  constexpr DtVdcColor() = default;
  // constexpr so that the class constants are ready before any other code runs at load time.
  constexpr DtVdcColor(unsigned int red, unsigned int green, unsigned int blue, unsigned int alpha)
      : red_(red), green_(green), blue_(blue), alpha_(alpha) {
    toHSV();
  }

  // Channels only: two colours with a stale HSV view still compare equal.
  bool operator==(const DtVdcColor& other) const {
    return red_ == other.red_ && green_ == other.green_ && blue_ == other.blue_ && alpha_ == other.alpha_;
  }
  bool operator!=(const DtVdcColor& other) const { return !(*this == other); }

  // The channels, 0 to 255.
  unsigned int red() const { return red_; }
  unsigned int green() const { return green_; }
  unsigned int blue() const { return blue_; }
  unsigned int alpha() const { return alpha_; }
  // The HSV view: hue in whole degrees (0 to 359), saturation and value from 0 to 1.
  unsigned int hue() const { return hue_; }
  double saturation() const { return saturation_; }
  double value() const { return value_; }

  // Each RGB setter recomputes the HSV view; alpha stands apart.
  void setRed(unsigned int red);
  void setGreen(unsigned int green);
  void setBlue(unsigned int blue);
  void setAlpha(unsigned int alpha);
  // Each HSV setter recomputes red, green and blue; setHSV sets the alpha too.
  void setHue(unsigned int hue);
  void setSaturation(double saturation);
  void setValue(double value);
  void setHSV(unsigned int hue, double saturation, double value, unsigned int alpha);

  // 0 red, 1 green, 2 blue, 3 alpha; any other index throws DtException. A write through the reference
  // leaves the HSV view as it was.
  unsigned int operator[](int index) const;
  unsigned int& operator[](int index);

 private:
  constexpr void toHSV() {
    const double r = red_ / 255.0, g = green_ / 255.0, b = blue_ / 255.0;
    const double max = r > g ? (r > b ? r : b) : (g > b ? g : b);
    const double min = r < g ? (r < b ? r : b) : (g < b ? g : b);
    const double delta = max - min;
    value_ = max;
    if (delta == 0.0) {
      saturation_ = 0.0;
      hue_ = 0;
      return;
    }
    saturation_ = delta / max;
    double h = r == max ? (g - b) / delta : g == max ? 2.0 + (b - r) / delta : 4.0 + (r - g) / delta;
    h *= 60.0;
    if (h < 0.0) h += 360.0;
    hue_ = static_cast<unsigned int>(h);  // h is in [0, 360) here
  }
  void fromHSV();

  unsigned int red_ = 0;
  unsigned int green_ = 0;
  unsigned int blue_ = 0;
  unsigned int alpha_ = 255;
  unsigned int hue_ = 0;
  double saturation_ = 0.0;
  double value_ = 0.0;
};
