#include <CorePlot/CPTGraph.h>

#include <algorithm>
#include <utility>

#include <CorePlot/CPTAxisDelegate.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <CorePlot/CPTXYAxis.h>

#include "AxisArrangement.h"
#include "ChartParts.h"
#include "KeptPictures.h"
#include "ShownMarks.h"

namespace vexel {

namespace {

// Between the upper edge of the graph and its title.
constexpr CGFloat kTitleInset = 2;

/// Whether there was a delegate to be told.
bool tellDelegates(const AxisArrangement& arrangement) {
  bool told = false;
  for (const auto& [axis, layout] : arrangement.axes)
    if (auto* const delegate = dynamic_cast<CPTAxisDelegate*>(axis->delegate())) {
      delegate->axisDidRelabel(*axis);
      told = true;
    }
  return told;
}

}  // namespace

CPTGraph::CPTGraph(CGRect frame)
    : CPTBorderedLayer(frame),
      shown_(std::make_unique<ShownMarks>()),
      kept_(std::make_unique<KeptPictures>()) {
  setPadding(kDefaultPadding);
}

CPTGraph::~CPTGraph() = default;

void CPTGraph::setPlotAreaFrame(std::shared_ptr<CPTPlotAreaFrame> frame) {
  if (plotAreaFrame_ == frame) return;
  if (plotAreaFrame_) plotAreaFrame_->removeFromSuperlayer();
  plotAreaFrame_ = std::move(frame);
  addSublayer(plotAreaFrame_);
  layoutSublayers();
  setNeedsDisplay();
}

void CPTGraph::setAxisSet(std::shared_ptr<CPTAxisSet> axisSet) {
  if (axisSet_ == axisSet) return;
  if (axisSet_) axisSet_->removeFromSuperlayer();
  axisSet_ = std::move(axisSet);
  arrangement_.reset();
  addSublayer(axisSet_);
  setNeedsDisplay();
}

std::shared_ptr<CPTPlotSpace> CPTGraph::defaultPlotSpace() const {
  return plotSpaces_.empty() ? nullptr : plotSpaces_.front();
}

void CPTGraph::addPlotSpace(std::shared_ptr<CPTPlotSpace> space) {
  if (!space || space->graph() == this) return;
  if (auto* former = space->graph()) former->removePlotSpace(*space);
  space->graph_ = this;
  plotSpaces_.push_back(std::move(space));
}

void CPTGraph::removePlotSpace(const CPTPlotSpace& space) {
  const auto found = std::find_if(plotSpaces_.begin(), plotSpaces_.end(),
                                  [&](const auto& s) { return s.get() == &space; });
  if (found == plotSpaces_.end()) return;
  (*found)->graph_ = nullptr;
  plotSpaces_.erase(found);
}

void CPTGraph::addPlot(std::shared_ptr<CPTPlot> plot) {
  addPlot(std::move(plot), nullptr);
}

void CPTGraph::addPlot(std::shared_ptr<CPTPlot> plot, std::shared_ptr<CPTPlotSpace> space) {
  if (!plot) return;
  if (auto* former = plot->graph()) former->removePlot(*plot);
  if (space && !space->graph()) addPlotSpace(space);
  plot->setPlotSpace(space ? std::move(space) : defaultPlotSpace());
  plot->graph_ = this;
  addSublayer(plot);
  plots_.push_back(std::move(plot));
}

std::shared_ptr<CPTPlot> CPTGraph::plotWithIdentifier(const std::string& identifier) const {
  for (const auto& plot : plots_)
    if (plot->identifier() == identifier) return plot;
  return nullptr;
}

void CPTGraph::removePlot(const CPTPlot& plot) {
  const auto found =
      std::find_if(plots_.begin(), plots_.end(), [&](const auto& p) { return p.get() == &plot; });
  if (found == plots_.end()) return;
  const auto removed = *found;
  plots_.erase(found);
  removed->graph_ = nullptr;
  removed->removeFromSuperlayer();
}

void CPTGraph::removePlotWithIdentifier(const std::string& identifier) {
  if (const auto plot = plotWithIdentifier(identifier)) removePlot(*plot);
}

void CPTGraph::reloadData() {
  for (const auto& plot : plots_) plot->setDataNeedsReloading();
}

void CPTGraph::applyTheme(const std::shared_ptr<const CPTTheme>& theme) {
  if (theme) theme->applyThemeToGraph(*this);
}

void CPTGraph::setTitle(std::optional<std::string> title) {
  if (title_ == title) return;
  title_ = std::move(title);
  titleSize_.reset();
  setNeedsDisplay();
}

void CPTGraph::setTitleTextStyle(CPTTextStyle style) {
  if (titleTextStyle_ == style) return;
  titleTextStyle_ = std::move(style);
  titleSize_.reset();
  setNeedsDisplay();
}

void CPTGraph::layoutSublayers() {
  if (plotAreaFrame_) plotAreaFrame_->setFrame(paddedBounds());
}

void CPTGraph::contentDidChange() {
  changed_ = true;
  if (hostingView_) hostingView_->setNeedsLayout(true);
}

void CPTGraph::tellHostingView() {
  if (!hostingView_ || !std::exchange(changed_, false)) return;
  if (isHidden() || backgroundNeedsDisplay() || axesNeedDisplay())
    return hostingView_->setNeedsDisplay(true);
  const auto places = changedPlaces();
  // Reading data may have changed everything.
  if (!hostingView_) return;
  if (!places) return hostingView_->setNeedsDisplay(true);
  const CGPoint origin = hostingView_->bounds().origin;
  for (const CGRect& place : *places)
    hostingView_->setNeedsDisplayInRect({place.origin + origin, place.size});
}

std::optional<std::vector<CGRect>> CPTGraph::changedPlaces() {
  try {
    const ChartParts parts(*this, [this] { return arrangedAxes(); });
    return shown_->placesChangedTo(parts.all());
  } catch (...) {
    contentDidChange();
    throw;
  }
}

bool CPTGraph::backgroundNeedsDisplay() const {
  const auto area = plotAreaFrame_ ? plotAreaFrame_->plotArea() : nullptr;
  return needsDisplay() || (plotAreaFrame_ && plotAreaFrame_->needsDisplay()) ||
         (area && area->needsDisplay());
}

void CPTGraph::plotSpaceDidChange(const CPTPlotSpace& space) {
  if (axisSet_)
    for (const auto& axis : axisSet_->axes())
      if (axis->plotSpace().get() == &space) axis->setNeedsDisplay();
  for (const auto& plot : plots_)
    if (plot->plotSpace().get() == &space) plot->setNeedsDisplay();
  if (plotAreaFrame_ && plotAreaFrame_->plotArea())
    plotAreaFrame_->plotArea()->setAnnotationsNeedDisplay();
}

bool CPTGraph::axesNeedDisplay() const {
  if (!axisSet_) return false;
  const auto& axes = axisSet_->axes();
  return axisSet_->needsDisplay() || std::any_of(axes.begin(), axes.end(), [](const auto& axis) {
           return axis->needsDisplay();
         });
}

std::shared_ptr<const AxisArrangement> CPTGraph::arrangedAxes() {
  const bool isCurrent = arrangement_ && !axesNeedDisplay() &&
                         arrangement_->surroundings == AxisArrangement::Surroundings::of(*this);
  if (isCurrent) return arrangement_;
  const auto first = std::make_shared<const AxisArrangement>(*this);
  // Delegates may change the axes, or remove them.
  arrangement_ = tellDelegates(*first) ? std::make_shared<const AxisArrangement>(*this) : first;
  return arrangement_;
}

CGRect CPTGraph::titleFrame() const {
  if (!title_ || title_->empty() || !plotAreaFrame_ || !plotAreaFrame_->plotArea()) return {};
  const CGRect area = plotAreaFrame_->plotArea()->frame();
  const CGFloat middle = plotAreaFrame_->frame().minX() + area.midX();
  if (!titleSize_) titleSize_ = CPTTextLayer(*title_, titleTextStyle_).frame().size;
  const CGSize size = *titleSize_;
  return {{middle - size.width / 2, bounds().maxY() - kTitleInset - size.height}, size};
}

void CPTGraph::displayChart(CGContext& context) {
  displayParts(context, std::nullopt);
}

void CPTGraph::displayChart(CGContext& context, CGRect rect) {
  const bool isWhole = rect.unionWith(bounds()) == rect;
  const CGSavedState state(context);
  if (!isWhole) context.clip(rect);
  displayParts(context, isWhole ? std::nullopt : std::optional(rect));
}

void CPTGraph::displayParts(CGContext& context, const std::optional<CGRect>& rect) {
  tellHostingView();
  if (isHidden()) return;
  const CGSavedState state(context);
  context.clip(bounds());

  const ChartParts parts(*this, [this] { return arrangedAxes(); });
  shown_->note(parts.all());
  kept_->draw(parts, cornerRadius() > 0 ? this : nullptr, bounds(), context, rect);
}

}  // namespace vexel
