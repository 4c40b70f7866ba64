// write_bench_pdf FOLDER: writes the generated files of the PDF benchmarks, to run other programs on them.
#include <filesystem>
#include <fstream>

#include "pdf_generator.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::filesystem::path folder = argv[1];
  std::ofstream(folder / "one_page.pdf", std::ios::binary) << bench::PdfOfSegments(1, 1000000);
  std::ofstream(folder / "many_pages.pdf", std::ios::binary) << bench::PdfOfSegments(1000, 1000);
  std::ofstream(folder / "images.pdf", std::ios::binary) << bench::PdfOfImages(500);
  return 0;
}
