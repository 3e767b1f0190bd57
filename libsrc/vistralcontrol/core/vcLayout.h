// Wire layout of the fixed part that every control PDU shares; the view and draw bodies state their own
// layouts behind it (view/vcViewLayout.h, draw/vdcLayout.h). Offsets are from the first byte of the PDU
// header.
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
  // What the creation of a PDU from an image reads besides the image's own stated length: the kind, the
  // length, the command and the draw mark and version all lie before this.
  static constexpr int classifiedBy = drawVersion + 2;
};
static_assert(Fixed::senderId + kNameWidth + 6 == Fixed::command, "reserved bytes 140..145");
static_assert(Fixed::bodyStart == 156, "view-control bodies start at 156");

}  // namespace VcLayout
