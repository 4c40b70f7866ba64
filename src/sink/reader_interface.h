#ifndef DRAWLOAD_SINK_READER_INTERFACE_H
#define DRAWLOAD_SINK_READER_INTERFACE_H

#include <cstdint>
#include <string>

namespace Entity_ZR {
class ZR_Point;
class ZR_Line;
class ZR_Polyline;
class ZR_LWPolyline;
class ZR_Spline;
class ZR_Circle;
class ZR_Ellipse;
class ZR_Arc;
class ZR_Text;
class ZR_MText;
class ZR_Insert;
class ZR_Hatch;
class ZR_Helix;
class ZR_MLine;
class ZR_Solid;
class ZR_Table;
class ZR_Tolerance;
class ZR_Dimension;
class ZR_Image;
class ZR_Viewport;
class ZR_MLeader;
class ZR_Path;
}  // namespace Entity_ZR

namespace PARSE {

/// An opaque value that `Read` passes on to the operations; callers of `Read` pass zero. `BeginRead` and
/// `EndRead` get zero whatever it is, except that the DXF reader hands `EndRead` the address of the drawing's
/// `$INSUNITS`, an `std::int32_t`.
using Context = std::intptr_t;

/// Values of `DrawLoader::fileType`.
enum FileType : std::int32_t {
  kNoFileType = 0,
  kDxfFile = 1,
  kSvgFile = 2,
  kPdfFile = 3,
};

/// Place and size of a page. The sink reads `width` and `height`, which are in millimetres.
struct PageRect {
  double x = 0.0;
  double y = 0.0;
  double width = 0.0;
  double height = 0.0;

  bool operator==(const PageRect&) const = default;
};

/// Settings of the machine that a document was drawn for.
struct MachineInfo {
  double diameter = 1.0;
  std::int32_t machineType = 0;
  std::int32_t AutoFocus = 0;
  std::int32_t machineModel = 0;
  std::int32_t frequency = 0;

  bool operator==(const MachineInfo&) const = default;
};

/// Everything that reads or receives a drawing. A reader overrides `Read` and calls the other operations
/// on its `sink`; a sink overrides those. An entity's matrix and that of the innermost group map its
/// coordinates to millimetres; the numbers of a DXF drawing pass as they are, whatever their unit.
///
/// A reader calls, in this order: `BeginRead`, `BeginFile`, the content, `EndFile`, `EndRead`. The PDF reader
/// calls neither `BeginRead` nor `EndRead`, and `EndFile` is the last call for a DXF file that cannot be
/// opened. Within the content `SetPage` comes before what is on the page (DXF drawings have no pages), and a
/// group is `BeginGroup`, `AddInsert` (which opens it), its members, `EndGroup`.
/// Kept: the DXF reader also calls `EndGroup` after each `AddText`.
///
/// An `Add` operation returns whether it used the entity. The entity stays the reader's in both cases.
class DrawLoader {
 public:
  DrawLoader() = default;
  DrawLoader(const DrawLoader&) = delete;
  DrawLoader& operator=(const DrawLoader&) = delete;
  virtual ~DrawLoader();

  virtual bool Read(const std::string& filePath, Context context);
  virtual bool Write(const std::string& filePath, Context context);
  virtual void BeginFile(Context context);
  virtual void EndFile(Context context);
  virtual void BeginGroup(Context context);
  virtual void EndGroup(Context context);
  virtual void SetPage(const PageRect* rect, Context context);
  virtual void SetMachineInfo(const MachineInfo* record, Context context);
  virtual bool AddPoint(Entity_ZR::ZR_Point* entity, Context context);
  virtual bool AddLine(Entity_ZR::ZR_Line* entity, Context context);
  virtual bool AddPolyline(Entity_ZR::ZR_Polyline* entity, Context context);
  virtual bool AddLWPolyline(Entity_ZR::ZR_LWPolyline* entity, Context context);
  virtual bool AddSpline(Entity_ZR::ZR_Spline* entity, Context context);
  virtual bool AddCircle(Entity_ZR::ZR_Circle* entity, Context context);
  virtual bool AddEllipse(Entity_ZR::ZR_Ellipse* entity, Context context);
  virtual bool AddArc(Entity_ZR::ZR_Arc* entity, Context context);
  virtual bool AddText(Entity_ZR::ZR_Text* entity, Context context);
  virtual bool AddMText(Entity_ZR::ZR_MText* entity, Context context);
  virtual bool AddInsert(Entity_ZR::ZR_Insert* entity, Context context);
  virtual bool AddHatch(Entity_ZR::ZR_Hatch* entity, Context context);
  virtual bool AddHelix(Entity_ZR::ZR_Helix* entity, Context context);
  virtual bool AddMLine(Entity_ZR::ZR_MLine* entity, Context context);
  virtual bool AddSolid(Entity_ZR::ZR_Solid* entity, Context context);
  virtual bool AddTable(Entity_ZR::ZR_Table* entity, Context context);
  virtual bool AddTolerance(Entity_ZR::ZR_Tolerance* entity, Context context);
  virtual bool AddDimension(Entity_ZR::ZR_Dimension* entity, Context context);
  virtual bool AddImage(Entity_ZR::ZR_Image* entity, Context context);
  virtual bool AddViewport(Entity_ZR::ZR_Viewport* entity, Context context);
  virtual bool AddMLeader(Entity_ZR::ZR_MLeader* entity, Context context);
  virtual bool AddPath(Entity_ZR::ZR_Path* entity, Context context);
  virtual bool BeginRead(Context context);
  virtual bool EndRead(Context context);

  DrawLoader* sink = nullptr;  ///< receives the entities; not owned
  std::int32_t fileType = kNoFileType;
  std::string path;  ///< of the file being read, in the caller's narrow encoding
};

}  // namespace PARSE

#endif
