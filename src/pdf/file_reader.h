#ifndef DRAWLOAD_PDF_FILE_READER_H
#define DRAWLOAD_PDF_FILE_READER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "pdf/notes.h"
#include "pdf/object_text.h"

namespace pdf {

/// The normalised text of an object and its tokens.
struct PdfObject {
  explicit PdfObject(std::string_view rawText);
  PdfObject(const PdfObject&) = delete;
  PdfObject& operator=(const PdfObject&) = delete;

  std::string text;
  PdfTokens tokens;  ///< views into `text`
};

/// The file's bytes and what the last read left behind. Shared by the whole document: whoever needs an
/// object's stream keeps a copy of `stream` (a view into the file, valid as long as it) before any further
/// fetch.
class PdfFileReader {
 public:
  /// `fileBytes` must outlive the reader.
  explicit PdfFileReader(std::string_view fileBytes) : file(fileBytes) {}

  /// Goes to `target`, which may lie behind the end. A negative place leaves the position where it is.
  void Seek(std::int64_t target);

  /// Reads from the position on through `terminator`, or to the end of the file. Where the word "stream" is
  /// found, `text` ends one byte behind it, and `stream` holds what follows the line ends behind it, down to
  /// the terminator; otherwise all is `text`. Past the end of the file both are
  /// empty. Kept: the byte that breaks a match of the terminator is not tried as its first one
  /// again.
  void ReadUntil(std::string_view terminator);

  /// From the first "startxref" in the 256 bytes from `target` on, carriage returns as line feeds.
  std::string ReadTail(std::int64_t target);

  /// The object at `offset`, read up to its "endobj". A negative offset reads from the position.
  std::shared_ptr<const PdfObject> ReadObject(std::int64_t offset);

  /// The object with this text of an object stream. It is no read of the file: `text` and `stream` stay.
  std::shared_ptr<const PdfObject> ReadStreamedObject(std::uint32_t number, std::string_view rawText);

  /// To be told when the text of a streamed object changes.
  void ForgetStreamedObject(std::uint32_t number) { keptStreamed.erase(number); }

  /// What a read leaves behind: text and stream of the object, and where the next read without a place of its
  /// own begins.
  struct Left {
    std::string_view text;
    std::string_view stream;
    std::size_t position = 0;
  };
  Left WhatIsLeft() const { return {text, stream, position}; }
  /// Leaves what an earlier read left, as that read would do if it were made again.
  void LeaveAgain(const Left& left);

  std::string_view text;
  std::string_view stream;
  bool hasStream = false;   ///< set by the first read that finds the word "stream", never cleared
  std::uint64_t reads = 0;  ///< of objects in the file, also of those kept
  /// Set where the result depends on the read before it, so that it may come out differently the next time:
  /// an object without a place, and the stream of an object in an object stream, which has none of its own.
  bool dependsOnEarlierRead = false;
  PdfNotes notes;

 private:
  /// What reading an object of the file left behind, for the next time that it is asked for.
  struct ReadResult {
    std::shared_ptr<const PdfObject> object;
    Left left;
  };

  std::size_t FindEnd(std::string_view terminator) const;
  void MakeRoomFor(const PdfObject& object);

  std::string_view file;
  std::size_t position = 0;
  std::unordered_map<std::int64_t, ReadResult> kept;                                 ///< by offset
  std::unordered_map<std::uint32_t, std::shared_ptr<const PdfObject>> keptStreamed;  ///< by number
  std::size_t keptBytes = 0;
};

}  // namespace pdf

#endif
