#include <memory>

#include "dxf/dxf_open_file.h"
#include "support/account.h"

namespace {

template <typename Record>
void Finish(Record&) {}

void Finish(DXF_MText& record) { record.finish(); }
void Finish(DXF_Hatch& record) { record.finish(); }
void Finish(DXF_MLeader& record) { record.finish(); }

}  // namespace

bool DXF_OpenFile::walkEntities(bool inBlock) {
  std::int32_t code = 0;
  if (!reader->nextGroup(code)) return false;
  // Kept: within a block this first tag is lost to the entity whose name the block's reader has seen.
  if (code == 0) {
    entityName = reader->text();
  } else if (!inBlock) {
    return false;
  }
  while (entityName != "ENDSEC" && entityName != "ENDBLK") {
    const EntityReader readKind = entityReaderOf(entityName);
    if (!readItem([&] { return (this->*readKind)(); }, [&] { return skipEntity(); })) return false;
  }
  return true;
}

DXF_OpenFile::EntityReader DXF_OpenFile::entityReaderOf(std::string_view name) {
  struct Kind {
    std::string_view name;
    EntityReader read;
  };
  using Self = DXF_OpenFile;
  using To = DXF_Interface;
  static constexpr Kind kKinds[] = {
      {"POINT", &Self::readEntity<DXF_Point, &To::addPoint>},
      {"LINE", &Self::readEntity<DXF_Line, &To::addLine>},
      {"CIRCLE", &Self::readEntity<DXF_Circle, &To::addCircle>},
      {"ARC", &Self::readEntity<DXF_Arc, &To::addArc>},
      {"ELLIPSE", &Self::readEntity<DXF_Ellipse, &To::addEllipse>},
      {"INSERT", &Self::readInsert},
      {"POLYLINE", &Self::readPolyline},
      {"LWPOLYLINE", &Self::readEntity<DXF_LWPolyline, &To::addLWPolyline>},
      {"TEXT", &Self::readEntity<DXF_Text, &To::addText>},
      {"MTEXT", &Self::readEntity<DXF_MText, &To::addMText>},
      {"SPLINE", &Self::readEntity<DXF_Spline, &To::addSpline>},
      {"VIEWPORT", &Self::readViewport},
      {"IMAGE", &Self::readEntity<DXF_Image, &To::addImage>},
      {"HATCH", &Self::readEntity<DXF_Hatch, &To::addHatch>},
      {"HELIX", &Self::readEntity<DXF_Helix, &To::addHelix>},
      {"MLINE", &Self::readEntity<DXF_Mline, &To::addMline>},
      {"SOLID", &Self::readEntity<DXF_Solid, &To::addSolid>},
      {"ACAD_TABLE", &Self::readEntity<DXF_Table, &To::addTable>},
      {"MULTILEADER", &Self::readEntity<DXF_MLeader, &To::addMLeader>},
      {"DIMENSION", &Self::readEntity<DXF_Dimension, &To::addDimension>},
  };
  for (const Kind& kind : kKinds) {
    if (kind.name == name) return kind.read;
  }
  return &Self::skipEntity;
}

bool DXF_OpenFile::skipEntity() {
  std::int32_t code = 0;
  while (reader->nextGroup(code)) {
    if (code != 0) continue;
    entityName = reader->text();
    return true;
  }
  return false;
}

template <typename Record, void (DXF_Interface::*add)(Record&&)>
bool DXF_OpenFile::readEntity() {
  Record record;
  if (!readGroups(record, entityName)) return false;
  Finish(record);
  if (applyExtrusion) record.applyExtrusion();
  (receiver->*add)(std::move(record));
  return true;
}

/// An insert's point is not mapped here: its normal counts at conversion.
bool DXF_OpenFile::readInsert() {
  DXF_Insert insert;
  if (!readGroups(insert, entityName)) return false;
  receiver->addInsert(std::move(insert));
  return true;
}

bool DXF_OpenFile::readViewport() {
  DXF_Viewport viewport;
  if (!readGroups(viewport, entityName)) return false;
  receiver->addViewport(viewport);
  return true;
}

/// Kept: the groups of the SEQEND land on the polyline, so its layer and handle are those of the SEQEND.
bool DXF_OpenFile::readPolyline() {
  DXF_Polyline polyline;
  if (!readGroups(polyline, entityName)) return false;
  while (entityName == "VERTEX") {
    if (!readVertices(polyline) || !readGroups(polyline, entityName)) return false;
  }
  if (applyExtrusion) polyline.applyExtrusion();
  receiver->addPolyline(std::move(polyline));
  return true;
}

bool DXF_OpenFile::readVertices(DXF_Polyline& polyline) {
  auto vertex = std::make_shared<DXF_Vertex>();
  while (readGroups(*vertex, entityName)) {
    polyline.vertices.push_back(vertex);
    if (entityName == "SEQEND") return true;
    // Kept: behind any other name the same vertex is read on and pushed again.
    if (entityName == "VERTEX") vertex = std::make_shared<DXF_Vertex>();
  }
  return false;
}
