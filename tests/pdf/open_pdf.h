#ifndef DRAWLOAD_TESTS_PDF_OPEN_PDF_H
#define DRAWLOAD_TESTS_PDF_OPEN_PDF_H

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "pdf/document.h"
#include "pdf/page_entities.h"
#include "pdf/page_reader.h"
#include "pdf/pdf_builder.h"

/// A file of a test, opened.
class OpenPdf {
 public:
  explicit OpenPdf(std::string fileBytes) : bytes(std::move(fileBytes)), document("test.pdf") {
    if (!document.OpenBytes(bytes)) ADD_FAILURE() << "the file could not be opened";
  }
  OpenPdf(const OpenPdf&) = delete;
  OpenPdf& operator=(const OpenPdf&) = delete;

  std::vector<pdf::PDF_Page> Pages() {
    std::vector<pdf::PDF_Page> pages;
    pdf::PageReader(document).ReadAll(document.catalog, pages);
    return pages;
  }

  std::string bytes;
  pdf::PdfDocument document;
};

inline std::vector<pdf::PDF_Page> PagesOf(const std::string& fileBytes) { return OpenPdf(fileBytes).Pages(); }

/// The texts shown on a page, in order.
inline std::vector<std::string> TextsOf(const pdf::PDF_Page& page) {
  std::vector<std::string> texts;
  for (const PageEntity& entity : EntitiesOf(page)) {
    if (const auto* text = std::get_if<pdf::PDF_PageText>(&entity)) texts.push_back(text->text);
  }
  return texts;
}

#endif
