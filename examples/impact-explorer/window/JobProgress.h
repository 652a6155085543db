#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QToolButton>
#include <chrono>
#include <functional>

namespace explorer {

/// What a job does, how far it is, and a button to end it. Hidden while there is none.
class JobProgress : public QWidget {
 public:
  explicit JobProgress(QWidget* parent = nullptr);

  /// Appears when the job has not ended by then. A text that is too long is cut.
  void begin(const QString& text, std::chrono::milliseconds patience);
  void end();
  /// From 0 to 1; without it the bar shows only that something is done.
  void setProgress(double progress);

  std::function<void()> onCancel;

 private:
  QLabel* text_;
  QProgressBar* bar_;
  QTimer patience_;
};

}  // namespace explorer
