#ifndef DRAWLOAD_BENCH_PICTURE_GENERATOR_H
#define DRAWLOAD_BENCH_PICTURE_GENERATOR_H

#include <cstdint>
#include <string>

namespace bench {

/// A PNG file of `side` by `side` pixels in red, green and blue, the same on every call.
std::string GeneratePng(std::uint32_t side);

/// A DXF drawing that shows the picture at `path`.
std::string DxfOfPicture(const std::string& path, std::uint32_t side);

}  // namespace bench

#endif
