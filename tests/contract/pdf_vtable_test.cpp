#include <gtest/gtest.h>
#include <vector>

#include "contract/table_length.h"
#include "contract/vtable_slot.h"
#include "pdf/cx_file.h"
#include "pdf/pdf_rw.h"
#include "sink/reader_interface.h"

TEST(VtableOfCxFile, HoldsADestructorAndThirteenOperationsInOrder) {
  using pdf::CxFile;
  const std::vector<std::size_t> slots = {
      VtableSlot(&CxFile::Close), VtableSlot(&CxFile::Read), VtableSlot(&CxFile::Write),
      VtableSlot(&CxFile::Seek),  VtableSlot(&CxFile::Tell), VtableSlot(&CxFile::Size),
      VtableSlot(&CxFile::Flush), VtableSlot(&CxFile::Eof),  VtableSlot(&CxFile::Error),
      VtableSlot(&CxFile::PutC),  VtableSlot(&CxFile::GetC), VtableSlot(&CxFile::GetS),
      VtableSlot(&CxFile::Scanf)};
  EXPECT_EQ(slots.size(), 13u);
  ExpectInOrderBehindTheDestructor(slots);
  EXPECT_EQ(TableLength<CxFile>(), kBehindDestructor + 13);
  EXPECT_EQ(TableLength<pdf::CxIOFile>(), kBehindDestructor + 13);
}

TEST(VtableOfPdfRw, AddsResetReaderBehindTheSharedTable) {
  const std::size_t shared = TableLength<PARSE::DrawLoader>();
  EXPECT_EQ(VtableSlot(&PDF_RW::ResetReader), shared);
  EXPECT_EQ(TableLength<PDF_RW>(), shared + 1);
}
