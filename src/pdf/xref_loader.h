#ifndef DRAWLOAD_PDF_XREF_LOADER_H
#define DRAWLOAD_PDF_XREF_LOADER_H

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_set>

#include "pdf/xref_section.h"

namespace pdf {

/// Reads cross-reference sections from the last one back. Each section first has the older ones that its
/// /Prev names read, and then takes its own entries, all into one merged section. Of a stream's /W three
/// widths are taken, and the keys are read on after its "]".
class PdfXrefLoader {
 public:
  PdfXrefLoader(PdfFileReader& fileReader, PdfXrefSection& merged) : reader(fileReader), section(merged) {}

  /// Reads the section at `offset`; returns its catalog's object number, or 0 where it names none. A section
  /// that is being read already, and those beyond the limit of depth, are skipped.
  std::int32_t ReadSection(std::int32_t offset);

 private:
  std::int32_t ReadText();
  std::int32_t ReadTableSection(std::string_view text, std::size_t trailer);
  std::int32_t ReadStreamSection(std::string_view text);

  PdfFileReader& reader;
  PdfXrefSection& section;
  std::unordered_set<std::int32_t> beingRead;  ///< offsets
  std::optional<std::int32_t> lastMerged;      ///< offset of the section whose entries were merged last
};

}  // namespace pdf

#endif
