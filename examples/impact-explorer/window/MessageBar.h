#pragma once

#include <QFrame>
#include <QLabel>

namespace explorer {

/// A message above the figure, which stays until it is closed or another one comes.
class MessageBar : public QFrame {
 public:
  explicit MessageBar(QWidget* parent = nullptr);

  /// Plain text, several lines if need be; an empty one hides the bar.
  void setText(const QString& text);
  QString text() const { return label_->text(); }

 private:
  QLabel* label_;
};

}  // namespace explorer
