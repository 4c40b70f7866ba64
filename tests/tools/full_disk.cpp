// Loaded before the C library, makes the disk full: no regular file takes more than FULL_DISK_BYTES bytes.
#include <cerrno>
#include <cstdlib>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" ssize_t write(int descriptor, const void* bytes, size_t size) {
  struct stat file = {};
  const char* limit = std::getenv("FULL_DISK_BYTES");
  if (limit != nullptr && fstat(descriptor, &file) == 0 && S_ISREG(file.st_mode) &&
      static_cast<off_t>(size) > std::atol(limit) - file.st_size) {
    errno = ENOSPC;
    return -1;
  }
  return syscall(SYS_write, descriptor, bytes, size);
}
