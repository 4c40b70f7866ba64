#include "fuzz/target.h"
#include "pdf/xref_table.h"

namespace {

/// Takes the input as a table, and once more over the entries that it gave.
void Run(std::string_view input) {
  pdf::PdfNotes notes;
  pdf::PdfXrefSection section;
  const bool isTable = pdf::ParseXrefTable(input, notes, section);
  fuzz::Check(isTable || section.entries.empty(), "entries of a text that is no table");
  const std::size_t count = section.entries.size();
  pdf::ParseXrefTable(input, notes, section);
  fuzz::Check(section.entries.size() == count, "the second reading gives other entries");
}

const fuzz::Target target("xref_table", Run);

}  // namespace
