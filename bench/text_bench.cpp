// 10,000 short texts to results, beside the font engine alone, which loads and decomposes each of their
// glyphs without a cache.
#include <benchmark/benchmark.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <optional>
#include <string>

#include "entity/text.h"
#include "fonts/font_lookup.h"
#include "sink/my_draw_load.h"

namespace {

constexpr int kTexts = 10'000;
constexpr const char* kFontName = "DejaVu Sans";

/// A label of thirteen letters, another one for each number.
std::string Label(int number) { return "Part " + std::to_string(10'000 + number) + " M8"; }

void DrawLabels(CMyDrawLoad& sink, int first, int last) {
  Entity_ZR::ZR_Text text;
  text.fontName = kFontName;
  text.height = 12.0;
  for (int i = first; i < last; ++i) {
    text.text = Label(i);
    text.position = {i % 100 * 80.0, i / 100 * 14.0};
    sink.AddText(&text, 0);
  }
}

/// Results and their destruction; Fontconfig starts before the clock does.
void AddText(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    std::optional<CMyDrawLoad> sink(std::in_place);
    sink->fileType = PARSE::kSvgFile;
    DrawLabels(*sink, 0, 1);
    state.ResumeTiming();
    DrawLabels(*sink, 0, kTexts);
    benchmark::DoNotOptimize(sink->resultCount);
    sink.reset();
  }
  state.SetItemsProcessed(kTexts * static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(AddText)->Unit(benchmark::kMillisecond);

int TakePoint(const FT_Vector* to, void* user) {
  *static_cast<FT_Pos*>(user) += to->x;
  return 0;
}
int TakeConic(const FT_Vector* control, const FT_Vector* to, void* user) {
  *static_cast<FT_Pos*>(user) += control->x + to->x;
  return 0;
}
int TakeCubic(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* user) {
  *static_cast<FT_Pos*>(user) += control1->x + control2->x + to->x;
  return 0;
}

/// Loads and decomposes every letter of `label` from `face`.
FT_Pos DrawLabel(FT_Face face, const std::string& label) {
  const FT_Outline_Funcs receivers = {TakePoint, TakePoint, TakeConic, TakeCubic, 0, 0};
  FT_Matrix matrix = {0x10000, 0, 0, 0x10000};
  FT_Vector pen = {0, 0};
  FT_Pos sum = 0;
  for (const char letter : label) {
    FT_Set_Transform(face, &matrix, &pen);
    const FT_UInt index = FT_Get_Char_Index(face, static_cast<FT_ULong>(letter));
    if (FT_Load_Glyph(face, index, FT_LOAD_NO_BITMAP) != 0) continue;
    FT_Outline_Decompose(&face->glyph->outline, &receivers, &sum);
    pen.x += face->glyph->advance.x;
  }
  return sum;
}

/// One face for all texts.
void FontEngineAlone(benchmark::State& state) {
  const std::string file = fonts::FontLookup().FileOf(kFontName);
  FT_Library library = nullptr;
  FT_Face face = nullptr;
  FT_Init_FreeType(&library);
  FT_New_Face(library, file.c_str(), 0, &face);
  FT_Set_Pixel_Sizes(face, 12, 0);
  for (auto _ : state) {
    for (int i = 0; i < kTexts; ++i) benchmark::DoNotOptimize(DrawLabel(face, Label(i)));
  }
  FT_Done_Face(face);
  FT_Done_FreeType(library);
  state.SetItemsProcessed(kTexts * static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(FontEngineAlone)->Unit(benchmark::kMillisecond);

/// The engine and the face made for each text.
void FontEngineAloneFromScratch(benchmark::State& state) {
  const std::string file = fonts::FontLookup().FileOf(kFontName);
  for (auto _ : state) {
    for (int i = 0; i < kTexts; ++i) {
      FT_Library library = nullptr;
      FT_Face face = nullptr;
      FT_Init_FreeType(&library);
      FT_New_Face(library, file.c_str(), 0, &face);
      FT_Set_Pixel_Sizes(face, 12, 0);
      benchmark::DoNotOptimize(DrawLabel(face, Label(i)));
      FT_Done_Face(face);
      FT_Done_FreeType(library);
    }
  }
  state.SetItemsProcessed(kTexts * static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(FontEngineAloneFromScratch)->Unit(benchmark::kMillisecond);

}  // namespace
