// Wire layouts of the control PDUs: every offset is stated here once, and the accessors, text forms and dumps
// read them from here. Offsets are from the first byte of the PDU header.
#pragma once

namespace VcLayout {

// Width of a name field (entity id, viewer id) and of a marking-text field.
constexpr int kNameWidth = 64;

// The fixed part shared by every control PDU.
struct Fixed {
  static constexpr int viewerId = 12;
  static constexpr int senderId = viewerId + kNameWidth;  // 76
  static constexpr int command = 146;
  static constexpr int ignoreFlags = 152;
  static constexpr int length = 152;  // the request-state PDU ends here, before the ignore flags
  static constexpr int bodyStart = ignoreFlags + 4;
  // Draw-control images carry a mark where view-control images carry their ignore flags.
  static constexpr int drawMark = 152;
  static constexpr int drawVersion = 156;
};
static_assert(Fixed::senderId + kNameWidth + 6 == Fixed::command, "reserved bytes 140..145");
static_assert(Fixed::bodyStart == 156, "view-control bodies start at 156");

struct Absolute {
  static constexpr int location = 160;  // 3 x f64; 156..159 padding
  static constexpr int orientation = location + 24;  // 3 x f32 psi, theta, phi
  static constexpr int length = orientation + 12;
};
static_assert(Absolute::length == 196, "absolute PDU is 196 bytes");

struct Move {
  static constexpr int turn = 156;   // u8
  static constexpr int move = 157;   // u8
  static constexpr int reset = 158;  // u8; 159 padding
  static constexpr int position = 160;  // 3 x f64
  static constexpr int orientation = position + 24;  // 3 x f64 psi, theta, phi
  static constexpr int length = orientation + 24;
};
static_assert(Move::length == 208, "move PDU is 208 bytes");

}  // namespace VcLayout
