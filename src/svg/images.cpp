// Pictures embedded in the document as entities.

#include <string>

#include "support/account.h"
#include "support/base64.h"
#include "svg/length.h"
#include "svg/svg_rw.h"

using Entity_ZR::ZR_Image;

namespace {

/// Beside the bytes of the picture, which count where they are taken.
constexpr std::size_t kDecodedPixelWork = 4;

/// The file in a data URL; empty for any other address, which is not loaded. The media type is not read: the
/// picture decoder knows its formats by their first bytes.
std::string DecodeDataImage(std::string_view href) {
  if (!href.starts_with("data:image")) return {};
  const std::size_t comma = href.find(',');
  return support::DecodeBase64(comma == std::string_view::npos ? href : href.substr(comma + 1));
}

/// Fits the picture into a box of `width` by `height` at its own proportions, centred. A box of one unit or
/// less does not count.
void FitIntoBox(ZR_Image& image, double width, double height) {
  image.displayWidth = image.width;
  image.displayHeight = image.height;
  if (width <= 1.0 || height <= 1.0) return;
  const double sy = image.height / height;
  const double sx = image.width / width;
  if (sy - sx <= 0.0001) {
    image.displayWidth = width;
    image.displayHeight = image.height / sx;
    image.position.y += (height - image.displayHeight) * 0.5;
  } else {
    image.displayWidth = image.width / sy;
    image.displayHeight = height;
    image.position.x += (width - image.displayWidth) * 0.5;
  }
}

}  // namespace

/// Kept: an image is sent and shown whatever its style says, and "xlink:href" stays among its pairs.
void SVG_RW::EmitImage(const Svg::SVG_Element& record, ZR_Image& image) {
  ApplyStyle(record, image);
  const double width = Svg::ResolveLength(groupAttributes->Field(Svg::kWidth), page.width);
  const double height = Svg::ResolveLength(groupAttributes->Field(Svg::kHeight), page.height);
  image.position = {Number(Svg::kX), Number(Svg::kY), 0.0};
  for (const Svg::KnownKey key : {Svg::kX, Svg::kY, Svg::kWidth, Svg::kHeight}) groupAttributes->Erase(key);
  std::string_view href = groupAttributes->Field(Svg::kXlinkHref);
  if (href.empty()) {
    href = groupAttributes->Field(Svg::kHref);
    groupAttributes->Erase(Svg::kHref);
  } else {
    groupAttributes->Erase(Svg::kXlinkUnderscoreHref);
  }
  const support::Picture picture = PictureOf(href);
  image.pixels = picture.pixels;
  image.pixelBytes = picture.pixelBytes;
  image.width = picture.width;
  image.height = picture.height;
  image.channels = picture.channels;
  FitIntoBox(image, width, height);
  AttachRemaining(image);
  image.visible = 1;
}

/// A picture that several elements inherit or reuse is decoded once.
support::Picture SVG_RW::PictureOf(std::string_view href) {
  if (href.data() == decodedHref.data() && href.size() == decodedHref.size()) return decodedPicture;
  decodedHref = {};
  decodedPicture = {};
  decodedPicture = support::DecodePicture(DecodeDataImage(href));
  decodedHref = href;
  support::SpendWork(kDecodedPixelWork * decodedPicture.work);
  return decodedPicture;
}
