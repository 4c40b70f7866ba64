#ifndef DRAWLOAD_PDF_XREF_SECTION_H
#define DRAWLOAD_PDF_XREF_SECTION_H

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "pdf/file_reader.h"

namespace pdf {

/// Where an object lies. Kept: neither the generation nor the free flag keeps an object from being read.
struct PdfXrefEntry {
  std::int32_t offset = 0;  ///< in the file, bytes; 0 for an object that no section knows
  std::int32_t generation = 0;
  bool inObjectStream = false;
  bool free = false;
};

/// The cross-reference sections of a file, merged: older sections are read first, and the later entry wins.
struct PdfXrefSection {
  std::unordered_map<std::uint32_t, PdfXrefEntry> entries;
  std::unordered_map<std::uint32_t, std::string_view> streamedTexts;  ///< as they stand in `objectStreams`
  std::deque<std::string> objectStreams;                              ///< decoded
};

/// Where the object with this number lies: numbers of one place are one object. Unknown numbers all lie at
/// the first object of the file; objects of object streams and those without a place are told by their
/// number.
std::int64_t ObjectPlace(const PdfXrefSection& section, std::int32_t objectNumber);

/// The object with this number (taken as 32 bits without sign), never null. An object of the file also leaves
/// its stream in `reader.stream`; one from an object stream leaves there what the read before left. An
/// unknown number reads the first object of the file. Throws nothing but what memory does.
std::shared_ptr<const PdfObject> FetchObject(PdfFileReader& reader, PdfXrefSection& section,
                                             std::int32_t objectNumber);

}  // namespace pdf

#endif
