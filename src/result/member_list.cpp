#include "result/member_list.h"

FileMember* NewMemberList() {
  auto* head = new FileMember{};
  head->previous = head;
  head->next = head;
  return head;
}

void AppendMember(FileMember* head, CFileDraw* object) {
  auto* node = new FileMember{object, head->previous, head};
  head->previous->next = node;
  head->previous = node;
}

void AppendMember(CFileGroup& group, OwnedObject object) {
  AppendMember(group.memberHead, object.get());
  object.release();
  ++group.memberCount;
}

CFileDraw* RemoveMember(FileMember* node) {
  CFileDraw* object = node->object;
  node->previous->next = node->next;
  node->next->previous = node->previous;
  delete node;
  return object;
}

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
