#include "pdf/xref_loader.h"

#include "pdf/stream_data.h"
#include "pdf/xref_stream.h"
#include "pdf/xref_table.h"
#include "support/account.h"
#include "support/limits.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoI;

/// Work of reading a section besides its text.
constexpr std::uint64_t kSectionWork = 4096;

/// Takes the array at `tokens[bracket]`, which is "[".
void ReadNumbers(const PdfTokens& tokens, std::size_t bracket, std::vector<std::int32_t>& numbers) {
  for (std::size_t i = bracket + 1; tokens.at(i) != "]"; ++i) numbers.push_back(AtoI(tokens[i]));
}

}  // namespace

std::int32_t PdfXrefLoader::ReadSection(std::int32_t offset) {
  if (beingRead.size() >= static_cast<std::size_t>(support::limits::kPdfXrefDepth)) return 0;
  // Reading the section that was merged last once more would merge the same entries.
  if (offset == lastMerged) return 0;
  support::SpendWork(kSectionWork);
  if (!beingRead.insert(offset).second) return 0;
  reader.Seek(offset);
  std::int32_t catalog = 0;
  support::RunItem([&] { catalog = ReadText(); });
  beingRead.erase(offset);
  lastMerged = offset;
  return catalog;
}

std::int32_t PdfXrefLoader::ReadText() {
  reader.ReadUntil("%%EOF");
  const std::string_view text = reader.text;
  const std::size_t trailer = text.find("trailer");
  return trailer == std::string_view::npos ? ReadStreamSection(text) : ReadTableSection(text, trailer);
}

std::int32_t PdfXrefLoader::ReadTableSection(std::string_view text, std::size_t trailer) {
  const PdfObject keys(text.substr(trailer));
  const PdfTokens& tokens = keys.tokens;
  std::int32_t catalog = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/Root") {
      catalog = AtoI(tokens.at(++i));
    } else if (tokens[i] == "/Prev") {
      ReadSection(AtoI(tokens.at(i + 1)));
    }
  }
  ParseXrefTable(text.substr(0, trailer), reader.notes, section);
  return catalog;
}

std::int32_t PdfXrefLoader::ReadStreamSection(std::string_view text) {
  PdfStreamData data;
  data.input = reader.stream;
  PdfXrefLayout layout;
  std::int32_t catalog = 0;
  std::int32_t size = 0;
  const PdfObject keys(text);
  const PdfTokens& tokens = keys.tokens;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const std::string_view key = tokens[i];
    if (key == "/Filter") {
      data.filters.emplace_back(tokens.at(i + 1));
    } else if (key == "/Length") {
      data.length = static_cast<std::uint32_t>(AtoI(tokens.at(i + 1)));
    } else if (key == "/Root") {
      catalog = AtoI(tokens.at(i + 1));
    } else if (key == "/Index") {
      if (tokens.at(i + 1) == "[") ReadNumbers(tokens, i + 1, layout.index);
    } else if (key == "/Size") {
      size = AtoI(tokens.at(i + 1));
    } else if (key == "/W") {
      layout.widths = {AtoI(tokens.at(i + 2)), AtoI(tokens.at(i + 3)), AtoI(tokens.at(i + 4))};
      i += 5;
    } else if (key == "/Prev") {
      ReadSection(AtoI(tokens.at(i + 1)));
    }
  }
  if (layout.index.empty() && size != 0) layout.index = {0, size};
  DecodeStream(data, reader.notes);
  ParseXrefStream(reader, data.decoded, layout, section);
  return catalog;
}

}  // namespace pdf
