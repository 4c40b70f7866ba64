#include "result/member_list.h"

void SpliceMembers(FileMember* from, FileMember* to) {
  if (from->next == from) return;
  FileMember* first = from->next;
  FileMember* last = from->previous;
  first->previous = to->previous;
  to->previous->next = first;
  last->next = to;
  to->previous = last;
  from->previous = from;
  from->next = from;
}
