#include "ExplorerView.h"

#include <AppKit/NSFunctionKeys.h>
#include <Foundation/NSNotificationCenter.h>
#include <Vexel/Adopter.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace explorer {

using namespace vexel;

namespace {

constexpr double kUpperShare = 0.42;
// Where the colour bar is, and beside it below.
constexpr CGFloat kRightPadding = 120;
// A press that moves less is a click, in points.
constexpr CGFloat kDragFrom = 4;
// A point under the marker is at most so far away, in points.
constexpr double kReach = 6;
// A wheel that rests longer begins another step of the history, in seconds.
constexpr double kGesturePause = 0.6;
// Turning the wheel by so many points makes the time shown e times shorter.
constexpr double kPointsPerZoom = 200;
// One event makes it at most that often e times shorter or longer.
constexpr double kLargestZoom = 5;
constexpr double kZoomStep = 0.7;
// Ten minutes, in days: the labels of a time axis count no less than minutes.
constexpr double kShortestTime = 10.0 / 1440;
constexpr double kPanShare = 0.2;

}  // namespace

ExplorerView::ExplorerView(CGRect frame, PlotTheme theme, std::optional<PlotCT> table)
    : PlotView(frame), theme_(theme), table_(table) {
  auto& center = NSNotificationCenter::defaultCenter();
  center.addObserver(*this, PlotTheme::didChange(), [this](const NSNotification& notification) {
    const auto* chosen = std::any_cast<PlotTheme>(&notification.userInfo);
    if (!chosen || *chosen == theme_) return;
    theme_ = *chosen;
    rebuild();
  });
  center.addObserver(
      *this, PlotCT::colourTableDidChange(), [this](const NSNotification& notification) {
        const auto* chosen = std::any_cast<std::optional<PlotCT>>(&notification.userInfo);
        if (!chosen || *chosen == table_) return;
        table_ = *chosen;
        if (exploration_) rebuildColored();
        changed();
      });
}

ExplorerView::ExplorerView(const Shown& shown)
    : ExplorerView({{}, shown.size}, shown.theme, shown.table) {
  exploration_ = shown.exploration;
  choice_ = shown.choice;
  navigation_ = shown.navigation;
  pins_ = shown.pins;
  rebuild();
}

ExplorerView::Shown ExplorerView::shown() const {
  return {bounds().size, theme_, table_, exploration_, choice_, navigation_, pins_};
}

void ExplorerView::explore(std::shared_ptr<const Exploration> exploration, Choice choice) {
  exploration_ = std::move(exploration);
  choice_ = std::move(choice);
  const TimeSpan& whole = exploration_->span();
  navigation_ = TimeNavigation(whole, whole.isInCalendar() ? kShortestTime : 0);
  pins_.clear();
  rebuild();
}

void ExplorerView::choose(Choice choice) {
  if (!exploration_ || choice == choice_) return;
  const Choice former = std::exchange(choice_, std::move(choice));
  if (former.bands.empty() != choice_.bands.empty()) return rebuild();
  if (former.value != choice_.value || former.color != choice_.color) rebuildColored();
  if (former.bands != choice_.bands) rebuildStack();
  changed();
}

// The figures

void ExplorerView::rebuild() {
  setNeedsDisplay(true);
  if (!exploration_) return changed();
  rebuildColored();
  rebuildStack();
  changed();
}

void ExplorerView::rebuildColored() {
  drag_.reset();
  if (upper_) upper_->removeFromSuperview();
  upper_ = std::make_shared<PlotView>();
  addSubview(upper_);
  placeHosts();
  ColorCoding coding = exploration_->coding(choice_.color);
  coding.table = table_;
  colored_ = makePlot<ColorFigure>(
      upper_, theme_, exploration_->valueBand(choice_.value), std::move(coding),
      choice_.bands.empty() ? ColorFigure::Place::alone : ColorFigure::Place::above);
  upper_->setDelegate(colored_.get());
  colored_->showTime(navigation_.shown());
  colored_->setPins(pins_);
}

void ExplorerView::rebuildStack() {
  drag_.reset();
  if (lower_) lower_->removeFromSuperview();
  lower_ = std::make_shared<PlotView>();
  addSubview(lower_);
  placeHosts();
  std::vector<Band> bands;
  for (const std::string& quantity : choice_.bands) bands.push_back(exploration_->band(quantity));
  stack_ = makePlot<ImpactFigure>(lower_, theme_, std::move(bands), std::nullopt, kRightPadding);
  lower_->setDelegate(stack_.get());
  stack_->showTime(navigation_.shown());
  stack_->setPins(pins_);
}

