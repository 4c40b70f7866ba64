#ifndef DRAWLOAD_ENTITY_SHARED_H
#define DRAWLOAD_ENTITY_SHARED_H

#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Entity_ZR {

/// A text or list that thousands of entities receive unchanged. Its copies share one value, which nobody
/// changes; an empty one holds nothing.
template <typename Value>
class Shared {
 public:
  using value_type = typename Value::value_type;
  using const_iterator = typename Value::const_iterator;
  using iterator = const_iterator;
  using size_type = std::size_t;

  Shared() = default;
  template <typename Source>
  requires(!std::same_as<std::remove_cvref_t<Source>, Shared> && std::constructible_from<Value, Source>)
      Shared(Source&& source) {  // NOLINT(google-explicit-constructor): it stands in for its value
    Value own(std::forward<Source>(source));
    if (!own.empty()) value = std::make_shared<const Value>(std::move(own));
  }

  const Value& Get() const {
    static const Value kEmpty;
    return value == nullptr ? kEmpty : *value;
  }
  operator const Value&() const { return Get(); }  // NOLINT(google-explicit-constructor)

  bool empty() const { return value == nullptr; }
  std::size_t size() const { return Get().size(); }
  const_iterator begin() const { return Get().begin(); }
  const_iterator end() const { return Get().end(); }

  friend bool operator==(const Shared& left, const Shared& right) {
    return left.value == right.value || left.Get() == right.Get();
  }
  template <typename Other>
  requires(!std::same_as<Other, Shared>) friend bool operator==(const Shared& left, const Other& right) {
    return left.Get() == right;
  }

 private:
  std::shared_ptr<const Value> value;
};

using SharedText = Shared<std::string>;
using SharedNumbers = Shared<std::vector<double>>;

}  // namespace Entity_ZR

#endif
