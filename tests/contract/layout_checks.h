#ifndef DRAWLOAD_TESTS_LAYOUT_CHECKS_H
#define DRAWLOAD_TESTS_LAYOUT_CHECKS_H

// The layout that host programs rely on, checked by the compiler: wherever this compiles, it holds. Offsets
// before the first pointer are the same for pointers of 4 and of 8 bytes.

#include <cstddef>
#include <type_traits>

#include "drawload/exports.h"

// The classes have virtual operations, so offsetof is "conditionally supported": it is, by all compilers
// here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace layout {

/// The value for pointers of 4 bytes or the one for pointers of 8.
constexpr std::size_t ByPointer(std::size_t with4, std::size_t with8) {
  static_assert(sizeof(void*) == 4 || sizeof(void*) == 8);
  return sizeof(void*) == 4 ? with4 : with8;
}

/// True where `member` has the type `Type` and lies at `offset`.
template <typename Type, typename Member>
constexpr bool Lies(std::size_t offset, std::size_t expected) {
  return std::is_same_v<Type, Member> && offset == expected;
}

}  // namespace layout

#define DRAWLOAD_FIELD(Class, field, Type, expected)                                          \
  static_assert(layout::Lies<Type, decltype(Class::field)>(offsetof(Class, field), expected), \
                #Class "::" #field " is not where host programs read it")

DRAWLOAD_FIELD(structRect, minX, double, 0);
DRAWLOAD_FIELD(structRect, minY, double, 8);
DRAWLOAD_FIELD(structRect, maxX, double, 16);
DRAWLOAD_FIELD(structRect, maxY, double, 24);
static_assert(sizeof(structRect) == 32);

DRAWLOAD_FIELD(CFileDraw, rect, structRect, 8);
DRAWLOAD_FIELD(CFileDraw, kind, std::uint16_t, 40);
DRAWLOAD_FIELD(CFileDraw, color, std::uint32_t, 44);
DRAWLOAD_FIELD(CFileDraw, flag0, std::uint16_t, 48);
DRAWLOAD_FIELD(CFileDraw, cutMode, std::int32_t, 52);
DRAWLOAD_FIELD(CFileDraw, cutSpeed, double, 56);
DRAWLOAD_FIELD(CFileDraw, cutPower, double, 64);
DRAWLOAD_FIELD(CFileDraw, highFocus, double, 72);
DRAWLOAD_FIELD(CFileDraw, reservedInt1, std::int32_t, 80);
DRAWLOAD_FIELD(CFileDraw, reservedFloat1, double, 88);
DRAWLOAD_FIELD(CFileDraw, frequency, double, 96);
DRAWLOAD_FIELD(CFileDraw, reservedFloat2, double, 104);
DRAWLOAD_FIELD(CFileDraw, reservedFloat3, double, 112);
DRAWLOAD_FIELD(CFileDraw, reservedInt2, std::int32_t, 120);
DRAWLOAD_FIELD(CFileDraw, reservedFloat4, double, 128);
DRAWLOAD_FIELD(CFileDraw, reservedShort1, std::int16_t, 136);
DRAWLOAD_FIELD(CFileDraw, processType, std::int32_t, 140);
DRAWLOAD_FIELD(CFileDraw, engraveSpeed, double, 144);
DRAWLOAD_FIELD(CFileDraw, EngMaxP, double, 152);
DRAWLOAD_FIELD(CFileDraw, engStep, double, 160);
DRAWLOAD_FIELD(CFileDraw, reservedFloat5, double, 168);
DRAWLOAD_FIELD(CFileDraw, highFocus2, double, 176);
DRAWLOAD_FIELD(CFileDraw, imageType, std::int16_t, 184);
DRAWLOAD_FIELD(CFileDraw, EngMinP, double, 192);
DRAWLOAD_FIELD(CFileDraw, reservedInt3, std::int32_t, 200);
DRAWLOAD_FIELD(CFileDraw, Reverse, std::int32_t, 204);
DRAWLOAD_FIELD(CFileDraw, reservedShort2, std::int16_t, 208);
DRAWLOAD_FIELD(CFileDraw, machineType, std::int16_t, 210);
DRAWLOAD_FIELD(CFileDraw, diameter, double, 216);
static_assert(sizeof(CFileDraw) == 224 && alignof(CFileDraw) == 8);

DRAWLOAD_FIELD(FilePosition, x, double, 0);
DRAWLOAD_FIELD(FilePosition, y, double, 8);
static_assert(sizeof(FilePosition) == 16);

DRAWLOAD_FIELD(FileSegment, type, std::uint16_t, 0);
DRAWLOAD_FIELD(FileSegment, start, FilePosition, 8);
DRAWLOAD_FIELD(FileSegment, end, FilePosition, 24);
DRAWLOAD_FIELD(FileSegment, control1, FilePosition, 40);
DRAWLOAD_FIELD(FileSegment, control2, FilePosition, 56);
DRAWLOAD_FIELD(FileSegment, tail, std::uint8_t[14], 72);
DRAWLOAD_FIELD(FileSegment, previous, FileSegment*, 88);
DRAWLOAD_FIELD(FileSegment, next, FileSegment*, layout::ByPointer(92, 96));
static_assert(sizeof(FileSegment) == layout::ByPointer(96, 104));

DRAWLOAD_FIELD(CFileCurve, segmentHead, FileSegment*, 224);
DRAWLOAD_FIELD(CFileCurve, segmentCursor, FileSegment*, layout::ByPointer(228, 232));
DRAWLOAD_FIELD(CFileCurve, segmentCount, std::int32_t, layout::ByPointer(232, 240));
DRAWLOAD_FIELD(CFileCurve, trailingWord, std::uint32_t, layout::ByPointer(236, 244));
static_assert(sizeof(CFileCurve) == layout::ByPointer(240, 248));

DRAWLOAD_FIELD(CFileDib, bitmap, void*, 224);
DRAWLOAD_FIELD(CFileDib, a, double, 232);
DRAWLOAD_FIELD(CFileDib, c, double, 240);
DRAWLOAD_FIELD(CFileDib, b, double, 248);
DRAWLOAD_FIELD(CFileDib, d, double, 256);
DRAWLOAD_FIELD(CFileDib, e, double, 264);
DRAWLOAD_FIELD(CFileDib, f, double, 272);
DRAWLOAD_FIELD(CFileDib, auxiliary, void*, 280);
DRAWLOAD_FIELD(CFileDib, trailingWords, std::uint32_t[2], layout::ByPointer(284, 288));
static_assert(sizeof(CFileDib) == 296);

DRAWLOAD_FIELD(CFilePoint, x, double, 224);
DRAWLOAD_FIELD(CFilePoint, y, double, 232);
DRAWLOAD_FIELD(CFilePoint, trailingWord, std::uint32_t, 240);
static_assert(sizeof(CFilePoint) == 248);

DRAWLOAD_FIELD(CFileGroup, memberHead, FileMember*, 224);
DRAWLOAD_FIELD(CFileGroup, memberCursor, FileMember*, layout::ByPointer(228, 232));
DRAWLOAD_FIELD(CFileGroup, memberCount, std::int32_t, layout::ByPointer(232, 240));
DRAWLOAD_FIELD(CFileGroup, name, std::string, layout::ByPointer(236, 248));
DRAWLOAD_FIELD(CFileGroup, trailingValue, std::uint64_t, layout::ByPointer(264, 280));
static_assert(sizeof(CFileGroup) == layout::ByPointer(272, 288));

DRAWLOAD_FIELD(FileMember, object, CFileDraw*, 0);
DRAWLOAD_FIELD(FileMember, previous, FileMember*, layout::ByPointer(4, 8));
DRAWLOAD_FIELD(FileMember, next, FileMember*, layout::ByPointer(8, 16));
static_assert(sizeof(FileMember) == layout::ByPointer(12, 24));

static_assert(kFileCurve == 0 && kFileDib == 1 && kFilePoint == 2 && kFileGroup == 3);
static_assert(kSegmentLine == 0 && kSegmentCubic == 3);

static_assert(std::is_same_v<decltype(&DrawLoad_Z7), std::int32_t (*)(const char*)>);
static_assert(std::is_same_v<decltype(&GetFirstData_Z7), std::int32_t (*)(CFileDraw**)>);
static_assert(std::is_same_v<decltype(&GetNextData_Z7), std::int32_t (*)(CFileDraw**)>);

#undef DRAWLOAD_FIELD
#pragma GCC diagnostic pop

#endif
