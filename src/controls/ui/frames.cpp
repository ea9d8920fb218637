// Small builders the dialogs share.
#include "controls/ui/frames.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace velmora {

CommandRow MakeCommandRow(QWidget* dialog, const QString& text, const QString& tip, const QString& exitTip,
                          RowPlace place) {
  CommandRow row;
  row.command1 = Named(new QPushButton(text, dialog), QStringLiteral("Command1"));
  row.command1->setToolTip(tip);
  row.command2 = Named(new QPushButton(QStringLiteral("Exit"), dialog), QStringLiteral("Command2"));
  row.command2->setToolTip(exitTip);
  row.command2->setAutoDefault(false);
  row.layout = new QHBoxLayout;
  if (place == RowPlace::kFoot) {
    row.command1->setDefault(true);
    row.layout->addStretch(1);
  } else {
    row.command1->setAutoDefault(false);  // Enter belongs to the dialog's list
  }
  row.layout->addWidget(row.command1);
  row.layout->addWidget(row.command2);
  if (place == RowPlace::kTop) row.layout->addStretch(1);
  return row;
}

}  // namespace velmora
