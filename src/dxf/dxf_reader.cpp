#include "dxf/dxf_reader.h"

#include <algorithm>
#include <array>

#include "support/limits.h"
#include "support/text_to_number.h"

namespace {

enum class ValueType : std::uint8_t { kText, kShort, kLong, kWide, kReal, kFlag };

struct CodeRange {
  std::int32_t last;  ///< the range begins behind the one before it
  ValueType type;
};

constexpr std::int32_t kComment = 999;
constexpr std::int32_t kLastListedCode = 1071;

// Kept: some ranges depart from the published tables of the format.
constexpr CodeRange kRanges[] = {
    {9, ValueType::kText},    {59, ValueType::kReal},       {79, ValueType::kShort},
    {89, ValueType::kShort},  {99, ValueType::kLong},       {100, ValueType::kText},
    {101, ValueType::kShort}, {102, ValueType::kText},      {104, ValueType::kShort},
    {105, ValueType::kText},  {109, ValueType::kShort},     {149, ValueType::kReal},
    {159, ValueType::kShort}, {169, ValueType::kWide},      {179, ValueType::kShort},
    {209, ValueType::kFlag},  {239, ValueType::kReal},      {269, ValueType::kFlag},
    {289, ValueType::kShort}, {299, ValueType::kFlag},      {369, ValueType::kText},
    {389, ValueType::kShort}, {399, ValueType::kText},      {409, ValueType::kShort},
    {419, ValueType::kText},  {429, ValueType::kLong},      {439, ValueType::kText},
    {459, ValueType::kLong},  {469, ValueType::kReal},      {480, ValueType::kText},
    {998, ValueType::kReal},  {kComment, ValueType::kText}, {1008, ValueType::kText},
    {1059, ValueType::kReal}, {1070, ValueType::kShort},    {kLastListedCode, ValueType::kLong},
};

constexpr std::array<ValueType, kLastListedCode + 1> SpreadRanges() {
  std::array<ValueType, kLastListedCode + 1> types = {};
  std::size_t code = 0;
  for (const CodeRange& range : kRanges) {
    for (; code <= static_cast<std::size_t>(range.last); ++code) types[code] = range.type;
  }
  return types;
}

constexpr std::array<ValueType, kLastListedCode + 1> kValueTypes = SpreadRanges();

ValueType TypeOf(std::int32_t code) {
  if (code < 0 || code > kLastListedCode) return ValueType::kText;
  return kValueTypes[static_cast<std::size_t>(code)];
}

/// The line of a value: less one carriage return at its end.
bool TakeValueLine(LineStream& stream, std::string_view& line) {
  const bool clean = stream.readLine(line);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return clean;
}

// Rarely called, so not inlined: what they need would cost the usual lines their time.

[[gnu::noinline]] bool TakeAnyCode(LineStream& stream, std::int32_t& code) {
  std::string_view line;
  const bool clean = stream.readLine(line);
  code = support::AtoI(line);
  return clean;
}

[[gnu::noinline]] bool TakeAnyReal(LineStream& stream, double& value) {
  std::string_view line;
  if (!TakeValueLine(stream, line)) return false;
  value = support::AtoF(line);
  return true;
}

}  // namespace

dxfReader::~dxfReader() = default;

bool dxfReader::fetchGroupCode(std::int32_t& code) {
  return stream->readShortNumber(code) || TakeAnyCode(*stream, code);
}

bool dxfReader::fetchLine(std::string_view& line) {
  valueKind = 0;
  return TakeValueLine(*stream, line);
}

bool dxfReader::fetchText() {
  valueKind = 0;
  return TakeValueLine(*stream, textValue);
}

bool dxfReader::fetchShort() {
  valueKind = 1;
  std::string_view line;
  if (!fetchLine(line)) return false;
  intValue = support::AtoI(line);
  return true;
}

bool dxfReader::fetchLong() {
  valueKind = 1;
  return fetchShort();
}

bool dxfReader::fetchWide() {
  valueKind = 2;
  return fetchShort();
}

bool dxfReader::fetchReal() {
  valueKind = 0;
  return stream->readShortDecimal(realValue) || TakeAnyReal(*stream, realValue);
}

bool dxfReader::fetchFlag() {
  valueKind = 4;
  std::string_view line;
  if (!fetchLine(line)) return false;
  intValue = support::AtoI(line);
  return true;
}

bool dxfReader::nextGroup(std::int32_t& code) {
  do {
    if (!dxfReader::fetchGroupCode(code) || !fetchValue(code)) return false;
  } while (code == kComment && skipComments);
  return true;
}

/// Nearly all values are numbers with fractions and texts: they and the codes do without a virtual call.
bool dxfReader::fetchValue(std::int32_t code) {
  switch (TypeOf(code)) {
    case ValueType::kText: return dxfReader::fetchText();
    case ValueType::kShort: return fetchShort();
    case ValueType::kLong: return fetchLong();
    case ValueType::kWide: return fetchWide();
    case ValueType::kReal: return dxfReader::fetchReal();
    case ValueType::kFlag: return fetchFlag();
  }
  return false;
}

std::uint32_t dxfReader::handleFromText() const { return support::HexToU32(textValue); }

std::size_t dxfReader::reservable(std::int32_t count, std::size_t linesEach) const {
  if (count <= 0) return 0;
  return std::min(
      {static_cast<std::size_t>(count), stream->remaining() / linesEach, support::limits::kReservedByCount});
}
