#pragma once

#include <VexelQt/PlotWidget.h>

#include <QAction>
#include <QEventLoopLocker>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <deque>
#include <memory>
#include <optional>

#include "ChoicePanel.h"
#include "ExplorerView.h"
#include "JobProgress.h"
#include "LoadJob.h"
#include "MessageBar.h"
#include "OutputJob.h"
#include "WindowOptions.h"

namespace explorer {

/// A window with a figure to work with, what it shows to choose beside it, and what is under the
/// pointer above it.
///
/// What it exports, prints and copies is made one after the other, each as the figure was when that
/// was asked for, while the window goes on. A window that is closed meanwhile deletes itself when
/// all is made, and otherwise at once; the program does not end before. When something cannot be
/// made it comes back and says so.
class ExplorerWindow : public QMainWindow {
 public:
  ExplorerWindow(vexel::PlotTheme theme, std::optional<vexel::PlotCT> table,
                 vexel::CGSize figureSize);
  ~ExplorerWindow() override;

  /// Reads the file, or makes the sample; what is shown stays until that is done, and when it
  /// cannot be done, which is said in the window.
  void open(const WindowOptions& options);
  void show(std::shared_ptr<const Exploration> exploration, const Choice& choice);
  using QWidget::show;

  /// Whether a file is being read.
  bool isLoading() const { return loadJob_ != nullptr; }
  /// Whether something is being exported, printed or copied.
  bool isMakingOutput() const { return outputJob_ != nullptr; }
  /// As the dialog does, in the format of the file's extension.
  void exportTo(const QString& file);
  const ExplorerView& view() const { return *view_; }

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Output {
    /// What is said while it is made, and when it is.
    QString doing, done;
    OutputJob::Task task;
  };

  void addPanel();
  void addProgress();
  void addFileMenu();
  void addViewMenu();
  void addHelpMenu();

  void openFile(const QString& file);
  void loaded(const LoadJob::Result& result, const WindowOptions& options);
  void endLoading();
  void openOther();
  void duplicate();
  void exportFigure();
  void print();
  void copy();
  void make(Output output);
  void makeNext();
  void made(const OutputJob::Result& result);
  void explainUse();
  void viewChanged();
  QString readOut();

  std::shared_ptr<ExplorerView> view_;
  vexel::PlotWidget* plot_;
  MessageBar* message_;
  QLabel* readOut_;
  ChoicePanel* panel_;
  QLabel* shown_;
  JobProgress* loadProgress_;
  JobProgress* outputProgress_;
  QTimer loadTimer_;
  QAction* back_ = nullptr;
  QAction* forward_ = nullptr;
  QAction* all_ = nullptr;
  QAction* removePins_ = nullptr;
  std::unique_ptr<LoadJob> loadJob_;
  /// The first one is being made.
  std::deque<Output> outputs_;
  std::unique_ptr<OutputJob> outputJob_;
  /// Of a window that is closed and not done yet.
  std::optional<QEventLoopLocker> keepsRunning_;
};

}  // namespace explorer
