#include "sink/my_draw_load.h"

#include "fonts/parse_fonts.h"
#include "result/member_list.h"

CMyDrawLoad::CMyDrawLoad() : results(NewMemberList()), resultCursor(results) {}

CMyDrawLoad::~CMyDrawLoad() {
  while (HasResults()) {
    CFileDraw* object = RemoveMember(results->next);
    // No parse makes points: one that stands here belongs to whoever put it there.
    if (object->kind != kFilePoint) DestroyObject(object);
  }
  delete results;
}

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

void CMyDrawLoad::AddResult(OwnedObject object) {
  if (groupDepth != 0) {
    AppendMember(*frames.back()->group, std::move(object));
    return;
  }
  AppendMember(results, object.get());
  object.release();
  ++resultCount;
}

void CMyDrawLoad::MoveToResults(CFileGroup& group) {
  resultCount += static_cast<std::uint32_t>(group.memberCount);
  SpliceMembers(group.memberHead, results);
  group.memberCount = 0;
}
