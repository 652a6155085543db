#pragma once

#include <variant>

#include <CoreGraphics/CGContext.h>
#include <CorePlot/CPTColor.h>
#include <CorePlot/CPTImage.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// What an area is filled with: a colour or an image. A value.
class VEXEL_API CPTFill {
 public:
  /// A plain colour, or an image.
  explicit CPTFill(const CPTColor& color) : content_(color) {}
  explicit CPTFill(CPTImage image) : content_(std::move(image)) {}

  /// Null when the fill is an image.
  const CPTColor* color() const { return std::get_if<CPTColor>(&content_); }
  /// Null when the fill is a colour.
  const CPTImage* image() const { return std::get_if<CPTImage>(&content_); }

  /// Fills a rectangle whose edges fall on the pixels of a bitmap.
  void fill(CGContext& context, const CGRect& rect) const;
  /// Fills the inside of a path as it is.
  void fill(CGContext& context, const CGPath& path) const;

  friend bool operator==(const CPTFill&, const CPTFill&) = default;

 private:
  std::variant<CPTColor, CPTImage> content_;
};

}  // namespace vexel
