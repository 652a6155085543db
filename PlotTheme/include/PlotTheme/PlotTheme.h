#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <AppKit/NSColor.h>
#include <CorePlot/CPTColor.h>
#include <CorePlot/CPTTheme.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The colour scheme of a figure: white on black, black on white, and black on white for paper.
/// `print` looks like `white` in every property; it is a value of its own for callers that tell
/// the two apart. A value.
///
/// A theme that holds a raw value outside its cases is a broken invariant: asking it for any
/// property is a fatal error.
class VEXEL_API PlotTheme {
 public:
  /// The themes; a raw value keeps its meaning.
  enum Case : std::int64_t { black = 0, white = 1, print = 2 };

  /// That theme.
  constexpr PlotTheme(Case theme) : case_(theme) {}

  /// The theme of that raw value; absent for every number but 0, 1 and 2.
  static std::optional<PlotTheme> fromRawValue(std::int64_t rawValue);
  /// The number that fromRawValue() takes.
  constexpr std::int64_t rawValue() const {
    if (case_ < black || case_ > print) refuse();
    return case_;
  }

  /// "Black Theme", "White Theme" or "Print Theme".
  std::string description() const;

  /// The theme that the chart engine applies to graphs. A fatal error when the engine has none of
  /// the name.
  std::shared_ptr<const CPTTheme> cpTheme() const;

  /// In points.
  CGFloat gridLineWidth() const;

  /// Axes, lines and text.
  NSColor plotColor() const;
  CPTColor plotCPTColor() const;
  /// Outlines of symbols.
  NSColor symbolLineColor() const;
  CPTColor symbolLineCPTColor() const;
  /// Labels.
  NSColor labelColor() const;
  /// Markers.
  NSColor markerColor() const;
  /// Of the light themes generic grey 0.8, not the light grey of markerColor.
  CPTColor markerCPTColor() const;
  /// Areas.
  NSColor fillColor() const;
  CPTColor fillCPTColor() const;
  /// Grid lines.
  NSColor gridLineColor() const;
  /// Differs from gridLineColor in the light themes as markerCPTColor does from markerColor, on
  /// purpose.
  CPTColor gridLineCPTColor() const;

  /// Name of the notification by which an application announces that its theme has changed. The
  /// library posts it nowhere. May be called from any thread.
  static const std::string& didChange();

  friend constexpr bool operator==(const PlotTheme&, const PlotTheme&) = default;

 private:
  [[noreturn]] void refuse() const;

  Case case_;
};

}  // namespace vexel

template <>
struct std::hash<vexel::PlotTheme> {
  std::size_t operator()(const vexel::PlotTheme& theme) const noexcept {
    return std::hash<std::int64_t>{}(theme.rawValue());
  }
};
