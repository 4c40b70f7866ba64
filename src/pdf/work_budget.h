#ifndef DRAWLOAD_PDF_WORK_BUDGET_H
#define DRAWLOAD_PDF_WORK_BUDGET_H

#include <cstddef>
#include <cstdint>

#include "support/limits.h"

namespace pdf {

/// Counts the bytes that a read takes from the file, decodes and rewrites, so that a file whose parts refer
/// to each other over and over costs no more than a fixed amount of time and memory and a share that grows
/// with its size.
class PdfWorkBudget {
 public:
  explicit PdfWorkBudget(std::size_t fileSize)
      : left(support::limits::kPdfWorkBase + support::limits::kPdfWorkPerByte * std::uint64_t{fileSize}) {}

  /// Takes `bytes` off. False where not enough are left: the item is then skipped, and so is every later one.
  bool Take(std::uint64_t bytes) {
    if (bytes > left) left = 0;
    if (left == 0) return false;
    left -= bytes;
    return true;
  }

  std::uint64_t Left() const { return left; }

 private:
  std::uint64_t left;
};

}  // namespace pdf

#endif
