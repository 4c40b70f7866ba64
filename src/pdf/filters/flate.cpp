#include "pdf/filters/flate.h"

#include <algorithm>
#include <limits>
#include <new>
#include <zlib.h>

#include "support/account.h"
#include "support/system_memory.h"

namespace pdf {

namespace {

constexpr std::size_t kLeastRoom = 51200;
/// Pages seldom come out longer than so many times their stream.
constexpr std::size_t kUsualGrowth = 4;
/// Room that is filled with zeros at a time: little enough to stay in the processor's caches.
constexpr std::size_t kMostZeroed = std::size_t{256} << 10;

class Inflater {
 public:
  Inflater() { ready = inflateInit(&zlib) == Z_OK; }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;
  ~Inflater() {
    if (ready) inflateEnd(&zlib);
  }

  bool ready = false;
  z_stream zlib = {};
};

/// As much of a size as one call of zlib takes.
uInt Portion(std::size_t size) {
  return static_cast<uInt>(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
}

FlateResult ResultOf(int code) {
  if (code == Z_STREAM_END) return FlateResult::kComplete;
  return code == Z_MEM_ERROR ? FlateResult::kOutOfMemory : FlateResult::kCorrupt;
}

/// Makes room for `bytes` more at the end of `output`, of which nothing is touched yet.
void Reserve(std::string& output, std::size_t bytes) {
  output.reserve(output.size() + bytes);
  support::AdviseHugePages(output.data(), output.capacity());
}

/// Inflates into the end of `output`.
FlateResult Run(std::string_view input, std::string& output) {
  Inflater inflater;
  z_stream& zlib = inflater.zlib;
  if (!inflater.ready) return FlateResult::kOutOfMemory;
  const std::size_t start = output.size();
  std::size_t taken = 0;
  std::size_t filled = start;
  int code = Z_OK;
  const std::size_t usual = std::max(kLeastRoom, kUsualGrowth * input.size());
  const std::size_t step = std::min(usual, kMostZeroed);
  Reserve(output, usual);
  while (code == Z_OK) {
    if (filled == output.size()) output.resize(filled + step);
    zlib.next_in = reinterpret_cast<z_const Bytef*>(const_cast<char*>(input.data())) + taken;
    zlib.avail_in = Portion(input.size() - taken);
    zlib.next_out = reinterpret_cast<Bytef*>(output.data()) + filled;
    zlib.avail_out = Portion(output.size() - filled);
    const uInt inputPortion = zlib.avail_in;
    const uInt outputPortion = zlib.avail_out;
    code = inflate(&zlib, Z_NO_FLUSH);
    taken += inputPortion - zlib.avail_in;
    filled += outputPortion - zlib.avail_out;
  }
  output.resize(filled);
  return ResultOf(code);
}

}  // namespace

FlateResult Inflate(std::string_view input, std::string& output) {
  const std::size_t before = output.size();
  FlateResult result = FlateResult::kOutOfMemory;
  try {
    result = Run(input, output);
  } catch (const support::BeyondAllowance&) {
    throw;
  } catch (const std::bad_alloc&) {
    result = FlateResult::kOutOfMemory;
  }
  if (result != FlateResult::kComplete) output.resize(before);
  return result;
}

}  // namespace pdf
