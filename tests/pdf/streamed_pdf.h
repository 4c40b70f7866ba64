#ifndef DRAWLOAD_TESTS_PDF_STREAMED_PDF_H
#define DRAWLOAD_TESTS_PDF_STREAMED_PDF_H

#include <cstdint>
#include <map>
#include <string>

#include "pdf/pdf_maker.h"

/// Writes small PDF files with a cross-reference stream. Objects stand in the file or in an object stream.
class StreamedPdf {
 public:
  /// An object in the file.
  void Object(int number, const std::string& body) {
    rows[number] = {kInFile, static_cast<std::uint32_t>(maker.file.size())};
    maker.Object(number, body);
  }
  void Stream(int number, const std::string& bytes, const std::string& keys = "") {
    rows[number] = {kInFile, static_cast<std::uint32_t>(maker.file.size())};
    maker.Stream(number, keys, bytes);
  }

  /// An object in the object stream.
  void Streamed(int number, const std::string& body) {
    rows[number] = {kInObjectStream, 0};
    pairs += std::to_string(number) + " " + std::to_string(streamed.size()) + " ";
    streamed += body + " ";
    ++streamedCount;
  }

  /// An object whose entry says that it begins at `offset`.
  void ObjectAt(int number, std::int32_t offset) {
    rows[number] = {kInFile, static_cast<std::uint32_t>(offset)};
  }

  /// The file, with the catalog that has this number.
  std::string Build(int catalog) {
    const int container = rows.rbegin()->first + 1;
    for (auto& [number, row] : rows) {
      if (row.type == kInObjectStream) row.value = static_cast<std::uint32_t>(container);
    }
    Stream(container, pairs + streamed,
           "/Type/ObjStm/N " + std::to_string(streamedCount) + "/First " + std::to_string(pairs.size()));
    const std::size_t start = maker.file.size();
    const std::string size = std::to_string(container + 1);
    maker.Stream(container + 1,
                 "/Type/XRef/W[1 4 0]/Size " + size + "/Root " + std::to_string(catalog) + " 0 R",
                 Rows(container));
    maker.End(start);
    return maker.file;
  }

 private:
  static constexpr char kInFile = 1;
  static constexpr char kInObjectStream = 2;

  struct Row {
    char type = 0;
    std::uint32_t value = 0;
  };

  /// The rows from 0 to `last`, each as the difference to the one above.
  std::string Rows(int last) const {
    std::string bytes;
    std::string above(5, '\0');
    for (int number = 0; number <= last; ++number) {
      const auto found = rows.find(number);
      const Row fields = found == rows.end() ? Row{} : found->second;
      std::string row{fields.type};
      for (const unsigned shift : {24U, 16U, 8U, 0U}) row += static_cast<char>(fields.value >> shift);
      bytes += '\x02';
      for (std::size_t i = 0; i < row.size(); ++i) bytes += static_cast<char>(row[i] - above[i]);
      above = row;
    }
    return bytes;
  }

  PdfMaker maker{"%PDF-1.5"};
  std::map<int, Row> rows;
  std::string pairs;
  std::string streamed;
  int streamedCount = 0;
};

#endif
