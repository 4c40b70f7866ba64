#ifndef DRAWLOAD_TESTS_PDF_PDF_MAKER_H
#define DRAWLOAD_TESTS_PDF_PDF_MAKER_H

#include <array>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <zlib.h>

/// Writes small PDF files with right offsets, from the texts of their objects.
class PdfMaker {
 public:
  /// The file begins with `header` and a comment that makes it longer than the tail in which its end is
  /// searched.
  explicit PdfMaker(const std::string& header = "%PDF-1.4")
      : file(header + "\n%" + std::string(300, '-') + "\n") {}

  void Object(int number, const std::string& body) {
    offsets[number] = file.size();
    file += std::to_string(number) + " 0 obj\n" + body + "\nendobj\n";
  }

  /// `keys` are those of the dictionary besides /Length.
  void Stream(int number, const std::string& keys, const std::string& bytes) {
    Object(number,
           "<<" + keys + " /Length " + std::to_string(bytes.size()) + ">>\nstream\n" + bytes + "\nendstream");
  }

  /// A table with one subsection from 0 on for all objects since the last table; `keys` go to the trailer.
  /// Returns its offset.
  std::size_t Table(const std::string& keys) {
    const std::size_t start = file.size();
    const int last = offsets.empty() ? 0 : offsets.rbegin()->first;
    file += "xref\n";
    if (offsets.size() == static_cast<std::size_t>(last)) {
      file += "0 " + std::to_string(last + 1) + "\n0000000000 65535 f \n";
      for (const auto& [number, offset] : offsets) file += Entry(offset);
    } else {
      for (const auto& [number, offset] : offsets) file += std::to_string(number) + " 1\n" + Entry(offset);
    }
    file += "trailer\n<<" + keys + ">>\n";
    End(start);
    return start;
  }

  void End(std::size_t lastSection) {
    // The first "startxref" of the file's tail counts, so an older one must lie before it.
    if (file.find("startxref") != std::string::npos) file += "%" + std::string(256, '-') + "\n";
    file += "startxref\n" + std::to_string(lastSection) + "\n%%EOF\n";
    offsets.clear();
  }

  static std::string Deflate(std::string_view bytes) {
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    std::string result(size, '\0');
    compress(reinterpret_cast<Bytef*>(result.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
             static_cast<uLong>(bytes.size()));
    result.resize(size);
    return result;
  }

  std::string file;
  std::map<int, std::size_t> offsets;  ///< of the objects since the last table

 private:
  static std::string Entry(std::size_t offset) {
    std::array<char, 32> line{};
    std::snprintf(line.data(), line.size(), "%010zu 00000 n \n", offset);
    return line.data();
  }
};

#endif
