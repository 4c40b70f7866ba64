#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "pdf/document.h"
#include "pdf/jpeg2000_maker.h"
#include "pdf/pdf_maker.h"
#include "pdf/shading.h"
#include "pdf/stream_data.h"
#include "support/account.h"

namespace {

/// Reads all that this part of the reader can read of a file: every object, its stream keys and its stream,
/// as a stream, as an image and as a shading.
class Exercise {
 public:
  static constexpr std::uint64_t kMemory = std::uint64_t{128} << 20;
  static constexpr std::uint64_t kWork = std::uint64_t{300} << 20;

  void Run(std::string_view bytes) {
    support::Account account({.held = kMemory, .working = kMemory, .work = kWork});
    const support::AccountScope scope(account);
    pdf::PdfDocument document("file.pdf");
    if (!Guarded([&] { document.OpenBytes(bytes); }) || !document.reader) return;
    std::vector<std::int32_t> numbers{document.catalog};
    for (const auto& [number, entry] : document.section.entries)
      numbers.push_back(static_cast<std::int32_t>(number));
    for (const std::int32_t number : numbers) ReadObject(document, number);
  }

  int objects = 0;
  int failures = 0;
  std::uint64_t textBytes = 0;     ///< of the objects' texts, as they were read for their streams
  std::uint64_t decodedBytes = 0;  ///< of the streams

 private:
  template <typename Action>
  bool Guarded(Action action) {
    try {
      action();
      return true;
    } catch (const std::out_of_range&) {
    } catch (const std::runtime_error&) {
    } catch (const support::BeyondAllowance&) {
    }
    ++failures;
    return false;
  }

  void ReadObject(pdf::PdfDocument& document, std::int32_t number) {
    ++objects;
    Guarded([&] { Decode(document, number, false); });
    Guarded([&] { Decode(document, number, true); });
    Guarded([&] {
      pdf::PdfShading shading;
      ReadShading(*document.reader, document.section, number, shading);
    });
  }

  void Decode(pdf::PdfDocument& document, std::int32_t number, bool isImage) {
    pdf::PdfFileReader& reader = *document.reader;
    const auto object = FetchObject(reader, document.section, number);
    if (!isImage) textBytes += object->text.size();
    pdf::PdfStreamData data;
    data.input = reader.stream;
    data.isImage = isImage;
    data.width = 3;
    data.height = 2;
    pdf::PdfStreamKeys keys;
    for (std::size_t i = 0; i < object->tokens.size(); ++i) {
      ReadStreamKey(reader, document.section, object->tokens, i, keys);
    }
    data.filters = keys.filters;
    data.length = static_cast<std::uint32_t>(keys.length);
    DecodeStream(data, reader.notes);
    decodedBytes += data.decoded.size();
  }
};

/// A file with a table: each filter, a shading, functions, a length by reference, and an older section.
std::string TableFile() {
  PdfMaker maker("%PDF-1.4");
  Jpeg2000Maker picture;
  picture.planes = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}};
  maker.Stream(1, "/Filter/FlateDecode", PdfMaker::Deflate("0 0 m 10 10 l S 0 0 m 10 10 l S"));
  maker.Stream(2, "/Filter/LZWDecode", "\x80\x10\x48\x50\x10");
  maker.Stream(3, "/Filter/RunLengthDecode",
               "\x01"
               "AB\xFE"
               "C\x80");
  maker.Stream(4, "/Filter[/ASCII85Decode]", "9jqo^9j~>");
  maker.Stream(5, "/Filter/ASCIIHexDecode", "41 42>");
  maker.Stream(6, "/Filter/JPXDecode", picture.Make());
  const std::size_t older = maker.Table("/Root 1 0 R/Size 7");
  maker.Object(7, "<</ShadingType 2/Coords[0 0 1 1]/Function 8 0 R/Extend[true true]>>");
  maker.Object(8, "<</FunctionType 3/Domain[0 1]/Functions[9 0 R 8 0 R]/Bounds[0.5]/Encode[0 1 0 1]>>");
  maker.Object(9, "<</FunctionType 2/C0[1 0 0]/C1[0 1 0]/N 1>>");
  maker.Object(10, "<</Filter/DCTDecode/Length 11 0 R>>stream\nabc\nendstream");
  maker.Object(11, "3");
  maker.Table("/Root 7 0 R/Prev " + std::to_string(older));
  return maker.file;
}

