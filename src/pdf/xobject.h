#ifndef DRAWLOAD_PDF_XOBJECT_H
#define DRAWLOAD_PDF_XOBJECT_H

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/object_source.h"

namespace pdf {

/// A decoded image: `height` rows of `width` pixels of `components` bytes. The bytes may be fewer, where the
/// filter gave fewer.
struct PdfImage {
  std::span<const std::uint8_t> Bytes() const {
    if (plainBytes.empty()) return decoded;
    return {reinterpret_cast<const std::uint8_t*>(plainBytes.data()), plainBytes.size()};
  }

  std::vector<std::uint8_t> decoded;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t components = 0;
  std::string_view plainBytes = {};  ///< of an image without a filter, in place of `decoded`; in `file`
  std::shared_ptr<const support::FileBytes> file = {};
};

/// A form, ready to be run.
struct PdfForm {
  std::array<std::string, 6> matrix{"1", "0", "0", "1", "0", "0"};
  std::array<double, 4> box{};  ///< /BBox; does not clip
  std::string content;          ///< a `cm` line with the matrix, and the form's own text; normalised
};

/// An entry of a page's /XObject dictionary: an image, a form, or neither.
struct PdfXObject {
  std::shared_ptr<const PdfImage> image;
  std::shared_ptr<const PdfForm> form;
};

/// Reads the XObject in this object; false where the object gives no tokens to walk. An image of a size that
/// is not allowed is dropped. Throws `std::out_of_range` where the object breaks off.
bool ReadXObject(ObjectSource& source, std::int32_t objectNumber, PdfXObject& xobject);

}  // namespace pdf

#endif
