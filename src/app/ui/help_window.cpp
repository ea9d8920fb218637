// Help window: the help page with Back, Forward and Exit.
#include "app/ui/help_window.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace velmora {

Form4::Form4(const QString& page, QWidget* parent) : QWidget(parent, Qt::Window) {
  setObjectName(QStringLiteral("Form4"));
  setWindowTitle(tr("Velmora Help"));
  browser_ = new QTextBrowser(this);
  browser_->setObjectName(QStringLiteral("HelpBrowser"));
  browser_->setOpenExternalLinks(true);
  back_ = new QPushButton(tr("Back"), this);
  back_->setObjectName(QStringLiteral("cmdback"));
  forward_ = new QPushButton(tr("Forward"), this);
  forward_->setObjectName(QStringLiteral("cmdforward"));
  auto* exit = new QPushButton(tr("Exit"), this);
  exit->setObjectName(QStringLiteral("cmdhelpexit"));
  back_->setEnabled(false);
  forward_->setEnabled(false);
  connect(back_, &QPushButton::clicked, browser_, &QTextBrowser::backward);
  connect(forward_, &QPushButton::clicked, browser_, &QTextBrowser::forward);
  connect(exit, &QPushButton::clicked, this, &QWidget::close);
  connect(browser_, &QTextBrowser::backwardAvailable, back_, &QPushButton::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward_, &QPushButton::setEnabled);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(back_);
  buttons->addWidget(forward_);
  buttons->addStretch(1);
  buttons->addWidget(exit);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(buttons);
  layout->addWidget(browser_, 1);

  if (QFileInfo(page).isFile()) {
    browser_->setSource(QUrl::fromLocalFile(page));
  } else {
    browser_->setPlainText(tr("The help page %1 could not be found.").arg(page));
  }
  resize(640, 560);
}

}  // namespace velmora
