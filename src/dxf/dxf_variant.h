#ifndef DRAWLOAD_DXF_DXF_VARIANT_H
#define DRAWLOAD_DXF_DXF_VARIANT_H

#include <cstdint>
#include <string>

/// One value of a header variable or of extended data, with the group code it came from. The object owns its
/// text; `value.pointer` of a text or coordinate stays with the object when it is copied.
class DXF_Variant {
 public:
  enum Type : std::int32_t { kText = 0, kInteger = 1, kReal = 2, kCoordinate = 3, kNone = 4 };

  DXF_Variant() = default;
  DXF_Variant(const DXF_Variant& other);
  DXF_Variant& operator=(const DXF_Variant& other);
  ~DXF_Variant() = default;

  void setText(std::int32_t groupCode, std::string content);
  void setInteger(std::int32_t groupCode, std::int32_t number);
  void setReal(std::int32_t groupCode, double number);
  /// A coordinate whose y and z are 0 until their own groups come.
  void setCoordinate(std::int32_t groupCode, double first);

  std::string text;
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
  union Value {
    const void* pointer;  ///< of a text: `text`; of a coordinate: `x`
    std::int32_t integer;
    double real;
  };
  Value value = {nullptr};
  std::int32_t type = kNone;
  std::int32_t code = 0;

 private:
  void pointAtOwnMember();
};

#endif
