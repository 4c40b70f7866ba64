#ifndef DRAWLOAD_TESTS_RESULT_DUMP_H
#define DRAWLOAD_TESTS_RESULT_DUMP_H

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "drawload/exports.h"

/// Every byte of a drawing's results that a host may look at: all fields and the padding between them, of
/// objects, segments and bitmap blocks. Only the addresses are left out, as they differ from run to run.
namespace result_dump {

inline void AppendBytes(std::string& dump, const void* from, const void* end) {
  const char* bytes = static_cast<const char*>(from);
  dump.append(bytes, static_cast<std::size_t>(static_cast<const char*>(end) - bytes));
}

template <typename Value>
void AppendValue(std::string& dump, const Value& value) {
  AppendBytes(dump, &value, &value + 1);
}

inline void AppendSegments(std::string& dump, const CFileCurve& curve) {
  for (const FileSegment* segment = curve.segmentHead->next; segment != curve.segmentHead;
       segment = segment->next) {
    AppendBytes(dump, segment, &segment->previous);
  }
}

/// The header, the palette and the rows, padded to four bytes, of a packed bitmap.
inline void AppendBitmap(std::string& dump, const void* bitmap) {
  if (bitmap == nullptr) return;
  std::int32_t size[2];
  std::memcpy(size, static_cast<const char*>(bitmap) + 4, sizeof size);
  const std::size_t stride = (static_cast<std::size_t>(size[0]) + 3) / 4 * 4;
  const std::size_t bytes = 40 + 1024 + stride * static_cast<std::size_t>(std::abs(size[1]));
  AppendBytes(dump, bitmap, static_cast<const char*>(bitmap) + bytes);
}

inline void Append(std::string& dump, const CFileDraw& object) {
  AppendBytes(dump, &object.rect, &object.diameter + 1);
  if (object.kind == kFileCurve) {
    const auto& curve = static_cast<const CFileCurve&>(object);
    AppendValue(dump, curve.segmentCount);
    AppendValue(dump, curve.trailingWord);
    AppendSegments(dump, curve);
  } else if (object.kind == kFileDib) {
    const auto& dib = static_cast<const CFileDib&>(object);
    AppendBytes(dump, &dib.a, &dib.f + 1);
    AppendValue(dump, dib.trailingWords);
    AppendBitmap(dump, dib.bitmap);
  }
}

/// Walks what is loaded from its first result to its end.
inline std::string OfTheWalk() {
  std::string dump;
  CFileDraw* object = nullptr;
  for (int found = GetFirstData_Z7(&object); found == 1; found = GetNextData_Z7(&object))
    Append(dump, *object);
  return dump;
}

/// Loads the drawing at `path` and walks it to its end; empty where there is nothing in it.
inline std::string OfFile(const std::string& path) {
  return DrawLoad_Z7(path.c_str()) == 1 ? OfTheWalk() : std::string();
}

}  // namespace result_dump

#endif
