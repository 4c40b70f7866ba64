#ifndef DRAWLOAD_DXF_LINE_STREAM_H
#define DRAWLOAD_DXF_LINE_STREAM_H

#include <cstddef>
#include <cstring>
#include <string_view>

/// Lines of a file that stands in memory, with the state that a text input stream would have: clean until a
/// read meets the end of the bytes.
class LineStream {
 public:
  explicit LineStream(std::string_view bytes) : rest(bytes) {}

  /// Reads up to the next line feed. A last line without one is stored, but the result is false; so is every
  /// later one, which then leaves `line` alone.
  bool readLine(std::string_view& line) {
    if (!isClean) return false;
    const void* feed = rest.empty() ? nullptr : std::memchr(rest.data(), '\n', rest.size());
    if (feed == nullptr) {
      line = rest;
      rest = {};
      isClean = false;
      return false;
    }
    const auto length = static_cast<std::size_t>(static_cast<const char*>(feed) - rest.data());
    line = rest.substr(0, length);
    rest.remove_prefix(length + 1);
    return true;
  }

  bool clean() const { return isClean; }
  std::size_t remaining() const { return rest.size(); }

 private:
  std::string_view rest;
  bool isClean = true;
};

#endif
