// The constructors and destructor of a draw-control PDU class, written once for the 19 current and version-0
// classes. Each class is its family's base over an image of one layout: the classes differ only in the length
// of their empty image, the parameter version they mark it with (0 for the version-0 classes), where their
// storage is, and what a new image starts with. The public classes declare these members one by one, so the
// definitions are stamped into each class from here.
#pragma once

#include "vdcLayout.h"

// Class(holder) builds an empty image of the given length and then runs onNew (statements, which test
// holder themselves where a PDU built into a caller's buffer must start as it is); Class(image, ...) wraps a
// received image. init is the base class's constructor call; prologue runs first in both constructors.
// NOLINTBEGIN(bugprone-macro-parentheses): init names a base class in an initialiser list, where parentheses
// cannot go.
#define VDC_DRAW_PDU_CLASS_AS(Class, init, prologue, command, length, version, onNew)                \
  Class::Class(DtBufferPlaceHolder* holder) : init {                                                 \
    prologue;                                                                                        \
    initDraw((length), holder, (command), (version));                                                \
    onNew;                                                                                           \
  }                                                                                                  \
  Class::Class(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory) \
      : init {                                                                                       \
    prologue;                                                                                        \
    initDraw(image, holder, factory, (command));                                                     \
  }                                                                                                  \
  Class::~Class() = default;
// NOLINTEND(bugprone-macro-parentheses)

// A class whose family keeps the image's storage in its base class.
#define VDC_DRAW_PDU_CLASS(Class, Base, command, length, version, onNew) \
  VDC_DRAW_PDU_CLASS_AS(Class, Base(), , command, length, version, onNew)

// The storage a class keeps for its image holds exactly bytes (the family's longest empty image and what it
// is sized to carry beyond it); written where storage_ is in reach: a class's constructor, or the destructor
// of a family's base class.
#define VDC_CHECK_STORAGE(bytes) \
  static_assert(decltype(storage_)::kCapacity == (bytes), "the storage is sized for the family's image")

// A family's base class that keeps the storage: its destructor, with the storage's size checked.
#define VDC_DRAW_PDU_BASE(Base, bytes) \
  Base::~Base() { VDC_CHECK_STORAGE(bytes); }

// A class that keeps storage of its own: it is checked and handed over before the image is built or read.
#define VDC_DRAW_PDU_CLASS_OWN_STORAGE(Class, Base, bytes, command, length, version, onNew) \
  VDC_DRAW_PDU_CLASS_AS(Class, Base(), VDC_CHECK_STORAGE(bytes);                            \
                        useStorage(storage_), command, length, version, onNew)
