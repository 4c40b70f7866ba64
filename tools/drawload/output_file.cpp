#include "output_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

[[noreturn]] void Fail(const std::string& path, const std::string& why, int error = 0) {
  throw OutputError("cannot write '" + path + "': " + why +
                    (error != 0 ? std::string(std::strerror(error)) : ""));
}

/// A file that removes itself unless it is renamed to its place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& targetPath)
      : target(targetPath), name(UnfinishedName(targetPath, getpid())) {
    descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) Fail(target, "", errno);
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
      if (written < 0) Fail(target, "", errno);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void MoveToTarget() {
    const int closed = close(descriptor);
    descriptor = -1;
    if (closed != 0) Fail(target, "", errno);
    if (rename(name.c_str(), target.c_str()) != 0) Fail(target, "", errno);
    moved = true;
  }

 private:
  std::string target;
  std::string name;
  int descriptor = -1;
  bool moved = false;
};

}  // namespace

std::string UnfinishedName(const std::string& path, pid_t process) {
  return path + ".unfinished-" + std::to_string(process);
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
