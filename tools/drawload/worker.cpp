#include "worker.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <signal.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct StatusName {
  FileStatus status;
  const char* name;
};

constexpr std::array<StatusName, 5> kStatusNames{{{FileStatus::kOk, "ok"},
                                                  {FileStatus::kEmpty, "empty"},
                                                  {FileStatus::kFailed, "failed"},
                                                  {FileStatus::kTimedOut, "timed out"},
                                                  {FileStatus::kCrashed, "crashed"}}};

/// The head of a report on its way through the pipe; the message follows it.
struct ReportHead {
  FileStatus status;
  std::size_t results;
};

constexpr rlim_t kMemoryLimit = rlim_t{4} << 30;
constexpr rlim_t kOutputLimit = rlim_t{4} << 30;

/// The processor's clock ends a worker even where nobody is left to end it.
void LimitThisProcess(double timeoutSeconds) {
  const auto seconds = static_cast<rlim_t>(std::ceil(std::min(timeoutSeconds, 1e6))) + 1;
  const rlimit time{seconds, seconds + 1};
  setrlimit(RLIMIT_CPU, &time);
  const rlimit noCore{0, 0};
  setrlimit(RLIMIT_CORE, &noCore);
  signal(SIGXFSZ, SIG_IGN);  // an output that grows too long is an error of its writer
  const rlimit output{kOutputLimit, kOutputLimit};
  setrlimit(RLIMIT_FSIZE, &output);
#if !defined(__SANITIZE_ADDRESS__)
  const rlimit memory{kMemoryLimit, kMemoryLimit};
  setrlimit(RLIMIT_AS, &memory);
#endif
}

WorkReport Guarded(const std::function<WorkReport()>& work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    return {FileStatus::kFailed, 0, "not enough memory"};
  } catch (const std::exception& error) {
    return {FileStatus::kFailed, 0, error.what()};
  }
}

void WriteAll(int pipe, const void* bytes, std::size_t size) {
  const char* next = static_cast<const char*>(bytes);
  while (size > 0) {
    const ssize_t written = write(pipe, next, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    next += written;
    size -= static_cast<std::size_t>(written);
  }
}

[[noreturn]] void WorkInThisProcess(const std::function<WorkReport()>& work, double timeoutSeconds,
                                    int pipe) {
  signal(SIGINT, SIG_IGN);  // the parent decides when a worker stops
  signal(SIGHUP, SIG_IGN);
  signal(SIGTERM, SIG_DFL);
  prctl(PR_SET_PDEATHSIG, SIGTERM);  // a parent that was killed no longer decides
  LimitThisProcess(timeoutSeconds);
  const WorkReport report = Guarded(work);
  const ReportHead head{report.status, report.results};
  WriteAll(pipe, &head, sizeof head);
  // What fits a pipe without a reader: the parent reads when the worker has ended.
  WriteAll(pipe, report.message.data(), std::min<std::size_t>(report.message.size(), 4000));
  _exit(0);
}

std::string ReadAll(int pipe) {
  std::string bytes;
  char buffer[4096];
  for (;;) {
    const ssize_t got = read(pipe, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return bytes;
    bytes.append(buffer, static_cast<std::size_t>(got));
  }
}

}  // namespace

const char* NameOf(FileStatus status) {
  const auto* found = std::find_if(kStatusNames.begin(), kStatusNames.end(),
                                   [status](const StatusName& entry) { return entry.status == status; });
  return found->name;
}

std::optional<FileStatus> StatusNamed(const std::string& name) {
  for (const StatusName& entry : kStatusNames) {
    if (name == entry.name) return entry.status;
  }
  return std::nullopt;
}

Worker::Worker(const std::function<WorkReport()>& work, double timeoutSeconds)
    : timeout(timeoutSeconds), started(std::chrono::steady_clock::now()) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0)
    throw std::runtime_error(std::string("cannot start a worker: ") + std::strerror(errno));
  processId = fork();
  if (processId == 0) {
    close(ends[0]);
    WorkInThisProcess(work, timeoutSeconds, ends[1]);
  }
  close(ends[1]);
  reportPipe = ends[0];
  running = processId > 0;
  if (!running) {
    close(reportPipe);
    throw std::runtime_error(std::string("cannot start a worker: ") + std::strerror(errno));
  }
}

Worker::~Worker() {
  Stop();
  if (reportPipe >= 0) close(reportPipe);
}

void Worker::Stop() {
  if (!running) return;
  kill(processId, SIGKILL);
  waitpid(processId, nullptr, 0);
  running = false;
}

double Worker::Seconds() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
}

std::optional<FileOutcome> Worker::Poll() {
  int status = 0;
  rusage usage = {};
  const pid_t ended = wait4(processId, &status, WNOHANG, &usage);
  if (ended == processId) {
    running = false;
    return Finish(status, usage.ru_maxrss);
  }
  if (!killed && Seconds() > timeout) {
    kill(processId, SIGKILL);
    killed = true;
  }
  return std::nullopt;
}

FileOutcome Worker::Finish(int waitStatus, long peakKilobytes) {
  FileOutcome outcome;
  outcome.seconds = Seconds();
  outcome.peakKilobytes = peakKilobytes;
  const bool outOfTime = killed || (WIFSIGNALED(waitStatus) && WTERMSIG(waitStatus) == SIGXCPU);
  if (outOfTime) {
    outcome.status = FileStatus::kTimedOut;
    outcome.message = "stopped after " + std::to_string(timeout) + " s; give it more with --timeout";
    return outcome;
  }
  const std::string report = ReadAll(reportPipe);
  if (!WIFEXITED(waitStatus) || WEXITSTATUS(waitStatus) != 0 || report.size() < sizeof(ReportHead)) {
    outcome.status = FileStatus::kCrashed;
    outcome.message = WIFSIGNALED(waitStatus)
                          ? std::string("ended by signal ") + strsignal(WTERMSIG(waitStatus))
                          : "ended without a report";
    return outcome;
  }
  ReportHead head;
  std::memcpy(&head, report.data(), sizeof head);
  outcome.status = head.status;
  outcome.results = head.results;
  outcome.message = report.substr(sizeof head);
  return outcome;
}
