#include "sink/reader_interface.h"

namespace PARSE {

// The plain class is a sink that uses nothing: every reader runs to its end on it and yields nothing.

DrawLoader::~DrawLoader() = default;

bool DrawLoader::Read(const std::string&, Context) { return false; }
bool DrawLoader::Write(const std::string&, Context) { return false; }
void DrawLoader::BeginFile(Context) {}
void DrawLoader::EndFile(Context) {}
void DrawLoader::BeginGroup(Context) {}
void DrawLoader::EndGroup(Context) {}
void DrawLoader::SetPage(const PageRect*, Context) {}
void DrawLoader::SetMachineInfo(const MachineInfo*, Context) {}
bool DrawLoader::AddPoint(Entity_ZR::ZR_Point*, Context) { return false; }
bool DrawLoader::AddLine(Entity_ZR::ZR_Line*, Context) { return false; }
bool DrawLoader::AddPolyline(Entity_ZR::ZR_Polyline*, Context) { return false; }
bool DrawLoader::AddLWPolyline(Entity_ZR::ZR_LWPolyline*, Context) { return false; }
bool DrawLoader::AddSpline(Entity_ZR::ZR_Spline*, Context) { return false; }
bool DrawLoader::AddCircle(Entity_ZR::ZR_Circle*, Context) { return false; }
bool DrawLoader::AddEllipse(Entity_ZR::ZR_Ellipse*, Context) { return false; }
bool DrawLoader::AddArc(Entity_ZR::ZR_Arc*, Context) { return false; }
bool DrawLoader::AddText(Entity_ZR::ZR_Text*, Context) { return false; }
bool DrawLoader::AddMText(Entity_ZR::ZR_MText*, Context) { return false; }
bool DrawLoader::AddInsert(Entity_ZR::ZR_Insert*, Context) { return false; }
bool DrawLoader::AddHatch(Entity_ZR::ZR_Hatch*, Context) { return false; }
bool DrawLoader::AddHelix(Entity_ZR::ZR_Helix*, Context) { return false; }
bool DrawLoader::AddMLine(Entity_ZR::ZR_MLine*, Context) { return false; }
bool DrawLoader::AddSolid(Entity_ZR::ZR_Solid*, Context) { return false; }
bool DrawLoader::AddTable(Entity_ZR::ZR_Table*, Context) { return false; }
bool DrawLoader::AddTolerance(Entity_ZR::ZR_Tolerance*, Context) { return false; }
bool DrawLoader::AddDimension(Entity_ZR::ZR_Dimension*, Context) { return false; }
bool DrawLoader::AddImage(Entity_ZR::ZR_Image*, Context) { return false; }
bool DrawLoader::AddViewport(Entity_ZR::ZR_Viewport*, Context) { return false; }
bool DrawLoader::AddMLeader(Entity_ZR::ZR_MLeader*, Context) { return false; }
bool DrawLoader::AddPath(Entity_ZR::ZR_Path*, Context) { return false; }
bool DrawLoader::BeginRead(Context) { return false; }
bool DrawLoader::EndRead(Context) { return false; }

}  // namespace PARSE
