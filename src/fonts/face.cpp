#include "fonts/face.h"

#include "fonts/font_memory.h"

namespace fonts {
namespace {

constexpr FT_Fixed kOne = 0x10000;

// The engine adds positions as two's complement numbers that wrap round; so does taking them off again.
FT_Pos Add(FT_Pos a, FT_Pos b) {
  return static_cast<FT_Pos>(static_cast<FT_ULong>(a) + static_cast<FT_ULong>(b));
}
FT_Pos Subtract(FT_Pos a, FT_Pos b) {
  return static_cast<FT_Pos>(static_cast<FT_ULong>(a) - static_cast<FT_ULong>(b));
}

bool IsUntransformed(const GlyphPlacement& placement) {
  return !placement.flipY && placement.delta.x == 0 && placement.delta.y == 0;
}

std::uint64_t KeyOf(FT_UInt index, const GlyphPlacement& placement) {
  return std::uint64_t{index} << 2 | (placement.flipY ? 2u : 0u) | (IsUntransformed(placement) ? 1u : 0u);
}

std::size_t BytesOf(const Glyph& glyph) {
  return sizeof(Glyph) + glyph.points.size() * sizeof(FT_Vector) + glyph.tags.size() +
         glyph.contours.size() * sizeof(glyph.contours[0]);
}

OutlinePoint InPixels(const FT_Vector* point) {
  constexpr double pixelsPerUnit = 0.015625;
  return {static_cast<double>(point->x) * pixelsPerUnit, static_cast<double>(point->y) * pixelsPerUnit};
}

Outline& Receiver(void* user) { return *static_cast<Outline*>(user); }

int MoveTo(const FT_Vector* to, void* user) {
  Receiver(user).push_back({OutlineStep::kMove, InPixels(to)});
  return 0;
}

int LineTo(const FT_Vector* to, void* user) {
  Receiver(user).push_back({OutlineStep::kLine, InPixels(to)});
  return 0;
}

int ConicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
  Receiver(user).push_back({OutlineStep::kConic, InPixels(to), InPixels(control)});
  return 0;
}

int CubicTo(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* user) {
  Receiver(user).push_back({OutlineStep::kCubic, InPixels(to), InPixels(control1), InPixels(control2)});
  return 0;
}

constexpr FT_Outline_Funcs kReceivers = {MoveTo, LineTo, ConicTo, CubicTo, 0, 0};

}  // namespace

std::unique_ptr<Face> Face::Open(FT_Library library, const std::string& path, FT_UInt pixelSize) {
  auto file = std::make_unique<FontFile>(path);
  FT_Open_Args source = {};
  source.flags = FT_OPEN_STREAM;
  source.stream = file->Stream();
  if (source.stream == nullptr) return nullptr;
  FT_Face opened = nullptr;
  if (FT_Open_Face(library, &source, 0, &opened) != 0) return nullptr;
  OwnedFace owned(opened);
  FT_Set_Pixel_Sizes(opened, pixelSize, 0);
  return std::unique_ptr<Face>(new Face(std::move(file), std::move(owned)));
}

const Glyph& Face::GlyphOf(char32_t codePoint, const GlyphPlacement& placement) {
  const FT_UInt index = FT_Get_Char_Index(face.get(), codePoint);
  const std::uint64_t key = KeyOf(index, placement);
  if (const auto known = glyphs.find(key); known != glyphs.end()) return known->second;
  Glyph& glyph = glyphs.emplace(key, Load(index, placement)).first->second;
  keptBytes += BytesOf(glyph);
  return glyph;
}

Glyph Face::Load(FT_UInt index, const GlyphPlacement& placement) {
  FT_Matrix matrix = {kOne, 0, 0, placement.flipY ? -kOne : kOne};
  FT_Vector delta = placement.delta;
  FT_Set_Transform(face.get(), &matrix, &delta);
  Glyph glyph;
  const FT_Error error = FT_Load_Glyph(face.get(), index, FT_LOAD_NO_BITMAP);
  FontMemory::ThrowIfExhausted(*face);
  if (error != 0) return glyph;
  const FT_GlyphSlotRec& slot = *face->glyph;
  const FT_Outline& outline = slot.outline;
  glyph.isLoaded = true;
  glyph.advance = slot.advance.x;
  glyph.flags = outline.flags;
  glyph.points.assign(outline.points, outline.points + outline.n_points);
  for (FT_Vector& point : glyph.points) {
    point = {Subtract(point.x, delta.x), Subtract(point.y, delta.y)};
  }
  glyph.tags.assign(outline.tags, outline.tags + outline.n_points);
  glyph.contours.assign(outline.contours, outline.contours + outline.n_contours);
  return glyph;
}

bool Decompose(const Glyph& glyph, FT_Vector delta, Outline& outline) {
  std::vector<FT_Vector> points = glyph.points;
  for (FT_Vector& point : points) point = {Add(point.x, delta.x), Add(point.y, delta.y)};
  FT_Outline placed = {};
  placed.n_points = static_cast<decltype(placed.n_points)>(points.size());
  placed.n_contours = static_cast<decltype(placed.n_contours)>(glyph.contours.size());
  placed.points = points.data();
  placed.tags = const_cast<decltype(placed.tags)>(glyph.tags.data());  // read only
  placed.contours = const_cast<decltype(placed.contours)>(glyph.contours.data());
  placed.flags = glyph.flags;
  outline.clear();
  // The engine is no C++: no step may fail for want of memory inside it. A point ends at most one step and
  // begins at most one more, and a contour adds its move and its closing step.
  outline.reserve(2 * points.size() + 2 * glyph.contours.size());
  return FT_Outline_Decompose(&placed, &kReceivers, &outline) == 0;
}

}  // namespace fonts
