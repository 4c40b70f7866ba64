#ifndef DRAWLOAD_PDF_RESOURCE_READER_H
#define DRAWLOAD_PDF_RESOURCE_READER_H

#include "pdf/object_source.h"
#include "pdf/resources.h"
#include "pdf/shared_reads.h"

namespace pdf {

/// Reads the resource dictionaries of a document's pages.
class ResourceReader {
 public:
  explicit ResourceReader(ObjectSource& objects) : source(objects) {}

  /// Adds what the dictionary whose "<<" stands at `index` names to `resources`, and moves `index` to its
  /// ">>". Only dictionaries that stand inline under their key are looked into.
  void Read(const PdfTokens& tokens, std::size_t& index, PageResources& resources);

 private:
  /// Handles the key at `index` and moves `index` to the last token that belongs to it.
  void ReadKey(const PdfTokens& tokens, std::size_t& index, PageResources& resources);
  /// One entry of a dictionary: its name, and where its value starts. False leaves the dictionary.
  bool ReadEntry(std::string_view key, const PdfTokens& tokens, std::size_t nameIndex,
                 PageResources& resources);

  void NoteReference(std::string_view label, std::string_view name, std::int32_t number);
  std::shared_ptr<const PdfColorSpaceEntry> ReadColorSpace(const PdfTokens& tokens, std::size_t value);
  std::shared_ptr<const PdfFont> ReadFontEntry(const PdfTokens& tokens, std::size_t value);
  std::shared_ptr<const PdfShading> ReadShadingEntry(std::int32_t number);
  std::shared_ptr<const PdfXObject> ReadXObjectEntry(std::int32_t number);

  ObjectSource& source;
  SharedReads<PdfColorSpaceEntry> colorSpaces;
  SharedReads<PdfFont> fonts;
  SharedReads<PdfShading> shadings;
  SharedReads<PdfXObject> xobjects;
};

}  // namespace pdf

#endif
