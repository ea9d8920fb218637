// Main window: the menus, built from one table.
#include <QMenuBar>

#include "app/ui/form1.h"
#include "board/aids.h"
#include "creation/create_commands.h"
#include "files/file_commands.h"
#include "files/ui/sort_form.h"
#include "model/commands.h"
#include "printing/ui/book_form.h"
#include "printing/ui/print_menu.h"

namespace velmora {

// One row per entry; menus come in the order of their first row. A row
// without an entry name is a separator line.
const Form1::MenuRow Form1::kMenuRows[] = {
    {"mnufile", "&File", "mnuloadpuz", "&Load", mnuloadpuz},
    {"mnufile", "&File", "mnusaveas", "&Copy", mnusaveas},
    {"mnufile", "&File", "mnusortpuz", "&Sort", mnusortpuz},
    {"mnufile", "&File", "mnuexportimage", "Export Puzzle &Image...", mnuexportimage},
    {"mnufile", "&File", nullptr, nullptr, {}},
    {"mnufile", "&File", "mnuexit", "E&xit", &Form1::Exit},
    {"mnupuzzle", "&Puzzle", "mnupuzreset", "&Reset", &Form1::ResetPuzzle},
    {"mnupuzzle", "&Puzzle", "mnusaveassli", "Sa&ve", mnusaveassli},
    {"mnupuzzle", "&Puzzle", "mnuappend", "&Append", mnuappend},
    {"mnupuzzle", "&Puzzle", "mnudelete", "&Delete", mnudelete},
    {"mnupuzzle", "&Puzzle", nullptr, nullptr, {}},
    {"mnupuzzle", "&Puzzle", "mnuviewsol", "Show &Solution", mnuviewsol},
    {"mnucreate", "&Create", "mnunewrandpuzx", "&One Puzzle", mnunewrandpuzx, kYields},
    {"mnucreate", "&Create", "mnumultipuzx", "&Multiple Puzzles", &Form1::MultiplePuzzles},
    {"mnusolve", "&Solve", "mnusolveall", "&AutoSolve", mnusolveall},
    {"mnusolve", "&Solve", "mnurestore", "&Restore", mnurestore},
    {"mnuprint/mnuprintcur", "P&rint/&Current", "mnuprintcurrentpuz", "&Puzzle", mnuprintcurrentpuz},
    {"mnuprint/mnuprintcur", "P&rint/&Current", "mnuprintcurrentsol", "&Solution", mnuprintcurrentsol},
    {"mnuprint/mnuprintcur", "P&rint/&Current", "mnuprintcurrent", "Puzzle &and Solution", mnuprintcurrent},
    {"mnuprint", "P&rint", "mnuprintfile", "Puzzle &File", mnuprintfile},
    {"mnuprint", "P&rint", "mnuprintbook", "Puzzle &Book...", mnuprintbook},
    {"mnuprint", "P&rint", "mnuprintpreview", "Print Pre&view", &Form1::PrintPreview},
    {"mnuoptionsmenu", "&Options", "mnuoptions", "&Colors and Size...", &Form1::ShowOptions},
    {"mnuassist", "&Assist", "mnuhint", "&Hint", mnuhint, &Form1::hint_},
    {"mnuassist", "&Assist", "mnuredo", "&Redo", mnuredo, &Form1::redo_},
    {"mnuassist", "&Assist", nullptr, nullptr, {}},
    {"mnuassist", "&Assist", "mnushadefits", "&Shade Where the Card Fits", &Form1::ApplyAids,
     &Form1::shadeFits_},
    {"mnuassist", "&Assist", "mnumarkgivens", "&Mark Givens", &Form1::ApplyAids, &Form1::markGivens_},
    {"mnuassist", "&Assist", "mnuoptionsincells", "Show &Options in Cells", &Form1::ApplyAids,
     &Form1::optionsInCells_},
    {"mnuassist", "&Assist", nullptr, nullptr, {}},
    {"mnuassist", "&Assist", "mnukeepboards", "&Keep Unfinished Boards", &Form1::KeepBoardsToggled,
     &Form1::keepBoards_},
    {"mnuassist", "&Assist", "mnunextunfinished", "&Next Unfinished", &Form1::NextUnfinishedPuzzle},
    {"mnuassist", "&Assist", "mnustatistics", "S&tatistics...", &Form1::ShowStatistics},
    {"mnuhelpmenu", "&Help", "mnuhelp", "&Help", &Form1::ShowHelp},
    {"mnuhelpmenu", "&Help", "mnuabout", "&About", &Form1::ShowAbout},
};

void Form1::BuildMenus() {
  for (const MenuRow& row : kMenuRows) {
    QMenu* menu = Menu(QString::fromLatin1(row.menu), tr(row.title));
    if (row.name == nullptr) {
      menu->addSeparator();
      continue;
    }
    Command command = row.command.core;
    if (const auto window = row.command.window) {
      command = [this, window](GameState&, UserInterface&) { (this->*window)(); };
    } else if (const auto dialog = row.command.overWindow) {
      command = [this, dialog](GameState& s, UserInterface& ui) { dialog(s, ui, this); };
    } else if (row.command.print) {
      command = printMenu_->Command(row.command.print);
    }
    QAction* action =
        AddCommand(menu, QString::fromLatin1(row.name), tr(row.text), std::move(command), row.extra.yields);
    if (row.extra.keep) this->*row.extra.keep = action;
  }
}

QMenu* Form1::Menu(const QString& objectName, const QString& title) {
  const qsizetype slash = objectName.lastIndexOf(QLatin1Char('/'));
  if (auto* existing = menuBar()->findChild<QMenu*>(objectName.mid(slash + 1))) return existing;
  QMenu* menu = nullptr;
  if (slash < 0) {
    menu = menuBar()->addMenu(title);
  } else {  // a submenu, made inside its parent
    const qsizetype titleSlash = title.lastIndexOf(QLatin1Char('/'));
    menu = Menu(objectName.left(slash), title.left(titleSlash))->addMenu(title.mid(titleSlash + 1));
  }
  menu->setObjectName(objectName.mid(slash + 1));
  return menu;
}

QAction* Form1::AddCommand(QMenu* menu, const QString& objectName, const QString& text, Command command,
                           bool yields) {
  QAction* action = menu->addAction(text);
  action->setObjectName(objectName);
  connect(action, &QAction::triggered, this, [this, command = std::move(command), yields] {
    if (yields) {
      RunLong(command);
    } else {
      Run(command);
    }
  });
  return action;
}

}  // namespace velmora
