#include "pdf/pdf_rw.h"

#include <utility>

#include "pdf/page_conversion.h"
#include "pdf/page_reader.h"
#include "support/account.h"
#include "support/broken_pipe_guard.h"

PDF_RW::~PDF_RW() { PDF_RW::ResetReader(); }

void PDF_RW::ResetReader() {
  document.reset();
  fontNames.reset();
  path.clear();
  version = 0.0;
  pages.clear();
}

bool PDF_RW::Read(const std::string& filePath, PARSE::Context context) {
  const support::BrokenPipeGuard guard;  // the notes go to standard output, which may be a pipe
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the argument may be `path`, which is cleared
  const std::string name = filePath;
  ResetReader();
  sink->BeginFile(context);
  document = std::make_unique<pdf::PdfDocument>(name);
  bool opened = false;
  // One item, so that half of the work is left for what the pages become.
  support::RunItem([&] {
    opened = document->Open();
    if (opened) pdf::PageReader(*document).ReadAll(document->catalog, pages);
  });
  if (opened) {
    path = name;
    version = document->version;
  }
  document.reset();
  if (opened) WritePages(context);
  sink->EndFile(context);
  return opened;
}

void PDF_RW::WritePages(PARSE::Context context) {
  fontNames = std::make_unique<pdf::FontNames>();
  for (pdf::PDF_Page& page : pages) {
    constexpr double k = pdf::kMillimetresPerUnit;
    // Kept: the far corner of the box stands where the size is expected.
    const PARSE::PageRect rect = {page.mediaBox[0] * k, page.mediaBox[1] * k, page.mediaBox[2] * k,
                                  page.mediaBox[3] * k};
    sink->SetPage(&rect, context);
    WriteEntities(page, context);
  }
}

void PDF_RW::WriteEntities(pdf::PDF_Page& page, PARSE::Context context) {
  page.entities.Consume([&](const auto& record) { support::RunItem([&] { WriteRecord(record, context); }); });
}

void PDF_RW::WriteRecord(const pdf::PDF_PagePath& record, PARSE::Context context) {
  Entity_ZR::ZR_Path entity;
  pdf::ConvertPath(record, entity);
  sink->AddPath(&entity, context);
}

void PDF_RW::WriteRecord(const pdf::PDF_PageText& record, PARSE::Context context) {
  Entity_ZR::ZR_Text entity;
  pdf::ConvertText(record, *fontNames, entity);
  sink->AddText(&entity, context);
}

void PDF_RW::WriteRecord(const pdf::PDF_PageImage& record, PARSE::Context context) {
  Entity_ZR::ZR_Image entity;
  pdf::ConvertImage(record, entity);
  sink->AddImage(&entity, context);
}
