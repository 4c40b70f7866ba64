#ifndef DRAWLOAD_TOOLS_WORKER_H
#define DRAWLOAD_TOOLS_WORKER_H

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>

/// What became of one file of a batch.
enum class FileStatus { kOk, kEmpty, kFailed, kTimedOut, kCrashed };

const char* NameOf(FileStatus status);
std::optional<FileStatus> StatusNamed(const std::string& name);

struct FileOutcome {
  FileStatus status = FileStatus::kFailed;
  std::size_t results = 0;
  std::string message;  ///< empty where there is nothing to say
  double seconds = 0.0;
  long peakKilobytes = 0;  ///< largest resident memory of the worker
};

/// What the work in the worker process reports of itself.
struct WorkReport {
  FileStatus status = FileStatus::kFailed;
  std::size_t results = 0;
  std::string message;
};

/// A process that does one piece of work, so that nothing the work does can harm anything else.
class Worker {
 public:
  /// Starts `work` in a process of its own with limits on its time and memory. Throws std::runtime_error
  /// where no process can be started.
  Worker(const std::function<WorkReport()>& work, double timeoutSeconds);
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker();

  /// Ends the process at once, where it still runs.
  void Stop();
  pid_t ProcessId() const { return processId; }

  /// The outcome, once the process has ended; ends it where its time is up.
  std::optional<FileOutcome> Poll();

 private:
  FileOutcome Finish(int waitStatus, long peakKilobytes);
  double Seconds() const;

  pid_t processId = -1;
  bool running = false;
  int reportPipe = -1;
  bool killed = false;
  double timeout;
  std::chrono::steady_clock::time_point started;
};

#endif
