// Texts of any bytes in any attributes: as they are, on axes, as titles and as annotations.

#include <CoreGraphics/CGText.h>
#include <CorePlot/CPTDump.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <CorePlot/CPTPlotSpaceAnnotation.h>
#include <Vexel/Adopter.h>
#include <Vexel/PlotAnnotation.h>

#include <cmath>
#include <cstdint>

#include "Drawing.h"
#include "FuzzStyles.h"

namespace {

using namespace vexel;

constexpr std::size_t kMostSteps = 12;

class Figure : public Adopter<Vexel> {
 public:
  std::size_t numberOfRecords(const CPTPlot&) override { return 0; }
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
};

void checkSize(const CGText& text) {
  const CGSize size = sharedTextMeasure().measure(text);
  require(std::isfinite(size.width) && std::isfinite(size.height), "a text has a finite size");
  require(size.width >= 0 && size.height >= 0, "a text's size is not negative");
}

class Session {
 public:
  explicit Session(FuzzInput& input) : input_(input) {
    figure_.initPlot(view_, static_cast<PlotTheme::Case>(input.choice(3)));
    figure_.setViews(1, 0, 0);
    graph_ = figure_.format(figure_.hostingViews()[0], {0, 0, 0, 0}, {30, 10, 10, 30});
  }

  void step() {
    switch (input_.choice(9)) {
      case 0:
        graph_->setTitle(input_.text());
        break;
      case 1:
        graph_->setTitleTextStyle(anyTextStyle(input_));
        break;
      case 2:
        annotatePlain();
        break;
      case 3:
        annotateAttributed();
        break;
      case 4:
        placeAnnotation();
        break;
      case 5:
        changeAnnotation();
        break;
      case 6:
        label();
        break;
      case 7:
        setAnyRanges(dynamic_cast<CPTXYPlotSpace&>(*graph_->defaultPlotSpace()), input_);
        break;
      default:
        view_->setFrameSize(figureSize(input_));
    }
    drawEverywhere(*view_, input_);
  }

  void end() { dump(*graph_); }

 private:
  std::optional<std::vector<float>> maybePoint() {
    if (input_.flag()) return std::nullopt;
    return std::vector{input_.single(), input_.single()};
  }
  std::optional<std::vector<double>> maybeFractions() {
    if (input_.choice(4) == 0) return std::nullopt;
    return std::vector{input_.number(), input_.number()};
  }

  void annotatePlain() {
    AnnotationArguments arguments{
        .graph = graph_, .fontSize = input_.flag() ? input_.byte() / 8.0F : input_.single()};
    arguments.anchorPlotPoint = maybePoint();
    arguments.anchorPointNormal = maybeFractions();
    if (input_.choice(8) == 0) arguments.fontName = input_.text();
    if (input_.flag()) arguments.nsColor = anyNSColor(input_);
    figure_.addAnnotation(input_.text(), arguments);
  }

  void annotateAttributed() {
    AttributedAnnotationArguments arguments{.graph = graph_};
    arguments.anchorPlotPoint = maybePoint();
    arguments.anchorPointNormal = maybeFractions();
    const NSAttributedString text = anyAttributedString(input_);
    checkSize(text.cgText(
        input_.oneOf({CGTextAlignment::left, CGTextAlignment::center, CGTextAlignment::right})));
    figure_.addAnnotation(text, arguments);
  }

  void placeAnnotation() {
    PlotAnnotation::Arguments arguments{
        .location = std::vector{input_.number(), input_.number()},
        .coordinates =
            input_.oneOf({PlotAnnotation::Coordinates::data, PlotAnnotation::Coordinates::normal}),
        .color = anyNSColor(input_),
        .fontSize = input_.flag() ? input_.byte() / 8.0F : input_.single(),
        .alignment =
            input_.oneOf({PlotAnnotation::Alignment::top, PlotAnnotation::Alignment::bottom,
                          PlotAnnotation::Alignment::left, PlotAnnotation::Alignment::right})};
    if (input_.flag()) arguments.label = input_.text();
    if (input_.flag()) arguments.attributedLabel = anyAttributedString(input_);
    annotation_ = std::make_unique<PlotAnnotation>(arguments);
    annotation_->annotate(graph_);
  }

  void changeAnnotation() {
    if (annotation_) {
      annotation_->setLocation({input_.number(), input_.number()});
      if (input_.flag()) annotation_->updateLocation();
      if (input_.flag()) annotation_->update(input_.text());
      if (input_.flag()) annotation_->update(anyAttributedString(input_));
    }
    for (const auto& annotation : graph_->plotAreaFrame()->plotArea()->annotations()) {
      annotation->setDisplacement({input_.number(), input_.number()});
      annotation->setRotation(input_.number());
      if (auto layer = annotation->contentLayer(); layer && input_.flag())
        layer->setTextStyle(anyTextStyle(input_));
    }
  }

  void label() {
    const auto& axis = graph_->axisSet()->axes()[input_.choice(2)];
    axis->setTitle(input_.text());
    axis->setTitleTextStyle(anyTextStyle(input_));
    axis->setLabelingPolicy(CPTAxisLabelingPolicy::none);
    const auto label =
        std::make_shared<CPTAxisLabel>(std::make_shared<CPTTextLayer>(anyAttributedString(input_)));
    label->setTickLocation(input_.number());
    label->setRotation(input_.number());
    axis->setAxisLabels({label});
  }

  FuzzInput& input_;
  std::shared_ptr<NSView> view_ = std::make_shared<NSView>(CGRect::make(0, 0, 160, 120));
  Figure figure_;
  std::shared_ptr<CPTXYGraph> graph_;
  std::unique_ptr<PlotAnnotation> annotation_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  Session session(input);
  for (std::size_t i = 0; i < kMostSteps && !input.isAtEnd(); ++i) session.step();
  session.end();
  return 0;
}
