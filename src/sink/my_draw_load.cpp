#include "sink/my_draw_load.h"

#include "fonts/parse_fonts.h"
#include "result/member_list.h"

CMyDrawLoad::CMyDrawLoad() : results(store.NewList()), resultCursor(results) {}

CMyDrawLoad::~CMyDrawLoad() = default;

void CMyDrawLoad::BeginFile(PARSE::Context) {
  groupDepth = 0;
  firstPage = 1;
}

void CMyDrawLoad::EndFile(PARSE::Context) {
  parseFonts.reset();
  dispatcher.reset();
}

CFileDraw* CMyDrawLoad::FirstResult() {
  resultCursor = results;
  return NextResult();
}

CFileDraw* CMyDrawLoad::NextResult() {
  resultCursor = resultCursor->next;
  return resultCursor == results ? nullptr : resultCursor->object;
}

void CMyDrawLoad::AddResult(CFileDraw* object) {
  if (groupDepth != 0) {
    store.Append(*frames.back().group, object);
    return;
  }
  store.Append(results, object);
  ++resultCount;
}

void CMyDrawLoad::MoveToResults(CFileGroup* group) {
  resultCount += static_cast<std::uint32_t>(group->memberCount);
  SpliceMembers(group->memberHead, results);
  store.Recycle(group);
}
