#include "support/broken_pipe_guard.h"

#if defined(__unix__)
#include <csignal>
#include <ctime>
#endif

namespace support {

#if defined(__unix__)

namespace {

sigset_t BrokenPipe() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  return signals;
}

}  // namespace

BrokenPipeGuard::BrokenPipeGuard() {
  const sigset_t brokenPipe = BrokenPipe();
  sigset_t before;
  sigemptyset(&before);
  if (pthread_sigmask(SIG_BLOCK, &brokenPipe, &before) != 0) return;
  isBlocking = sigismember(&before, SIGPIPE) == 0;
}

BrokenPipeGuard::~BrokenPipeGuard() {
  if (!isBlocking) return;
  const sigset_t brokenPipe = BrokenPipe();
  const timespec atOnce = {};
  // The signal that a write left waiting is taken off before it could be delivered.
  sigtimedwait(&brokenPipe, nullptr, &atOnce);
  pthread_sigmask(SIG_UNBLOCK, &brokenPipe, nullptr);
}

#else

BrokenPipeGuard::BrokenPipeGuard() = default;
BrokenPipeGuard::~BrokenPipeGuard() = default;

#endif

}  // namespace support
