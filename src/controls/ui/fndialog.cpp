// File-name box: a text field with a "..." button over QFileDialog.
#include "controls/ui/fndialog.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include "files/file_commands.h"

namespace velmora {

FNDialog::FNDialog(QWidget* parent) : QWidget(parent) {
  text_ = new QLineEdit(this);
  text_->setObjectName(QStringLiteral("Text"));
  auto* command1 = new QPushButton(QStringLiteral("..."), this);
  command1->setObjectName(QStringLiteral("Command1"));
  command1->setAutoDefault(false);
  command1->setFixedWidth(command1->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(text_, 1);
  layout->addWidget(command1);
  connect(command1, &QPushButton::clicked, this, &FNDialog::Browse);
}

QString FNDialog::Text() const { return text_->text(); }
void FNDialog::SetText(const QString& text) { text_->setText(text); }

void FNDialog::ForPuzzleFiles(const QString& title) {
  SetTitle(title);
  SetFileTypes(QString::fromLatin1(kPuzzleFileTypes));
  SetFileTypesName(QString::fromLatin1(kPuzzleFileTypesName));
}

QString FNDialog::QtFilter() const {
  QString types = fileTypes_;
  types.replace(QLatin1Char(';'), QLatin1Char(' '));
  return fileTypesName_ + QStringLiteral(" (") + types.simplified() + QStringLiteral(")");
}

QString FNDialog::StartFolder() const {
  if (defaultDir_.isEmpty() || defaultDir_.endsWith(QLatin1Char('/'))) return defaultDir_;
  return defaultDir_ + QLatin1Char('/');
}

QString FNDialog::ShowFileDialog(const QString& mode) {
  QFileDialog dialog(window(), title_, StartFolder(), QtFilter());
  dialog.setObjectName(QStringLiteral("FileDialog"));
  if (mode == QStringLiteral("SAVE")) {
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // Whether to overwrite is the command's question, not the dialog's.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
  } else {
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
  }
  if (dialog.exec() != QDialog::Accepted) return {};
  const QStringList files = dialog.selectedFiles();
  return files.isEmpty() ? QString() : files.first();
}

}  // namespace velmora
