#ifndef DRAWLOAD_PDF_SHARED_READS_H
#define DRAWLOAD_PDF_SHARED_READS_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "pdf/object_source.h"

namespace pdf {

/// Records that many pages name: each is read once. Asking for one again does what a second reading would
/// do: its notes are written, and the reader is left with the same text and stream.
template <typename Record>
class SharedReads {
 public:
  /// The record of this object, by `read` (which makes a shared pointer, perhaps null) at the first time.
  template <typename Read>
  std::shared_ptr<const Record> Get(ObjectSource& source, std::int32_t objectNumber, Read read) {
    const auto known = kept.find(objectNumber);
    if (known != kept.end()) return Again(source, known->second);
    source.dependsOnEarlierRead = false;
    const PdfNotes::Recording recording(source.Notes());
    std::shared_ptr<const Record> record = read();
    if (!source.dependsOnEarlierRead) {
      const PdfFileReader& reader = source.Reader();
      kept.emplace(objectNumber,
                   Kept{record, recording.Taken(), reader.text, reader.stream, reader.hasStream});
    }
    return record;
  }

 private:
  struct Kept {
    std::shared_ptr<const Record> record;
    std::string notes;
    std::string_view text;
    std::string_view stream;
    bool hasStream;
  };

  static std::shared_ptr<const Record> Again(ObjectSource& source, const Kept& known) {
    source.Notes().Replay(known.notes);
    PdfFileReader& reader = source.Reader();
    reader.text = known.text;
    reader.stream = known.stream;
    reader.hasStream = known.hasStream;
    return known.record;
  }

  std::unordered_map<std::int32_t, Kept> kept;
};

}  // namespace pdf

#endif