/// A file with a cross-reference stream and an object stream.
std::string StreamFile() {
  PdfMaker maker("%PDF-1.5");
  maker.Stream(3, "/N 2/First 8", "1 0 2 8 <</A 1>><</B 2>>");
  const std::size_t start = maker.file.size();
  const auto byte = [](std::size_t value) { return static_cast<char>(value); };
  const std::size_t stream = maker.offsets[3];
  // Rows as they are before prediction: (2, 0, 3), (2, 0, 3), (1, offset of 3), (1, offset of 4).
  std::string rows{2, 2, 0, 3, 2, 0, 0, 0, 2, byte(255), byte(stream >> 8), byte(stream - 3), 2, 0};
  rows += byte((start >> 8) - (stream >> 8) - 0);
  rows += byte(start - stream);
  maker.Stream(4, "/W[1 2 0]/Index[1 4]/Root 1 0 R", rows);
  maker.End(start);
  return maker.file;
}

void ReadEveryPrefix(const std::string& file) {
  Exercise exercise;
  for (std::size_t size = 0; size <= file.size(); ++size)
    exercise.Run(std::string_view(file).substr(0, size));
}

void ReadWithEveryByteFlipped(const std::string& file, int mask) {
  Exercise exercise;
  std::string flipped = file;
  for (std::size_t i = 0; i < file.size(); ++i) {
    flipped[i] = static_cast<char>(file[i] ^ mask);
    exercise.Run(flipped);
    flipped[i] = file[i];
  }
}

/// What is read of damaged files goes to nobody; the tests ask only that reading them ends.
class DamagedFiles : public testing::Test {
 protected:
  void SetUp() override { testing::internal::CaptureStdout(); }
  void TearDown() override { testing::internal::GetCapturedStdout(); }
};

}  // namespace

TEST_F(DamagedFiles, AreMadeFromSoundOnes) {
  Exercise table;
  table.Run(TableFile());
  EXPECT_EQ(table.objects, 13) << "the catalog, 0 and 1 to 11";
  EXPECT_EQ(table.failures, 0);
  Exercise stream;
  stream.Run(StreamFile());
  EXPECT_EQ(stream.objects, 5);
  EXPECT_EQ(stream.failures, 0);
}

TEST_F(DamagedFiles, AreReadToAnEndWhereverTheyBreakOff) {
  ReadEveryPrefix(TableFile());
  ReadEveryPrefix(StreamFile());
}

TEST_F(DamagedFiles, AreReadToAnEndWithAnyByteFlipped) {
  for (const int mask : {0x01, 0xFF}) {
    ReadWithEveryByteFlipped(TableFile(), mask);
    ReadWithEveryByteFlipped(StreamFile(), mask);
  }
}

TEST_F(DamagedFiles, ReadManyOverlappingObjectsInProportionToTheirSize) {
  // Every object begins one byte after the last, and none ends: read in full their texts would be 220 MB, as
  // each slash becomes two bytes.
  std::string file = "%PDF-1.4\n" + std::string(100000, '/');
  const std::size_t start = file.size();
  file += "xref\n0 1000\n";
  for (int i = 0; i < 1000; ++i) {
    std::array<char, 32> line{};
    std::snprintf(line.data(), line.size(), "%010d 00000 n \n", i + 10);
    file += line.data();
  }
  file += "trailer<</Root 1 0 R>>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
  Exercise exercise;
  exercise.Run(file);
  EXPECT_GT(exercise.objects, 1000);
  // The work of the account pays for some of them: every byte of text is read, and allocated.
  EXPECT_GT(exercise.textBytes, 1'000'000U);
  EXPECT_LT(exercise.textBytes, Exercise::kWork);
}

TEST_F(DamagedFiles, DoNotExpandBombsBeyondTheAccount) {
  const std::string bomb = PdfMaker::Deflate(std::string(std::size_t{32} << 20, '\0'));
  PdfMaker maker("%PDF-1.4");
  for (int number = 1; number <= 20; ++number) maker.Stream(number, "/Filter/FlateDecode", bomb);
  maker.Table("/Root 1 0 R");
  Exercise exercise;
  exercise.Run(maker.file);
  EXPECT_EQ(exercise.objects, 22);
  // All of them would be 640 MB.
  EXPECT_GE(exercise.decodedBytes, 32U << 20);
  EXPECT_LT(exercise.decodedBytes, Exercise::kWork);
}
