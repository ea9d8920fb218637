// File-name box: a text field with a "..." button that opens the open-file or
// save-file dialog; the owner decides when, through the Browse signal.
#pragma once

#include <QString>
#include <QWidget>

class QLineEdit;

namespace velmora {

class FNDialog : public QWidget {
  Q_OBJECT

 public:
  explicit FNDialog(QWidget* parent = nullptr);

  QString Text() const;
  void SetText(const QString& text);
  // The text field, for an owner that names it, follows its edits or shows
  // a field of its own instead.
  QLineEdit* Field() const { return text_; }

  void SetFileTypes(const QString& types) { fileTypes_ = types; }
  void SetFileTypesName(const QString& name) { fileTypesName_ = name; }
  void SetTitle(const QString& title) { title_ = title; }
  void SetDefaultDir(const QString& dir) { defaultDir_ = dir; }
  // The puzzle files' filter and `title`: the set-up of every puzzle-file box.
  void ForPuzzleFiles(const QString& title);

  // The filter for Qt: FileTypesName (FileTypes), patterns separated by blanks.
  QString QtFilter() const;
  // The starting folder with a "/" at its end.
  QString StartFolder() const;

  // "SAVE" shows the save dialog; "OPEN" or anything else the open dialog,
  // which only accepts existing files. The chosen full name, "" on cancel.
  QString ShowFileDialog(const QString& mode);

 signals:
  void Browse();

 private:
  QLineEdit* text_;
  QString fileTypes_, fileTypesName_, title_, defaultDir_;
};

}  // namespace velmora
