// Small builders the dialogs share: a titled frame, a widget given its name,
// the row of a dialog's two commands.
#pragma once

#include <QGroupBox>
#include <QString>

class QHBoxLayout;
class QPushButton;

namespace velmora {

// A titled frame known by `name`; an empty tip leaves it without one.
inline QGroupBox* Frame(const QString& name, const QString& title, const QString& tip, QWidget* parent) {
  auto* box = new QGroupBox(title, parent);
  box->setObjectName(name);
  if (!tip.isEmpty()) box->setToolTip(tip);
  return box;
}

template <typename T>
T* Named(T* widget, const QString& name) {
  widget->setObjectName(name);
  return widget;
}

// Where a dialog's commands stand: at its foot, right-aligned, Command1 the
// default button; or at its top, left-aligned, where neither takes Enter.
enum class RowPlace { kFoot, kTop };

struct CommandRow {
  QPushButton* command1;
  QPushButton* command2;
  QHBoxLayout* layout;
};

// Command1 (`text`, `tip`) and Command2 "Exit" (`exitTip`), side by side.
CommandRow MakeCommandRow(QWidget* dialog, const QString& text, const QString& tip,
                          const QString& exitTip = QStringLiteral("Take no action and exit"),
                          RowPlace place = RowPlace::kFoot);

}  // namespace velmora
