#ifndef DRAWLOAD_TESTS_PDF_PDF_BUILDER_H
#define DRAWLOAD_TESTS_PDF_PDF_BUILDER_H

#include <cstdio>
#include <string>
#include <vector>

/// Writes small PDF files with a plain cross-reference table. Objects are numbered from 1.
class PdfBuilder {
 public:
  /// Adds an object and returns its number.
  int Add(const std::string& body) {
    objects.push_back(body);
    return static_cast<int>(objects.size());
  }

  /// Adds a stream. `keys` are those of its dictionary besides /Length.
  int AddStream(const std::string& data, const std::string& keys = "") {
    return AddStreamOfLength(data, std::to_string(data.size()), keys);
  }
  int AddStreamOfLength(const std::string& data, const std::string& length, const std::string& keys = "") {
    return Add("<< " + keys + " /Length " + length + " >>\nstream\n" + data + "\nendstream");
  }

  /// Adds a page with a box of 612 by 792 whose content is `content`. `keys` are further keys of the page.
  int AddPage(const std::string& content, const std::string& keys = "") {
    const int stream = AddStream(content);
    return Add("<< /Type /Page /MediaBox [ 0 0 612 792 ] /Contents " + Reference(stream) + " " + keys +
               " >>");
  }

  int AddNode(const std::vector<int>& kids) {
    std::string list;
    for (const int kid : kids) list += Reference(kid) + " ";
    return Add("<< /Type /Pages /Kids [ " + list + "] /Count " + std::to_string(kids.size()) + " >>");
  }

  int AddCatalog(int pages) { return Add("<< /Type /Catalog /Pages " + Reference(pages) + " >>"); }

  static std::string Reference(int number) { return std::to_string(number) + " 0 R"; }

  /// The file, with the catalog that has this number.
  std::string Build(int catalog) const {
    // The comment makes even the smallest file longer than its tail.
    std::string file = "%PDF-1.4\n% " + std::string(256, '-') + "\n";
    std::string table;
    for (std::size_t i = 0; i < objects.size(); ++i) {
      table += Entry(file.size());
      file += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::size_t start = file.size();
    const std::string size = std::to_string(objects.size() + 1);
    return file + "xref\n0 " + size + "\n0000000000 65535 f \n" + table + "trailer\n<< /Size " + size +
           " /Root " + Reference(catalog) + " >>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
  }

  /// A file whose pages are these.
  std::string BuildPages(const std::vector<int>& pages) { return Build(AddCatalog(AddNode(pages))); }

 private:
  static std::string Entry(std::size_t offset) {
    const std::string digits = std::to_string(offset);
    return std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
  }

  std::vector<std::string> objects;
};

#endif
