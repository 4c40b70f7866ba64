#ifndef DRAWLOAD_PDF_FUNCTION_H
#define DRAWLOAD_PDF_FUNCTION_H

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "pdf/file_reader.h"
#include "pdf/xref_section.h"

namespace pdf {

using PdfPairs = std::vector<std::pair<double, double>>;

/// A function of type 2.
struct ExponentialFunction {
  PdfPairs domain;
  std::vector<double> c0;
  std::vector<double> c1;
  double n = 0.0;
};

/// One part of a stitching function. Its values stay empty where the part is not an exponential function.
using PdfFunctionStop = ExponentialFunction;

/// A function of type 3.
struct StitchingFunction {
  PdfPairs domain;
  std::vector<std::int32_t> functions;  ///< object numbers
  std::vector<double> bounds;
  PdfPairs encode;
  std::vector<std::shared_ptr<const PdfFunctionStop>> stops;  ///< one for each of `functions`, never null
};

/// Functions of other types leave all but `type` empty.
struct PdfFunction {
  std::string type;  ///< the token behind /FunctionType
  ExponentialFunction exponential;
  StitchingFunction stitching;
};

/// The function in this object. A part that is a function being read, as where a function names itself, is
/// not followed and stays empty, and so do parts of parts beyond a limit of depth. Each part is read once,
/// however often it is named.
PdfFunction ReadFunction(PdfFileReader& reader, PdfXrefSection& section, std::int32_t objectNumber);

}  // namespace pdf

#endif
