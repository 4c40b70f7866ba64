#include "output_file.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "messages.h"

namespace {

[[noreturn]] void Fail(const std::string& path, const std::string& why) {
  throw OutputError("cannot write '" + Shown(path) + "': " + why);
}

[[noreturn]] void Fail(const std::string& path, int error) { Fail(path, WhyNotWritten(error)); }

const char* unfinished = nullptr;

extern "C" void RemoveUnfinishedAndEnd(int signal) {
  unlink(unfinished);
  raise(signal);  // the handler is gone by now: the process ends as if there had been none
}

/// While one lives, a signal that ends the process takes the file `name` with it.
class RemovedBySignals {
 public:
  explicit RemovedBySignals(const std::string& name) {
    unfinished = name.c_str();
    struct sigaction action = {};
    action.sa_handler = RemoveUnfinishedAndEnd;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
      sigaction(kSignals[i], nullptr, &before[i]);
      if (before[i].sa_handler == SIG_DFL) sigaction(kSignals[i], &action, nullptr);
    }
  }
  RemovedBySignals(const RemovedBySignals&) = delete;
  RemovedBySignals& operator=(const RemovedBySignals&) = delete;
  ~RemovedBySignals() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &before[i], nullptr);
  }

 private:
  static constexpr std::array<int, 3> kSignals{SIGINT, SIGTERM, SIGHUP};
  std::array<struct sigaction, kSignals.size()> before;
};

/// A file that removes itself unless it is renamed to its place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& targetPath)
      : target(targetPath), name(UnfinishedName(targetPath, getpid())), removedBySignals(name) {
    descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) Fail(target, errno);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (descriptor >= 0) close(descriptor);
    if (!moved) unlink(name.c_str());
  }

  void Write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t written = write(descriptor, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) Fail(target, errno);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void MoveToTarget() {
    const int closed = close(descriptor);
    descriptor = -1;
    if (closed != 0) Fail(target, errno);
    if (rename(name.c_str(), target.c_str()) != 0) Fail(target, errno);
    moved = true;
  }

 private:
  std::string target;
  std::string name;
  RemovedBySignals removedBySignals;
  int descriptor = -1;
  bool moved = false;
};

}  // namespace

std::string UnfinishedName(const std::string& path, pid_t process) {
  const std::string folder = path.substr(0, path.rfind('/') + 1);
  return folder + ".drawload-unfinished-" + std::to_string(process);
}

void MakeFolder(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  if (error)
    throw OutputError("cannot make the folder '" + Shown(path) + "': " + WhyNotWritten(error.value()));
}

void WriteOutputFile(const std::string& path, std::string_view bytes, bool replace) {
  struct stat status = {};
  if (!replace && lstat(path.c_str(), &status) == 0) {
    Fail(path, "it exists already; choose another name, or replace it with --force");
  }
  TemporaryFile file(path);
  file.Write(bytes);
  file.MoveToTarget();
}
