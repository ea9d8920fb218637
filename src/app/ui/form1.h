// Main window: the board, suit panels, puzzle fields and menus, wired to the commands.
#pragma once

#include <QAction>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/ui/play_clock.h"
#include "app/ui/timing_log.h"
#include "board/keeping.h"
#include "model/game_state.h"
#include "model/user_interface.h"

class QFrame;
class QKeyEvent;
class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;
class QTimer;

namespace velmora {

class BoardView;
class FNDialog;
class PrintJobs;
class PrintMenu;
class Form3;
class Form4;

class Form1 : public QMainWindow, public UserInterface {
  Q_OBJECT

 public:
  explicit Form1(QWidget* parent = nullptr);
  ~Form1() override;

  // Start-up with `appFolder` as the program's folder; the window is shown
  // by the caller afterwards.
  void StartUp(const std::string& appFolder);

  GameState& State() { return s_; }
  BoardView* Board() const { return board_; }
  // The create dialog, made on first use and kept, so its controls keep
  // their values for the rest of the run.
  Form3* CreateDialog();
  // True while a command that yields to window events (creating puzzles)
  // runs; every other command is refused meanwhile, except Cancel.
  bool LongCommandRunning() const { return longCommand_; }

  // Colours of the current scheme on every window, then a fresh board.
  void SetCol();

  // Writes start-up and placement times to stderr.
  void EnableTimingLog(QElapsedTimer sinceStart);

  // UserInterface
  void ShowMessage(const std::string& text) override;
  bool AskYesNo(const std::string& text) override;
  std::string AskFileName(const FileDialogRequest& request) override;
  std::string AskText(const std::string& prompt) override;
  void SetBusy(bool busy) override;
  void Yield() override;
  void ControlsChanged() override;
  void DrawBoard() override;
  void DrawCell(int rank, const std::string& suitLetter, int row, int col) override;
  void ShowSolutionOverlay() override;

 protected:
  // The close box ends the program without saving anything.
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  using Command = std::function<void(GameState&, UserInterface&)>;

  // What a menu entry runs: a command of the core, one of the window's own,
  // a dialog opened over this window, or a print command sent to the
  // printer. Not explicit, so that a row names its command directly.
  struct MenuCommand {
    constexpr MenuCommand() = default;
    constexpr MenuCommand(void (*f)(GameState&, UserInterface&)) : core(f) {}
    constexpr MenuCommand(void (Form1::*f)()) : window(f) {}
    constexpr MenuCommand(void (*f)(GameState&, UserInterface&, QWidget*)) : overWindow(f) {}
    constexpr MenuCommand(void (*f)(GameState&, UserInterface&, PrintJobs&)) : print(f) {}
    void (*core)(GameState&, UserInterface&) = nullptr;
    void (Form1::*window)() = nullptr;
    void (*overWindow)(GameState&, UserInterface&, QWidget*) = nullptr;
    void (*print)(GameState&, UserInterface&, PrintJobs&) = nullptr;
  };
  // What a row may add after its command: kYields when the command yields to
  // window events and runs as RunLong does, or the window's member that keeps
  // the entry's action.
  struct RowExtra {
    constexpr RowExtra() = default;
    constexpr RowExtra(bool y) : yields(y) {}
    constexpr RowExtra(QAction* Form1::*k) : keep(k) {}
    bool yields = false;
    QAction* Form1::*keep = nullptr;
  };
  // One menu entry: its menu's objectName and title ("parent/child" names and
  // titles for a submenu), its own objectName and
  // text (nullptr for a separator line), its command, and its RowExtra.
  struct MenuRow {
    const char* menu;
    const char* title;
    const char* name;
    const char* text;
    MenuCommand command;
    RowExtra extra = {};
  };
  static constexpr bool kYields = true;
  // The menus, one row per entry (form1_menus.cpp).
  static const MenuRow kMenuRows[];

