// read_bytes_alone [--memory] FILE: does what the bytes of a drawing cost alone, and writes the sum of its
// numbers to standard error, with --memory also the most memory that it had. Nothing more: its time stands
// beside that of read_drawing. Of a picture the decoder is called.
#include <cstdio>
#include <string_view>

#include "bytes_alone.h"
#include "peak_memory.h"
#include "support/file_bytes.h"
#include "support/picture.h"

namespace {

double Decode(std::string_view picture) {
  return static_cast<double>(support::DecodePicture(picture).pixelBytes);
}

}  // namespace

int main(int argc, char** argv) {
  const bool tellsMemory = argc > 1 && std::string_view(argv[1]) == "--memory";
  const int file = tellsMemory ? 2 : 1;
  if (argc != file + 1) return 2;
  const std::string_view path = argv[file];
  const auto bytes = support::FileBytes::Read(argv[file]);
  if (!bytes) return 1;
  const auto floor = path.ends_with(".dxf")   ? bench::LinesAndNumbers
                     : path.ends_with(".svg") ? bench::XmlAndNumbers
                     : path.ends_with(".png") ? Decode
                                              : bench::InflateAndNumbers;
  std::fprintf(stderr, "sum %g\n", floor(bytes->View()));
  if (tellsMemory) std::fprintf(stderr, "peak %zu\n", bench::PeakMemory());
  return 0;
}
