#ifndef DRAWLOAD_DXF_DXF_TABLES_H
#define DRAWLOAD_DXF_DXF_TABLES_H

#include <memory>
#include <string_view>

#include "dxf/dxf_shared_list.h"
#include "dxf/dxf_variant.h"

class dxfReader;

/// Values of `DXF_TableEntry::kind`.
enum DXF_TableKind : std::int32_t {
  kDxfNoTable = 0,
  kDxfAppId = 1,
  kDxfLayer = 4,
  kDxfLType = 5,
  kDxfTextStyle = 6,
};

/// What every entry of a table states. As with entities, `parseGroup` of a class hands what it does not take
/// to its base. Texts lie in the document and lists are shared, so that a copy costs little: an entry is
/// stored again for each further name that it gets.
class DXF_TableEntry {
 public:
  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::int32_t kind = kDxfNoTable;
  std::uint32_t handle = 0;
  std::uint32_t ownerHandle = 0;
  std::string_view name;
  std::int32_t flags = 0;
  DXF_SharedList<std::shared_ptr<DXF_Variant>> extData;

 protected:
  DXF_TableEntry() = default;
  explicit DXF_TableEntry(DXF_TableKind ownKind) : kind(ownKind) {}
};

/// Read and dropped.
class DXF_AppId : public DXF_TableEntry {
 public:
  DXF_AppId() : DXF_TableEntry(kDxfAppId) {}
};

/// Nothing reads the variables of a dimension style, so none is kept.
class DXF_Dimstyle : public DXF_TableEntry {
 public:
  DXF_Dimstyle() { name = "Standard"; }
};

class DXF_LType : public DXF_TableEntry {
 public:
  DXF_LType() : DXF_TableEntry(kDxfLType) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);
  /// Replaces the stated count and length by those of `path`.
  void finish();

  std::string_view description;
  std::int32_t patternCount = 0;
  double patternLength = 0.0;
  DXF_SharedList<double> path;  ///< dashes above 0, gaps below
  double pathLength = 0.0;      ///< of all of `path`
};

class DXF_Layer : public DXF_TableEntry {
 public:
  DXF_Layer() : DXF_TableEntry(kDxfLayer) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::string_view lineType = "CONTINUOUS";
  std::int32_t color = 7;  ///< negative where the layer is off
  std::int32_t color24 = -1;
  bool plot = true;
  std::int32_t lineWeight = 31;  ///< class index, see LineWeightClass
  std::string_view handlePlotStyle;
  std::string_view handleMaterial;
};

class DXF_TextStyle : public DXF_TableEntry {
 public:
  DXF_TextStyle() : DXF_TableEntry(kDxfTextStyle) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  double height = 0.0;
  double widthScale = 1.0;
  double oblique = 0.0;  ///< degrees
  std::int32_t generationFlags = 0;
  double lastHeight = 1.0;
  std::string_view font = "txt";
  std::string_view bigFont;
  std::int32_t fontFamily = 0;
  std::string_view extText;
  std::string_view extApp;
};

/// Read and dropped.
class DXF_Vport : public DXF_TableEntry {};

#endif