void ExplorerView::setFrameSize(CGSize size) {
  PlotView::setFrameSize(size);
  placeHosts();
}

void ExplorerView::placeHosts() {
  const CGSize size = bounds().size;
  const CGFloat height = choice_.bands.empty() ? 0 : std::round(size.height * (1 - kUpperShare));
  if (upper_) upper_->setFrame(CGRect::make(0, height, size.width, size.height - height));
  if (lower_) lower_->setFrame(CGRect::make(0, 0, size.width, height));
}

void ExplorerView::draw(CGContext& context, CGRect) {
  context.fillAligned(bounds(), theme_ == PlotTheme::black ? NSColor::blackColor().cgColor()
                                                           : NSColor::whiteColor().cgColor());
}

void ExplorerView::showTime() {
  if (!colored_) return;
  colored_->showTime(navigation_.shown());
  stack_->showTime(navigation_.shown());
}

void ExplorerView::showPins() {
  if (!colored_) return;
  colored_->setPins(pins_);
  stack_->setPins(pins_);
}

void ExplorerView::changed() {
  if (onChange) onChange();
}

// What is under the marker

std::optional<ExplorerView::UnderMarker> ExplorerView::underMarker() {
  const auto time = colored_ ? colored_->markerTime() : std::nullopt;
  if (!time) return std::nullopt;
  const double perPoint = colored_->daysPerPoint();
  UnderMarker result{timeText(*time, perPoint, navigation_.whole().isInCalendar()), {}};
  const auto add = [&](const std::string& name, const Numbers& values,
                       std::optional<std::size_t> point) {
    const auto isNamed = [&](const auto& entry) { return entry.first == name; };
    if (std::ranges::any_of(result.values, isNamed)) return;
    result.values.emplace_back(name, point ? valueText(values[*point]) : "-");
  };
  const auto colored =
      exploration_->nearest(choice_.value).at(*time, kReach * perPoint, colored_->band().values);
  add(colored_->band().title, colored_->band().values, colored);
  add(colored_->coding().title, colored_->coding().values, colored);
  for (std::size_t i = 0; i < stack_->bands().size(); ++i) {
    const Band& band = stack_->bands()[i];
    const double reach =
        std::max(kReach * perPoint, band.style == BandStyle::bars ? band.barWidth / 2 : 0);
    add(band.title, band.values,
        exploration_->nearest(choice_.bands[i]).at(*time, reach, band.values));
  }
  return result;
}

std::string ExplorerView::shownText() {
  if (!colored_) return "";
  const auto [start, end] = navigation_.shown();
  const bool isInCalendar = navigation_.whole().isInCalendar();
  const double perPoint = colored_->daysPerPoint();
  return timeText(start, perPoint, isInCalendar) + " to " + timeText(end, perPoint, isInCalendar);
}

// Navigation

void ExplorerView::navigated(bool hasChanged) {
  if (!hasChanged) return;
  showTime();
  // Another time is under the pointer now.
  if (colored_ && colored_->markerTime())
    moveMarker(pointer_);
  else
    changed();
}

double ExplorerView::middle() const {
  const auto [start, end] = navigation_.shown();
  return start + (end - start) / 2;
}

void ExplorerView::zoomIn() {
  navigation_.beginGesture();
  navigated(
      navigation_.zoom(colored_ ? colored_->markerTime().value_or(middle()) : middle(), kZoomStep));
}

void ExplorerView::zoomOut() {
  navigation_.beginGesture();
  navigated(navigation_.zoom(colored_ ? colored_->markerTime().value_or(middle()) : middle(),
                             1 / kZoomStep));
}

void ExplorerView::panBackward() {
  navigation_.beginGesture();
  const auto [start, end] = navigation_.shown();
  navigated(navigation_.pan(-kPanShare * (end - start)));
}

void ExplorerView::panForward() {
  navigation_.beginGesture();
  const auto [start, end] = navigation_.shown();
  navigated(navigation_.pan(kPanShare * (end - start)));
}

void ExplorerView::showAll() {
  navigated(navigation_.showAll());
}

void ExplorerView::goBack() {
  navigated(navigation_.back());
}

void ExplorerView::goForward() {
  navigated(navigation_.forward());
}

void ExplorerView::removePins() {
  if (pins_.empty()) return;
  pins_.clear();
  showPins();
  changed();
}

// The mouse

void ExplorerView::moveMarker(const NSEvent& event) {
  if (!colored_) return;
  pointer_ = event;
  colored_->moveMarker(event);
  stack_->moveMarker(event);
  changed();
}

