#ifndef DRAWLOAD_PDF_XREF_TABLE_H
#define DRAWLOAD_PDF_XREF_TABLE_H

#include <string_view>

#include "pdf/notes.h"
#include "pdf/xref_section.h"

namespace pdf {

/// Takes the entries of a classic table into `section`, over those that stand there. False, and nothing
/// taken, where the text does not begin with "xref". More entries than a subsection announces are noted and
/// taken.
bool ParseXrefTable(std::string_view table, PdfNotes& notes, PdfXrefSection& section);

}  // namespace pdf

#endif
