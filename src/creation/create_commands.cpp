// Create-menu commands: one puzzle to play at once, or many puzzles into a file;
// and the hidden button that remakes every puzzle of the current file.
#include "creation/create_commands.h"

#include <array>
#include <vector>

#include "creation/transform.h"
#include "files/file_commands.h"
#include "files/puzzle_file.h"
#include "model/commands.h"
#include "model/text.h"

namespace velmora {
namespace {

constexpr const char* kAppendError = "Error apending puzzle to file: ";

// The puzzle shown, with its suit panels. The generator and the
// transformation work in the grids themselves; when the puzzle shown before
// cannot be read back, this puts it back so that the board and the state
// still agree.
struct ShownPuzzle {
  explicit ShownPuzzle(const GameState& s) : puzzle(s.puzzle), remain(s.view.Remain) {}

  void Restore(GameState& s, UserInterface& ui) const {
    s.puzzle = puzzle;
    s.view.Remain = remain;
    ui.DrawBoard();
    ui.ControlsChanged();
  }

  Puzzle puzzle;
  RemainLists remain;
};

// Shows puzzle `number` of `file` again, or, when it cannot be read (no
// puzzle was shown, or the file changed under us), the grids as they were.
void ShowAgain(GameState& s, UserInterface& ui, const std::string& file, int number,
               const ShownPuzzle& before) {
  if (!LoadPuzzle(s, ui, file, number)) before.Restore(s, ui);
}

// The end of One Puzzle and of "Display only": the new puzzle goes to the end
// of the temporary puzzle file, which becomes the current file, and is shown.
void ShowNewPuzzle(GameState& s, UserInterface& ui, int level, const ShownPuzzle& before) {
  const std::string title = AutomaticTitle(level, LocalTimeNow());
  const std::string previousFile = s.session.CurrentPuzzleFile;
  const std::string file = s.session.AppFolder + kTemporaryPuzzleFile;
  const int n = AppendPuzzleRecord(s.puzzle, file, title);
  const bool written = n > 0;
  if (written) {
    s.session.CurrentPuzzleFile = file;
    LoadPuzzle(s, ui, file, n);
  } else {
    ShowAgain(s, ui, previousFile, s.session.CurrentPuzzleNumber, before);
  }
  s.view.Frame1Visible = false;
  s.view.pb.clear();
  ui.ControlsChanged();
  ui.SetBusy(false);
  ui.ShowMessage(written ? "Done - " + std::string(LevelName(level)) : kAppendError + file);
}

void ClearCellOptions(Puzzle& p) {
  for (auto& row : p.CellOptions) row.fill(0);
}

// Text1 as a whole number of puzzles; not a number (or far too big) is 0.
int PuzzleCountOf(const std::string& text) {
  const auto n = ValInt(text);
  return n && *n > 0 ? *n : 0;
}

// Makes and appends the batch the dialog asked for, one puzzle at a time,
// until it is complete, cancelled or a write fails; returns how many were written.
int MakeBatch(GameState& s, UserInterface& ui, const Form3Values& form, int chosen) {
  const std::string outFile = form.FileNow;
  const int base = CountPuzzles(outFile);
  const int n = PuzzleCountOf(form.Text1);
  const bool ownTitle = !Trim(form.Text4).empty();
  int made = 0;
  for (int i = 1; i <= n; ++i) {
    ui.SetBusy(true);
    ui.Yield();
    if (s.session.CancelRequest == 1) break;
    const std::string ofN = Str(i) + " of" + Str(n);
    s.view.Caption = "New" + ofN;
    s.view.pb = " New" + ofN;
    s.view.NewLab = "Creating Puzzle" + ofN + kNewLine + "Output File: " + outFile;
    ui.ControlsChanged();
    s.puzzle.Cols = s.puzzle.Rows;
    int level = chosen;
    // A puzzle cut short by Cancel is written as it stands and counted; the
    // loop ends at the next check.
    CreatePuzzle(s.puzzle, s.session, ui, level);
    const std::string title = ownTitle ? form.Text4 : AutomaticTitle(level, LocalTimeNow());
    if (!WritePuzzleRecord(s.puzzle, outFile, base + i, title)) {
      ui.ShowMessage(kAppendError + outFile);
      break;
    }
    made = i;
  }
  return made;
}

}  // namespace

void mnunewrandpuzx(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s.session, ui)) return;
  const ShownPuzzle before(s);
  ui.SetBusy(true);
  int level = kLevelRandom;
  do {
    ClearCellOptions(s.puzzle);
    s.view.NewLab = "Creating New Puzzle...";
    s.view.pb = " This may take a bit of time...";
    s.view.Frame1Visible = true;
    ui.ControlsChanged();
    level = kLevelRandom;
  } while (CreatePuzzle(s.puzzle, s.session, ui, level) == 1);
  ShowNewPuzzle(s, ui, level, before);
}

void mnumultipuzx(GameState& s, UserInterface& ui, const Form3Values& form) {
  if (RefusedWhileSolving(s.session, ui)) return;
  if (!form.created) return;
  if (!form.Check1 && !IsTitleLine(form.Text4)) {
    ui.ShowMessage(kTitleRefusedText);
    return;
  }
  const ShownPuzzle before(s);
  ui.SetBusy(true);
  s.view.Frame1Visible = true;
  s.session.CancelRequest = 0;
  // A " Canceling..." left from the batch before would make Cancel ignore
  // a press before the first puzzle's label is up.
  s.view.NewLab.clear();
  ui.ControlsChanged();
  const int chosen = FindLevel(form.level) ? form.level : kLevelRandom;

  if (form.Check1) {
    s.view.NewLab = "Creating Puzzle";
    ui.ControlsChanged();
    // Made once: a cancel here shows whatever the generator left.
    int level = chosen;
    CreatePuzzle(s.puzzle, s.session, ui, level);
    ShowNewPuzzle(s, ui, level, before);
    return;
  }

  const int remembered = s.session.CurrentPuzzleNumber;
  const int made = MakeBatch(s, ui, form, chosen);

  ShowAgain(s, ui, s.session.CurrentPuzzleFile, remembered, before);
  s.session.CancelRequest = 0;
  s.view.Frame1Visible = false;
  s.view.pb = " Done";
  ui.ControlsChanged();
  ui.SetBusy(false);
  ui.ShowMessage(Str(made) + " new puzzles added to file:" + kNewLine + form.FileNow);
}

void cmdmakepuzzles(GameState& s, UserInterface& ui, int level) {
  if (RefusedWhileSolving(s.session, ui)) return;
  const ShownPuzzle before(s);
  ui.SetBusy(true);
  MakePuzzlesFromFile(s, ui, s.session.CurrentPuzzleFile, level);
  ShowAgain(s, ui, s.session.CurrentPuzzleFile, s.session.CurrentPuzzleNumber, before);
  ui.SetBusy(false);
}

}  // namespace velmora
