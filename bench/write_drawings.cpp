// write_drawings FOLDER: writes the generated drawings that whole programs are compared on.
#include <filesystem>
#include <fstream>

#include "dxf_generator.h"
#include "pdf_generator.h"
#include "svg_generator.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  constexpr std::size_t kMegabyte = 1'000'000;
  const std::filesystem::path folder = argv[1];
  const auto write = [&](const char* name, const std::string& bytes) {
    std::ofstream(folder / name, std::ios::binary) << bytes;
  };
  write("drawing_2.dxf", GenerateDxf(2 * kMegabyte));
  write("drawing_20.dxf", GenerateDxf(20 * kMegabyte));
  write("drawing_2.svg", GenerateSvg(2 * kMegabyte));
  write("drawing_20.svg", GenerateSvg(20 * kMegabyte));
  write("flate_78.pdf", bench::PdfOfFlate(78'000));
  write("flate_780.pdf", bench::PdfOfFlate(780'000));
  write("one_page.pdf", bench::PdfOfSegments(1, 1'000'000));
  write("many_pages.pdf", bench::PdfOfSegments(1000, 1000));
  write("images.pdf", bench::PdfOfImages(500));
  return 0;
}
