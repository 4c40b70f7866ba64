#include "messages.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

void Complain(const std::string& text) { std::fprintf(stderr, "drawload: %s\n", text.c_str()); }

bool IsReadableFile(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(path.c_str(), R_OK) == 0;
}

std::string WhyNothingRead(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return "cannot open '" + path + "': " + std::strerror(errno);
  if (S_ISDIR(status.st_mode)) return "'" + path + "' is a folder; name a DXF, SVG or PDF file in it";
  if (!S_ISREG(status.st_mode)) return "'" + path + "' is not a regular file";
  if (access(path.c_str(), R_OK) != 0) return "cannot open '" + path + "': " + std::strerror(errno);
  return "nothing to cut or engrave in '" + path +
         "': it is empty, damaged, holds nothing that is drawn, or its extension is not .dxf, .svg or .pdf";
}
