#ifndef DRAWLOAD_SVG_SVG_RW_H
#define DRAWLOAD_SVG_SVG_RW_H

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entity/image.h"
#include "entity/insert.h"
#include "entity/path.h"
#include "entity/shapes.h"
#include "entity/text.h"
#include "sink/reader_interface.h"
#include "support/picture.h"
#include "svg/merged_attributes.h"
#include "svg/path_data.h"
#include "svg/svg_interface.h"

/// The SVG reader: loads a document into records, then walks them and hands what is drawable to the sink.
/// Nothing is filled and nothing is clipped: a shape becomes its outline.
class SVG_RW : public PARSE::DrawLoader {
 public:
  SVG_RW() = default;
  ~SVG_RW() override;

  /// False only for an empty path. A file that cannot be read or is not well-formed draws nothing.
  bool Read(const std::string& filePath, PARSE::Context context) override;
  /// Frees what was built from a document.
  virtual void ResetReader();

 private:
  /// What the walk over one list of records remembers.
  struct WalkState {
    bool inDefs = false;
    bool inClip = false;
    std::size_t refusedGroups = 0;  ///< open ones that the account refused; nothing inside them has its place
    std::int32_t textDepth = 0;
    Matrix2D textMatrix;

    bool IsHidden() const { return inDefs || inClip; }
    bool IsDrawn() const { return !IsHidden() && refusedGroups == 0; }
  };
  template <typename Entity>
  using Operation = bool (PARSE::DrawLoader::*)(Entity*, PARSE::Context);
  template <typename Entity>
  using Emitter = void (SVG_RW::*)(const Svg::SVG_Element&, Entity&);

  // The walk over the records.
  void DrawElements(const Svg::RecordList& records, PARSE::Context context);
  void DrawElement(const Svg::SVG_Element& record, WalkState& state, PARSE::Context context);
  void DrawShape(const Svg::SVG_Element& record, PARSE::Context context);
  void DrawText(const Svg::SVG_Element& record, WalkState& state, PARSE::Context context);
  void DrawTail(const Svg::SVG_Element& record, WalkState& state, PARSE::Context context);
  void OpenGroup(const Svg::SVG_Element& record, WalkState& state, PARSE::Context context);
  void OpenRecordGroup(const Svg::SVG_Element& record, PARSE::Context context);
  void OpenFrame(Entity_ZR::ZR_Insert& insert, PARSE::Context context);
  void CloseGroup(PARSE::Context context);
  void CloseGroupsDownTo(std::size_t count, PARSE::Context context);
  void DrawUse(const Svg::SVG_Element& record, PARSE::Context context);
  void DrawClones(const Svg::RecordList& records, PARSE::Context context);
  bool OpenUseGroup(PARSE::Context context);
  void EmitMachineInfo(const Svg::SVG_Element& record, PARSE::Context context);

  // The page.
  void SetupPage(const Svg::SVG_Element& record);
  void SetupPageFromSize();
  void SetupPageFromViewBox(std::string_view viewBox);

  // What all entities share.
  void ApplyStyle(const Svg::SVG_Element& record, Entity_ZR::ZR_Entity& entity);
  void ApplyClassRule(std::string_view className, std::string_view& stroke, std::string_view& fill) const;
  void ApplyLineStyle(Entity_ZR::ZR_Entity& entity);
  void ApplyGradient(std::string_view fillText, Entity_ZR::ZR_Entity& entity);
  void AttachStyle(const Svg::SVG_Element& record, Entity_ZR::ZR_Entity& entity);
  void AttachRemaining(Entity_ZR::ZR_Entity& entity);
  void PlaceInDocument(Matrix2D& matrix) const;
  void PushGroupMatrix(Entity_ZR::ZR_Entity& entity);
  void PopGroupMatrix();

  // One emitter for each kind of element. `groupAttributes` holds the record's attributes.
  void EmitLine(const Svg::SVG_Element& record, Entity_ZR::ZR_Line& line);
  void EmitCircle(const Svg::SVG_Element& record, Entity_ZR::ZR_Circle& circle);
  void EmitEllipse(const Svg::SVG_Element& record, Entity_ZR::ZR_Ellipse& ellipse);
  void EmitRect(const Svg::SVG_Element& record, Entity_ZR::ZR_Path& path);
  void EmitPolyline(const Svg::SVG_Element& record, Entity_ZR::ZR_Path& path);
  void EmitPath(const Svg::SVG_Element& record, Entity_ZR::ZR_Path& path);
  void EmitText(const Svg::SVG_Element& record, Entity_ZR::ZR_Text& text);
  void ApplyFont(Entity_ZR::ZR_Text& text);
  void EmitImage(const Svg::SVG_Element& record, Entity_ZR::ZR_Image& image);
  support::Picture PictureOf(std::string_view href);

  /// The attribute `key` of the record in hand, as a number without a unit.
  double Number(Svg::KnownKey key) const;
  /// The attribute `key` as it stands, to be parsed at length. What elements inherit or `use` repeats is
  /// parsed again each time.
  std::string_view LongField(Svg::KnownKey key) const;

  template <typename Entity>
  void Draw(const Svg::SVG_Element& record, Emitter<Entity> emit, Operation<Entity> operation,
            PARSE::Context context);
  void DrawOutline(const Svg::SVG_Element& record, Emitter<Entity_ZR::ZR_Path> emit, PARSE::Context context);

  std::unique_ptr<Svg::SVG_Interface> document;
  /// The attributes of the record in hand; what is not erased by the end goes to the entity as pairs.
  std::optional<Svg::MergedAttributes> groupAttributes;
  std::vector<double> viewBoxNumbers;
  PARSE::PageRect page;  ///< width and height in millimetres
  Matrix2D documentMatrix;
  bool hasDocumentMatrix = false;
  bool documentMatrixAbsorbed = false;  ///< `matrixStack` carries `documentMatrix`
  std::deque<Matrix2D> matrixStack;
  std::size_t openGroups = 0;    ///< frames that the sink was given and that have not ended
  bool isClone = false;          ///< the current records are drawn through a `use`
  std::string_view decodedHref;  ///< of `decodedPicture`
  support::Picture decodedPicture;
  // Room that is used again for each path.
  Svg::Path pathData;
  std::vector<double> pathNumbers;
  std::vector<Entity_ZR::PathSegment> pathSegments;
};

#endif
