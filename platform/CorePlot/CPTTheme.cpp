#include <CorePlot/CPTTheme.h>

#include <CorePlot/CPTGraph.h>

namespace vexel {

CPTTheme::CPTTheme(std::string name, const CPTColor& background, const CPTColor& foreground)
    : name_(std::move(name)), background_(background), foreground_(foreground) {}

std::shared_ptr<const CPTTheme> CPTTheme::themeNamed(const std::string& name) {
  const CPTColor black = CPTColor::blackColor();
  const CPTColor white = CPTColor::whiteColor();
  if (name == kCPTPlainBlackTheme) return std::make_shared<CPTTheme>(name, black, white);
  if (name == kCPTPlainWhiteTheme) return std::make_shared<CPTTheme>(name, white, black);
  return nullptr;
}

void CPTTheme::applyThemeToGraph(CPTGraph& graph) const {
  const CPTLineStyle line{.lineColor = foreground_};
  const CPTTextStyle text{.fontSize = kFontSize, .color = foreground_};

  graph.setFill(CPTFill(background_));
  graph.setTitleTextStyle(text);
  if (const auto& frame = graph.plotAreaFrame()) {
    frame->setBorderLineStyle(line);
    if (frame->plotArea()) frame->plotArea()->setFill(CPTFill(background_));
  }
  if (!graph.axisSet()) return;
  graph.axisSet()->setThemeTextStyle(text);
  for (const auto& axis : graph.axisSet()->axes()) {
    axis->setAxisLineStyle(line);
    axis->setMajorTickLineStyle(line);
    axis->setMinorTickLineStyle(line);
    axis->setMajorTickLength(kMajorTickLength);
    axis->setMinorTickLength(kMinorTickLength);
    axis->setMajorIntervalLength(kMajorInterval);
    axis->setMinorTicksPerInterval(kMinorTicksPerInterval);
    axis->setLabelTextStyle(text);
    axis->setTitleTextStyle(text);
  }
}

}  // namespace vexel
