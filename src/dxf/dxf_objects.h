#ifndef DRAWLOAD_DXF_DXF_OBJECTS_H
#define DRAWLOAD_DXF_DXF_OBJECTS_H

#include <string>
#include <vector>

#include "dxf/dxf_entity.h"

class DXF_ObjectEntry {
 public:
  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::uint32_t handle = 0;
  std::uint32_t ownerHandle = 0;

 protected:
  DXF_ObjectEntry() = default;
};

/// The picture file that images refer to by `handle`.
class DXF_ImageDef : public DXF_ObjectEntry {
 public:
  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::string path;
  double width = 0.0;  ///< pixels
  double height = 0.0;
  double pixelWidth = 0.0;
  double pixelHeight = 0.0;  ///< group 21, and group 12 all the same
  std::int32_t loaded = 0;
  std::int32_t units = 0;
};

struct DXF_MlineElement {
  double offset = 0.0;
  std::int32_t color = 256;
  std::string lineType;

  bool operator==(const DXF_MlineElement&) const = default;
};

/// Angles in degrees.
class DXF_MlineStyle : public DXF_ObjectEntry {
 public:
  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::string name;
  std::string description;
  double startAngle = 0.0;
  double endAngle = 0.0;
  std::int32_t fillColor = 256;
  std::int32_t flags = 0;
  std::int32_t elementCount = 0;           ///< as the file states it; `elements` may differ
  std::vector<DXF_MlineElement> elements;  ///< a group 49 opens one; 62 and 6 then go to it
};

/// Read and dropped. Margins in millimetres.
class DXF_PlotSettings : public DXF_ObjectEntry {
 public:
  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::string name;
  double marginLeft = 0.0;
  double marginBottom = 0.0;
  double marginRight = 0.0;
  double marginTop = 0.0;
};

#endif
