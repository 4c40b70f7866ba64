#ifndef DRAWLOAD_SUPPORT_LIMITS_H
#define DRAWLOAD_SUPPORT_LIMITS_H

#include <cstddef>
#include <cstdint>

/// Every bound of the readers, each with its reason: the allowance of the account that counts what a read
/// holds and does (account.h), nesting that costs stack, and what libraries that take no allocator from us
/// cannot bear. Within the bounds a file behaves exactly as if there were none; beyond one, the reader stops
/// that item, keeps what it has, and goes on. docs/limits.md tells users the same.
namespace support::limits {

/// Divides what a read may do and hold in the fuzzer's build, which takes some twenty times as long for the
/// same work and should not spend its time on it.
#ifdef DRAWLOAD_FUZZING
constexpr std::size_t kWorkDivisor = 64;
constexpr std::size_t kHeldDivisor = 4;
#else
constexpr std::size_t kWorkDivisor = 1;
constexpr std::size_t kHeldDivisor = 1;
#endif

/// What a read may hold in all, results included, and what it may hold that is no result: a base that lets a
/// small file of much packed data through, and so much for each byte of the file.
constexpr std::uint64_t kHeldBytes = (std::uint64_t{2} << 30) / kHeldDivisor;
constexpr std::uint64_t kWorkingBase = (std::uint64_t{256} << 20) / kHeldDivisor;
constexpr std::uint64_t kWorkingPerByte = 64;

/// What a read may do beyond one pass over its bytes, in units of about a nanosecond: enough for as many
/// results as may be held, and well below ten seconds for a file of a megabyte.
constexpr std::uint64_t kWorkBase = (std::uint64_t{1} << 32) / kWorkDivisor;
constexpr std::uint64_t kWorkPerByte = 1024;

/// Files beyond this length are not read: a hole in a file costs its sender nothing. SVG texts are counted in
/// 32 bits, and the XML tree of such a file would take some 20 GB.
constexpr std::size_t kFileBytes = std::size_t{1} << 31;

/// Nesting of block references in a DXF drawing. Real drawings nest a handful deep; each level costs stack.
constexpr int kInsertDepth = 100;

/// Items that a count in a DXF file makes room for before they come; a list that is longer grows as it is
/// filled. A count may lie, and a file may hold a lying count in each of its entities.
constexpr std::size_t kReservedByCount = 4096;

/// Pixels that one byte of a picture file can stand for: one-bit pixels at the best ratio that deflate
/// reaches (8 · 1032). A header that claims more is lying.
constexpr std::size_t kPicturePixelsPerByte = 8256;

/// The same for JPEG files: at least one bit for each block of 64 pixels.
constexpr std::size_t kJpegPixelsPerByte = 512;

/// Pictures up to this size are decoded whatever their file's length: 4 MB of memory do no harm.
constexpr std::size_t kSmallPicturePixels = std::size_t{1} << 20;

/// Working memory of the picture decoder that does not depend on the picture: tables, and the blocks to which
/// very narrow pictures are rounded up.
constexpr std::size_t kPictureSlackBytes = std::size_t{16} << 20;

/// The same for PNG files.
constexpr std::size_t kPngSlackBytes = std::size_t{256} << 10;

/// Scans of one JPEG picture. Progressive pictures have about ten; each one costs a pass over all pixels. So
/// many count as one decoding of the picture.
constexpr std::size_t kJpegScans = 100;
constexpr std::size_t kJpegUsualScans = 16;

/// Memory for the tables of tiles, of precincts and of code blocks that OpenJPEG makes for one JPEG 2000
/// picture before it sees any data. Enough for 28,000 tiles of three components, and for blocks of 16 x 16
/// pixels of the largest picture; a header of a hundred bytes could ask for terabytes.
constexpr std::size_t kJpeg2000TableBytes = std::size_t{256} << 20;

/// Packets of data of one JPEG 2000 picture, each of which is a byte of its file at least: a base for files
/// that say more than they hold, and so many for each byte.
constexpr std::size_t kJpeg2000Packets = 65536;
constexpr std::size_t kJpeg2000PacketsPerByte = 8;

/// Whole turns between the two angles of an arc. Each quarter turn becomes a segment, so a file of a few
/// bytes could ask for endless ones; real arcs stay within one turn.
constexpr int kArcTurns = 1000;

/// Size of an arc's angle, in radians. Beyond it a 64-bit float is too coarse to say a direction, and a
/// quarter turn added to it may change nothing.
constexpr double kArcAngle = 1e15;

/// How deep /Prev leads from one cross-reference section of a PDF file to the next: each save adds a section,
/// and each level costs stack.
constexpr int kPdfXrefDepth = 512;

/// Nesting of PDF stitching functions. Real ones nest once or twice.
constexpr int kPdfFunctionDepth = 16;

/// Nesting of PDF forms within forms. Real pages nest a handful deep; each level costs stack.
constexpr int kPdfFormDepth = 64;

/// Nesting of a PDF page tree. Trees are shallow (each node has up to some hundred kids); each level costs
/// stack.
constexpr int kPdfPageTreeDepth = 256;

/// Knots of a spline, where it is made or its knots are set from outside. Bounds the work on one curve; what
/// the kernel makes of it may have more.
constexpr std::uint32_t kSplineKnots = 50000;

/// Degree of a rational spline. Modellers stop at about 25; a point costs the square of the degree.
constexpr std::int32_t kRationalSplineDegree = 32;

/// Bytes of a font name. The time that Fontconfig takes to parse one grows with the square of its families.
constexpr std::size_t kFontNameBytes = 4096;

/// Font faces (a file at a size) that stay open. Beyond it all are closed, and opened again as they are used.
constexpr std::size_t kOpenFaces = 64;

/// Memory for the glyphs that are kept from text to text. Beyond it they are loaded again.
constexpr std::size_t kKeptGlyphBytes = std::size_t{64} << 20;

/// Attributes of one XML element. The parser compares each with all before it; drawing programs write up to a
/// few dozen. A file with more counts as damaged.
constexpr std::size_t kSvgAttributes = 512;

/// How far the parser may look for the ends of character references ("&#"), for each byte of the file. Real
/// references end within ten bytes.
constexpr std::size_t kSvgReferenceSearchPerByte = 64;

}  // namespace support::limits

#endif
