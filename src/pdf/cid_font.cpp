#include <algorithm>

#include "pdf/font_reader.h"
#include "pdf/shared_reads.h"
#include "pdf/token_walk.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoI;

/// Reads the /CIDSystemInfo whose "<<" stands at `index`, which moves to its ">>".
void ReadSystemInfo(const PdfTokens& tokens, std::size_t& index, PdfCIDFont& font) {
  for (; tokens.at(index) != ">>"; ++index) {
    if (tokens[index] == "/Registry")
      font.registry = tokens.at(++index);
    else if (tokens[index] == "/Ordering")
      font.ordering = tokens.at(++index);
    else if (tokens[index] == "/Supplement")
      font.supplement = AtoI(tokens.at(++index));
  }
}

/// Reads the widths behind the "[" at `index`, and moves `index` to the "]" of the array: groups of a glyph
/// and either an array of widths for it and those behind it, or a last glyph and one width for all.
void ReadWidths(const PdfTokens& tokens, std::size_t& index, PdfCIDFont& font) {
  for (++index; tokens.at(index) != "]"; ++index) {
    std::int32_t first = AtoI(tokens[index]);
    if (tokens.at(++index) != "[") {
      const std::int32_t last = AtoI(tokens[index]);
      font.widths.push_back({first, last, AtoI(tokens.at(++index))});
      continue;
    }
    for (++index; tokens.at(index) != "]"; ++index) {
      font.widths.push_back({first, first, AtoI(tokens[index])});
      first = static_cast<std::int32_t>(static_cast<std::uint32_t>(first) + 1);
    }
  }
}

/// The objects of widths that a font named: nothing draws with widths, so each is looked at once.
using SharedWidths = SharedReads<std::vector<PdfWidthRange>>;

void ReadWidthsOf(ObjectSource& source, std::int32_t objectNumber, PdfCIDFont& font) {
  const auto object = source.Fetch(objectNumber);
  const auto bracket = std::find(object->tokens.begin(), object->tokens.end(), "[");
  auto start = static_cast<std::size_t>(bracket - object->tokens.begin());
  if (bracket != object->tokens.end()) ReadWidths(object->tokens, start, font);
}

/// Reads /W, inline or as a reference, after the key at `index`. The last one counts.
void ReadWidthsKey(ObjectSource& source, const PdfTokens& tokens, std::size_t& index, SharedWidths& shared,
                   PdfCIDFont& font) {
  if (tokens.at(++index) == "[") {
    font.widths.clear();
    ReadWidths(tokens, index, font);
    return;
  }
  const std::int32_t number = AtoI(tokens[index]);
  shared.Get(source.Reader(), number, [&] {
    font.widths.clear();
    ReadWidthsOf(source, number, font);
    return nullptr;
  });
}

/// Appends the tokens of the array behind the key at `index`; nothing where there is no array.
void ReadVerticalWidths(const PdfTokens& tokens, std::size_t& index, PdfCIDFont& font) {
  if (tokens.at(index + 1) != "[") return;
  const std::size_t end = EndOfValue(tokens, index + 1);
  font.verticalWidths.assign(tokens.begin() + static_cast<std::ptrdiff_t>(index) + 2,
                             tokens.begin() + static_cast<std::ptrdiff_t>(end));
  index = end;
}

/// Looks at the embedded font program, and drops it: a length beyond its data ends the read all the same.
void ReadFontFile(ObjectSource& source, std::int32_t objectNumber) {
  const auto [object, stream] = source.FetchStream(objectNumber);
  PdfStreamKeys keys;
  for (std::size_t i = 0; i < object->tokens.size(); ++i) source.ReadStreamKey(object->tokens, i, keys);
  FirstBytes(stream, keys.length);
}

struct DescriptorText {
  std::string_view key;
  std::string PdfFontDescriptor::*field;
};

constexpr DescriptorText kDescriptorTexts[] = {
    {"/Type", &PdfFontDescriptor::type},
    {"/FontName", &PdfFontDescriptor::fontName},
    {"/FontFamily", &PdfFontDescriptor::fontFamily},
    {"/FontStretch", &PdfFontDescriptor::fontStretch},
    {"/CharSet", &PdfFontDescriptor::characterSet},
};

