// Removal from a list of callbacks while the list is being walked, as when a callback removes itself: an
// entry that goes during a walk is only marked, and the marked entries are swept out when the outermost walk
// ends, so that no walk ever steps onto a freed entry.
#pragma once

class DtDeferredRemoval {
 public:
  // Runs walk(); when the outermost walk ends, also sweep() if an entry was marked meanwhile. Both run even
  // when walk() throws.
  template <class Walk, class Sweep>
  void walk(Walk&& walk, Sweep&& sweep) {
    struct End {
      DtDeferredRemoval& self;
      Sweep& sweep;
      ~End() {
        if (--self.depth_ == 0 && self.marked_) {
          self.marked_ = false;
          sweep();
        }
      }
    };
    ++depth_;
    const End end{*this, sweep};
    walk();
  }

  // Inside a walk, however deeply nested.
  bool walking() const { return depth_ > 0; }

  // For an entry that goes: true when the caller may erase it now; false during a walk, when the caller only
  // marks it and its sweep erases it.
  bool eraseNow() {
    if (depth_ == 0) return true;
    marked_ = true;
    return false;
  }

 private:
  int depth_ = 0;
  bool marked_ = false;
};
