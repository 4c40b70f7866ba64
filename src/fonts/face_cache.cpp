#include "fonts/face_cache.h"

#include "support/account.h"

namespace fonts {

FaceCache::FaceCache(std::size_t keptGlyphBytes) : mostKeptBytes(keptGlyphBytes) {
  FT_Library opened = nullptr;
  if (FT_New_Library(memory.Allocator(), &opened) != 0) throw support::MemoryUsedUp();
  library.reset(opened);
  FT_Add_Default_Modules(opened);
  FT_Set_Default_Properties(opened);
  memory.ThrowIfExhausted();
}

Face* FaceCache::FaceOf(const std::string& file, FT_UInt pixelSize) {
  if (file.empty()) return nullptr;
  if (KeptBytes() >= mostKeptBytes) faces.clear();
  const auto known = faces.find({file, pixelSize});
  if (known != faces.end()) return known->second.get();
  if (faces.size() >= support::limits::kOpenFaces) faces.clear();
  std::unique_ptr<Face> opened = Face::Open(library.get(), file, pixelSize);
  memory.ThrowIfExhausted();
  return faces.emplace(std::pair(file, pixelSize), std::move(opened)).first->second.get();
}

std::size_t FaceCache::KeptBytes() const {
  std::size_t keptBytes = 0;
  for (const auto& [key, face] : faces) keptBytes += face == nullptr ? 0 : face->KeptBytes();
  return keptBytes;
}

}  // namespace fonts