struct DescriptorNumber {
  std::string_view key;
  std::int32_t PdfFontDescriptor::*field;
};

constexpr DescriptorNumber kDescriptorNumbers[] = {
    {"/FontWeight", &PdfFontDescriptor::fontWeight},
    {"/Flags", &PdfFontDescriptor::flags},
    {"/ItalicAngle", &PdfFontDescriptor::italicAngle},
    {"/Ascent", &PdfFontDescriptor::ascent},
    {"/Descent", &PdfFontDescriptor::descent},
    {"/Leading", &PdfFontDescriptor::leading},
    {"/CapHeight", &PdfFontDescriptor::capHeight},
    {"/XHeight", &PdfFontDescriptor::xHeight},
    {"/StemV", &PdfFontDescriptor::stemV},
    {"/StemH", &PdfFontDescriptor::stemH},
    {"/AvgWidth", &PdfFontDescriptor::averageWidth},
    {"/MaxWidth", &PdfFontDescriptor::maximumWidth},
    {"/MissingWidth", &PdfFontDescriptor::missingWidth},
};

/// Takes a key whose value is the next token.
void ReadSimpleKey(const PdfTokens& tokens, std::size_t& index, PdfFontDescriptor& descriptor) {
  const std::string_view key = tokens[index];
  for (const DescriptorText& text : kDescriptorTexts) {
    if (key != text.key) continue;
    descriptor.*text.field = tokens.at(++index);
    return;
  }
  for (const DescriptorNumber& number : kDescriptorNumbers) {
    if (key != number.key) continue;
    descriptor.*number.field = AtoI(tokens.at(++index));
    return;
  }
}

void ReadDescriptorTokens(ObjectSource& source, const PdfTokens& tokens, PdfFontDescriptor& descriptor) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/FontBBox") {
      descriptor.fontBox = BoxBehind(tokens, i);
    } else if (tokens[i] == "/FontFile2") {
      ReadFontFile(source, AtoI(tokens.at(++i)));
    } else {
      ReadSimpleKey(tokens, i, descriptor);
    }
  }
}

}  // namespace

PdfCIDFont ReadCIDFont(ObjectSource& source, const PdfTokens& tokens) {
  PdfCIDFont font;
  SharedWidths widths;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const std::string_view key = tokens[i];
    if (key == "/Type")
      font.type = tokens.at(++i);
    else if (key == "/Subtype")
      font.subtype = tokens.at(++i);
    else if (key == "/BaseFont")
      font.baseFont = tokens.at(++i);
    else if (key == "/CIDSystemInfo") {
      if (tokens.at(i + 1) == "<<") ReadSystemInfo(tokens, ++i, font);
    } else if (key == "/FontDescriptor")
      font.descriptor = ReadFontDescriptor(source, AtoI(tokens.at(++i)));
    else if (key == "/DW")
      font.defaultWidth = AtoI(tokens.at(++i));
    else if (key == "/DW2") {
      if (tokens.at(i + 1) == "[")
        font.defaultVerticalMetrics = {AtoI(tokens.at(i + 2)), AtoI(tokens.at(i + 3))};
    } else if (key == "/W")
      ReadWidthsKey(source, tokens, i, widths, font);
    else if (key == "/W2")
      ReadVerticalWidths(tokens, i, font);
    else if (key == "/CIDToGIDMap")
      font.cidToGidMap = tokens.at(++i);
  }
  return font;
}

std::shared_ptr<const PdfFontDescriptor> ReadFontDescriptor(ObjectSource& source, std::int32_t objectNumber) {
  return source.fontDescriptors.Get(source.Reader(), objectNumber, [&] {
    auto descriptor = std::make_shared<PdfFontDescriptor>();
    ReadDescriptorTokens(source, source.Fetch(objectNumber)->tokens, *descriptor);
    return descriptor;
  });
}

}  // namespace pdf
