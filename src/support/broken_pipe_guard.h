#ifndef DRAWLOAD_SUPPORT_BROKEN_PIPE_GUARD_H
#define DRAWLOAD_SUPPORT_BROKEN_PIPE_GUARD_H

namespace support {

/// For as long as it lives, writing to a pipe that nobody reads is an error and not the end of the program.
/// For this thread alone, and only where the host has not settled it itself.
class BrokenPipeGuard {
 public:
  BrokenPipeGuard();
  BrokenPipeGuard(const BrokenPipeGuard&) = delete;
  BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;
  ~BrokenPipeGuard();

 private:
  bool isBlocking = false;
};

}  // namespace support

#endif
