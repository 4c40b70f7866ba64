#include "pdf/file_reader.h"

#include <algorithm>

#include "support/account.h"

namespace pdf {

namespace {

constexpr std::string_view kStreamWord = "stream";
constexpr std::string_view kStartWord = "startxref";
constexpr std::size_t kTailBytes = 256;

/// Object texts that are kept for the next fetch. Beyond it they are dropped and read again when needed.
constexpr std::size_t kKeptBytes = std::size_t{64} << 20;

std::size_t FirstNotLineEnd(std::string_view bytes, std::size_t from) {
  const std::size_t found = bytes.find_first_not_of("\r\n", from);
  return std::min(found, bytes.size());
}

}  // namespace

PdfObject::PdfObject(std::string_view rawText)
    : text(NormaliseObjectText(rawText)), tokens(Split(text, '\n')) {}

void PdfFileReader::Seek(std::int64_t target) {
  if (target >= 0) position = static_cast<std::size_t>(target);
}

std::size_t PdfFileReader::FindEnd(std::string_view terminator) const {
  std::size_t at = file.find(terminator[0], position);
  while (at != std::string_view::npos) {
    std::size_t matched = 1;
    while (matched < terminator.size() && at + matched < file.size() &&
           file[at + matched] == terminator[matched]) {
      ++matched;
    }
    if (matched == terminator.size()) return at + matched;
    at = file.find(terminator[0], at + matched + 1);
  }
  return file.size();
}

void PdfFileReader::ReadUntil(std::string_view terminator) {
  text = {};
  stream = {};
  if (position >= file.size()) return;
  const std::size_t start = position;
  position = FindEnd(terminator);
  const std::string_view raw = file.substr(start, position - start);
  support::SpendWork(raw.size());
  const std::size_t word = raw.find(kStreamWord);
  if (word == std::string_view::npos) {
    text = raw;
    return;
  }
  hasStream = true;
  const std::size_t textEnd = std::min(word + kStreamWord.size() + 1, raw.size());
  text = raw.substr(0, textEnd);
  stream = raw.substr(FirstNotLineEnd(raw, textEnd));
}

std::string PdfFileReader::ReadTail(std::int64_t target) {
  Seek(target);
  if (position >= file.size()) return {};
  std::string tail(file.substr(position, kTailBytes));
  position += tail.size();
  std::replace(tail.begin(), tail.end(), '\r', '\n');
  const std::size_t start = tail.find(kStartWord);
  return start == std::string::npos ? std::string() : tail.substr(start);
}

void PdfFileReader::LeaveAgain(const Left& left) {
  ++reads;
  text = left.text;
  stream = left.stream;
  position = left.position;
}

std::shared_ptr<const PdfObject> PdfFileReader::ReadObject(std::int64_t offset) {
  const auto known = kept.find(offset);
  if (known != kept.end()) {
    LeaveAgain(known->second.left);
    return known->second.object;
  }
  ++reads;
  if (offset < 0) dependsOnEarlierRead = true;
  Seek(offset);
  ReadUntil("endobj");
  auto object = std::make_shared<const PdfObject>(text);
  if (offset < 0) return object;
  MakeRoomFor(*object);
  kept.emplace(offset, ReadResult{object, WhatIsLeft()});
  return object;
}

std::shared_ptr<const PdfObject> PdfFileReader::ReadStreamedObject(std::uint32_t number,
                                                                   std::string_view rawText) {
  const auto known = keptStreamed.find(number);
  if (known != keptStreamed.end()) return known->second;
  auto object = std::make_shared<const PdfObject>(rawText);
  MakeRoomFor(*object);
  keptStreamed.emplace(number, object);
  return object;
}

void PdfFileReader::MakeRoomFor(const PdfObject& object) {
  constexpr std::size_t kRecordBytes = 256;  // the object itself and its place in the index
  const std::size_t bytes =
      object.text.capacity() + object.tokens.capacity() * sizeof(std::string_view) + kRecordBytes;
  keptBytes += bytes;
  if (keptBytes <= kKeptBytes) return;
  kept.clear();
  keptStreamed.clear();
  keptBytes = bytes;
}

}  // namespace pdf
