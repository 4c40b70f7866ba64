#include "fuzz/mutators/dxf_mutator.h"

#include <algorithm>
#include <iterator>

namespace fuzz {

namespace {

struct Tag {
  std::string code;
  std::string value;
};

using Tags = std::vector<Tag>;

std::string TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string line(text.substr(0, end));
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

Tags TagsOf(std::string_view text) {
  Tags tags;
  while (!text.empty()) {
    std::string code = TakeLine(text);
    tags.push_back({std::move(code), TakeLine(text)});
  }
  return tags;
}

std::string TextOf(const Tags& tags) {
  std::string text;
  for (const Tag& tag : tags) text += tag.code + '\n' + tag.value + '\n';
  return text;
}

constexpr const char* kNames[] = {
    "SECTION", "ENDSEC",   "HEADER",       "TABLES",     "BLOCKS",       "ENTITIES",  "OBJECTS",
    "TABLE",   "ENDTAB",   "LAYER",        "LTYPE",      "STYLE",        "DIMSTYLE",  "VPORT",
    "BLOCK",   "ENDBLK",   "INSERT",       "LINE",       "POINT",        "CIRCLE",    "ARC",
    "ELLIPSE", "POLYLINE", "VERTEX",       "SEQEND",     "LWPOLYLINE",   "SPLINE",    "HATCH",
    "TEXT",    "MTEXT",    "ATTRIB",       "ATTDEF",     "DIMENSION",    "LEADER",    "MULTILEADER",
    "MLINE",   "SOLID",    "3DFACE",       "TRACE",      "IMAGE",        "IMAGEDEF",  "VIEWPORT",
    "RAY",     "XLINE",    "TOLERANCE",    "ACAD_TABLE", "EOF",          "$ACADVER",  "$INSUNITS",
    "CLASSES", "APPID",    "BLOCK_RECORD", "UCS",        "$DWGCODEPAGE", "DICTIONARY"};

constexpr const char* kNumbers[] = {
    "0",    "1",   "-1",         "2",      "3",     "4",    "16",   "255",         "256",
    "1000", "0.5", "-0.0",       "1e-300", "1e300", "1e15", "90",   "180",         "360",
    "nan",  "inf", "2147483647", "4e9",    "65536", "6.28", "1e-9", "-1000000000", "99999999999999999999"};

constexpr int kCodes[] = {0,   1,   2,   3,   5,   6,   7,   8,   10,  11,   12,  13,  20,  21,
                          22,  23,  30,  31,  38,  39,  40,  41,  42,  43,   44,  48,  49,  50,
                          51,  52,  53,  60,  62,  66,  67,  70,  71,  72,   73,  74,  75,  76,
                          77,  78,  90,  91,  92,  93,  97,  98,  100, 102,  210, 220, 230, 290,
                          330, 340, 350, 360, 370, 420, 440, 470, 999, 1001, 1071};

template <typename Item, std::size_t count>
const Item& OneOf(const Item (&items)[count], Chance& chance) {
  return items[chance.Below(count)];
}

void ChangeValue(Tag& tag, Chance& chance) {
  switch (chance.Below(4)) {
    case 0: tag.value = OneOf(kNumbers, chance); break;
    case 1: tag.value = OneOf(kNames, chance); break;
    default: tag.value = chance.mutateBytes(tag.value); std::erase(tag.value, '\n');
  }
}

void ChangeCode(Tag& tag, Chance& chance) {
  tag.code = chance.OneIn(8) ? chance.mutateBytes(tag.code) : std::to_string(OneOf(kCodes, chance));
  std::erase(tag.code, '\n');
}

/// Some tags that stand together.
struct Run {
  std::size_t first;
  std::size_t count;
};

Run SomeRun(const Tags& tags, Chance& chance) {
  const std::size_t first = chance.Below(tags.size());
  const std::size_t longest = chance.OneIn(2) ? 4 : 64;
  return {first, 1 + chance.Below(std::min(longest, tags.size() - first))};
}

void CopyRun(Tags& tags, Chance& chance) {
  const Run run = SomeRun(tags, chance);
  const auto first = tags.begin() + static_cast<std::ptrdiff_t>(run.first);
  const Tags copy(first, first + static_cast<std::ptrdiff_t>(run.count));
  const auto place = static_cast<std::ptrdiff_t>(chance.Below(tags.size() + 1));
  tags.insert(tags.begin() + place, copy.begin(), copy.end());
}

void EraseRun(Tags& tags, Chance& chance) {
  const Run run = SomeRun(tags, chance);
  const auto first = tags.begin() + static_cast<std::ptrdiff_t>(run.first);
  tags.erase(first, first + static_cast<std::ptrdiff_t>(run.count));
}

void InsertTag(Tags& tags, Chance& chance) {
  Tag tag{std::to_string(OneOf(kCodes, chance)), ""};
  ChangeValue(tag, chance);
  tags.insert(tags.begin() + static_cast<std::ptrdiff_t>(chance.Below(tags.size() + 1)), tag);
}

void ChangeOnce(Tags& tags, Chance& chance) {
  Tag& tag = tags[chance.Below(tags.size())];
  switch (chance.Below(8)) {
    case 0: return CopyRun(tags, chance);
    case 1: return EraseRun(tags, chance);
    case 2: return InsertTag(tags, chance);
    case 3: return ChangeCode(tag, chance);
    case 4: return std::swap(tag, tags[chance.Below(tags.size())]);
    default: return ChangeValue(tag, chance);
  }
}

}  // namespace

std::string MutateDxf(std::string_view input, Chance& chance) {
  Tags tags = TagsOf(input);
  for (std::size_t changes = 1 + chance.Below(4); changes > 0 && !tags.empty(); --changes) {
    ChangeOnce(tags, chance);
  }
  return TextOf(tags);
}

}  // namespace fuzz
