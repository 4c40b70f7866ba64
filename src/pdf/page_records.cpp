#include "pdf/page_records.h"

#include <cstring>

namespace pdf {

namespace {

// Compared as bytes, so that a NaN or a negative zero comes back as it was.
bool IsSame(const PdfPaint& a, const PdfPaint& b) {
  static_assert(sizeof(PdfPaint) == 8 * sizeof(std::int32_t) + 2 * sizeof(double), "no gaps");
  return std::memcmp(&a, &b, sizeof a) == 0;
}

/// The index of what is appended next. The lists would have to take terabytes to exceed 32 bits.
template <typename List>
std::uint32_t NextIndex(const List& list) {
  return static_cast<std::uint32_t>(list.size());
}

}  // namespace

void PDF_PageEntities::AddPath(std::span<const PdfPathSegment> segments, const PdfPaint& paint,
                               PdfPaintMode mode) {
  if (paints.empty() || !IsSame(paints.back(), paint)) paints.push_back(paint);
  // The entry first, so that what lies before it in the arena belongs to earlier ones.
  void* room = memory->RoomFor<Entry>();
  const PdfPackedPath path(segments, *memory);
  Append(new (room) Entry{
      .path = path, .index = NextIndex(paints) - 1, .paintMode = static_cast<std::uint8_t>(mode)});
}

void PDF_PageEntities::Add(PDF_PageText text) {
  texts.push_back(std::move(text));
  Append(new (memory->RoomFor<Entry>()) Entry{.index = NextIndex(texts) - 1, .kind = Kind::kText});
}

void PDF_PageEntities::Add(PDF_PageImage image) {
  images.push_back(std::move(image));
  Append(new (memory->RoomFor<Entry>()) Entry{.index = NextIndex(images) - 1, .kind = Kind::kImage});
}

void PDF_PageEntities::Append(Entry* entry) {
  (last == nullptr ? first : last->next) = entry;
  last = entry;
  ++size;
}

}  // namespace pdf
