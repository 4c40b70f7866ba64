#include "sink/my_draw_load.h"

#include "result/member_list.h"

CMyDrawLoad::CMyDrawLoad() : results(NewMemberList()), resultCursor(results) {}

CMyDrawLoad::~CMyDrawLoad() {
  while (HasResults()) DestroyObject(RemoveMember(results->next));
  delete results;
}

void CMyDrawLoad::BeginFile(PARSE::Context) {
  groupDepth = 0;
  firstPage = 1;
}

void CMyDrawLoad::EndFile(PARSE::Context) { dispatcher.reset(); }

CFileDraw* CMyDrawLoad::FirstResult() {
  resultCursor = results;
  return NextResult();
}

CFileDraw* CMyDrawLoad::NextResult() {
  resultCursor = resultCursor->next;
  return resultCursor == results ? nullptr : resultCursor->object;
}

void CMyDrawLoad::AddResult(CFileDraw* object) {
  if (groupDepth == 0) {
    AppendMember(results, object);
    ++resultCount;
    return;
  }
  CFileGroup& group = *frames.back()->group;
  AppendMember(group.memberHead, object);
  ++group.memberCount;
}
