#ifndef DRAWLOAD_SINK_MY_DRAW_LOAD_H
#define DRAWLOAD_SINK_MY_DRAW_LOAD_H

#include <memory>
#include <vector>

#include "entity/matrix2d.h"
#include "result/ownership.h"
#include "sink/reader_interface.h"

/// One open group: the whole placement of its members, and the group that holds them and gives them their
/// processing block.
struct GroupFrame {
  Matrix2D matrix;
  std::unique_ptr<CFileGroup> group;
};

/// The sink: turns neutral entities into the flat list of results that the walk hands out. One object
/// serves one parse and the walk behind it.
///
/// Every point goes through the entity's own matrix, then the innermost frame's, then the page's. Which
/// file does what: `my_draw_load.cpp` life and list, `pages.cpp` pages, `frames.cpp` groups, and one file
/// for each kind of entity.
class CMyDrawLoad : public PARSE::DrawLoader {
 public:
  CMyDrawLoad();
  ~CMyDrawLoad() override;

  void BeginFile(PARSE::Context context) override;
  void EndFile(PARSE::Context context) override;
  void EndGroup(PARSE::Context context) override;
  void SetPage(const PARSE::PageRect* rect, PARSE::Context context) override;
  void SetMachineInfo(const PARSE::MachineInfo* record, PARSE::Context context) override;

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
  std::int32_t textMode = 0;              ///< 1 while the glyph paths of one text arrive
  std::int32_t textLast = 0;              ///< 1 for the text's last path
  std::unique_ptr<CFileGroup> textGroup;  ///< holds the curves of a text at depth 0
  std::unique_ptr<CFileGroup> pathGroup;  ///< holds the curves of one path at depth 0
  std::vector<std::unique_ptr<GroupFrame>> frames;
  FileMember* results;  ///< sentinel of the result list, owned
  FileMember* resultCursor;
  std::uint32_t resultCount = 0;

 private:
  /// Appends a finished object to the innermost frame's group, or to the results.
  void AddResult(CFileDraw* object);
};

#endif
