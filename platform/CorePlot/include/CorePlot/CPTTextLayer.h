#pragma once

#include <optional>
#include <string>

#include <AppKit/NSAttributedString.h>
#include <CorePlot/CPTBorderedLayer.h>
#include <CorePlot/CPTTextStyle.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A piece of text, plain in one style or attributed. Its frame has the size of the text and the
/// paddings (1 point on every side unless set) as soon as it is made, and keeps it current.
class VEXEL_API CPTTextLayer : public CPTBorderedLayer {
 public:
  /// In points.
  static constexpr CGFloat kDefaultPadding = 1;

  /// A layer as large as its text.
  explicit CPTTextLayer(std::string text, CPTTextStyle style = {});
  explicit CPTTextLayer(NSAttributedString attributedText);

  /// The plain characters, also of attributed text.
  const std::string& text() const { return text_; }
  /// Replaces the text; an attributed one gives way to plain text in the text style.
  void setText(std::string text);

  /// Absent: text is drawn in the default style.
  const std::optional<CPTTextStyle>& textStyle() const { return textStyle_; }
  void setTextStyle(std::optional<CPTTextStyle> style);

  /// Absent: the text is plain.
  const std::optional<NSAttributedString>& attributedText() const { return attributedText_; }
  void setAttributedText(NSAttributedString text);

  /// Size of the text with the paddings, in points.
  CGSize sizeThatFits() const;

 protected:
  void draw(CGContext& context) override;
  void layoutSublayers() override { sizeToFit(); }

 private:
  CGText cgText() const;
  void sizeToFit();
  void textDidChange();

  std::string text_;
  std::optional<CPTTextStyle> textStyle_;
  std::optional<NSAttributedString> attributedText_;
};

}  // namespace vexel
