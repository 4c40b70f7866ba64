#ifndef DRAWLOAD_TESTS_PDF_NAIVE_REWRITING_H
#define DRAWLOAD_TESTS_PDF_NAIVE_REWRITING_H

#include <string>

/// The rewriting of object and content texts as chains of literal replacements, in the plainest and slowest
/// form: what the reader's own form is compared with.
namespace naive {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to);
void ReplaceOutsideStrings(std::string& text, const std::string& from, const std::string& to);
void NormaliseObjectText(std::string& text);
void NormaliseContentText(std::string& text);

}  // namespace naive

#endif
