#include "pdf/resource_reader.h"

#include "pdf/font_reader.h"
#include "pdf/token_walk.h"
#include "support/account.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoF;
using support::AtoI;

/// Work of an entry that was read before.
constexpr std::uint64_t kEntryWork = 512;

bool IsName(std::string_view token) { return !token.empty() && token.front() == '/'; }

/// Whether the dictionary under `key` is looked into.
bool IsDictionaryKey(std::string_view key) {
  return key == "/ExtGState" || key == "/ColorSpace" || key == "/Shading" || key == "/XObject" ||
         key == "/Font" || key == "/Properties";
}

/// The tokens of the inline value at `index`.
PdfTokens ValueTokens(const PdfTokens& tokens, std::size_t index) {
  const auto begin = tokens.begin();
  return PdfTokens(begin + static_cast<std::ptrdiff_t>(index),
                   begin + static_cast<std::ptrdiff_t>(EndOfValue(tokens, index)) + 1);
}

/// The number two places behind the first `key`; `value` stays where there is no such key.
void TakeFirst(const PdfTokens& tokens, std::string_view key, double& value) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] != key) continue;
    value = AtoF(tokens.at(i + 2));
    return;
  }
}

std::shared_ptr<const PdfColorSpaceEntry> ColorSpaceOf(const PdfTokens& tokens) {
  PdfColorSpaceEntry entry;
  TakeFirst(tokens, "/C0", entry.c0);
  TakeFirst(tokens, "/C1", entry.c1);
  return std::make_shared<const PdfColorSpaceEntry>(entry);
}

}  // namespace

void ResourceReader::Read(const PdfTokens& tokens, std::size_t& index, PageResources& resources) {
  for (std::size_t open = 1; open > 0;) {
    const std::string_view token = tokens.at(++index);
    if (token == "<<") ++open;
    if (token == ">>") --open;
    ReadKey(tokens, index, resources);
  }
}

// Kept: the tokens of a /Pattern dictionary are walked as if they were resource keys.
void ResourceReader::ReadKey(const PdfTokens& tokens, std::size_t& index, PageResources& resources) {
  const std::string_view key = tokens[index];
  if (key == "/ProcSet") {
    if (tokens.at(index + 1) == "[") index = EndOfArray(tokens, index + 1);
    return;
  }
  if (!IsDictionaryKey(key) || tokens.at(index + 1) != "<<") return;
  const std::size_t end = EndOfValue(tokens, index + 1);
  for (index += 2; index < end; ++index) {
    if (!IsName(tokens[index]) || index + 1 == end) continue;
    bool goesOn = true;
    support::SpendWork(kEntryWork);
    support::RunItem([&] { goesOn = ReadEntry(key, tokens, index, resources); });
    if (!goesOn) break;
    index = EndOfValue(tokens, index + 1);
  }
  index = end;
}

bool ResourceReader::ReadEntry(std::string_view key, const PdfTokens& tokens, std::size_t nameIndex,
                               PageResources& resources) {
  const std::string name(tokens[nameIndex]);
  const std::int32_t number = AtoI(tokens[nameIndex + 1]);
  if (key == "/ExtGState") {
    NoteReference("ExtGState:", name, number);
  } else if (key == "/Properties") {
    NoteReference("Properties:", name, number);
  } else if (key == "/ColorSpace") {
    resources.colorSpaces[name] = ReadColorSpace(tokens, nameIndex + 1);
  } else if (key == "/Font") {
    resources.fonts[name] = ReadFontEntry(tokens, nameIndex + 1);
  } else if (key == "/Shading") {
    const auto shading = ReadShadingEntry(number);
    if (shading == nullptr) return false;
    resources.shadings[name] = shading;
  } else {
    const auto xobject = ReadXObjectEntry(number);
    if (xobject == nullptr) return false;
    resources.xobjects[name] = xobject;
  }
  return true;
}

void ResourceReader::NoteReference(std::string_view label, std::string_view name, std::int32_t number) {
  source.Notes().Write(std::string(label).append(name) + " " + std::to_string(number));
}

std::shared_ptr<const PdfColorSpaceEntry> ResourceReader::ReadColorSpace(const PdfTokens& tokens,
                                                                         std::size_t value) {
  if (IsName(tokens[value])) return std::make_shared<const PdfColorSpaceEntry>();
  if (tokens[value] == "[" || tokens[value] == "<<") return ColorSpaceOf(ValueTokens(tokens, value));
  const std::int32_t number = AtoI(tokens[value]);
  return colorSpaces.Get(source.Reader(), number, [&] { return ColorSpaceOf(source.Fetch(number)->tokens); });
}

std::shared_ptr<const PdfFont> ResourceReader::ReadFontEntry(const PdfTokens& tokens, std::size_t value) {
  const auto read = [&](const PdfTokens& fontTokens) {
    auto font = std::make_shared<PdfFont>();
    ReadFont(source, fontTokens, *font);
    return font;
  };
  if (tokens[value] == "<<") return read(ValueTokens(tokens, value));
  const std::int32_t number = AtoI(tokens[value]);
  return fonts.Get(source.Reader(), number, [&] { return read(source.Fetch(number)->tokens); });
}

std::shared_ptr<const PdfShading> ResourceReader::ReadShadingEntry(std::int32_t number) {
  return shadings.Get(source.Reader(), number, [&] {
    auto shading = std::make_shared<PdfShading>();
    return ReadShading(source.Reader(), source.Section(), number, *shading) ? shading : nullptr;
  });
}

std::shared_ptr<const PdfXObject> ResourceReader::ReadXObjectEntry(std::int32_t number) {
  return xobjects.Get(source.Reader(), number, [&] {
    auto xobject = std::make_shared<PdfXObject>();
    return ReadXObject(source, number, *xobject) ? xobject : nullptr;
  });
}

}  // namespace pdf
