#include "fuzz/mutators/pdf_mutator.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <map>
#include <zlib.h>

namespace fuzz {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kStream = "stream\n";
constexpr std::string_view kEndStream = "\nendstream";

/// One object of the file: everything from its number to behind its "endobj".
struct ObjectText {
  int number = 0;
  std::string text;
};

bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

/// The first place at or behind `from` where an object begins: "N 0 obj".
std::size_t FindObject(std::string_view file, std::size_t from) {
  for (std::size_t word = file.find(" 0 obj", from); word != kNone; word = file.find(" 0 obj", word + 1)) {
    std::size_t start = word;
    while (start > from && word - start < 6 && IsDigit(file[start - 1])) --start;
    if (start < word) return start;
  }
  return kNone;
}

std::vector<ObjectText> ObjectsOf(std::string_view file) {
  std::vector<ObjectText> objects;
  std::size_t start = FindObject(file, 0);
  while (start != kNone) {
    const std::size_t end = file.find("endobj", start);
    if (end == kNone) break;
    ObjectText object;
    object.text = file.substr(start, end + 6 - start);
    object.number = std::atoi(object.text.c_str());
    objects.push_back(std::move(object));
    start = FindObject(file, end + 6);
  }
  return objects;
}

/// Where the data of an object's stream stand in its text. `end` is `kNone` where it has no stream.
struct StreamPlace {
  std::size_t start = 0;
  std::size_t end = kNone;

  bool Exists() const { return end != kNone; }
};

StreamPlace StreamOf(const std::string& object) {
  const std::size_t word = object.find(kStream);
  if (word == kNone) return {};
  const std::size_t start = word + kStream.size();
  const std::size_t end = object.rfind(kEndStream);
  if (end == kNone || end < start) return {};
  return {start, end};
}

/// Writes `length` behind the "/Length" of the dictionary, where a number stands there.
void SetLength(std::string& object, std::size_t length) {
  const std::size_t key = object.find("/Length ");
  if (key == kNone || key > object.find(kStream)) return;
  const std::size_t first = key + 8;
  std::size_t last = first;
  while (last < object.size() && IsDigit(object[last])) ++last;
  if (object.compare(last, 4, " 0 R") == 0) return;
  object.replace(first, last - first, std::to_string(length));
}

void RepairLength(std::string& object) {
  const StreamPlace place = StreamOf(object);
  if (place.Exists()) SetLength(object, place.end - place.start);
}

/// The number in "/Root N 0 R".
std::string RootOf(std::string_view file) {
  const std::size_t key = file.rfind("/Root ");
  if (key == kNone) return "1 0 R";
  const std::size_t end = file.find('R', key + 6);
  return std::string(file.substr(key + 6, end == kNone ? 0 : end + 1 - key - 6));
}

using Offsets = std::map<int, std::size_t>;

std::string TableOf(const Offsets& offsets, const std::string& root) {
  std::string table = "xref\n";
  for (const auto& [number, offset] : offsets) {
    std::array<char, 64> line{};
    std::snprintf(line.data(), line.size(), "%d 1\n%010zu 00000 n \n", number, offset);
    table += line.data();
  }
  return table + "trailer\n<< /Size " + std::to_string(offsets.size() + 1) + " /Root " + root + " >>\n";
}

/// A cross-reference stream of rows that are predicted from the row above.
std::string StreamSectionOf(const Offsets& offsets, int container, std::size_t ownOffset,
                            const std::string& root) {
  constexpr int kMostNumbers = 64;
  const int own = std::min(offsets.empty() ? 0 : offsets.rbegin()->first, kMostNumbers) + 1;
  std::array<unsigned char, 4> above{};
  std::string rows;
  for (int number = 0; number <= own; ++number) {
    const auto place = offsets.find(number);
    const bool isStreamed = place == offsets.end() && number != own;
    const std::size_t value = isStreamed               ? static_cast<std::size_t>(container)
                              : place == offsets.end() ? ownOffset
                                                       : place->second;
    const std::array<unsigned char, 4> row = {
        static_cast<unsigned char>(isStreamed ? 2 : 1), static_cast<unsigned char>(value >> 16),
        static_cast<unsigned char>(value >> 8), static_cast<unsigned char>(value)};
    rows += '\2';
    for (std::size_t i = 0; i < row.size(); ++i) rows += static_cast<char>(row[i] - above[i]);
    above = row;
  }
  return std::to_string(own) + " 0 obj\n<< /Type /XRef /Size " + std::to_string(own + 1) +
         " /W [ 1 3 0 ] /Root " + root + " /Length " + std::to_string(rows.size()) + " >>\n" +
         std::string(kStream) + rows + std::string(kEndStream) + "\nendobj\n";
}

bool IsFlate(const std::string& object) { return object.find("/FlateDecode") < object.find(kStream); }

/// The bytes that zlib makes of `packed`, up to where it calls them corrupt, and not too many.
std::string Unpacked(const std::string& packed) {
  constexpr std::size_t kMost = std::size_t{1} << 16;
  std::string bytes(kMost, '\0');
  uLongf size = kMost;
  const int result = uncompress(reinterpret_cast<Bytef*>(bytes.data()), &size,
                                reinterpret_cast<const Bytef*>(packed.data()), packed.size());
  bytes.resize(result == Z_OK ? size : 0);
  return bytes;
}

std::string Packed(const std::string& bytes) {
  uLongf size = compressBound(bytes.size());
  std::string packed(size, '\0');
  compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
           bytes.size());
  packed.resize(size);
  return packed;
}

