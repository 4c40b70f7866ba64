// Groups: frames on a stack, of which only the innermost places points.
#include "result/member_list.h"
#include "sink/my_draw_load.h"

void CMyDrawLoad::EndGroup(PARSE::Context) {
  if (groupDepth == 0) return;
  CFileGroup& group = *frames.back()->group;
  resultCount += static_cast<std::uint32_t>(group.memberCount);
  SpliceMembers(group.memberHead, results);
  group.memberCount = 0;
  frames.pop_back();
  --groupDepth;
}
