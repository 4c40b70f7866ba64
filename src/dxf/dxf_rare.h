#ifndef DRAWLOAD_DXF_DXF_RARE_H
#define DRAWLOAD_DXF_DXF_RARE_H

#include <memory>
#include <utility>

/// Parts that few records have. The others pay for a pointer; a copy has parts of its own.
template <typename Parts>
class DXF_Rare {
 public:
  DXF_Rare() = default;
  DXF_Rare(const DXF_Rare& other) : parts(other.parts ? std::make_unique<Parts>(*other.parts) : nullptr) {}
  DXF_Rare(DXF_Rare&&) noexcept = default;
  DXF_Rare& operator=(DXF_Rare other) noexcept {
    parts = std::move(other.parts);
    return *this;
  }
  ~DXF_Rare() = default;

  /// Parts that nothing was put into where there are none.
  const Parts& operator*() const {
    static const Parts kNone;
    return parts ? *parts : kNone;
  }
  const Parts* operator->() const { return &**this; }

  /// The parts to put something into.
  Parts& make() {
    if (!parts) parts = std::make_unique<Parts>();
    return *parts;
  }

 private:
  std::unique_ptr<Parts> parts;
};

#endif
