// File-name box: a text field with a "..." button that opens the open-file or
// save-file dialog; the owner decides when, through the Browse signal.
#pragma once

#include <QString>
#include <QWidget>

class QLineEdit;
class QPushButton;

namespace velmora {

class FNDialog : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString FileTypes READ FileTypes WRITE SetFileTypes)
  Q_PROPERTY(QString FileTypesName READ FileTypesName WRITE SetFileTypesName)
  Q_PROPERTY(QString Title READ Title WRITE SetTitle)
  Q_PROPERTY(QString DefaultDir READ DefaultDir WRITE SetDefaultDir)
  Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)

 public:
  explicit FNDialog(QWidget* parent = nullptr);

  QString Text() const;
  void SetText(const QString& text);

  QString FileTypes() const { return fileTypes_; }
  void SetFileTypes(const QString& types) { fileTypes_ = types; }
  QString FileTypesName() const { return fileTypesName_; }
  void SetFileTypesName(const QString& name) { fileTypesName_ = name; }
  QString Title() const { return title_; }
  void SetTitle(const QString& title) { title_ = title; }
  QString DefaultDir() const { return defaultDir_; }
  void SetDefaultDir(const QString& dir) { defaultDir_ = dir; }
  // The browse button's caption, "..." unless changed.
  QString Caption() const;
  void SetCaption(const QString& caption);

  // The filter as the person reads it: FileTypesName (FileTypes).
  QString Filter() const;
  // The same filter for Qt, which separates patterns with blanks.
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
  QPushButton* command1_;
  QString fileTypes_, fileTypesName_, title_, defaultDir_;
};

}  // namespace velmora
