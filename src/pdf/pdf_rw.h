#ifndef DRAWLOAD_PDF_PDF_RW_H
#define DRAWLOAD_PDF_PDF_RW_H

#include <memory>
#include <string>
#include <vector>

#include "pdf/document.h"
#include "pdf/font_names.h"
#include "pdf/page_records.h"
#include "sink/reader_interface.h"

/// Reads PDF files. The sink gets `BeginFile`, then for each page `SetPage` and what is drawn on it, then
/// `EndFile`; lengths are millimetres, y up.
class PDF_RW : public PARSE::DrawLoader {
 public:
  ~PDF_RW() override;

  /// False where the file cannot be opened, or is no PDF file of version 1. Throws what a file that breaks
  /// off raises, before any page reaches the sink.
  bool Read(const std::string& filePath, PARSE::Context context) override;

  /// Frees what the last read made.
  virtual void ResetReader();

  double version = 0.0;  ///< of the file's header

 private:
  void WritePages(PARSE::Context context);
  void WriteEntities(pdf::PDF_Page& page, PARSE::Context context);
  void WriteRecord(const pdf::PDF_PagePath& record, PARSE::Context context);
  void WriteRecord(const pdf::PDF_PageText& record, PARSE::Context context);
  void WriteRecord(const pdf::PDF_PageImage& record, PARSE::Context context);

  std::unique_ptr<pdf::PdfDocument> document;
  std::unique_ptr<pdf::FontNames> fontNames;
  std::vector<pdf::PDF_Page> pages;
};

#endif
