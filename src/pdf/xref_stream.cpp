#include "pdf/xref_stream.h"

#include <algorithm>
#include <limits>
#include <unordered_set>

#include "support/account.h"

namespace pdf {

namespace {

using Row = std::vector<std::uint8_t>;

std::size_t WidthOf(std::int32_t width) { return static_cast<std::size_t>(std::max(width, 0)); }

std::size_t RowSizeOf(const PdfXrefLayout& layout) {
  return WidthOf(layout.widths[0]) + WidthOf(layout.widths[1]) + WidthOf(layout.widths[2]);
}

std::int64_t AnnouncedRows(const std::vector<std::int32_t>& index) {
  std::int64_t rows = 0;
  for (std::size_t i = 1; i < index.size(); i += 2) rows += index[i];
  return rows;
}

/// Hands out object numbers: those of each pair of /Index in turn.
class ObjectNumbers {
 public:
  explicit ObjectNumbers(const std::vector<std::int32_t>& pairs) : index(pairs) {}

  std::uint32_t Next() {
    while (left <= 0) {
      number = static_cast<std::uint32_t>(index.at(place));
      left = index.at(place + 1);
      place += 2;
    }
    --left;
    return number++;
  }

 private:
  const std::vector<std::int32_t>& index;
  std::size_t place = 0;
  std::uint32_t number = 0;
  std::int32_t left = 0;
};

/// Undoes the prediction of the rows, one after the other. Only the first bytes of a row are ever looked at,
/// as many as the fields have: where a row is longer because those before it were not cleared away, they are
/// the old ones.
class RowReader {
 public:
  explicit RowReader(std::size_t size) : scratch(size), row(size) {}

  const Row& Next(std::string_view taggedRow) {
    constexpr char kUpTag = 2;
    if (isFirst || taggedRow[0] == kUpTag) std::copy(taggedRow.begin() + 1, taggedRow.end(), scratch.begin());
    if (isFirst) {
      row = scratch;
    } else {
      for (std::size_t i = 0; i < row.size(); ++i) row[i] = static_cast<std::uint8_t>(row[i] + scratch[i]);
    }
    isFirst = false;
    return row;
  }

 private:
  Row scratch;
  Row row;
  bool isFirst = true;
};

/// The next `width` bytes of a row as a number, the highest byte first.
std::uint64_t TakeField(const Row& row, std::size_t& place, std::int32_t width) {
  std::uint64_t value = 0;
  for (const std::size_t end = place + WidthOf(width); place < end; ++place) value = value << 8 | row[place];
  return value;
}

/// The number as `atoi` reads its decimal text.
std::int32_t CutToI32(std::uint64_t value) {
  constexpr std::uint64_t kMost = std::numeric_limits<std::int64_t>::max();
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(std::min(value, kMost)));
}

/// The object streams that the rows name, in the order of first appearance.
class ObjectStreamList {
 public:
  void Add(std::int32_t number) {
    if (known.insert(number).second) numbers.push_back(number);
  }
  const std::vector<std::int32_t>& Numbers() const { return numbers; }

 private:
  std::vector<std::int32_t> numbers;
  std::unordered_set<std::int32_t> known;
};

void TakeRow(const Row& row, const PdfXrefLayout& layout, std::uint32_t number, PdfXrefSection& section,
             ObjectStreamList& objectStreams) {
  std::size_t place = 0;
  const std::uint64_t type = TakeField(row, place, layout.widths[0]);
  const std::uint64_t value = TakeField(row, place, layout.widths[1]);
  if (type > 2) return;
  // An entry without a place is as good as none, so a few bytes cannot ask for millions of them.
  if (type < 2 && CutToI32(value) == 0 && !section.entries.contains(number)) return;
  PdfXrefEntry& entry = section.entries[number];
  entry.free = type == 0;
  entry.inObjectStream = type == 2;
  if (type == 2) {
    objectStreams.Add(CutToI32(value));
  } else {
    entry.offset = CutToI32(value);
    entry.generation = 0;
  }
}

}  // namespace

bool ParseXrefStream(PdfFileReader& reader, std::string_view decoded, const PdfXrefLayout& layout,
                     PdfXrefSection& section) {
  const std::size_t rowSize = RowSizeOf(layout);
  const std::size_t rows = decoded.size() / (rowSize + 1);
  if (AnnouncedRows(layout.index) != static_cast<std::int64_t>(rows)) {
    reader.notes.Write("Xref parser err!!!");
    return false;
  }
  if (rows == 0) return true;
  ObjectNumbers numbers(layout.index);
  RowReader rowReader(rowSize);
  ObjectStreamList objectStreams;
  for (std::size_t i = 0; i < rows; ++i) {
    const Row& row = rowReader.Next(decoded.substr(i * (rowSize + 1), rowSize + 1));
    TakeRow(row, layout, numbers.Next(), section, objectStreams);
  }
  for (const std::int32_t number : objectStreams.Numbers()) {
    support::RunItem([&] { ExpandObjectStream(reader, section, number); });
  }
  return true;
}

}  // namespace pdf
