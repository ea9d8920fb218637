// The Print menu on the desktop: its commands with the installed printers,
// Form5 and a PDF file where no printer is chosen, and the print preview.
#pragma once

#include <QPointer>
#include <functional>

#include "model/game_state.h"
#include "model/user_interface.h"
#include "printing/print_commands.h"
#include "printing/ui/printer_choice.h"

class QWidget;

namespace velmora {

class Form5;

using PrintCommand = void (*)(GameState&, UserInterface&, PrintJobs&);

// The Print menu of a window: the current printer and the print-file dialog,
// which is made on first use and kept, so its controls and the printer last
// for the run.
class PrintMenu {
 public:
  explicit PrintMenu(QWidget* window) : window_(window) {}

  // `command` as a menu command, printing on the current printer.
  std::function<void(GameState&, UserInterface&)> Command(PrintCommand command);
  // Print > "Print Preview": the page of "Puzzle and Solution" in a preview window.
  void Preview(const GameState& s);

 private:
  Form5& Dialog();

  QWidget* window_;
  PrinterChoice printer_;
  QPointer<Form5> form5_;
};

}  // namespace velmora
