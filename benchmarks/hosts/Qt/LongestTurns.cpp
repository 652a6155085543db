#include <VexelQt/PlotWidget.h>
#include <fmt/format.h>

#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <QWheelEvent>
#include <cmath>
#include <ctime>
#include <fstream>
#include <functional>

#include "window/ExplorerWindow.h"

// How long a window with many rows does not answer: the longest turn of its event loop, in time of
// its thread's processor, after each kind of act. Of several rounds the usual one is that with the
// median.
//
//   longest-turns [<rows> [<rounds>]]

namespace explorer {
namespace {

constexpr vexel::CGSize kFigure{1200, 800};
constexpr QSize kLarge(1450, 950), kSmall(1400, 910);
constexpr double kMillisecond = 1e-3;
// A turn that takes less does nothing worth waiting for.
constexpr double kIdle = 0.5 * kMillisecond;
constexpr int kIdleTurns = 4;
constexpr int kHeartbeat = 25;

double threadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

void writeTable(const std::string& file, int rows) {
  std::ofstream csv(file);
  csv << "Julian date,Charge [fC],Speed [km/s],Distance [au]\n";
  for (int i = 0; i < rows; ++i) {
    const double t = 4000.0 * i / rows;
    csv << fmt::format("{:.6f},{:.4f},{:.3f},{:.5f}\n", 2459000.5 + t / 4,
                       std::exp(4 + 3 * std::sin(t / 97) + std::sin(1.0 * i * i)),
                       30 + 20 * std::sin(t / 41 + 1.0 * i * i), 0.7 + 0.4 * std::cos(t / 600));
  }
}

/// Those worth waiting for, in seconds.
using Turns = std::vector<double>;

double longest(const Turns& turns) {
  return turns.empty() ? 0 : *std::ranges::max_element(turns);
}

/// Does it, and lets the event loop run until nothing is left to be done.
Turns turnsOf(const ExplorerWindow& window, const std::function<void()>& act) {
  QTimer heart;
  heart.start(kHeartbeat);
  QTimer::singleShot(0, &heart, [&] { act(); });
  Turns turns;
  for (int idle = 0; idle < kIdleTurns;) {
    const double start = threadSeconds();
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double turn = threadSeconds() - start;
    if (turn > kIdle) turns.push_back(turn);
    idle = turn > kIdle || window.isLoading() || window.isMakingOutput() ? 0 : idle + 1;
  }
  return turns;
}

class Acts {
 public:
  Acts(ExplorerWindow& window, int rounds)
      : window_(window), plot_(*window.findChild<vexel::PlotWidget*>()), rounds_(rounds) {}

  void choose(const char* name, int next, int other) {
    auto& box = *window_.findChild<QComboBox*>(name);
    report(name, [&] {
      box.setCurrentIndex(next);
      Q_EMIT box.activated(next);
      std::swap(next, other);
    });
  }
  void report(const char* name, const std::function<void()>& act) {
    std::vector<Turns> all;
    for (int i = 0; i < rounds_; ++i) all.push_back(turnsOf(window_, act));
    std::ranges::sort(all, {}, longest);
    print(name, all);
  }

  static void print(const char* name, const std::vector<Turns>& all) {
    const Turns& usual = all[all.size() / 2];
    fmt::print("{:<14}{:8.1f}{:8.1f}   ", name, longest(usual) / kMillisecond,
               longest(all.back()) / kMillisecond);
    for (const double turn : usual) fmt::print(" {:.1f}", turn / kMillisecond);
    fmt::print("\n");
    std::fflush(stdout);
  }

  /// Places are parts of the figure's width.
  void move(double x) { mouse(QEvent::MouseMove, x, Qt::NoButton, {}); }
  void click(double x) {
    mouse(QEvent::MouseButtonPress, x, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, x, Qt::LeftButton, {});
  }
  void wheel(double x, int notches) {
    const QPointF place = at(x);
    QWheelEvent event(place, plot_.mapToGlobal(place), {}, {0, 120 * notches}, {}, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&plot_, &event);
  }
  void key(Qt::Key key, const QString& text = "") {
    QKeyEvent event(QEvent::KeyPress, key, {}, text);
    QCoreApplication::sendEvent(&plot_, &event);
  }

 private:
  QPointF at(double x) const { return {x * plot_.width(), 0.3 * plot_.height()}; }
  void mouse(QEvent::Type type, double x, Qt::MouseButton button, Qt::MouseButtons held) {
    const QPointF place = at(x);
    QMouseEvent event(type, place, plot_.mapToGlobal(place), button, held, {});
    QCoreApplication::sendEvent(&plot_, &event);
  }

  ExplorerWindow& window_;
  vexel::PlotWidget& plot_;
  int rounds_;
};

void run(int rows, int rounds) {
  const QTemporaryDir folder;
  const std::string file = folder.filePath("rows.csv").toStdString();
  writeTable(file, rows);
  auto* const window = new ExplorerWindow(vexel::PlotTheme::white, std::nullopt, kFigure);
  window->show();
  window->resize(kLarge);
  fmt::print("{} rows        longest   worst    turns of the usual round, ms\n", rows);
  Acts acts(*window, rounds);
  Acts::print("open", {turnsOf(*window, [&] { window->open({.file = file, .size = {}}); })});
  acts.choose("theme", 0, 1);
  acts.choose("table", 3, 0);
  acts.choose("value", 2, 0);
  acts.choose("color", 2, 1);
  acts.choose("band1", 2, 1);
  acts.choose("band2", 4, 3);
  double x = 0.2;
  acts.report("move", [&] { acts.move(x += 0.01); });
  acts.report("pin", [&] { acts.click(x += 0.03); });
  acts.report("zoom", [&] { acts.wheel(0.5, 1); });
  acts.report("pan", [&] { acts.key(Qt::Key_Right); });
  acts.report("zoom out", [&] { acts.wheel(0.5, -1); });
  acts.report("all and back", [&, isAll = false]() mutable {
    isAll = !isAll;
    acts.key(isAll ? Qt::Key_Home : Qt::Key_Backspace, isAll ? "" : "\b");
  });
  acts.report("resize", [&] { window->resize(window->size() == kLarge ? kSmall : kLarge); });
  for (const char* const name : {"figure.png", "figure.pdf", "figure.svg"})
    acts.report(name, [&] { window->exportTo(folder.filePath(name)); });
  acts.report("copy", [&] {
    for (QAction* const action : window->findChildren<QAction*>())
      if (action->text() == "&Copy") action->trigger();
  });
  window->close();
}

}  // namespace
}  // namespace explorer

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
  const int rounds = argc > 2 ? std::atoi(argv[2]) : 5;
  explorer::run(std::max(1, rows), std::max(1, rounds));
}
