#include "bytes_alone.h"

#include <charconv>
#include <cstring>
#include <tinyxml2.h>
#include <vector>
#include <zlib.h>

namespace bench {

namespace {

double SumOfNumbers(std::string_view text) {
  double sum = 0.0;
  const char* const end = text.data() + text.size();
  for (const char* at = text.data(); at < end;) {
    double value = 0.0;
    const bool mayStart = (*at >= '0' && *at <= '9') || *at == '-' || *at == '.';
    const auto [next, error] =
        mayStart ? std::from_chars(at, end, value) : std::from_chars_result{at, std::errc()};
    at = next == at ? at + 1 : next;
    sum += value;
  }
  return sum;
}

/// Inflates the stream at the start of `data` into `output`; returns the bytes of `data` that it took.
std::size_t Inflate(std::string_view data, std::vector<char>& output) {
  z_stream state = {};
  if (inflateInit(&state) != Z_OK) return 0;
  state.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
  state.avail_in = static_cast<uInt>(data.size());
  int status = Z_OK;
  while (status == Z_OK) {
    if (output.size() == state.total_out) output.resize(2 * output.size() + 65536);
    state.next_out = reinterpret_cast<Bytef*>(output.data()) + state.total_out;
    state.avail_out = static_cast<uInt>(output.size() - state.total_out);
    status = inflate(&state, Z_NO_FLUSH);
  }
  output.resize(state.total_out);
  const std::size_t taken = state.total_in;
  inflateEnd(&state);
  return taken;
}

}  // namespace

double LinesAndNumbers(std::string_view text) {
  double sum = 0.0;
  const char* next = text.data();
  const char* const end = next + text.size();
  while (const void* feed = std::memchr(next, '\n', static_cast<std::size_t>(end - next))) {
    const char* const lineEnd = static_cast<const char*>(feed);
    while (next < lineEnd && *next == ' ') ++next;
    double value = 0.0;
    std::from_chars(next, lineEnd, value);
    sum += value;
    next = lineEnd + 1;
  }
  return sum;
}

double XmlAndNumbers(std::string_view text) {
  tinyxml2::XMLDocument document;
  document.Parse(text.data(), text.size());
  return document.RootElement() == nullptr ? 0.0 : SumOfNumbers(text);
}

double InflateAndNumbers(std::string_view text) {
  constexpr std::string_view kStream = ">>\nstream\n";
  double sum = 0.0;
  for (std::size_t at = text.find(kStream); at != std::string_view::npos; at = text.find(kStream, at)) {
    at += kStream.size();
    std::vector<char> output;
    at += Inflate(text.substr(at), output);
    sum += SumOfNumbers({output.data(), output.size()});
  }
  return sum;
}

}  // namespace bench
