// Help window: the help page with Back, Forward and Exit.
#pragma once

#include <QString>
#include <QWidget>

class QPushButton;
class QTextBrowser;

namespace velmora {

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

}  // namespace velmora
