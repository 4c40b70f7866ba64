#include "faults/child.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <new>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace {

enum ExitCode { kWell = 0, kWrongAnswer = 100, kOutOfMemory, kLeaked, kThrew };

constexpr std::size_t kMostAnswerBytes = 2000;  // fits a pipe that nobody reads yet
constexpr unsigned kWallSeconds = 120;          // ends a child that waits without using the processor

void SetLimit(decltype(RLIMIT_CPU) resource, rlim_t value) {
  const rlimit limit{value, value};
  setrlimit(resource, &limit);
}

#if defined(__SANITIZE_ADDRESS__)
void LimitThisProcess(const ChildLimits& limits) { SetLimit(RLIMIT_CPU, 10 * limits.cpuSeconds); }
bool HasLeaks() { return __lsan_do_recoverable_leak_check() != 0; }
#else
void LimitThisProcess(const ChildLimits& limits) {
  SetLimit(RLIMIT_CPU, limits.cpuSeconds);
  SetLimit(RLIMIT_AS, limits.memoryBytes);
  // An allocation that fails would be caught and hidden by whoever guards against it.
  std::set_new_handler([] { _exit(kOutOfMemory); });
}
bool HasLeaks() { return false; }
#endif

int ExitCodeOf(const std::function<std::string()>& work, int pipe) {
  try {
    const std::string answer = work();
    const std::size_t size = std::min(answer.size(), kMostAnswerBytes);
    if (write(pipe, answer.data(), size) != static_cast<ssize_t>(size)) return kThrew;
    if (!answer.empty()) return kWrongAnswer;
  } catch (...) {
    return kThrew;
  }
  return HasLeaks() ? kLeaked : kWell;
}

[[noreturn]] void WorkInThisProcess(const std::function<std::string()>& work, const ChildLimits& limits,
                                    int pipe) {
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(nowhere, STDOUT_FILENO);
  SetLimit(RLIMIT_CORE, 0);
  alarm(kWallSeconds);
  LimitThisProcess(limits);
  _exit(ExitCodeOf(work, pipe));
}

std::string ReadAll(int pipe) {
  std::string bytes(kMostAnswerBytes, '\0');
  const ssize_t got = read(pipe, bytes.data(), bytes.size());
  bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
  return bytes;
}

std::string Judge(int status, const std::string& answer) {
  if (WIFSIGNALED(status)) return std::string("ended by signal ") + strsignal(WTERMSIG(status));
  switch (WEXITSTATUS(status)) {
    case kWell: return {};
    case kWrongAnswer: return answer;
    case kOutOfMemory: return "ran out of memory";
    case kLeaked: return "leaked";
    case kThrew: return "threw an exception";
    default: return "ended with code " + std::to_string(WEXITSTATUS(status));
  }
}

}  // namespace

std::string RunInChild(const std::function<std::string()>& work, const ChildLimits& limits) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error(std::strerror(errno));
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error(std::strerror(errno));
  if (child == 0) WorkInThisProcess(work, limits, ends[1]);
  close(ends[1]);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  const std::string answer = ReadAll(ends[0]);
  close(ends[0]);
  return Judge(status, answer);
}
