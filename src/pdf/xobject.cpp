#include "pdf/xobject.h"

#include <algorithm>
#include <utility>

#include "pdf/content_text.h"
#include "pdf/shared_reads.h"
#include "pdf/token_walk.h"
#include "support/account.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoI;

/// The image in these tokens, or null where its size is not allowed.
std::shared_ptr<const PdfImage> ReadImage(ObjectSource& source, const PdfTokens& tokens,
                                          std::string_view stream) {
  PdfStreamKeys keys;
  PdfStreamData data;
  data.isImage = true;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (source.ReadStreamKey(tokens, i, keys)) continue;
    if (tokens[i] == "/ColorSpace")
      data.colourSpace = tokens.at(++i);
    else if (tokens[i] == "/Width")
      data.width = AtoI(tokens.at(++i));
    else if (tokens[i] == "/Height")
      data.height = AtoI(tokens.at(++i));
  }
  const std::string_view input = FirstBytes(stream, keys.length);
  if (!IsAllowedImageSize(data.width, data.height)) return nullptr;
  source.Decode(input, keys, data);
  return std::make_shared<const PdfImage>(PdfImage{std::move(data.imagePlane), data.width, data.height,
                                                   data.components, data.plainPlane,
                                                   data.plainPlane.empty() ? nullptr : source.File()});
}

/// Takes the tokens of the array behind the key at `index`, at most six.
void ReadMatrix(const PdfTokens& tokens, std::size_t& index, PdfForm& form) {
  if (tokens.at(index + 1) != "[") return;
  const std::size_t end = EndOfArray(tokens, index + 2);
  const std::size_t count = std::min(end - index - 2, form.matrix.size());
  for (std::size_t i = 0; i < count; ++i) form.matrix[i] = tokens[index + 2 + i];
  index = end;
}

/// The form's text behind a line that sets its matrix. It is normalised twice: once where a form is read, and
/// once where a text is run.
std::string PrepareContent(const PdfForm& form, const PdfStreamData& data) {
  std::string text;
  for (const std::string& number : form.matrix) text += number + " ";
  text += "cm\n";
  AppendDecoded(data, text);
  support::SpendWork(2 * text.size());
  return std::string(NormaliseContentText(NormaliseContentText(text).View()).View());
}

std::shared_ptr<const PdfForm> ReadForm(ObjectSource& source, const PdfTokens& tokens,
                                        std::string_view stream) {
  PdfForm form;
  PdfStreamKeys keys;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (source.ReadStreamKey(tokens, i, keys)) continue;
    if (tokens[i] == "/Matrix")
      ReadMatrix(tokens, i, form);
    else if (tokens[i] == "/BBox")
      form.box = BoxBehind(tokens, i);
  }
  PdfStreamData data;
  source.Decode(stream, keys, data);
  form.content = PrepareContent(form, data);
  return std::make_shared<const PdfForm>(std::move(form));
}

}  // namespace

bool ReadXObject(ObjectSource& source, std::int32_t objectNumber, PdfXObject& xobject) {
  const PdfFetchedStream fetched = source.FetchStream(objectNumber);
  const std::string_view stream = fetched.stream;
  const PdfTokens& tokens = fetched.object->tokens;
  // A subtype that is named again gives the same once more.
  SharedReads<PdfImage> images;
  SharedReads<PdfForm> forms;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] != "/Subtype") continue;
    const std::string_view subtype = tokens.at(++i);
    if (subtype == "/Image")
      xobject = {images.Get(source.Reader(), 0, [&] { return ReadImage(source, tokens, stream); }), nullptr};
    if (subtype == "/Form")
      xobject = {nullptr, forms.Get(source.Reader(), 0, [&] { return ReadForm(source, tokens, stream); })};
  }
  return !tokens.empty();
}

}  // namespace pdf
