#ifndef DRAWLOAD_PDF_NOTES_H
#define DRAWLOAD_PDF_NOTES_H

#include <cstddef>
#include <string>
#include <string_view>

namespace pdf {

/// The short notes that the reader writes to standard output while it works. What is read once and used for
/// many pages gives its notes each time: they are recorded while it is read, and replayed.
class PdfNotes {
 public:
  /// Writes `note` and a line end. A closed standard output is no error.
  void Write(std::string_view note);

  /// Writes what a recording took.
  void Replay(std::string_view recorded);

  /// Records all that is written or replayed while it lives. Recordings may be nested: the inner one ends
  /// first.
  class Recording {
   public:
    explicit Recording(PdfNotes& target);
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;
    ~Recording();

    std::string Taken() const { return notes.log.substr(start); }

   private:
    PdfNotes& notes;
    std::size_t start;
  };

 private:
  std::size_t recordings = 0;
  std::string log;  ///< what was written since the outermost recording began
};

}  // namespace pdf

#endif
