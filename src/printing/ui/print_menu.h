// The Print menu on the desktop: its commands with the installed printers,
// Form5 and a PDF file where no printer is chosen, and the print preview.
#pragma once

#include <QString>
#include <functional>

#include "model/game_state.h"
#include "model/user_interface.h"
#include "printing/print_commands.h"

class QWidget;

namespace velmora {

class Form5;

using PrintCommand = void (*)(GameState&, UserInterface&, PrintJobs&);

// `command` as a menu command of `window`, printing on the current printer.
std::function<void(GameState&, UserInterface&)> DesktopPrint(QWidget* window, PrintCommand command);

// Print > "Print Preview": the page of "Puzzle and Solution" in a preview window.
void PrintPreview(GameState& s, UserInterface& ui, QWidget* window);

// `window`'s print-file dialog, made on first use and kept, so its controls
// and the current printer last for the run.
Form5* PrintDialogOf(QWidget* window);

}  // namespace velmora
