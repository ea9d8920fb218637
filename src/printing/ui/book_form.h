// Print > "Puzzle Book...": a range of a file laid out as a book, shown in a
// print preview, printed or written to a PDF file; and File > "Export Puzzle
// Image...".
#pragma once

#include <QDialog>
#include <QPageSize>
#include <optional>
#include <string>

#include "model/game_state.h"
#include "model/user_interface.h"
#include "printing/book.h"

class QComboBox;
class QLineEdit;
class QSpinBox;

namespace velmora {

class BookForm : public QDialog {
  Q_OBJECT

 public:
  BookForm(const GameState& s, UserInterface& ui, QWidget* parent);

 private:
  struct Book {
    BookChoice choice;
    BookContents contents;
  };
  // The book the fields describe, or nothing after saying what is wrong.
  std::optional<Book> Read();
  void Preview();
  void Print();
  void Pdf();
  void Done(const Book& book, const std::string& failure);
  QPageSize Paper() const;

  const GameState& s_;
  UserInterface& ui_;
  QLineEdit *file_, *from_, *to_, *title_;
  QComboBox *perPage_, *answers_, *paper_;
  QSpinBox* answersPerPage_;
};

// Print > "Puzzle Book...", modal over `mainWindow`.
void mnuprintbook(GameState& s, UserInterface& ui, QWidget* mainWindow);

// File > "Export Puzzle Image...": the puzzle shown (its givens) or its
// solution, as SVG or PNG by the name's ending.
void mnuexportimage(GameState& s, UserInterface& ui);

}  // namespace velmora
