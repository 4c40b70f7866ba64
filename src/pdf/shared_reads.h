#ifndef DRAWLOAD_PDF_SHARED_READS_H
#define DRAWLOAD_PDF_SHARED_READS_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "pdf/file_reader.h"

namespace pdf {

/// Records that are named many times: each is read once. Asking for one again does what a second reading
/// would do: its notes are written, and the reader is left with the same text, stream and position. Objects
/// of object streams are no reads of the file, so a record of these alone leaves the reader as it is.
template <typename Record>
class SharedReads {
 public:
  /// The record under `key`, by `read` (which makes a shared pointer, perhaps null) at the first time.
  template <typename Read>
  std::shared_ptr<const Record> Get(PdfFileReader& reader, std::int64_t key, Read read) {
    const auto known = kept.find(key);
    if (known != kept.end()) return Again(reader, known->second);
    const bool outerDepends = std::exchange(reader.dependsOnEarlierRead, false);
    const std::uint64_t readsBefore = reader.reads;
    const PdfNotes::Recording recording(reader.notes);
    std::shared_ptr<const Record> record = read();
    if (!reader.dependsOnEarlierRead) {
      Kept entry{record, recording.Taken(), std::nullopt};
      if (reader.reads != readsBefore) entry.left = reader.WhatIsLeft();
      kept.emplace(key, std::move(entry));
    }
    reader.dependsOnEarlierRead |= outerDepends;
    return record;
  }

 private:
  struct Kept {
    std::shared_ptr<const Record> record;
    std::string notes;
    std::optional<PdfFileReader::Left> left;  ///< nothing where the file was not read
  };

  static std::shared_ptr<const Record> Again(PdfFileReader& reader, const Kept& known) {
    reader.notes.Replay(known.notes);
    if (known.left) reader.LeaveAgain(*known.left);
    return known.record;
  }

  std::unordered_map<std::int64_t, Kept> kept;
};

}  // namespace pdf

#endif