  // The controls: each part lays out its widgets and wires them to commands.
  void BuildControls();
  QLayout* BuildTopRow(QWidget* parent);
  void BuildBoard(QWidget* parent);
  QLayout* BuildSidePanel(QWidget* parent);
  QLayout* BuildStatusLine(QWidget* parent);
  void BuildProgressPanel();
  void PlaceProgressPanel();
  void BuildHiddenButtons(QWidget* parent);
  // Every menu and menu entry is made here, from the table of MenuRows.
  void BuildMenus();
  // The Assist menu's check items and keys, and the keyboard on the board
  // and the suit panels; the check items as last kept.
  void BuildAssist();
  void LoadAssist();
  // Check items switched: kept in the settings file, and the board redrawn.
  void ApplyAids();
  // A key of keyboard play; true when it was one.
  bool AssistKey(QKeyEvent* event);
  bool eventFilter(QObject* watched, QEvent* event) override;
  // Scheme colour 2 for the cells, and a darker one for givens when marked.
  void SetBoardColors();
  QMenu* Menu(const QString& objectName, const QString& title);
  // `yields`: the command yields to window events and runs as RunLong does.
  QAction* AddCommand(QMenu* menu, const QString& objectName, const QString& text, Command command,
                      bool yields = false);
  QPushButton* Button(const QString& objectName, const QString& text, const QString& tip, Command command);

  void Run(const Command& command);
  // Runs a command that yields to window events: while it runs only the
  // progress panel's Cancel acts, and the other controls are disabled.
  void RunLong(const Command& command);
  void HoldControls(bool hold);
  void MultiplePuzzles();
  // The level of the hidden transformation button: the one the create
  // dialog shows, Random before it was first opened.
  int TransformLevel() const;
  void Exit();
  void ShowHelp();
  void ShowAbout();
  // Form2 over the window; its Apply presses the hidden kickinOptions button.
  void ShowOptions();
  void PrintPreview();
  void FillRemain(int list);
  void ShowSelection();
  // Colour 2 of the current scheme, as the cells are filled with it.
  QColor CellColor() const;

  // Keeping unfinished boards (form1_keeping.cpp). The store is opened in
  // the program's folder when Assist > "Keep Unfinished Boards" is on.
  void OpenKeeping(const std::string& appFolder);
  // Runs `act` between the keeper's Before and After (once, however nested).
  void Kept(const std::function<void()>& act);
  void KeepBoardsToggled();
  // The clock runs while the window is active and the shown puzzle unfinished.
  void ClockFollows();
  void ShowClock();
  void ResetPuzzle();
  void NextUnfinishedPuzzle();
  void ShowStatistics();
  QLabel* BuildClockLabel(QWidget* parent);

  GameState s_;
  BoardView* board_ = nullptr;
  std::array<QListWidget*, 4> remain_{};
  QLineEdit* puzNumNow_ = nullptr;
  QLabel* maxPuzCount_ = nullptr;
  QLineEdit* puzTitle_ = nullptr;
  QLabel* pb_ = nullptr;
  QLabel* label3_ = nullptr;
  QLabel* label4_ = nullptr;
  QFrame* frame1_ = nullptr;
  QLabel* newLab_ = nullptr;
  QPushButton* undoEdit_ = nullptr;
  // The Assist menu's entries, kept as the menus are built.
  QAction* hint_ = nullptr;
  QAction* redo_ = nullptr;
  QAction* shadeFits_ = nullptr;
  QAction* markGivens_ = nullptr;
  QAction* optionsInCells_ = nullptr;
  QPushButton* kickinOptions_ = nullptr;
  std::unique_ptr<PrintMenu> printMenu_;
  QPushButton* cmdexit_ = nullptr;
  QPushButton* cmdcancel_ = nullptr;
  std::array<QPushButton*, 3> arrows_{};
  FNDialog* gf1_ = nullptr;  // the file dialog of the file commands
  std::vector<QPushButton*> hiddenButtons_;
  QPointer<Form3> form3_;
  bool longCommand_ = false;
  bool closeAfterLong_ = false;  // the close box was pressed during a long command
  // What HoldControls disabled, to enable again afterwards.
  std::vector<QPointer<QAction>> heldActions_;
  std::vector<QPointer<QWidget>> heldWidgets_;
  QPointer<Form4> help_;
  QPointer<QWidget> about_;
  QColor systemButtonFace_;
  std::unique_ptr<PlayerStore> store_;
  std::unique_ptr<BoardKeeper> keeper_;
  KeeperEvent nextEvent_ = KeeperEvent::kCommand;  // what the running command did that the state cannot tell
  bool inKept_ = false;
  PlayClock clock_;
  QTimer* clockTick_ = nullptr;
  QLabel* playClock_ = nullptr;
  QAction* keepBoards_ = nullptr;
  bool busy_ = false;

  TimingLog timing_;
  int cellDraws_ = 0;  // cells painted so far: a click that paints one is timed
};

}  // namespace velmora
