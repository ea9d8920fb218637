// File-name box: a text field with a "..." button over QFileDialog.
#include "controls/ui/fndialog.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace velmora {

FNDialog::FNDialog(QWidget* parent) : QWidget(parent) {
  text_ = new QLineEdit(this);
  text_->setObjectName(QStringLiteral("Text"));
  command1_ = new QPushButton(QStringLiteral("..."), this);
  command1_->setObjectName(QStringLiteral("Command1"));
  command1_->setAutoDefault(false);
  command1_->setFixedWidth(command1_->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(text_, 1);
  layout->addWidget(command1_);
  connect(command1_, &QPushButton::clicked, this, &FNDialog::Browse);
}

QString FNDialog::Text() const { return text_->text(); }
void FNDialog::SetText(const QString& text) { text_->setText(text); }

QString FNDialog::Caption() const { return command1_->text(); }
void FNDialog::SetCaption(const QString& caption) { command1_->setText(caption); }

QString FNDialog::Filter() const {
  return fileTypesName_ + QStringLiteral(" (") + fileTypes_ + QStringLiteral(")");
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
