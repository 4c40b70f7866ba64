#ifndef DRAWLOAD_DXF_DXF_HEADER_H
#define DRAWLOAD_DXF_DXF_HEADER_H

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "dxf/dxf_variant.h"

class dxfReader;

/// The variables of the HEADER section. Of two with one name the later stands.
class DXF_Header {
 public:
  void parseGroup(std::int32_t code, dxfReader& reader);

  /// Each look-up is true, and fills `out`, where the variable is there and of the type.
  bool intVariable(std::string_view name, std::int32_t& out) const;
  bool textVariable(std::string_view name, std::string& out) const;
  bool coordVariable(std::string_view name, double& x, double& y, double& z) const;

  std::map<std::string, std::shared_ptr<DXF_Variant>, std::less<>> variables;  ///< copies share the values
  std::string currentName;
  DXF_Variant* current = nullptr;  ///< the variable being read; none before the first group 9
  std::int16_t version = 7;
  std::int16_t insUnits = 0;

 private:
  void openVariable(const dxfReader& reader);
  void parseText(std::int32_t code, dxfReader& reader);
  void parseInteger(std::int32_t code, const dxfReader& reader);
  const DXF_Variant* find(std::string_view name, std::int32_t type) const;
};

#endif
