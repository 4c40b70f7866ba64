#include "fonts/face_cache.h"

#include <new>

#include "support/limits.h"

namespace fonts {

FaceCache::FaceCache() {
  FT_Library opened = nullptr;
  if (FT_New_Library(memory.Allocator(), &opened) != 0) throw std::bad_alloc();
  library.reset(opened);
  FT_Add_Default_Modules(opened);
  FT_Set_Default_Properties(opened);
  memory.ThrowIfExhausted();
}

Face* FaceCache::FaceOf(const std::string& file, FT_UInt pixelSize) {
  if (file.empty()) return nullptr;
  const auto known = faces.find({file, pixelSize});
  if (known != faces.end()) return known->second.get();
  DropWhenFull();
  std::unique_ptr<Face> opened = Face::Open(library.get(), file, pixelSize);
  memory.ThrowIfExhausted();
  return faces.emplace(std::pair(file, pixelSize), std::move(opened)).first->second.get();
}

void FaceCache::DropWhenFull() {
  std::size_t keptBytes = 0;
  for (const auto& [key, face] : faces) keptBytes += face == nullptr ? 0 : face->KeptBytes();
  if (faces.size() >= support::limits::kOpenFaces || keptBytes >= support::limits::kKeptGlyphBytes) {
    faces.clear();
  }
}

}  // namespace fonts
