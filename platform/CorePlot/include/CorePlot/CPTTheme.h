#pragma once

#include <memory>
#include <string>

#include <CoreGraphics/CGPoint.h>
#include <CorePlot/CPTColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CPTGraph;

/// Names of the themes.
inline constexpr const char* kCPTPlainBlackTheme = "Plain Black";
inline constexpr const char* kCPTPlainWhiteTheme = "Plain White";

/// A look for graphs: graph and plot area filled in one colour, axes, border and text in the
/// other.
class VEXEL_API CPTTheme {
 public:
  /// What axes get from every theme; lengths and sizes in points.
  static constexpr CGFloat kMajorTickLength = 7;
  static constexpr CGFloat kMinorTickLength = 5;
  static constexpr CGFloat kFontSize = 14;
  static constexpr double kMajorInterval = 0.5;
  static constexpr int kMinorTicksPerInterval = 4;

  /// A theme of any two colours; themeNamed() does not know it.
  CPTTheme(std::string name, const CPTColor& background, const CPTColor& foreground);

  /// One of the themes named above; null for any other name.
  static std::shared_ptr<const CPTTheme> themeNamed(const std::string& name);

  /// The name it was made with.
  const std::string& name() const { return name_; }
  /// Sets fill and axis looks of the graph; paddings and plot spaces stay.
  void applyThemeToGraph(CPTGraph& graph) const;

 private:
  std::string name_;
  CPTColor background_;
  CPTColor foreground_;
};

}  // namespace vexel
