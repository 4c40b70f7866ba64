#ifndef DRAWLOAD_TESTS_FONTS_BITMAP_FONT_H
#define DRAWLOAD_TESTS_FONTS_BITMAP_FONT_H

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

/// A font file with bitmaps and no outlines: the letter A, 8 pixels high and 6 wide. Removed at the end.
class BitmapFont {
 public:
  explicit BitmapFont(const std::string& path) : file(path) {
    std::ofstream(file) << "STARTFONT 2.1\n"
                           "FONT -drawload-Dots-Medium-R-Normal--8-80-75-75-C-60-ISO10646-1\n"
                           "SIZE 8 75 75\n"
                           "FONTBOUNDINGBOX 6 8 0 0\n"
                           "STARTPROPERTIES 4\n"
                           "FONT_ASCENT 8\n"
                           "FONT_DESCENT 0\n"
                           "CHARSET_REGISTRY \"ISO10646\"\n"
                           "CHARSET_ENCODING \"1\"\n"
                           "ENDPROPERTIES\n"
                           "CHARS 1\n"
                           "STARTCHAR A\n"
                           "ENCODING 65\n"
                           "SWIDTH 750 0\n"
                           "DWIDTH 6 0\n"
                           "BBX 6 8 0 0\n"
                           "BITMAP\n"
                           "30\n48\n84\n84\nFC\n84\n84\n84\n"
                           "ENDCHAR\n"
                           "ENDFONT\n";
  }
  BitmapFont(const BitmapFont&) = delete;
  BitmapFont& operator=(const BitmapFont&) = delete;
  ~BitmapFont() { std::filesystem::remove(file); }

 private:
  std::string file;
};

#endif
