// read_bytes_alone FILE: does what the bytes of a drawing cost alone, and writes the sum of its numbers to
// standard error. Nothing more: its time stands beside that of read_drawing.
#include <cstdio>
#include <string_view>

#include "bytes_alone.h"
#include "support/file_bytes.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string_view path = argv[1];
  const auto bytes = support::FileBytes::Read(argv[1]);
  if (!bytes) return 1;
  const auto floor = path.ends_with(".dxf")   ? bench::LinesAndNumbers
                     : path.ends_with(".svg") ? bench::XmlAndNumbers
                                              : bench::InflateAndNumbers;
  std::fprintf(stderr, "%g\n", floor(bytes->View()));
  return 0;
}
