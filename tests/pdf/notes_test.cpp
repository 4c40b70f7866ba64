#include "pdf/notes.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <unistd.h>

using pdf::PdfNotes;

TEST(PdfNotes, WritesEachNoteWithALineEndToStandardOutput) {
  PdfNotes notes;
  testing::internal::CaptureStdout();
  notes.Write("FileSize:12");
  notes.Write("");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "FileSize:12\n\n");
}

TEST(PdfNotes, ReplaysWhatARecordingTook) {
  PdfNotes notes;
  testing::internal::CaptureStdout();
  std::string taken;
  {
    const PdfNotes::Recording recording(notes);
    notes.Write("one");
    notes.Write("two");
    taken = recording.Taken();
  }
  notes.Write("three");
  notes.Replay(taken);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "one\ntwo\nthree\none\ntwo\n");
}

TEST(PdfNotes, RecordsWithinARecording) {
  PdfNotes notes;
  testing::internal::CaptureStdout();
  const PdfNotes::Recording outer(notes);
  notes.Write("one");
  {
    const PdfNotes::Recording inner(notes);
    notes.Write("two");
    EXPECT_EQ(inner.Taken(), "two\n");
  }
  notes.Replay("three\n");
  EXPECT_EQ(outer.Taken(), "one\ntwo\nthree\n");
  testing::internal::GetCapturedStdout();
}

TEST(PdfNotes, DoNotMindAClosedStandardOutput) {
  const auto writeToClosedOutput = [] {
    close(STDOUT_FILENO);
    PdfNotes notes;
    for (int i = 0; i < 10000; ++i) notes.Write("input error!");
    std::_Exit(7);
  };
  EXPECT_EXIT(writeToClosedOutput(), testing::ExitedWithCode(7), "");
}
