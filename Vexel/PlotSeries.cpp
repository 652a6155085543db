#include <CocoaLumberjack/DDLog.h>
#include <PlotTheme/NSColorNames.h>
#include <Vexel/Vexel.h>

namespace vexel {

namespace {

CALayerDelegate* asLayerDelegate(NSObject* delegate) {
  return dynamic_cast<CALayerDelegate*>(delegate);
}

std::optional<CPTColor> cptColor(const std::optional<NSColor>& color) {
  if (!color) return std::nullopt;
  return vexel::getCPTColor(*color);
}

CPTPlotSymbol circleSymbol(const CPTColorPlotArguments& arguments) {
  auto symbol = CPTPlotSymbol::ellipsePlotSymbol();
  symbol.setSize({*arguments.circleSize, *arguments.circleSize});
  if (arguments.circleFillColor) symbol.setFill(CPTFill(*arguments.circleFillColor));
  CPTMutableLineStyle outline;
  // Deliberate: unlike a line, an outline without colour does not take the theme's foreground.
  outline.lineColor = *arguments.color;
  symbol.setLineStyle(outline);
  return symbol;
}

}  // namespace

std::shared_ptr<CPTScatterPlot> Vexel::addPlot(const CPTColorPlotArguments& arguments) {
  if (!*arguments.to) return nullptr;
  ddLog(DDLogFlag::verbose,
        [&] { return "Vexel.addPlot: identifier -> " + *arguments.identifiedBy; });

  auto plot = std::make_shared<CPTScatterPlot>();
  plot->setIdentifier(*arguments.identifiedBy);
  if (*arguments.circle) {
    plot->setPlotSymbol(circleSymbol(arguments));
    plot->setDataLineStyle(std::nullopt);
  } else if (auto line = plot->dataLineStyle()) {
    line->lineWidth = *arguments.lineWidth;
    if (arguments.dashPattern) line->dashPattern = *arguments.dashPattern;
    line->lineColor = *arguments.color ? **arguments.color : theme().plotCPTColor();
    plot->setDataLineStyle(line);
  }
  if (*arguments.label) {
    plot->setLabelOffset(*arguments.labelOffset);
    plot->setLabelRotation(*arguments.labelRotation);
    // Deliberate: a labelled series never has a line through its points.
    plot->setDataLineStyle(std::nullopt);
  }
  plot->setDataSource(this);
  plot->setDelegate(asLayerDelegate(arguments.delegate));
  (*arguments.to)->addPlot(plot);
  return plot;
}

std::shared_ptr<CPTScatterPlot> Vexel::addPlot(const NSColorPlotArguments& arguments) {
  return addPlot(CPTColorPlotArguments{
      .to = *arguments.to,
      .identifiedBy = *arguments.identifiedBy,
      .color = cptColor(*arguments.color),
      .lineWidth = *arguments.lineWidth,
      .dashPattern = arguments.dashPattern,
      .circle = *arguments.circle,
      .circleSize = *arguments.circleSize,
      .circleFillColor = cptColor(arguments.circleFillColor),
      .label = *arguments.label,
      .labelOffset = *arguments.labelOffset,
      .labelRotation = *arguments.labelRotation,
      .delegate = arguments.delegate,
  });
}

std::shared_ptr<CPTScatterPlot> Vexel::addPlot(const PlotArguments& arguments) {
  return addPlot(CPTColorPlotArguments{
      .to = *arguments.to,
      .identifiedBy = *arguments.identifiedBy,
      .color = theme().plotCPTColor(),
      .lineWidth = *arguments.lineWidth,
      .dashPattern = arguments.dashPattern,
      .circle = *arguments.circle,
      .circleSize = *arguments.circleSize,
      .circleFillColor = arguments.circleFillColor,
      .label = *arguments.label,
      .labelOffset = *arguments.labelOffset,
      .labelRotation = *arguments.labelRotation,
      .delegate = arguments.delegate,
  });
}

std::shared_ptr<CPTBarPlot> Vexel::addBarPlot(const BarPlotArguments& arguments) {
  if (!*arguments.to) return nullptr;

  auto fillColor = getCPTColor(arguments.color);
  if (!fillColor)
    // The theme's marker colour: dark grey on black, grey 0.8 on the light themes.
    fillColor = theme().markerCPTColor();
  auto lineColor = getCPTColor(arguments.lineColor);
  if (!lineColor) lineColor = theme().plotCPTColor();

  auto plot = std::make_shared<CPTBarPlot>();
  if (*arguments.labels) {
    CPTMutableTextStyle textStyle;
    textStyle.color = theme().plotCPTColor();
    plot->setLabelTextStyle(textStyle);
    plot->setLabelOffset(*arguments.labelOffset);
    plot->setLabelRotation(*arguments.labelRotation);
  }
  if (auto line = plot->lineStyle()) {
    line->lineWidth = *arguments.lineWidth;
    line->lineColor = lineColor;
    plot->setLineStyle(line);
  }
  plot->setFill(CPTFill(*fillColor));
  if (*arguments.barBasesVary) {
    // Deliberate: bars whose bases vary keep the default width, whatever was asked for.
    plot->setBarBasesVary(true);
    plot->setBarWidthsAreInViewCoordinates(false);
  } else {
    plot->setBarWidth(*arguments.barWidth);
  }
  plot->setBarsAreHorizontal(*arguments.barsAreHorizontal);
  plot->setDelegate(asLayerDelegate(arguments.delegate));
  plot->setDataSource(this);
  plot->setIdentifier(*arguments.identifiedBy);
  (*arguments.to)->addPlot(plot);
  return plot;
}

std::optional<CPTColor> Vexel::getCPTColor(const std::optional<std::string>& name) {
  static const struct {
    const char* name;
    CPTColor color;
  } kColors[] = {
      {"red", CPTColor::redColor()},
      {"green", CPTColor::greenColor()},
      {"blue", CPTColor::blueColor()},
      {"cyan", CPTColor::cyanColor()},
      {"yellow", CPTColor::yellowColor()},
      {"magenta", CPTColor::magentaColor()},
      {"orange", CPTColor::orangeColor()},
      {"purple", CPTColor::purpleColor()},
      {"brown", CPTColor::brownColor()},
      {"verylightgray", CPTColor::colorWithGenericGray(0.8)},
      {"lightgray", CPTColor::lightGrayColor()},
      {"gray", CPTColor::grayColor()},
      {"darkgray", CPTColor::darkGrayColor()},
      {"white", CPTColor::whiteColor()},
      {"black", CPTColor::blackColor()},
  };
  if (!name) return std::nullopt;
  for (const auto& [known, color] : kColors)
    if (*name == known) return color;
  return std::nullopt;
}

}  // namespace vexel