void ExplorerView::hideMarker() {
  if (!colored_ || !colored_->markerTime()) return;
  colored_->hideMarker();
  stack_->hideMarker();
  changed();
}

bool ExplorerView::isOverTime(const NSEvent& event) {
  const auto time = colored_ ? colored_->timeAt(event) : std::nullopt;
  return time && *time >= navigation_.shown().start && *time <= navigation_.shown().end;
}

void ExplorerView::mouseMoved(const NSEvent& event) {
  if (isOverTime(event))
    moveMarker(event);
  else
    hideMarker();
}

void ExplorerView::mouseExited(const NSEvent&) {
  hideMarker();
}

void ExplorerView::beginDrag(const NSEvent& event, bool choosesTime) {
  const auto time = colored_ ? colored_->timeAt(event) : std::nullopt;
  if (!time) return;
  drag_ = Drag{event.locationInWindow, *time, navigation_.shown(), choosesTime};
  navigation_.beginGesture();
}

void ExplorerView::drag(const NSEvent& event) {
  if (!drag_) return;
  const CGFloat distance = event.locationInWindow.x - drag_->start.x;
  if (!drag_->hasMoved && std::abs(distance) < kDragFrom) return;
  drag_->hasMoved = true;
  if (drag_->choosesTime) {
    moveMarker(event);
    std::vector<double> ends = pins_;
    ends.push_back(drag_->startTime);
    colored_->setPins(ends);
    stack_->setPins(ends);
    return;
  }
  const double days = distance * colored_->daysPerPoint();
  navigated(navigation_.show({drag_->startSpan.start - days, drag_->startSpan.end - days}));
  moveMarker(event);
}

void ExplorerView::endDrag(const NSEvent& event) {
  if (!drag_) return;
  const Drag done = *drag_;
  drag_.reset();
  if (!done.hasMoved || !done.choosesTime) return;
  showPins();
  if (const auto time = colored_->timeAt(event))
    navigated(navigation_.show({done.startTime, *time}));
}

void ExplorerView::mouseDown(const NSEvent& event) {
  if (event.clickCount == 2) {
    // The first click has pinned a marker.
    if (!pins_.empty()) pins_.pop_back();
    showPins();
    showAll();
    return;
  }
  beginDrag(event, contains(event.modifierFlags, NSEventModifierFlags::shift));
}

void ExplorerView::mouseDragged(const NSEvent& event) {
  drag(event);
}

void ExplorerView::mouseUp(const NSEvent& event) {
  const bool isClick = drag_ && !drag_->hasMoved;
  endDrag(event);
  if (!isClick || !isOverTime(event)) return;
  pins_.push_back(*colored_->timeAt(event));
  showPins();
  changed();
}

void ExplorerView::rightMouseDown(const NSEvent& event) {
  beginDrag(event, true);
}

void ExplorerView::rightMouseDragged(const NSEvent& event) {
  drag(event);
}

void ExplorerView::rightMouseUp(const NSEvent& event) {
  endDrag(event);
}

void ExplorerView::scrollWheel(const NSEvent& event) {
  if (!isOverTime(event)) return;
  if (event.timestamp - lastWheel_ > kGesturePause) navigation_.beginGesture();
  lastWheel_ = event.timestamp;
  const bool hasPanned = event.scrollingDeltaX != 0 &&
                         navigation_.pan(-event.scrollingDeltaX * colored_->daysPerPoint());
  const double exponent =
      std::clamp(-event.scrollingDeltaY / kPointsPerZoom, -kLargestZoom, kLargestZoom);
  const bool hasZoomed =
      exponent != 0 && navigation_.zoom(*colored_->timeAt(event), std::exp(exponent));
  navigated(hasPanned || hasZoomed);
  mouseMoved(event);
}

void ExplorerView::keyDown(const NSEvent& event) {
  const std::string& key = event.characters;
  const auto isFunctionKey = [&](char32_t function) {
    return key == charactersOfFunctionKey(function);
  };
  if (key == "\x1b") removePins();
  if (key == "\b") goBack();
  if (key == "+" || isFunctionKey(NSUpArrowFunctionKey)) zoomIn();
  if (key == "-" || isFunctionKey(NSDownArrowFunctionKey)) zoomOut();
  if (isFunctionKey(NSLeftArrowFunctionKey)) panBackward();
  if (isFunctionKey(NSRightArrowFunctionKey)) panForward();
  if (isFunctionKey(NSHomeFunctionKey)) showAll();
}

}  // namespace explorer
