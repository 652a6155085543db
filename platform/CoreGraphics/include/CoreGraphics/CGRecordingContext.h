#pragma once

#include <string>

#include <CoreGraphics/CGContext.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Writes every call as a line of text, for tests and for people. Numbers have at most four
/// decimals and a "." in every locale; states are indented. Coordinates are those of the call,
/// not of the surface. Each line is the call's name and what it was given, for example
///
///     save
///       transform 1 0 0 1 10 20
///       clip M 0 0 L 100 0 L 100 50 L 0 50 Z
///       stroke #000000 width 1 aligned: M 0 0 L 10 10
///       text "Charge" Helvetica 12 #000000 at 10 20
///     restore
class VEXEL_API CGRecordingContext : public CGContext {
 public:
  /// The lines of the calls so far; clear() forgets them.
  const std::string& text() const { return text_; }
  void clear() { text_.clear(); }

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
  CGSize measure(const CGText& text) override { return sharedTextMeasure().measure(text); }

 private:
  void line(const std::string& call);

  std::string text_;
  int depth_ = 0;
};

}  // namespace vexel
