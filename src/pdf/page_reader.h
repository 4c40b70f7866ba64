#ifndef DRAWLOAD_PDF_PAGE_READER_H
#define DRAWLOAD_PDF_PAGE_READER_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "pdf/object_source.h"
#include "pdf/page_records.h"
#include "pdf/resource_reader.h"

namespace pdf {

/// Reads the pages of a document and runs their content. A page uses only what its own dictionary says.
class PageReader {
 public:
  explicit PageReader(PdfDocument& document) : source(document), resourceReader(source) {}

  /// Appends all pages in the order of the page tree; one that the account of the read refuses has what it
  /// drew before. Throws `std::out_of_range` where an object or a content text breaks off.
  void ReadAll(std::int32_t catalog, std::vector<PDF_Page>& pages);

 private:
  /// A content stream as it was found; decoded when all of a page's streams are found.
  struct ContentStream {
    std::int32_t number;
    bool isKeepable;
    PdfStreamKeys keys;
    std::string_view bytes;
  };

  /// The text of a content stream: what `decoded` holds, or bytes of the file.
  struct ContentBytes {
    std::string_view text;
    std::shared_ptr<const std::string> decoded;
  };

  /// Most streams belong to one page. The text is kept when another one asks for it, and comes out as it did
  /// the first time.
  struct KeptContent {
    ContentStream stream;
    std::optional<ContentBytes> content = {};
    std::string notes = {};
  };

  void ReadPage(std::int32_t number, PDF_Page& page);
  void ReadResources(PdfTokens& tokens, std::size_t& index, PageResources& resources);
  ContentStream FindContent(std::int32_t number);
  ContentBytes Decode(const ContentStream& stream);
  ContentBytes DecodeContent(const ContentStream& stream);
  ContentBytes DecodeAgain(KeptContent& kept);
  void KeepContent(KeptContent kept, std::size_t bytes);
  support::BlockText ContentText(const std::vector<std::int32_t>& numbers);

  ObjectSource source;
  std::shared_ptr<support::Arena> pageMemory = std::make_shared<support::Arena>();
  ResourceReader resourceReader;
  std::vector<std::shared_ptr<const PdfObject>> inserted;  ///< what the tokens of the page are views into
  std::unordered_map<std::int32_t, KeptContent> keptContents;
  std::size_t keptBytes = 0;
};

}  // namespace pdf

#endif
