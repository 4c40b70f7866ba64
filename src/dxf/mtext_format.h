#ifndef DRAWLOAD_DXF_MTEXT_FORMAT_H
#define DRAWLOAD_DXF_MTEXT_FORMAT_H

#include <string_view>
#include <vector>

#include "dxf/text_format.h"
#include "entity/mtext.h"

/// Takes the inline format codes of a multi-line text apart. `format` holds the attributes that the text
/// starts with and falls back to, `defaults` the settings that a paragraph starts with and falls back to (its
/// items are not read). A code that the end of the text breaks off ends the parse; what stands before it is
/// kept.
std::vector<Entity_ZR::MTextParagraph> ParseMTextFormat(std::string_view text, const DXF_TextFormat& format,
                                                        const Entity_ZR::MTextParagraph& defaults);

#endif
