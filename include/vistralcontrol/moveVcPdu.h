// Move: step or turn the eye, or reset it (viewer command 13, 208 bytes).
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtMoveVCPdu : public DtVistralControlPdu {
 public:
  // A direction to step or turn the eye in; one byte on the wire.
  enum Direction : int { LEFT = 0, RIGHT = 1, UP = 2, DOWN = 3, FORWARDS = 4, BACKWARDS = 5 };

  explicit DtMoveVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtMoveVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtMoveVCPdu() override;

  // "turn move x y z"; orientation and reset have no text form.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // One step of the eye: the direction it turns in and the direction it moves in (ignore bit
  // DtVcIgnore::Step).
  Direction turn() const;
  void setTurn(Direction direction);
  Direction move() const;
  void setMove(Direction direction);
  // Where to put the eye (ignore bits DtVcIgnore::Position) and how to turn it (DtVcIgnore::Orientation), as
  // 64-bit floats.
  DtVector64 position() const;
  void setPosition(const DtVector64& position);
  DtTaitBryan orientation() const;
  void setOrientation(const DtTaitBryan& orientation);
  // The reset flag, which asks the viewer to reset its eye; DtVistralRemoteController::reset() sends it.
  bool reset() const;
  void setReset(bool reset);

  // "LEFT" .. "BACKWARDS", or null outside 0..5.
  static const char* directionText(int direction);

 private:
  DtPduStorage<208> storage_;
};
