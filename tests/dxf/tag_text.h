#ifndef DRAWLOAD_TESTS_DXF_TAG_TEXT_H
#define DRAWLOAD_TESTS_DXF_TAG_TEXT_H

#include <string>
#include <string_view>
#include <utility>

#include "dxf/dxf_reader.h"

/// Tags written in short: "8|walls|62|1" is the two tags 8 and 62, each line with its line feed.
inline std::string TagText(std::string_view tags) {
  std::string text(tags);
  for (char& c : text) {
    if (c == '|') c = '\n';
  }
  return text.empty() ? text : text + "\n";
}

/// A reader over a text of its own.
class TextReader {
 public:
  explicit TextReader(std::string content)
      : text(std::move(content)), stream(text), reader(stream, Names()) {}

 private:
  std::string text;
  LineStream stream;

  /// Outlive the readers, for the records that point at them.
  static DXF_Names& Names() {
    static DXF_Names names;
    return names;
  }

 public:
  dxfReader reader;
};

/// What a record holds after it took all of the tags.
template <typename Record>
Record Parsed(std::string_view tags) {
  TextReader source(TagText(tags));
  Record record;
  std::int32_t code = 0;
  while (source.reader.nextGroup(code)) record.parseGroup(code, source.reader);
  return record;
}

#endif
