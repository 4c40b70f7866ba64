#include "pdf_generator.h"

#include <array>
#include <cstdio>
#include <vector>
#include <zlib.h>

#include "pdf/pdf_builder.h"

namespace bench {

namespace {

/// A linear congruential generator: its numbers are the same with every library.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state(seed) {}

  std::uint32_t Below(std::uint32_t bound) {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<std::uint32_t>(state >> 33U) % bound;
  }

 private:
  std::uint64_t state;
};

void AppendPoint(std::string& text, int decimals, Random& random) {
  const std::uint32_t bound = decimals == 2 ? 100 : 10000;
  std::array<char, 48> point{};
  const int size = std::snprintf(point.data(), point.size(), "%u.%0*u %u.%0*u ", random.Below(612), decimals,
                                 random.Below(bound), random.Below(792), decimals, random.Below(bound));
  text.append(point.data(), static_cast<std::size_t>(size));
}

/// Every fourth segment is a curve. The coordinates have 2 or 4 decimals.
std::string ContentOfSegments(std::int64_t count, int decimals, Random& random) {
  constexpr std::int64_t kPathSegments = 50;
  std::string text = "0.5 w\n";
  for (std::int64_t i = 0; i < count; ++i) {
    if (i % kPathSegments == 0) {
      if (i > 0) text += "S\n";
      AppendPoint(text, decimals, random);
      text += "m\n";
    }
    const bool curve = i % 4 == 3;
    for (int point = 0; point < (curve ? 3 : 1); ++point) AppendPoint(text, decimals, random);
    text += curve ? "c\n" : "l\n";
  }
  return text + "S\n";
}

std::string Compressed(const std::string& data) {
  uLongf size = compressBound(data.size());
  std::string packed(size, '\0');
  compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(data.data()),
           data.size());
  packed.resize(size);
  return packed;
}

}  // namespace

std::string PdfOfSegments(std::int64_t pageCount, std::int64_t segmentCount) {
  Random random(7);
  PdfBuilder file;
  std::vector<int> pages;
  for (std::int64_t i = 0; i < pageCount; ++i)
    pages.push_back(file.AddPage(ContentOfSegments(segmentCount, 2, random)));
  return file.BuildPages(pages);
}

std::string PdfOfFlate(std::int64_t segmentCount) {
  constexpr std::int64_t kPages = 10;
  Random random(13);
  PdfBuilder file;
  std::vector<int> pages;
  for (std::int64_t i = 0; i < kPages; ++i) {
    const int content = file.AddStream(Compressed(ContentOfSegments(segmentCount / kPages, 4, random)),
                                       "/Filter /FlateDecode");
    pages.push_back(file.Add("<< /Type /Page /MediaBox [ 0 0 612 792 ] /Contents " +
                             PdfBuilder::Reference(content) + " >>"));
  }
  return file.BuildPages(pages);
}

std::string PdfOfImages(std::int64_t imageCount) {
  constexpr std::size_t kSide = 200;
  Random random(11);
  PdfBuilder file;
  std::vector<int> pages;
  for (std::int64_t i = 0; i < imageCount; ++i) {
    std::string pixels(kSide * kSide, '\0');
    for (char& pixel : pixels) pixel = static_cast<char>(random.Below(256));
    const int image =
        file.AddStream(pixels,
                       "/Type /XObject /Subtype /Image /Width 200 /Height 200 /BitsPerComponent 8 "
                       "/ColorSpace /DeviceGray");
    pages.push_back(
        file.AddPage("q\n500 0 0 500 50 50 cm\n/Im0 Do\nQ\n",
                     "/Resources << /XObject << /Im0 " + PdfBuilder::Reference(image) + " >> >>"));
  }
  return file.BuildPages(pages);
}

}  // namespace bench
