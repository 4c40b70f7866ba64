#include "messages.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// How many bytes the UTF-8 character at the start of `text` has; 0 where there is none.
std::size_t CharacterBytes(std::string_view text) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  if (byte(0) < 0x80) return 1;
  const std::size_t count = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
  if (byte(0) < 0xC2 || byte(0) > 0xF4 || text.size() < count) return 0;
  for (std::size_t i = 1; i < count; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
  }
  const bool isOverlong = (byte(0) == 0xE0 && byte(1) < 0xA0) || (byte(0) == 0xF0 && byte(1) < 0x90);
  const bool isBeyond = (byte(0) == 0xED && byte(1) > 0x9F) || (byte(0) == 0xF4 && byte(1) > 0x8F);
  return isOverlong || isBeyond ? 0 : count;
}

/// The control characters of C1, U+0080 to U+009F, steer terminals too.
bool IsControl(std::string_view character) {
  const auto first = static_cast<unsigned char>(character[0]);
  if (character.size() == 2) return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
  return first < 0x20 || first == 0x7F;
}

std::string Escaped(char c) {
  if (c == '\n') return "\\n";
  if (c == '\t') return "\\t";
  char text[8];
  std::snprintf(text, sizeof text, "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
  return text;
}

std::string WhyNotOpened(int error) {
  switch (error) {
    case ENOENT: return "there is no such file; check its name and its folder";
    case EACCES: return "permission denied; let this user read it, and enter its folder";
    default: return std::strerror(error);
  }
}

}  // namespace

void Complain(const std::string& text) { std::fprintf(stderr, "drawload: %s\n", text.c_str()); }

std::string Shown(const std::string& path) {
  std::string shown;
  for (std::string_view rest = path; !rest.empty();) {
    const std::size_t bytes = CharacterBytes(rest);
    const std::string_view character = rest.substr(0, bytes == 0 ? 1 : bytes);
    if (bytes != 0 && !IsControl(character)) {
      shown += character;
    } else {
      for (const char c : character) shown += Escaped(c);
    }
    rest.remove_prefix(character.size());
  }
  return shown;
}

std::string FormatOf(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  std::string extension = dot == std::string::npos ? path : path.substr(dot + 1);
  for (char& c : extension) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return extension == "DXF" || extension == "SVG" || extension == "PDF" ? extension : "";
}

bool IsReadableFile(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(path.c_str(), R_OK) == 0;
}

std::string WhyNothingRead(const std::string& path) {
  struct stat status = {};
  std::string name = "'";
  name += Shown(path);
  name += '\'';
  if (stat(path.c_str(), &status) != 0) return "cannot open " + name + ": " + WhyNotOpened(errno);
  const bool isFolder = S_ISDIR(status.st_mode);
  if (isFolder && access(path.c_str(), R_OK | X_OK) == 0) {
    return name + " is a folder; name a drawing in it, or convert all of them with 'drawload batch'";
  }
  if (!isFolder && !S_ISREG(status.st_mode))
    return name + " is not a regular file; copy what it holds into one";
  if (access(path.c_str(), R_OK) != 0) return "cannot open " + name + ": " + WhyNotOpened(errno);
  if (FormatOf(path).empty()) {
    return name + " is not read: the name of a drawing ends in .dxf, .svg or .pdf; rename it";
  }
  if (status.st_size == 0)
    return "nothing to cut or engrave in " + name + ": the file is empty; save it again";
  return "nothing to cut or engrave in " + name +
         ": it holds nothing that is drawn, or is damaged, or is no " + FormatOf(path) +
         " file; look at it in the program that made it";
}

std::string Counted(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string LeftOut(std::size_t count, const std::string& thing, const std::string& nature) {
  return Counted(count, thing) + " " + nature + (count == 1 ? " is" : " are") + " left out";
}

std::string NotFiniteLeftOut(std::size_t count) {
  return LeftOut(count, "result", "with coordinates that are not finite");
}

std::string WhyNotWritten(int error) {
  switch (error) {
    case ENOENT: return "its folder does not exist; make it first";
    case ENOTDIR: return "a part of its path is a file, not a folder; name another place";
    case EISDIR: return "it is a folder; name a file";
    case EACCES:
    case EPERM: return "permission denied; choose a folder that you may write to";
    case EROFS: return "the disk is read-only; choose another";
    case ENOSPC: return "no space is left on the disk; make room, or choose another";
    case EDQUOT: return "your share of the disk is used up; make room, or choose another";
    case EFBIG: return "the file becomes larger than is allowed here; raise the limit (ulimit -f)";
    case ENAMETOOLONG: return "the name is too long; choose a shorter one";
    case ENOMEM: return "there is not enough memory; close other programs, or raise the limit (ulimit -v)";
    default: return std::strerror(error);
  }
}
