#include <CorePlot/CPTPlotSpaceAnnotation.h>
#include <Foundation/FatalError.h>
#include <Vexel/Vexel.h>

#include "AnnotationText.h"

namespace vexel {

namespace {

using Point = std::optional<std::vector<double>>;

Point anchor(const std::optional<std::vector<float>>& plotPoint, const Point& normal,
             const CPTXYGraph& graph) {
  if (plotPoint) {
    if (plotPoint->size() < 2) fatalError("Vexel.addAnnotation: an anchor needs two numbers");
    return std::vector<double>{(*plotPoint)[0], (*plotPoint)[1]};
  }
  return normal ? pointAtFractions(*normal, graph) : std::nullopt;
}

void place(const std::shared_ptr<CPTTextLayer>& text, const std::vector<double>& point,
           CPTXYPlotSpace& space, const CPTXYGraph& graph) {
  const auto annotation = std::make_shared<CPTPlotSpaceAnnotation>(&space, point);
  annotation->setContentLayer(text);
  const CGSize size = text->frame().size;
  annotation->setDisplacement({0.5 * size.width, 0.5 * size.height});
  const auto& frame = graph.plotAreaFrame();
  if (frame && frame->plotArea()) frame->plotArea()->addAnnotation(annotation);
}

}  // namespace

void Vexel::addAnnotation(const std::string& text, const AnnotationArguments& arguments) {
  const std::shared_ptr<CPTXYGraph>& graph = *arguments.graph;
  if (!graph) return;
  graph->removeAllAnimations();
  const auto space = defaultXYPlotSpace(*graph);
  if (!space) return;

  CPTMutableTextStyle style;
  style.color = arguments.cptcolor  ? *arguments.cptcolor
                : arguments.nsColor ? CPTColor(CPTCreateCGColorFromNSColor(*arguments.nsColor))
                                    : theme().plotCPTColor();
  style.fontSize = *arguments.fontSize;
  if (arguments.fontName) style.fontName = *arguments.fontName;
  const auto layer = annotationText(text, style);

  const Point point = anchor(arguments.anchorPlotPoint, arguments.anchorPointNormal, *graph);
  if (point) place(layer, *point, *space, *graph);
}

void Vexel::addAnnotation(const NSAttributedString& text,
                          const AttributedAnnotationArguments& arguments) {
  const std::shared_ptr<CPTXYGraph>& graph = *arguments.graph;
  if (!graph) return;
  graph->removeAllAnimations();
  const auto space = defaultXYPlotSpace(*graph);
  if (!space) return;

  const auto layer = annotationText(text);
  const Point point = anchor(arguments.anchorPlotPoint, arguments.anchorPointNormal, *graph);
  if (point) place(layer, *point, *space, *graph);
}

}  // namespace vexel
