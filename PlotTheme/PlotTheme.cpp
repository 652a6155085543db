#include <PlotTheme/PlotTheme.h>

#include <Foundation/FatalError.h>

namespace vexel {

namespace {

/// The value for the dark theme or for the two light ones.
template <class T>
T pick(PlotTheme theme, const T& dark, const T& light) {
  return theme.rawValue() == PlotTheme::black ? dark : light;
}

}  // namespace

std::optional<PlotTheme> PlotTheme::fromRawValue(std::int64_t rawValue) {
  if (rawValue < black || rawValue > print) return std::nullopt;
  return PlotTheme(static_cast<Case>(rawValue));
}

std::string PlotTheme::description() const {
  if (rawValue() == print) return "Print Theme";
  return pick<std::string>(*this, "Black Theme", "White Theme");
}

std::shared_ptr<const CPTTheme> PlotTheme::cpTheme() const {
  const std::string name = pick(*this, kCPTPlainBlackTheme, kCPTPlainWhiteTheme);
  auto theme = CPTTheme::themeNamed(name);
  if (!theme) fatalError("PlotTheme: there is no theme \"" + name + "\"");
  return theme;
}

CGFloat PlotTheme::gridLineWidth() const {
  return pick(*this, 0.5, 0.5);
}

NSColor PlotTheme::plotColor() const {
  return pick(*this, NSColor::whiteColor(), NSColor::blackColor());
}

CPTColor PlotTheme::plotCPTColor() const {
  return pick(*this, CPTColor::whiteColor(), CPTColor::blackColor());
}

NSColor PlotTheme::symbolLineColor() const {
  return pick(*this, NSColor::grayColor(), NSColor::darkGrayColor());
}

CPTColor PlotTheme::symbolLineCPTColor() const {
  return pick(*this, CPTColor::grayColor(), CPTColor::darkGrayColor());
}

NSColor PlotTheme::labelColor() const {
  return pick(*this, NSColor::lightGrayColor(), NSColor::darkGrayColor());
}

NSColor PlotTheme::markerColor() const {
  return pick(*this, NSColor::darkGrayColor(), NSColor::lightGrayColor());
}

CPTColor PlotTheme::markerCPTColor() const {
  return pick(*this, CPTColor::darkGrayColor(), CPTColor::colorWithGenericGray(0.8));
}

NSColor PlotTheme::fillColor() const {
  return markerColor();
}

CPTColor PlotTheme::fillCPTColor() const {
  return pick(*this, CPTColor::darkGrayColor(), CPTColor::lightGrayColor());
}

NSColor PlotTheme::gridLineColor() const {
  return markerColor();
}

CPTColor PlotTheme::gridLineCPTColor() const {
  return markerCPTColor();
}

const std::string& PlotTheme::didChange() {
  static const std::string name = "PlotTheme.didChange";
  return name;
}

void PlotTheme::refuse() const {
  fatalError("PlotTheme: unexpected raw value " + std::to_string(case_));
}

}  // namespace vexel
