#ifndef DRAWLOAD_TESTS_CHILD_H
#define DRAWLOAD_TESTS_CHILD_H

#include <cstddef>
#include <functional>
#include <string>

/// What a child may take. Under the sanitizers, whose own tables need far more, the memory is not limited
/// and the time is ten times as long.
struct ChildLimits {
  unsigned cpuSeconds = 2;
  std::size_t memoryBytes = std::size_t{512} << 20;
};

/// Runs `work` in a child process that ends behind it; the child prints nothing on standard output. Returns
/// an empty string where it ended well: within its limits, without a leak (under the sanitizers), and with an
/// empty answer of `work`. Otherwise what went wrong.
std::string RunInChild(const std::function<std::string()>& work, const ChildLimits& limits = {});

#endif
