#ifndef DRAWLOAD_RESULT_MEMBER_LIST_H
#define DRAWLOAD_RESULT_MEMBER_LIST_H

#include "drawload/file_group.h"
#include "result/ownership.h"

/// Makes the sentinel of an empty list, linked to itself; the caller deletes it.
FileMember* NewMemberList();

/// Appends `object` behind the last node of the list of `head`; the list owns it from the return on.
void AppendMember(FileMember* head, CFileDraw* object);

/// Appends `object` as the last member of `group`.
void AppendMember(CFileGroup& group, OwnedObject object);

/// Unlinks and frees `node`; hands the object that it held back to the caller.
CFileDraw* RemoveMember(FileMember* node);

/// Moves all nodes of `from`, in order, behind the last node of `to`. `from` is empty afterwards.
void SpliceMembers(FileMember* from, FileMember* to);

#endif
