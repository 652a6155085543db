#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <PlotColorTable/PlotCT.h>
#include <Vexel/PlotView.h>

#include "ColorFigure.h"
#include "Exploration.h"
#include "ImpactFigure.h"
#include "TimeNavigation.h"

namespace explorer {

/// A figure to work with: a quantity over time, coloured by another, and bands below it over the
/// same time. It answers the mouse and the keys and knows nothing of the program around it:
///
/// - a marker follows the pointer; what is under it can be read out
/// - a click pins a marker, Escape removes all
/// - the wheel zooms about the pointer, or pans when it is turned sideways
/// - a drag pans; with the right button, or with Shift, it chooses the time to be shown
/// - a double click shows all
/// - arrows pan and zoom, so do plus and minus; Home shows all, Backspace goes back
///
/// It follows PlotTheme::didChange, with a PlotTheme as its user information, and
/// PlotCT::colourTableDidChange, with a std::optional<PlotCT>, absent for the quantity's own.
class ExplorerView : public vexel::PlotView {
 public:
  /// What is under the marker: a time, and the values near it by the names of their quantities.
  struct UnderMarker {
    std::string time;
    std::vector<std::pair<std::string, std::string>> values;
  };

  /// What a view shows but the marker that follows the pointer: all that another view needs, also
  /// one of another thread, to show the same.
  struct Shown {
    vexel::CGSize size;
    vexel::PlotTheme theme;
    std::optional<vexel::PlotCT> table;
    std::shared_ptr<const Exploration> exploration;
    Choice choice;
    TimeNavigation navigation;
    std::vector<double> pins;
  };

  ExplorerView(vexel::CGRect frame, vexel::PlotTheme theme, std::optional<vexel::PlotCT> table);
  /// Shows the same as another view.
  explicit ExplorerView(const Shown& shown);
  Shown shown() const;

  /// Shows another table from its first to its last time, without pins.
  void explore(std::shared_ptr<const Exploration> exploration, Choice choice);
  void choose(Choice choice);

  /// Null before the first.
  const std::shared_ptr<const Exploration>& exploration() const { return exploration_; }
  const Choice& choice() const { return choice_; }
  vexel::PlotTheme theme() const { return theme_; }
  const std::optional<vexel::PlotCT>& colorTable() const { return table_; }
  const TimeNavigation& navigation() const { return navigation_; }
  const std::vector<double>& pins() const { return pins_; }
  /// Absent while no marker follows the pointer.
  std::optional<UnderMarker> underMarker();
  /// The ends of the time shown, as text.
  std::string shownText();

  void zoomIn();
  void zoomOut();
  void panBackward();
  void panForward();
  void showAll();
  void goBack();
  void goForward();
  void removePins();

  /// Called when any of the above has changed.
  std::function<void()> onChange;

  void setFrameSize(vexel::CGSize size) override;
  void draw(vexel::CGContext& context, vexel::CGRect dirtyRect) override;
  void mouseMoved(const vexel::NSEvent& event) override;
  void mouseExited(const vexel::NSEvent& event) override;
  void mouseDown(const vexel::NSEvent& event) override;
  void mouseDragged(const vexel::NSEvent& event) override;
  void mouseUp(const vexel::NSEvent& event) override;
  void rightMouseDown(const vexel::NSEvent& event) override;
  void rightMouseDragged(const vexel::NSEvent& event) override;
  void rightMouseUp(const vexel::NSEvent& event) override;
  void scrollWheel(const vexel::NSEvent& event) override;
  void keyDown(const vexel::NSEvent& event) override;

 private:
  /// What a held button does.
  struct Drag {
    vexel::CGPoint start;
    double startTime;
    TimeSpan startSpan;
    bool choosesTime;
    bool hasMoved = false;
  };

  void rebuild();
  void rebuildColored();
  void rebuildStack();
  void placeHosts();
  void showTime();
  void showPins();
  void changed();
  /// Whether the pointer is above or below the time shown, not beside it.
  bool isOverTime(const vexel::NSEvent& event);
  void moveMarker(const vexel::NSEvent& event);
  void hideMarker();
  void beginDrag(const vexel::NSEvent& event, bool choosesTime);
  void drag(const vexel::NSEvent& event);
  void endDrag(const vexel::NSEvent& event);
  /// Shows the time that the navigation has arrived at.
  void navigated(bool hasChanged);
  double middle() const;

  vexel::PlotTheme theme_;
  std::optional<vexel::PlotCT> table_;
  std::shared_ptr<const Exploration> exploration_;
  Choice choice_;
  TimeNavigation navigation_{{0, 1}};
  std::vector<double> pins_;
  std::optional<Drag> drag_;
  double lastWheel_ = 0;
  /// What has moved the marker.
  vexel::NSEvent pointer_;

  std::shared_ptr<vexel::PlotView> upper_, lower_;
  std::unique_ptr<ColorFigure> colored_;
  std::unique_ptr<ImpactFigure> stack_;
};

}  // namespace explorer
