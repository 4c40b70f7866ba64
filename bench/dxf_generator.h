#ifndef DRAWLOAD_BENCH_DXF_GENERATOR_H
#define DRAWLOAD_BENCH_DXF_GENERATOR_H

#include <cstddef>
#include <string>

/// A DXF drawing of about `bytes` bytes, the same on every call: lines, circles, arcs, bulged polylines and
/// splines on fifty layers, and references to forty turned blocks. About one entity in twenty is a reference.
std::string GenerateDxf(std::size_t bytes);

#endif
