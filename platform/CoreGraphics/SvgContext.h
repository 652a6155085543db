#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include <CoreGraphics/CGDocumentContext.h>

namespace vexel {

/// Writes drawing as the text of an SVG file. Paths are written in coordinates of the page (y
/// down), so that no element needs a transform but text and images that are turned and pens that
/// are not round. Clips and the shapes of symbols are defined once and referred to by names that
/// count from 0.
class SvgContext final : public CGDocumentContext {
 public:
  /// The sides must be above 0 and finite.
  explicit SvgContext(CGSize size);

  void saveState() override;
  void restoreState() override;
  void concatenate(const CGAffineTransform& transform) override;
  void clip(const CGPath& path) override;
  using CGContext::clip;
  void stroke(const CGPath& path, const CGStrokeStyle& style) override;
  void fill(const CGPath& path, const CGColor& color) override;
  void fillAligned(const CGRect& rect, const CGColor& color) override;
  void drawImage(const CGImage& image, const CGRect& rect) override;
  void drawText(const CGText& text, CGPoint origin) override;
  void drawSymbols(const CGPath& symbol, const CGColor* fillColor, const CGStrokeStyle* strokeStyle,
                   std::span<const CGPoint> centers) override;
  void drawStyledSymbols(const CGPath& symbol, std::span<const CGSymbolStyle> styles,
                         std::span<const std::uint32_t> styleOfCenter,
                         std::span<const CGPoint> centers) override;
  CGSize measure(const CGText& text) override { return sharedTextMeasure().measure(text); }
  std::string finish() override;

 private:
  struct State {
    CGAffineTransform transform;
    /// A rectangle around what the clip leaves visible.
    CGRect clipBox;
    bool clipIsRectangle = true;
    /// Of the clip; empty without one.
    std::string clipName;
  };

  /// A symbol as the file refers to it.
  struct Shape {
    /// Empty when it must be drawn at each place anew.
    std::string name;
    /// Around the path, with its place at (0, 0).
    CGRect box;
  };

  /// False when nothing can be seen of what is drawn now.
  bool isDrawable() const;
  /// The end of the file's body, inside the group of the present clip.
  std::string& body();
  /// The name of the definition that consists of `start`, its name and `rest`; a new one if there
  /// is none yet.
  std::string definition(char letter, const char* start, const std::string& rest);
  Shape shapeOf(const CGPath& symbol);
  void strokePiece(const CGPath& devicePath, const CGStrokeStyle& style, CGFloat lengthBefore);
  void drawShape(const CGPath& symbol, const Shape& shape, const CGSymbolStyle& style,
                 std::span<const CGPoint> centers);

  CGRect page_;
  State state_;
  std::vector<State> saved_;
  std::unordered_map<std::string, std::string> names_;
  std::string definitions_;
  std::string body_;
  std::string groupClip_;
  bool isFinished_ = false;
};

}  // namespace vexel
