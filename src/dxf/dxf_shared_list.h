#ifndef DRAWLOAD_DXF_DXF_SHARED_LIST_H
#define DRAWLOAD_DXF_DXF_SHARED_LIST_H

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

/// A list that only grows. Its copies share the values that they have in common, so that a record costs
/// little however often it is stored while its list grows.
template <typename Value>
class DXF_SharedList {
 public:
  std::size_t size() const { return count; }
  bool empty() const { return count == 0; }
  const Value* begin() const { return values == nullptr ? nullptr : values->data(); }
  const Value* end() const { return begin() + count; }
  const Value& operator[](std::size_t i) const { return begin()[i]; }
  const Value& back() const { return begin()[count - 1]; }

  void push_back(Value value) {
    // Another copy may have grown before this one.
    if (values == nullptr || values->size() != count) {
      values = std::make_shared<std::vector<Value>>(begin(), end());
    }
    values->push_back(std::move(value));
    ++count;
  }

 private:
  std::shared_ptr<std::vector<Value>> values;  ///< the first `count` are this list's
  std::size_t count = 0;
};

#endif
