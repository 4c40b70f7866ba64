#ifndef DRAWLOAD_PDF_FUNCTION_H
#define DRAWLOAD_PDF_FUNCTION_H

#include <cstdint>
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
  std::vector<PdfFunctionStop> stops;  ///< one for each of `functions`
};

/// Functions of other types leave all but `type` empty.
struct PdfFunction {
  std::string type;  ///< the token behind /FunctionType
  ExponentialFunction exponential;
  StitchingFunction stitching;
};

/// The function in this object. Parts of parts beyond a limit of depth are left empty.
PdfFunction ReadFunction(PdfFileReader& reader, PdfXrefSection& section, std::int32_t objectNumber);

}  // namespace pdf

#endif
