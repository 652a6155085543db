#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <AppKit/NSColor.h>
#include <AppKit/NSImage.h>
#include <CoreGraphics/CGColor.h>
#include <CorePlot/CPTColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A colour table to choose: 256 colours from the low end of a scale (index 0) to the high end.
/// A value of one byte.
///
/// Each operation that answers with colours builds the table anew, which writes a line at debug
/// level to the log; nothing is kept. All operations may be called from any thread.
///
/// A value that holds a raw value outside its cases is a broken invariant: using it is a fatal
/// error.
class VEXEL_API PlotCT {
 public:
  /// The tables; a raw value keeps its meaning.
  enum Case : std::uint8_t {
    idlBWLinear = 0,
    idlBlueWhite = 1,
    idlGreenRedBlueWhite = 2,
    idlGreenPink = 3,
    idlBlueRed = 4,
    idl16Level = 5,
    idlRainbow = 6,
    gmtHaxby = 7,
    gmtHot = 8,
    gmtNoGreen = 9,
    gmtPanoply = 10,
    gmtPolar = 11,
    gmtRainbow = 12,
    gmtWysiwyg = 13,
    brewerPuBuGn = 14,
    brewerRdBu = 15,
    brewerSpectral = 16,
    qormMinTop = 17,
    xanCyanotype01 = 18,
  };

  /// That table.
  constexpr PlotCT(Case table) : case_(table) {}

  /// The table of that raw value; absent for every number outside 0 to 18.
  static std::optional<PlotCT> fromRawValue(std::int64_t rawValue);
  /// The number that fromRawValue() takes.
  constexpr std::int64_t rawValue() const {
    if (case_ > xanCyanotype01) refuse();
    return case_;
  }

  /// The name to show, "<Family>: <table name>", like "GMT: Haxby".
  std::string description() const;
  /// The key of the family: "IDL", "gmt", "brewer", "qorm" or "xan".
  std::string family() const;
  /// The number of the table in its family.
  std::int64_t number() const;

  /// The colour at an index; absent outside the table. For getCPTColor, deliberately unlike the
  /// others, a negative index is a fatal error.
  std::optional<NSColor> getColor(std::int64_t index) const;
  std::optional<CGColor> getCGColor(std::int64_t index) const;
  std::optional<CPTColor> getCPTColor(std::int64_t index) const;

  /// A preview, one pixel wide and 256 high, the high end on top. Its top pixel is black, the last
  /// colour follows and the first is missing; it has always looked so and is kept.
  std::optional<NSImage> image() const;

  /// All tables in the order of their raw values.
  static std::vector<PlotCT> getTables();
  /// The same by their place in that order, which is the raw value.
  static std::map<std::int64_t, PlotCT> getTableDictionary();
  /// Their descriptions.
  static std::vector<std::string> getTableNames();
  /// The table of that number in a family, whose key is compared exactly; for a pair that no case
  /// has, idl16Level.
  static PlotCT getTable(std::int64_t number, const std::string& family);

  /// Name of the notification by which an application announces that another table was chosen.
  /// The library posts it nowhere.
  static const std::string& colourTableDidChange();

  friend constexpr bool operator==(const PlotCT&, const PlotCT&) = default;

 private:
  [[noreturn]] void refuse() const;

  Case case_;
};

}  // namespace vexel

template <>
struct std::hash<vexel::PlotCT> {
  std::size_t operator()(const vexel::PlotCT& table) const noexcept {
    return std::hash<std::int64_t>{}(table.rawValue());
  }
};
