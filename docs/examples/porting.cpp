#include <Foundation/NSNotificationCenter.h>
#include <Foundation/NSNumberFormatter.h>
#include <PlotColorTable/ColorbarPlot.h>
#include <Vexel/Adopter.h>
#include <Vexel/PlotView.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

using namespace vexel;

// One object adopts two protocols; the state of both is kept by the adopter.
struct Figure : Adopter<VexelWithMarkers, ColorbarPlot> {
  std::vector<double> x = {1, 2, 3}, y = {1, 4, 9};

  SymbolColorCode symbolColorCode() override { return SymbolColorCode::none; }
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
  std::size_t numberOfRecords(const CPTPlot&) override { return x.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
    return field == CPTScatterPlotFieldX ? x : y;
  }
};

// Called by the view, which does not own it.
struct Controller : PlotViewDelegate {
  CGSize size;

  void setFrameSize(CGSize newSize) override { size = newSize; }
};

int main() {
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 400, 300));
  bool isDark = false;
  {
    Controller controller;
    view->setDelegate(&controller);
    NSNotificationCenter::defaultCenter().addObserver(
        controller, PlotTheme::didChange(), [&](const NSNotification&) { isDark = true; });
    view->setFrameSize({500, 300});
    NSNotificationCenter::defaultCenter().post({.name = PlotTheme::didChange()});
    if (controller.size.width != 500 || !isDark) return 1;
  }
  // It is gone: the view has no delegate any more, and the centre calls nobody.
  if (view->delegate()) return 1;

  // Absent values are optionals, absent objects null pointers.
  const auto figure = makePlot<Figure>(view, PlotTheme::black);
  const std::optional<PlotTheme> none = PlotTheme::fromRawValue(7);
  const std::shared_ptr<CPTXYGraph> graph = figure->format(nullptr, {0, 0, 0, 0}, {0, 0, 0, 0});
  if (none || graph) return 1;

  // A new number formatter writes no fraction digits and rounds half to even, in every locale.
  NSNumberFormatter formatter;
  if (formatter.string(2.5) != "2") return 1;
  formatter.setMinimumFractionDigits(2);
  if (formatter.string(-0.125) != "-.12") return 1;
}
