// For RTIs whose local part runs in a process of its own (CERTI's rtia, which exits when its server goes
// away): what keeps the federate alive once that process is gone, so that the loss is reported rather than
// fatal.
#pragma once

#include <pthread.h>
#include <signal.h>

#include <ctime>

// Keeps SIGPIPE from ending the process during one call into the RTI: a write to a local part that is gone
// raises it, and its default ends the program before the RTI can report the loss as an exception. The signal
// is blocked in the calling thread for the call, and one the call raised is taken before the mask is
// restored; the application's own handler and its other threads are left as they are.
class DtPipeSignalGuard {
 public:
  // on: whether the RTI needs it; otherwise the guard does nothing.
  explicit DtPipeSignalGuard(bool on) {
    if (!on) return;
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    pendingBefore_ = pending();
    active_ = pthread_sigmask(SIG_BLOCK, &pipe_, &saved_) == 0;
  }
  ~DtPipeSignalGuard() {
    if (!active_) return;
    // One that was pending before is the application's, and stays.
    if (!pendingBefore_ && pending()) {
      const timespec now{};
      sigtimedwait(&pipe_, nullptr, &now);
    }
    pthread_sigmask(SIG_SETMASK, &saved_, nullptr);
  }
  DtPipeSignalGuard(const DtPipeSignalGuard&) = delete;
  DtPipeSignalGuard& operator=(const DtPipeSignalGuard&) = delete;

 private:
  static bool pending() {
    sigset_t set;
    sigemptyset(&set);
    return sigpending(&set) == 0 && sigismember(&set, SIGPIPE) == 1;
  }

  // Set only when active_: a guard that is off costs nothing on the RTIs that need none.
  sigset_t pipe_;
  sigset_t saved_;
  bool pendingBefore_ = false;
  bool active_ = false;
};

// Keeps an RTI ambassador whose local part is gone from being destroyed: its destructor would fail to close
// the link to it, and some RTIs then end the process. It stays reachable until the process exits, one per
// loss, so it is no leak.
void DtAbandonAmbassador(const void* ambassador);
