#include "pdf/filters/lzw.h"

#include <stdexcept>

namespace pdf {

std::uint32_t PdfLzwDecoder::ReadCode() {
  while (bitCount < width) {
    if (position >= input.size()) throw std::out_of_range("invalid vector subscript");
    bits = (bits << 8 | static_cast<std::uint8_t>(input[position++])) & 0xFFFFFF;
    bitCount += 8;
  }
  bitCount -= width;
  return (bits >> bitCount) & ((1U << width) - 1);
}

void PdfLzwDecoder::Reset() {
  nextFree = kFirstFree;
  width = 9;
  previousSize = 0;
}

/// The code behind a clearing of the table stands for its single byte; no entry comes of it.
void PdfLzwDecoder::AppendFirst(std::uint32_t code) {
  const std::size_t start = output.size();
  if (code < kClear) output.push_back(static_cast<char>(code));
  previousSize = output.size() - start;
}

void PdfLzwDecoder::Append(std::uint32_t code) {
  if (code < kClear) {
    output.push_back(static_cast<char>(code));
    return;
  }
  const Place place = table[code];
  output.append(output, place.start, place.size);
}

/// The entry is the previous string and the first byte of this one: they are neighbours in the output.
void PdfLzwDecoder::AppendNext(std::uint32_t code) {
  const std::size_t start = output.size();
  if (code < nextFree) {
    Append(code);
    AddEntry({start - previousSize, previousSize + (output.size() > start ? 1 : 0)});
  } else {
    output.append(output, start - previousSize, previousSize);
    if (previousSize > 0) output.push_back(output[start]);
    AddEntry({start, output.size() - start});
  }
  previousSize = output.size() - start;
}

void PdfLzwDecoder::AddEntry(const Place& place) {
  if (nextFree >= kCodes) return;
  table[nextFree++] = place;
  if (nextFree == 511) width = 10;
  if (nextFree == 1023) width = 11;
  if (nextFree == 2047) width = 12;
}

std::string PdfLzwDecoder::Decode() {
  bool cleared = false;
  for (std::uint32_t code = ReadCode(); code != kEnd; code = ReadCode()) {
    if (code == kClear) {
      Reset();
      cleared = true;
    } else if (cleared) {
      AppendFirst(code);
      cleared = false;
    } else {
      AppendNext(code);
    }
  }
  return std::move(output);
}

}  // namespace pdf
