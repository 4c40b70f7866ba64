#ifndef DRAWLOAD_SINK_MY_DRAW_LOAD_H
#define DRAWLOAD_SINK_MY_DRAW_LOAD_H

#include <memory>
#include <vector>

#include "entity/entity.h"
#include "entity/matrix2d.h"
#include "result/result_store.h"
#include "sink/coordinate_chain.h"
#include "sink/reader_interface.h"
#include "support/account.h"

namespace Entity_ZR {
struct HatchEdge;
}
namespace fonts {
struct ParseFonts;
}

/// One open group: the whole placement of its members, and the group that holds them and gives them their
/// processing block.
struct GroupFrame {
  Matrix2D matrix;
  CFileGroup* group;
};

/// The sink: turns neutral entities into the flat list of results that the walk hands out. One object
/// serves one parse and the walk behind it.
///
/// Every point goes through the entity's own matrix, then the innermost frame's, then the page's. Which
/// file does what: `my_draw_load.cpp` life and list, `pages.cpp` pages, `frames.cpp` groups, and one file
/// for each kind of entity (`simple_curves.cpp`, `polylines.cpp`, `paths.cpp`, `splines.cpp`,
/// `hatches.cpp`, `text.cpp`, `bitmaps.cpp`).
class CMyDrawLoad : public PARSE::DrawLoader {
 public:
  CMyDrawLoad();
  ~CMyDrawLoad() override;

  void BeginFile(PARSE::Context context) override;
  void EndFile(PARSE::Context context) override;
  void EndGroup(PARSE::Context context) override;
  void SetPage(const PARSE::PageRect* rect, PARSE::Context context) override;
  void SetMachineInfo(const PARSE::MachineInfo* record, PARSE::Context context) override;
  bool AddLine(Entity_ZR::ZR_Line* entity, PARSE::Context context) override;
  bool AddPolyline(Entity_ZR::ZR_Polyline* entity, PARSE::Context context) override;
  bool AddLWPolyline(Entity_ZR::ZR_LWPolyline* entity, PARSE::Context context) override;
  bool AddSpline(Entity_ZR::ZR_Spline* entity, PARSE::Context context) override;
  bool AddCircle(Entity_ZR::ZR_Circle* entity, PARSE::Context context) override;
  bool AddEllipse(Entity_ZR::ZR_Ellipse* entity, PARSE::Context context) override;
  bool AddArc(Entity_ZR::ZR_Arc* entity, PARSE::Context context) override;
  bool AddInsert(Entity_ZR::ZR_Insert* entity, PARSE::Context context) override;
  bool AddHatch(Entity_ZR::ZR_Hatch* entity, PARSE::Context context) override;
  bool AddPath(Entity_ZR::ZR_Path* entity, PARSE::Context context) override;
  bool AddText(Entity_ZR::ZR_Text* entity, PARSE::Context context) override;
  bool AddImage(Entity_ZR::ZR_Image* entity, PARSE::Context context) override;

  /// The walk: the first and the next result, or null at the end of the list.
  CFileDraw* FirstResult();
  CFileDraw* NextResult();
  bool HasResults() const { return results->next != results; }

  std::unique_ptr<PARSE::DrawLoader> dispatcher;  ///< lives until `EndFile`
  std::uint32_t groupDepth = 0;                   ///< number of open frames
  std::int32_t firstPage = 0;
  double pageHeight = 0.0;
  double pageWidth = 0.0;
  std::uint32_t pageCount = 0;
  double pageCenterX = 0.0;
  double pageCenterY = 0.0;
  double spareFloat = 0.0;
  Matrix2D pageMatrix;
  PARSE::MachineInfo machineInfo;
  std::int32_t spareWord = 1;
  std::int32_t textMode = 0;        ///< 1 while the glyph paths of one text arrive
  std::int32_t textLast = 0;        ///< 1 for the text's last path
  support::Account account;         ///< of the read that fills this
  ResultStore store;                ///< holds all groups and results
  CFileGroup* textGroup = nullptr;  ///< holds the curves of a text at depth 0
  CFileGroup* pathGroup = nullptr;  ///< holds the curves of one path at depth 0
  std::vector<GroupFrame> frames;
  FileMember* results;  ///< sentinel of the result list
  FileMember* resultCursor;
  std::uint32_t resultCount = 0;

 private:
  /// Colour of a result: that of the entity, without its opacity.
  static std::uint32_t ResultColor(const Entity_ZR::ZR_Entity& entity) { return entity.color & 0x00FFFFFFu; }

  /// The way of the entity's points to the result, under the frames and the page as they are now.
  CoordinateChain ChainOf(const Entity_ZR::ZR_Entity& entity) const;

  /// Appends a finished object to the innermost frame's group, or to the results.
  void AddResult(CFileDraw* object);
  /// Moves all members of `group`, in order, to the results. Nobody may use the group afterwards.
  void MoveToResults(CFileGroup* group);

  /// An empty curve for a line, a circle or an ellipse, with its colour and processing block.
  CFileCurve* NewShapeCurve(const Entity_ZR::ZR_Entity& entity);
  /// One curve of the Bezier sections in `arcPoints`; false where there are none.
  bool AddShape(const Entity_ZR::ZR_Entity& entity);

  void AddHatchEdge(const Entity_ZR::HatchEdge& edge);

  /// True while curves of paths wait in `textGroup`, not in `pathGroup`, when no frame is open.
  bool CollectsText() const { return textMode == 1 && textGroup != nullptr; }
  /// An empty curve for one subpath, with its processing block.
  CFileCurve* NewPathCurve(const Entity_ZR::ZR_Entity& entity);
  /// Where the finished curves of a path wait.
  CFileGroup& PathHolder();
  /// Adds all subpaths but the last, which it returns.
  CFileCurve* AppendSubpaths(Entity_ZR::ZR_Path& entity);
  /// Adds the last curve of a path, and hands out what waited for it.
  void FinishPath(CFileCurve* lastCurve);
  /// Moves what waits in `pathGroup` or `textGroup` to the results.
  void HandOutPath();
  void HandOutText();

  /// Adds the glyphs of `text` as paths.
  void DrawText(const Entity_ZR::ZR_Text& text);
  /// Brings the state back in order after a text that ended early.
  void AbandonText();

  /// A bitmap result for `entity` with its processing block, still without pixels.
  CFileDib* NewDib(const Entity_ZR::ZR_Entity& entity);
  /// Gives `dib` its packed pixels; false where there is no memory for them.
  bool PackPixels(const Entity_ZR::ZR_Image& image, CFileDib& dib);
  /// From the pixels of `image` to the result.
  Matrix2D PlacementOf(const Entity_ZR::ZR_Image& image) const;

  std::unique_ptr<fonts::ParseFonts> parseFonts;  ///< made for the first text, gone with the end of the file
  std::vector<Entity_ZR::Point3> arcPoints;       ///< of the current arc, four for each section
};

#endif
