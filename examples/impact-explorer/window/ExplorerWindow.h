#pragma once

#include <VexelQt/PlotWidget.h>

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QTimer>
#include <QToolButton>
#include <memory>

#include "ChoicePanel.h"
#include "ExplorerView.h"
#include "LoadJob.h"
#include "MessageBar.h"
#include "WindowOptions.h"

namespace explorer {

/// A window with a figure to work with, what it shows to choose beside it, and what is under the
/// pointer above it. Deletes itself when it is closed.
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
  bool isLoading() const { return job_ != nullptr; }
  const ExplorerView& view() const { return *view_; }

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
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
  void explainUse();
  void viewChanged();
  QString readOut();

  std::shared_ptr<ExplorerView> view_;
  vexel::PlotWidget* plot_;
  MessageBar* message_;
  QLabel* readOut_;
  ChoicePanel* panel_;
  QLabel* shown_;
  QProgressBar* progress_;
  QToolButton* cancel_;
  QTimer progressTimer_;
  QAction* back_ = nullptr;
  QAction* forward_ = nullptr;
  QAction* all_ = nullptr;
  QAction* removePins_ = nullptr;
  std::unique_ptr<LoadJob> job_;
};

}  // namespace explorer
