// Main window: the menus, built from one table.
#include <QMenuBar>

#include "app/ui/form1.h"
#include "creation/create_commands.h"
#include "files/file_commands.h"
#include "model/commands.h"

namespace velmora {

void Form1::BuildMenus() {
  // One row per entry; menus come in the order of their first row. A row
  // without an entry name is a separator line.
  static const MenuRow kMenuRows[] = {
      {"mnufile", "&File", "mnuloadpuz", "&Load", mnuloadpuz},
      {"mnufile", "&File", "mnusaveas", "&Copy", mnusaveas},
      {"mnufile", "&File", nullptr, nullptr, {}},
      {"mnufile", "&File", "mnuexit", "E&xit", &Form1::Exit},
      {"mnupuzzle", "&Puzzle", "mnupuzreset", "&Reset", mnupuzreset},
      {"mnupuzzle", "&Puzzle", "mnusaveassli", "Sa&ve", mnusaveassli},
      {"mnupuzzle", "&Puzzle", "mnuappend", "&Append", mnuappend},
      {"mnupuzzle", "&Puzzle", "mnudelete", "&Delete", mnudelete},
      {"mnupuzzle", "&Puzzle", nullptr, nullptr, {}},
      {"mnupuzzle", "&Puzzle", "mnuviewsol", "Show &Solution", mnuviewsol},
      {"mnucreate", "&Create", "mnunewrandpuzx", "&One Puzzle", mnunewrandpuzx, kYields},
      {"mnucreate", "&Create", "mnumultipuzx", "&Multiple Puzzles", &Form1::MultiplePuzzles},
      {"mnusolve", "&Solve", "mnusolveall", "&AutoSolve", mnusolveall},
      {"mnusolve", "&Solve", "mnurestore", "&Restore", mnurestore},
      {"mnuhelpmenu", "&Help", "mnuhelp", "&Help", &Form1::ShowHelp},
      {"mnuhelpmenu", "&Help", "mnuabout", "&About", &Form1::ShowAbout},
  };
  for (const MenuRow& row : kMenuRows) {
    QMenu* menu = Menu(QString::fromLatin1(row.menu), tr(row.title));
    if (row.name == nullptr) {
      menu->addSeparator();
      continue;
    }
    Command command = row.command.core;
    if (const auto window = row.command.window) {
      command = [this, window](GameState&, UserInterface&) { (this->*window)(); };
    }
    AddCommand(menu, QString::fromLatin1(row.name), tr(row.text), std::move(command), row.yields);
  }
}

QMenu* Form1::Menu(const QString& objectName, const QString& title) {
  if (auto* existing = menuBar()->findChild<QMenu*>(objectName)) return existing;
  QMenu* menu = menuBar()->addMenu(title);
  menu->setObjectName(objectName);
  return menu;
}

void Form1::AddCommand(QMenu* menu, const QString& objectName, const QString& text, Command command,
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
}

}  // namespace velmora
