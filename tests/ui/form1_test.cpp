// The main window: start-up, colours, the arrows and the typed number, Load,
// Exit against the close box, help, the about box, File > Sort; the first
// start; and the per-user folder velmora-cli computes is the one Qt gives the
// desktop program.
#include <sys/stat.h>

#include "app/app_folder.h"
#include "app/ui/help_window.h"
#include "appearance/color_scheme.h"
#include "board/geometry.h"
#include "controls/ui/fndialog.h"
#include "files/ui/sort_form.h"
#include "model/hint.h"
#include "ui_support.h"

namespace velmora::test {
namespace {

TEST(Form1, ShowsTheRememberedPuzzleAndPaintsCellsInSchemeColourTwo) {
  Window win(2, "sand.col");
  EXPECT_EQ(win.Text("PuzNumNow") + win.Text("MaxPuzCount") + " " + win.Text("PuzTitle"), "2 of 3 Sample 2");
  EXPECT_EQ(win.w.windowTitle().toStdString(), "File: " + win.Puzzles());
  // Cells take scheme colour 2 as it stands when painted; the surface, which
  // shows around the board and inside empty cells, keeps the applied one.
  ASSERT_TRUE(win.s().puzzle.Grid[1][1] > 0 && win.s().puzzle.Grid[1][2] == 0);
  win.s().look.Scheme[kSchemeBackground] = Rgb(20, 160, 90);
  win.w.DrawBoard();
  EXPECT_EQ(win.Pixel(30 + 700, 30 + 100), QColor(20, 160, 90));
  EXPECT_EQ(win.Pixel(840 + 400, 30 + 300), QColor(243, 234, 214));
  EXPECT_EQ(win.Pixel(840, 30 + 400), QColor(Qt::black));  // the empty cell's outline
  EXPECT_EQ(win.Pixel(10, 10), QColor(243, 234, 214));
}

TEST(Form1, TheBoardGrowsAndShrinksWithTheWindowAndStillFindsItsCells) {
  Window win(2);
  BoardView* board = win.w.Board();
  const int natural = board->width();
  EXPECT_LT(win.w.minimumSizeHint().width(), win.w.width());
  win.w.resize(win.w.width() * 3, win.w.height() * 2);  // wider than tall: the board is centred
  QApplication::processEvents();
  EXPECT_GT(board->width(), natural * 3 / 2);
  // The pointer over the middle of cell 2 where the grown board shows it, and its outline there.
  const GameState& s = win.s();
  const QPointF centre = board->TwipsToPixels(QPointF(CellX(2) + 405, CellY(1) + 405));
  EXPECT_GT(centre.x(), 2 * natural * (CellX(2) + 405.0) / kPictureWidth * 0.9);
  QMouseEvent move(QEvent::MouseMove, centre, board->mapToGlobal(centre), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QApplication::sendEvent(board, &move);
  EXPECT_TRUE(win.Text("pb").startsWith(" Cell 2,")) << win.Text("pb").toStdString();
  const QPointF line = board->TwipsToPixels(QPointF(CellX(2) + 405, CellY(1)));
  EXPECT_EQ(board->grab().toImage().pixelColor(line.toPoint()), QColor(Qt::black));
  win.Trigger("mnuhint");  // its frame, drawn over the board, grown with it
  const Hint hint = FindHint(s.puzzle);
  const QPointF frame = board->TwipsToPixels(QPointF(CellX(hint.col) + 405, CellY(hint.row) + 30));
  EXPECT_EQ(board->grab().toImage().pixelColor(frame.toPoint()), QColor(230, 140, 0));
}

TEST(Form1, TheHelpPageTellsOfEveryMenuEntry) {
  Window win(1);
  std::string help;
  ReadWholeFile(std::string(VELMORA_DATA_DIR) + "/velmora.htm", help);
  for (QAction* action : win.w.menuBar()->findChildren<QAction*>()) {
    const std::string text = action->text().remove('&').remove("...").toStdString();
    EXPECT_TRUE(text.empty() || !action->isVisible() || help.find(text) != std::string::npos) << text;
  }
}

TEST(Form1, ArrowsAndTheTypedNumber) {
  Window win(2);
  // From the first record each press lands on a different one if the arrows or buttons were swapped.
  Click(win.Get("arrows0"), Qt::RightButton);
  QStringList shown;
  for (const std::string press : {"arrows1L", "arrows0R", "arrows1R", "arrows0L"}) {
    Click(win.Get(press.substr(0, 7).c_str()), press[7] == 'L' ? Qt::LeftButton : Qt::RightButton);
    shown << win.Text("PuzNumNow");
  }
  EXPECT_EQ(shown, (QStringList{"2", "1", "3", "2"}));
  auto* number = win.Get<QLineEdit>("PuzNumNow");
  number->selectAll();
  Key(number, Qt::Key_3, "3");
  EXPECT_EQ(win.s().session.CurrentPuzzleNumber, 2);  // typing alone does not jump
  Key(number, Qt::Key_Return);
  EXPECT_EQ(win.Text("PuzTitle"), "Sample 3");
}

TEST(Form1, LoadAsksInTheProgramFolderHelpExplainsEveryMenuCommandAboutNamesTheFolder) {
  Window win(2);
  win.hand.names = {win.Puzzles()};
  win.Trigger("mnuloadpuz");
  EXPECT_EQ(win.hand.fileDialogs, std::vector<std::string>{"velmora|velmora Files (*.vlm *.txt *.dat)|" +
                                                           win.dir.path() + "|OPEN"});
  EXPECT_EQ(win.Text("PuzTitle"), "Sample 1");  // the file loaded at its first puzzle
  win.Trigger("mnuhelp");
  const QString page = win.Get<Form4>("Form4")->Browser()->toPlainText();
  for (QAction* top : win.w.menuBar()->actions()) {
    for (QAction* a : top->menu()->actions())
      EXPECT_TRUE(a->isSeparator() || page.contains(a->text().remove('&'))) << a->text().toStdString();
  }
  win.Trigger("mnuabout");
  EXPECT_EQ(win.Get<QLabel>("AppFolder")->text().toStdString(), "Folder: " + win.s().session.AppFolder);
}

TEST(Form1Exit, NoKeepsRunningYesSavesCloseBoxDoesNot) {
  Window win(2);
  const std::string before = win.Config();
  win.s().session.CurrentPuzzleNumber = 3;  // what a save would write
  win.hand.answers = {QMessageBox::No};
  win.Get<QPushButton>("cmdexit")->click();
  EXPECT_TRUE(win.w.isVisible());
  win.w.close();  // the close box: no question, nothing written
  EXPECT_FALSE(win.w.isVisible());
  EXPECT_EQ(win.hand.texts, std::vector<std::string>{"Exit?"});
  EXPECT_EQ(win.Config(), before);
  win.w.show();
  win.hand.answers = {QMessageBox::Yes};
  win.Trigger("mnuexit");
  EXPECT_FALSE(win.w.isVisible());
  EXPECT_NE(win.Config().find("\r\ndefault.col\r\n" + win.Puzzles() + "\r\n 3 \r\n"), std::string::npos);
}

// A pipe named velmora.ini, which earlier versions waited on for ever, is
// passed over: the window starts, and the Assist items work for the session.
TEST(Form1, StartsPastAPipeNamedVelmoraIniAndLeavesIt) {
  Window win(2, "default.col", [](const TempDir& dir) { ::mkfifo(dir.File("velmora.ini").c_str(), 0600); });
  win.Trigger("mnushadefits");
  EXPECT_TRUE(win.Get<QAction>("mnushadefits")->isChecked());
  EXPECT_TRUE(std::filesystem::is_fifo(win.dir.File("velmora.ini")));
  EXPECT_TRUE(win.hand.texts.empty());
}

TEST(AppFolder, PerUserFolderIsQtsAppDataLocation) {
  const QString oldName = QCoreApplication::applicationName();
  QCoreApplication::setApplicationName(QString::fromLatin1(kApplicationName));
  using Env = std::pair<std::optional<std::string>, std::string>;  // XDG_DATA_HOME, HOME
  for (const auto& [xdgValue, homeValue] :
       {Env{"/data/x", "/home/ann"}, Env{std::nullopt, "//home//ann/./b/../"}, Env{std::nullopt, ""}}) {
    ScopedEnv xdg("XDG_DATA_HOME", xdgValue), home("HOME", homeValue);
    const QString qt = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/";
    EXPECT_EQ(PerUserFolder(), qt.toStdString()) << xdgValue.value_or("(unset)") << " " << homeValue;
  }
  QCoreApplication::setApplicationName(oldName);
}

TEST(Form1, TheFirstStartShowsPuzzleOneAFolderWithoutConfigurationTheFirstRunMessage) {
  TempDir root, home;
  for (const char* folder : {"bin", "share"}) std::filesystem::create_directories(root.File(folder));
  std::filesystem::create_directory_symlink(VELMORA_DATA_DIR, root.File("share/velmora"));  // installed
  ScopedEnv xdg("XDG_DATA_HOME", std::nullopt), emptyHome("HOME", home.path());
  const auto start = [&](const std::string& folderOption) {  // the folder, messages, puzzle shown
    const std::string app = SetUpProgramFolders(folderOption, root.File("bin")).app;
    DialogHand hand;
    Form1 w;
    w.StartUp(app);
    return app + " " + std::to_string(hand.texts.size()) + ":" +
           Child<QLineEdit>(&w, "PuzNumNow")->text().toStdString();
  };
  const std::string perUser = home.File(".local/share/Velmora/");
  EXPECT_EQ(start(""), perUser + " 0:1");
  // The configuration deleted by the person is really missing, with or without --folder.
  for (const std::string& folderOption : {std::string(), perUser}) {
    std::filesystem::remove(perUser + "velmora.cfg");
    EXPECT_EQ(start(folderOption), perUser + " 1:");
  }
}

TEST(SortDialog, ProposesTheSortedNameAndSortsWithTheChosenKeyAndOrder) {
  Window win(1);
  const QString out = QString::fromStdString(win.dir.File("puzzles_sorted.vlm"));
  QString proposed;
  OnceOn<SortForm> hand([&](SortForm* f) {
    ExpectLaidOut(f);
    auto* output = Child<FNDialog>(f, "gf1");
    proposed = output->Text() + "|" + output->toolTip();
    Child<QRadioButton>(f, "Option5")->click();
    Child<QRadioButton>(f, "Option2")->click();
    Key(f, Qt::Key_Return);  // Sort is the default button; then Exit
    Press(f, "Command2");
  });
  win.Trigger("mnusortpuz");
  EXPECT_EQ(proposed, out + "|" + out);
  EXPECT_EQ(Headers(win.dir.Read("puzzles_sorted.vlm")), (std::vector<std::string>{"#3", "#2", "#1"}));
}

}  // namespace
}  // namespace velmora::test
