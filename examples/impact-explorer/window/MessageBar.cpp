#include "MessageBar.h"

#include <QHBoxLayout>
#include <QStyle>
#include <QToolButton>

namespace explorer {

MessageBar::MessageBar(QWidget* parent) : QFrame(parent), label_(new QLabel) {
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  label_->setForegroundRole(QPalette::ToolTipText);
  label_->setObjectName("message");
  label_->setTextFormat(Qt::PlainText);
  label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label_->setWordWrap(true);
  auto* const close = new QToolButton;
  close->setAutoRaise(true);
  close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
  close->setToolTip("Close this message");
  connect(close, &QToolButton::clicked, this, [this] { hide(); });

  auto* const row = new QHBoxLayout(this);
  row->addWidget(label_, 1);
  row->addWidget(close, 0, Qt::AlignTop);
  hide();
}

void MessageBar::setText(const QString& text) {
  label_->setText(text);
  setVisible(!text.isEmpty());
}

}  // namespace explorer
