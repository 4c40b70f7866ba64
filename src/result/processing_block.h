#ifndef DRAWLOAD_RESULT_PROCESSING_BLOCK_H
#define DRAWLOAD_RESULT_PROCESSING_BLOCK_H

class CFileDraw;

/// Copies the processing block as a whole: every field from `flag0` to `diameter`.
void CopyProcessingBlock(const CFileDraw& from, CFileDraw& to);

#endif
