// Uses every operation that the library wants of an operating system, so that a link fails where one is
// missing.
#include <cstdio>

#include "platform/global_memory.h"
#include "platform/host_directory.h"
#include "platform/profile_file.h"
#include "support/file_bytes.h"
#include "support/open_file.h"
#include "support/text_to_number.h"

int main(int argc, char** argv) {
  const std::string path = platform::HostDirectory() + (argc > 1 ? argv[1] : "font.ini");
  std::puts(platform::ProfileFile(path).Value("Font", "Arial").c_str());
  const platform::GlobalHandle handle = platform::GlobalAlloc(platform::kMoveable, 4);
  static_cast<char*>(platform::GlobalLock(handle))[0] = 'x';
  platform::GlobalUnlock(handle);
  platform::GlobalFree(handle);
  const auto file = support::FileBytes::Read(path);
  char first = 0;
  support::OpenFile(path).ReadAt(0, &first, 1);
  std::fclose(support::StreamOver("bytes"));
  return file && support::AtoF(file->View()) > 0.0 ? 0 : 1;
}
