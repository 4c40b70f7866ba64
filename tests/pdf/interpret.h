#ifndef DRAWLOAD_TESTS_PDF_INTERPRET_H
#define DRAWLOAD_TESTS_PDF_INTERPRET_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/content_interpreter.h"
#include "pdf/page_entities.h"

/// Runs content texts, already in lines, on a page of 100 by 200 units.
class Interpret {
 public:
  Interpret() { page.mediaBox = {0.0, 0.0, 100.0, 200.0}; }

  /// Runs `lines` from a fresh state; entities add up.
  Interpret& Run(std::string_view lines) {
    pdf::ContentInterpreter(resources, page).Run(lines);
    return *this;
  }

  Interpret& WithColorSpace(const std::string& name, double c0, double c1) {
    resources.colorSpaces[name] =
        std::make_shared<const pdf::PdfColorSpaceEntry>(pdf::PdfColorSpaceEntry{c0, c1});
    return *this;
  }

  Interpret& WithForm(const std::string& name, const std::string& content) {
    pdf::PdfForm form;
    form.content = content;
    pdf::PdfXObject xobject;
    xobject.form = std::make_shared<const pdf::PdfForm>(form);
    resources.xobjects[name] = std::make_shared<const pdf::PdfXObject>(xobject);
    return *this;
  }

  Interpret& WithImage(const std::string& name, int width, int height) {
    pdf::PdfXObject xobject;
    xobject.image = std::make_shared<const pdf::PdfImage>(pdf::PdfImage{{}, width, height, 1});
    resources.xobjects[name] = std::make_shared<const pdf::PdfXObject>(xobject);
    return *this;
  }

  Interpret& WithFont(const std::string& name, const std::string& baseFont) {
    pdf::PdfFont font;
    font.name = baseFont;
    resources.fonts[name] = std::make_shared<const pdf::PdfFont>(font);
    return *this;
  }

  Interpret& WithShading(const std::string& name, int type, std::vector<double> coords) {
    pdf::PdfShading shading;
    shading.type = type;
    shading.coords = std::move(coords);
    resources.shadings[name] = std::make_shared<const pdf::PdfShading>(shading);
    return *this;
  }

  std::size_t Count() const { return page.entities.Size(); }
  pdf::PDF_PagePath Path(std::size_t index = 0) const { return EntityOf<pdf::PDF_PagePath>(page, index); }
  pdf::PdfPathData Segments(std::size_t index = 0) const {
    pdf::PdfPathData segments;
    Path(index).path.ForEach([&](const pdf::PdfPathSegment& segment) { segments.push_back(segment); });
    return segments;
  }
  pdf::PDF_PageText Text(std::size_t index = 0) const { return EntityOf<pdf::PDF_PageText>(page, index); }
  pdf::PDF_PageImage Image(std::size_t index = 0) const { return EntityOf<pdf::PDF_PageImage>(page, index); }

  pdf::PageResources resources;
  pdf::PDF_Page page;
};

inline pdf::PdfPathSegment Move(double x, double y) { return {pdf::kPdfMove, {x, y}}; }
inline pdf::PdfPathSegment Line(double x, double y) { return {pdf::kPdfLine, {x, y}}; }
inline pdf::PdfPathSegment Curve(pdf::PdfPoint control1, pdf::PdfPoint control2, pdf::PdfPoint end) {
  return {pdf::kPdfCurve, end, control1, control2};
}

#endif
