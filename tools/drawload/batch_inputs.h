#ifndef DRAWLOAD_TOOLS_BATCH_INPUTS_H
#define DRAWLOAD_TOOLS_BATCH_INPUTS_H

#include <string>
#include <vector>

/// One drawing of a batch and the name of its output below the output folder.
struct BatchInput {
  std::string path;
  std::string outputName;  ///< relative; the input's own name with the output's extension behind it
};

/// All files named, and all DXF, SVG and PDF files below the folders named, in the order of their names. A
/// folder's files keep their place below it. Two inputs that would write the same output get different names.
/// Links to folders are not followed. What lies below the folder `outputs` is no input unless it is named. A
/// folder that may not be read stands as an input itself, so that it is reported.
std::vector<BatchInput> CollectInputs(const std::vector<std::string>& paths, const std::string& outputs,
                                      const std::string& extension);

#endif
