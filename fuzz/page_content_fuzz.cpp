#include "fuzz/read_drawing.h"
#include "fuzz/target.h"
#include "pdf/pdf_builder.h"

namespace {

/// The input as the content of a page that has a font, a picture and a form.
void Run(std::string_view input) {
  PdfBuilder file;
  const int font = file.Add("<< /Type /Font /Subtype /TrueType /BaseFont /Plate >>");
  const int image =
      file.AddStream("\x10\x80\xC0\xFF",
                     "/Type /XObject /Subtype /Image /Width 2 /Height 2 /ColorSpace /DeviceGray "
                     "/BitsPerComponent 8");
  const int form = file.AddStream("0 0 m 5 5 l S", "/Type /XObject /Subtype /Form /Matrix [ 1 0 0 1 2 3 ]");
  const std::string resources = "/Resources << /Font << /F1 " + PdfBuilder::Reference(font) +
                                " >> /XObject << /Im1 " + PdfBuilder::Reference(image) + " /Fm1 " +
                                PdfBuilder::Reference(form) + " >> >>";
  fuzz::ReadDrawing(file.BuildPages({file.AddPage(std::string(input), resources)}), "pdf");
}

const fuzz::Target target("page_content", Run);

}  // namespace
