// write_drawings FOLDER NAME...: writes generated drawings, those of these names, that whole programs are
// compared on.
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>

#include "dxf_generator.h"
#include "pdf_generator.h"
#include "picture_generator.h"
#include "svg_generator.h"

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  constexpr std::size_t kMegabyte = 1'000'000;
  constexpr std::uint32_t kPictureSide = 6000;
  const std::filesystem::path folder = argv[1];
  std::map<std::string, std::function<std::string()>> drawings = {
      {"flate_78.pdf", [] { return bench::PdfOfFlate(78'000); }},
      {"flate_780.pdf", [] { return bench::PdfOfFlate(780'000); }},
      {"one_page.pdf", [] { return bench::PdfOfSegments(1, 1'000'000); }},
      {"many_pages.pdf", [] { return bench::PdfOfSegments(1000, 1000); }},
      {"images.pdf", [] { return bench::PdfOfImages(500); }},
      {"picture.png", [] { return bench::GeneratePng(kPictureSide); }},
      {"picture.dxf", [&] { return bench::DxfOfPicture(folder / "picture.png", kPictureSide); }},
  };
  for (const std::size_t size : {1, 2, 10, 20, 100}) {
    const std::string name = "drawing_" + std::to_string(size);
    drawings[name + ".dxf"] = [size] { return GenerateDxf(size * kMegabyte); };
    drawings[name + ".svg"] = [size] { return GenerateSvg(size * kMegabyte); };
  }
  for (int i = 2; i < argc; ++i) {
    const auto found = drawings.find(argv[i]);
    if (found == drawings.end()) return 2;
    std::ofstream(folder / argv[i], std::ios::binary) << found->second();
  }
  return 0;
}
