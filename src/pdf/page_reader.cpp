#include "pdf/page_reader.h"

#include <utility>

#include "pdf/content_interpreter.h"
#include "pdf/content_text.h"
#include "pdf/page_tree.h"
#include "pdf/token_walk.h"
#include "support/account.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoI;

/// Work of reading a page besides what it names.
constexpr std::uint64_t kPageWork = 8192;

/// Decoded content streams that are kept for other pages that name them.
constexpr std::size_t kKeptBytes = std::size_t{64} << 20;

/// The tokens of an object without the "N G obj" before them and the "endobj" behind them. An object from an
/// object stream has neither.
PdfTokens BodyOf(const PdfTokens& tokens) {
  auto begin = tokens.begin();
  auto end = tokens.end();
  if (tokens.size() >= 3 && tokens[2] == "obj") begin += 3;
  if (begin != end && *(end - 1) == "endobj") --end;
  while (begin != end && begin->empty()) ++begin;
  return PdfTokens(begin, end);
}

/// Appends the stream numbers behind the key at `index`, which moves to the last token of the value.
void ReadContentsKey(const PdfTokens& tokens, std::size_t& index, std::vector<std::int32_t>& numbers) {
  if (tokens.at(index + 1) != "[") {
    numbers.push_back(AtoI(tokens[++index]));
    return;
  }
  for (const std::int32_t number : ReferencesFrom(tokens, index + 2)) numbers.push_back(number);
  index = EndOfArray(tokens, index + 2);
}

}  // namespace

void PageReader::ReadAll(std::int32_t catalog, std::vector<PDF_Page>& pages) {
  for (const std::int32_t number : ListPages(source, catalog)) {
    support::RunItem([&] {
      pages.push_back({.entities = PDF_PageEntities(pageMemory)});
      support::SpendWork(kPageWork);
      ReadPage(number, pages.back());
    });
  }
}

void PageReader::ReadPage(std::int32_t number, PDF_Page& page) {
  inserted.clear();
  const auto object = source.Fetch(number);
  PdfTokens tokens = object->tokens;
  PageResources resources;
  std::vector<std::int32_t> contents;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/Type") {
      ++i;
    } else if (tokens[i] == "/Resources") {
      ReadResources(tokens, i, resources);
    } else if (tokens[i] == "/MediaBox") {
      page.mediaBox = BoxBehind(tokens, i);
    } else if (tokens[i] == "/Contents") {
      ReadContentsKey(tokens, i, contents);
    }
  }
  const support::BlockText text = ContentText(contents);
  ContentInterpreter(resources, page).Run(text.View());
}

/// Reads the resources behind the key at `index`, which moves to their last token. A dictionary in an object
/// of its own takes the place of its reference in `tokens`.
void PageReader::ReadResources(PdfTokens& tokens, std::size_t& index, PageResources& resources) {
  if (tokens.at(index + 3) == "R") {
    const auto object = source.Fetch(AtoI(tokens[index + 1]));
    inserted.push_back(object);
    const PdfTokens body = BodyOf(object->tokens);
    support::SpendWork((tokens.size() + body.size()) * sizeof(std::string_view));
    const auto reference = tokens.begin() + static_cast<std::ptrdiff_t>(index) + 1;
    tokens.insert(tokens.erase(reference, reference + 3), body.begin(), body.end());
  }
  if (tokens.at(index + 1) != "<<") return;
  resourceReader.Read(tokens, ++index, resources);
}

PageReader::ContentStream PageReader::FindContent(std::int32_t number) {
  source.Reader().dependsOnEarlierRead = false;
  const auto [object, stream] = source.FetchStream(number);
  ContentStream content = {number, !source.Reader().dependsOnEarlierRead, {}, {}};
  for (std::size_t i = 0; i < object->tokens.size(); ++i) {
    source.ReadStreamKey(object->tokens, i, content.keys);
  }
  content.bytes = FirstBytes(stream, content.keys.length);
  return content;
}

PageReader::ContentBytes PageReader::Decode(const ContentStream& stream) {
  if (stream.keys.filters.empty()) {
    return {stream.bytes, nullptr};
  }
  PdfStreamData data;
  data.nulFollows = true;
  source.Decode(stream.bytes, stream.keys, data);
  auto text = std::make_shared<std::string>();
  if (data.length == data.decoded.size()) {
    *text = std::move(data.decoded);
  } else {
    AppendDecoded(data, *text);
  }
  return {*text, text};
}

PageReader::ContentBytes PageReader::DecodeContent(const ContentStream& stream) {
  if (!stream.isKeepable) return Decode(stream);
  const auto known = keptContents.find(stream.number);
  if (known != keptContents.end()) return DecodeAgain(known->second);
  KeptContent kept = {stream};
  ContentBytes content = Decode(stream);
  KeepContent(std::move(kept), content.text.size());
  return content;
}

PageReader::ContentBytes PageReader::DecodeAgain(KeptContent& kept) {
  if (kept.content) {
    source.Notes().Replay(kept.notes);
    return *kept.content;
  }
  const PdfNotes::Recording recording(source.Notes());
  kept.content = Decode(kept.stream);
  kept.notes = recording.Taken();
  return *kept.content;
}

void PageReader::KeepContent(KeptContent kept, std::size_t bytes) {
  if (keptBytes + bytes > kKeptBytes) {
    keptContents.clear();
    keptBytes = 0;
  }
  keptBytes += bytes;
  const std::int32_t number = kept.stream.number;
  keptContents.emplace(number, std::move(kept));
}

/// The streams' texts, one behind the other with nothing between them, normalised.
support::BlockText PageReader::ContentText(const std::vector<std::int32_t>& numbers) {
  std::vector<ContentStream> streams;
  streams.reserve(numbers.size());
  for (const std::int32_t number : numbers) streams.push_back(FindContent(number));
  if (streams.size() == 1) {
    const ContentBytes content = DecodeContent(streams.front());
    support::SpendWork(content.text.size());
    return NormaliseContentText(content.text);
  }
  std::string joined;
  for (const ContentStream& stream : streams) {
    const ContentBytes content = DecodeContent(stream);
    support::SpendWork(2 * content.text.size());
    joined += content.text;
  }
  return NormaliseContentText(joined);
}

}  // namespace pdf