void MutateStream(std::string& object, Chance& chance) {
  const StreamPlace place = StreamOf(object);
  if (!place.Exists()) return;
  std::string data = object.substr(place.start, place.end - place.start);
  data = IsFlate(object) ? Packed(chance.mutateBytes(Unpacked(data))) : chance.mutateBytes(data);
  object.replace(place.start, place.end - place.start, data);
}

std::string Assembled(std::string_view original, std::vector<ObjectText>& objects) {
  const bool hasStreamSection = original.find("/XRef") != kNone;
  // The comment makes even the smallest file longer than the tail in which its end is searched.
  std::string file = "%PDF-1.5\n%" + std::string(256, '-') + "\n";
  Offsets offsets;
  int container = 0;
  for (ObjectText& object : objects) {
    if (hasStreamSection && object.text.find("/XRef") != kNone) continue;
    if (object.text.find("/ObjStm") != kNone) container = object.number;
    RepairLength(object.text);
    offsets[object.number] = file.size();
    file += object.text + "\n";
  }
  const std::size_t start = file.size();
  const std::string root = RootOf(original);
  file += hasStreamSection ? StreamSectionOf(offsets, container, start, root) : TableOf(offsets, root);
  return file + "startxref\n" + std::to_string(start) + "\n%%EOF\n";
}

/// A change of whole objects.
void ChangeObjects(std::vector<ObjectText>& objects, Chance& chance) {
  ObjectText& object = objects[chance.Below(objects.size())];
  const ObjectText& other = objects[chance.Below(objects.size())];
  switch (chance.Below(4)) {
    case 0: {  // the contents of another object under this number
      const std::size_t body = std::min(other.text.find("obj"), other.text.size());
      object.text = std::to_string(object.number) + " 0 " + other.text.substr(body);
      break;
    }
    case 1: object.text = chance.mutateBytes(object.text); break;
    default: MutateStream(object.text, chance);
  }
}

}  // namespace

std::string RepairPdf(std::string_view file) {
  std::vector<ObjectText> objects = ObjectsOf(file);
  return Assembled(file, objects);
}

std::string MutatePdf(std::string_view input, Chance& chance) {
  if (chance.OneIn(2)) {
    std::vector<ObjectText> objects = ObjectsOf(input);
    if (objects.empty()) return {};
    ChangeObjects(objects, chance);
    return Assembled(input, objects);
  }
  const std::string changed = chance.mutateBytes(std::string(input));
  return chance.OneIn(8) ? changed : RepairPdf(changed);
}

}  // namespace fuzz
