#ifndef DRAWLOAD_PDF_XREF_STREAM_H
#define DRAWLOAD_PDF_XREF_STREAM_H

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "pdf/xref_section.h"

namespace pdf {

/// How the rows of a cross-reference stream are laid out and which objects they belong to.
struct PdfXrefLayout {
  std::array<std::int32_t, 3> widths{};  ///< /W: bytes of each field; those below 0 count as 0
  std::vector<std::int32_t> index;       ///< /Index: first number and count, in turn
};

/// Takes the rows of a decoded cross-reference stream into `section`, then the objects of all object streams
/// that they name. False, with a note and nothing taken, where the number of rows is not that of /Index.
/// Kept: every row is taken to be predicted from the row above, and a row whose tag is not 2 repeats the
/// bytes of the last row before it whose tag is.
bool ParseXrefStream(PdfFileReader& reader, std::string_view decoded, const PdfXrefLayout& layout,
                     PdfXrefSection& section);

/// Takes the objects of an object stream into `section`. Throws `std::out_of_range` where the stream does not
/// hold what it announces, and `std::runtime_error` where its filter makes it a picture that cannot be read.
void ExpandObjectStream(PdfFileReader& reader, PdfXrefSection& section, std::int32_t objectNumber);

}  // namespace pdf

#endif
