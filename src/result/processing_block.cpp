#include "result/processing_block.h"

#include <cstring>

#include "drawload/file_draw.h"

namespace {

constexpr std::size_t kBlockBytes = 176;

}  // namespace

void CopyProcessingBlock(const CFileDraw& from, CFileDraw& to) {
  const auto* source = reinterpret_cast<const char*>(&from.flag0);
  auto* target = reinterpret_cast<char*>(&to.flag0);
  static_assert(sizeof(CFileDraw) == 48 + kBlockBytes);
  if (source != target) std::memcpy(target, source, kBlockBytes);
}
