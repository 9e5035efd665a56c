// The mouse pointer during work and during questions asked in the middle of it.
#pragma once

namespace tools {

/// Shows the hourglass while it lives; may be nested.
class WaitCursor {
 public:
  WaitCursor();
  ~WaitCursor();
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

/// Gives the user the normal pointer back while it lives, whatever hourglass is shown.
class ArrowCursor {
 public:
  ArrowCursor();
  ~ArrowCursor();
  ArrowCursor(const ArrowCursor&) = delete;
  ArrowCursor& operator=(const ArrowCursor&) = delete;

 private:
  bool shown_ = false;
};

}  // namespace tools
