// Help window (the help page with Back, Forward and Exit) and the about box.
#pragma once

#include <QString>
#include <QWidget>

class QPushButton;
class QTextBrowser;

namespace velmora {

// The rules in a few sentences, shown by the about box.
extern const char* const kRulesText;

class Form4 : public QWidget {
  Q_OBJECT

 public:
  // `page` is the help page's path; a missing page is said in the window.
  Form4(const QString& page, QWidget* parent);
  QTextBrowser* Browser() const { return browser_; }

 private:
  QTextBrowser* browser_;
  QPushButton* back_;
  QPushButton* forward_;
};

// The about box: the rules and the version.
QWidget* NewAboutForm(QWidget* parent);

}  // namespace velmora
