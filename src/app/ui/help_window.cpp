// Help window (the help page with Back, Forward and Exit) and the about box.
#include "app/ui/help_window.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace velmora {

const char* const kRulesText =
    "Fill the 7 x 7 grid with 49 of the 52 cards of a deck.\n\n"
    "No rank may repeat in a row or a column.\n"
    "Cells that touch up, down, left or right never hold cards of the same suit,\n"
    "and never hold cards of consecutive ranks; king and ace count as consecutive.\n\n"
    "The puzzle gives some cards; the three cards its solution leaves out are never offered.";

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

QWidget* NewAboutForm(QWidget* parent) {
  auto* about = new QDialog(parent);
  about->setObjectName(QStringLiteral("AboutForm"));
  about->setWindowTitle(QObject::tr("About Velmora"));
  auto* name = new QLabel(QStringLiteral("<b>Velmora</b>"), about);
  auto* rules = new QLabel(QString::fromLatin1(kRulesText), about);
  rules->setObjectName(QStringLiteral("Rules"));
  rules->setWordWrap(true);
  auto* version = new QLabel(QStringLiteral("Version 1.0"), about);
  version->setObjectName(QStringLiteral("Version"));
  auto* ok = new QDialogButtonBox(QDialogButtonBox::Ok, about);
  QObject::connect(ok, &QDialogButtonBox::accepted, about, &QDialog::accept);
  auto* layout = new QVBoxLayout(about);
  layout->addWidget(name);
  layout->addWidget(rules);
  layout->addWidget(version);
  layout->addWidget(ok);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  return about;
}

}  // namespace velmora
