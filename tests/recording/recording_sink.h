#ifndef DRAWLOAD_TESTS_RECORDING_SINK_H
#define DRAWLOAD_TESTS_RECORDING_SINK_H

#include <memory>
#include <string>
#include <vector>

#include "entity/annotations.h"
#include "entity/hatch.h"
#include "entity/image.h"
#include "entity/insert.h"
#include "entity/mleader.h"
#include "entity/mtext.h"
#include "entity/path.h"
#include "entity/polylines.h"
#include "entity/shapes.h"
#include "entity/spline.h"
#include "entity/text.h"
#include "sink/reader_interface.h"

/// One operation that a reader called: its name and, for an `Add` operation, a copy of the entity.
struct RecordedCall {
  std::string name;
  std::shared_ptr<const Entity_ZR::ZR_Entity> entity;
  PARSE::PageRect page = {};
  PARSE::MachineInfo machine = {};
};

/// A sink that keeps a copy of everything that a reader hands over, in order.
class RecordingSink : public PARSE::DrawLoader {
 public:
  void BeginFile(PARSE::Context) override { Note("BeginFile"); }
  void EndFile(PARSE::Context) override { Note("EndFile"); }
  void BeginGroup(PARSE::Context) override { Note("BeginGroup"); }
  void EndGroup(PARSE::Context) override { Note("EndGroup"); }
  bool BeginRead(PARSE::Context) override { return Note("BeginRead"); }
  bool EndRead(PARSE::Context) override { return Note("EndRead"); }
  void SetPage(const PARSE::PageRect* rect, PARSE::Context) override {
    Note("SetPage");
    calls.back().page = *rect;
  }
  void SetMachineInfo(const PARSE::MachineInfo* record, PARSE::Context) override {
    Note("SetMachineInfo");
    calls.back().machine = *record;
  }
  bool AddPoint(Entity_ZR::ZR_Point* entity, PARSE::Context) override { return Keep("AddPoint", entity); }
  bool AddLine(Entity_ZR::ZR_Line* entity, PARSE::Context) override { return Keep("AddLine", entity); }
  bool AddPolyline(Entity_ZR::ZR_Polyline* entity, PARSE::Context) override {
    return Keep("AddPolyline", entity);
  }
  bool AddLWPolyline(Entity_ZR::ZR_LWPolyline* entity, PARSE::Context) override {
    return Keep("AddLWPolyline", entity);
  }
  bool AddSpline(Entity_ZR::ZR_Spline* entity, PARSE::Context) override { return Keep("AddSpline", entity); }
  bool AddCircle(Entity_ZR::ZR_Circle* entity, PARSE::Context) override { return Keep("AddCircle", entity); }
  bool AddEllipse(Entity_ZR::ZR_Ellipse* entity, PARSE::Context) override {
    return Keep("AddEllipse", entity);
  }
  bool AddArc(Entity_ZR::ZR_Arc* entity, PARSE::Context) override { return Keep("AddArc", entity); }
  bool AddText(Entity_ZR::ZR_Text* entity, PARSE::Context) override { return Keep("AddText", entity); }
  bool AddMText(Entity_ZR::ZR_MText* entity, PARSE::Context) override { return Keep("AddMText", entity); }
  bool AddInsert(Entity_ZR::ZR_Insert* entity, PARSE::Context) override { return Keep("AddInsert", entity); }
  bool AddHatch(Entity_ZR::ZR_Hatch* entity, PARSE::Context) override { return Keep("AddHatch", entity); }
  bool AddHelix(Entity_ZR::ZR_Helix* entity, PARSE::Context) override { return Keep("AddHelix", entity); }
  bool AddMLine(Entity_ZR::ZR_MLine* entity, PARSE::Context) override { return Keep("AddMLine", entity); }
  bool AddSolid(Entity_ZR::ZR_Solid* entity, PARSE::Context) override { return Keep("AddSolid", entity); }
  bool AddTable(Entity_ZR::ZR_Table* entity, PARSE::Context) override { return Keep("AddTable", entity); }
  bool AddTolerance(Entity_ZR::ZR_Tolerance* entity, PARSE::Context) override {
    return Keep("AddTolerance", entity);
  }
  bool AddDimension(Entity_ZR::ZR_Dimension* entity, PARSE::Context) override {
    return Keep("AddDimension", entity);
  }
  bool AddImage(Entity_ZR::ZR_Image* entity, PARSE::Context) override { return Keep("AddImage", entity); }
  bool AddViewport(Entity_ZR::ZR_Viewport* entity, PARSE::Context) override {
    return Keep("AddViewport", entity);
  }
  bool AddMLeader(Entity_ZR::ZR_MLeader* entity, PARSE::Context) override {
    return Keep("AddMLeader", entity);
  }
  bool AddPath(Entity_ZR::ZR_Path* entity, PARSE::Context) override { return Keep("AddPath", entity); }

  /// Names of all calls, in order.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const RecordedCall& call : calls) names.push_back(call.name);
    return names;
  }

  /// All entities of one class, in order.
  template <typename Entity>
  std::vector<std::shared_ptr<const Entity>> All() const {
    std::vector<std::shared_ptr<const Entity>> found;
    for (const RecordedCall& call : calls) {
      if (auto entity = std::dynamic_pointer_cast<const Entity>(call.entity)) found.push_back(entity);
    }
    return found;
  }

  std::vector<RecordedCall> calls;
  bool answer = true;  ///< what every `Add` operation returns

 private:
  bool Note(const char* name) {
    calls.push_back({name, nullptr});
    return false;
  }

  template <typename Entity>
  bool Keep(const char* name, const Entity* entity) {
    calls.push_back({name, std::make_shared<const Entity>(*entity)});
    return answer;
  }
};

#endif
