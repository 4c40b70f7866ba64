#include "fonts/face_cache.h"

#include "support/limits.h"

namespace fonts {

FaceCache::FaceCache() {
  FT_Library opened = nullptr;
  if (FT_Init_FreeType(&opened) == 0) library.reset(opened);
}

Face* FaceCache::FaceOf(const std::string& file, FT_UInt pixelSize) {
  if (library == nullptr || file.empty()) return nullptr;
  const auto known = faces.find({file, pixelSize});
  if (known != faces.end()) return known->second.get();
  DropWhenFull();
  return faces.emplace(std::pair(file, pixelSize), Face::Open(library.get(), file, pixelSize))
      .first->second.get();
}

void FaceCache::DropWhenFull() {
  std::size_t keptBytes = 0;
  for (const auto& [key, face] : faces) keptBytes += face == nullptr ? 0 : face->KeptBytes();
  if (faces.size() >= support::limits::kOpenFaces || keptBytes >= support::limits::kKeptGlyphBytes) {
    faces.clear();
  }
}

}  // namespace fonts
