#include "JobProgress.h"

#include <QHBoxLayout>

namespace explorer {

namespace {

constexpr int kTextWidth = 260;
constexpr int kBarWidth = 160;
constexpr int kSteps = 1000;

}  // namespace

JobProgress::JobProgress(QWidget* parent)
    : QWidget(parent), text_(new QLabel), bar_(new QProgressBar) {
  auto* const cancel = new QToolButton;
  cancel->setText("Cancel");
  cancel->setObjectName("cancel");
  connect(cancel, &QToolButton::clicked, this, [this] { onCancel(); });
  text_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  bar_->setFixedWidth(kBarWidth);

  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(text_);
  row->addWidget(bar_);
  row->addWidget(cancel);
  patience_.setSingleShot(true);
  connect(&patience_, &QTimer::timeout, this, &QWidget::show);
  hide();
}

void JobProgress::begin(const QString& text, std::chrono::milliseconds patience) {
  text_->setText(text_->fontMetrics().elidedText(text, Qt::ElideMiddle, kTextWidth));
  bar_->setRange(0, 0);
  if (patience.count() > 0)
    patience_.start(patience);
  else
    show();
}

void JobProgress::end() {
  patience_.stop();
  hide();
}

void JobProgress::setProgress(double progress) {
  bar_->setRange(0, kSteps);
  bar_->setValue(static_cast<int>(kSteps * progress));
}

}  // namespace explorer
