// File and Puzzle menu commands, the arrow buttons and the typed puzzle number.
#include "files/file_commands.h"

#include <cmath>
#include <filesystem>
#include <system_error>

#include "board/play.h"
#include "files/puzzle_file.h"
#include "files/record_index.h"
#include "files/text_file.h"
#include "model/commands.h"
#include "model/text.h"

namespace velmora {
namespace {

constexpr const char* kOnlyOnePuzzle = "There is only one puzzle in this file";
// A record is at most a header, a title, a size line and its rows; the
// delete command gives up dropping lines after this many.
constexpr int kMaxDroppedLines = 100;

// Shows record n of the current file; when it cannot be loaded the view goes
// back to record `previous`.
void ShowRecord(GameState& s, UserInterface& ui, int n, int previous) {
  s.session.CurrentPuzzleNumber = n;
  if (!LoadPuzzle(s, ui, s.session.CurrentPuzzleFile, n)) {
    LoadPuzzle(s, ui, s.session.CurrentPuzzleFile, previous);
  }
}

bool IsHeader(const std::string& line) { return !line.empty() && line[0] == '#'; }

// A title that would not stay one title line is written rewritten; the title
// box shows it the way it is written.
void ShowWrittenTitle(GameState& s, UserInterface& ui) {
  if (IsTitleLine(s.view.PuzTitle)) return;
  s.view.PuzTitle = TitleLine(s.view.PuzTitle);
  ui.ControlsChanged();
}

}  // namespace

int ConfirmOverwrite(UserInterface& ui, const std::string& name) {
  if (FileLength(name) <= 0) return 1;  // absent, empty or not measurable
  return ui.AskYesNo("OverWrite file: " + name + " ?") ? 1 : 0;
}

std::string AskPuzzleFileName(const std::string& appFolder, UserInterface& ui, const std::string& mode) {
  std::error_code ec;
  const std::filesystem::path remembered = std::filesystem::current_path(ec);
  FileDialogRequest request;
  request.mode = mode;
  // Each command names its own dialog title, but the program's name is what
  // the dialog has always shown.
  request.title = "velmora";
  request.fileTypes = kPuzzleFileTypes;
  request.fileTypesName = kPuzzleFileTypesName;
  request.defaultDir = appFolder;
  std::string name = ui.AskFileName(request);
  if (!remembered.empty()) std::filesystem::current_path(remembered, ec);
  return name;
}

void OpenPuzzleFile(GameState& s, UserInterface& ui, const std::string& file) {
  ui.SetBusy(true);
  LoadPuzzle(s, ui, file, 1);
  // Even a failed load makes the file current, with the old board still on
  // show; the arrows then work on the new file.
  s.session.CurrentPuzzleFile = file;
  s.session.CurrentPuzzleNumber = 1;
  ui.SetBusy(false);
}

void mnuloadpuz(GameState& s, UserInterface& ui) {
  const std::string name = AskPuzzleFileName(s.session.AppFolder, ui, "OPEN");
  if (!name.empty()) OpenPuzzleFile(s, ui, name);
}

void mnusaveas(GameState& s, UserInterface& ui) {
  const std::string name = AskPuzzleFileName(s.session.AppFolder, ui, "SAVE");
  if (name.empty()) return;
  if (ConfirmOverwrite(ui, name) == 0) return;
  // Read first, then replace: a failed copy leaves the target as it was, and
  // copying a file onto itself keeps it.
  std::string contents;
  if (!ReadWholeFile(s.session.CurrentPuzzleFile, contents) || !WriteFileAtomically(name, contents)) {
    ui.ShowMessage(std::string("Error saving to file:") + kNewLine + name);
    return;
  }
  ui.ShowMessage(std::string("Puzzle file saved as:") + kNewLine + name);
}

void mnupuzreset(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s.session, ui)) return;
  if (!ui.AskYesNo("Reset puzzle from file?")) return;
  const double n = std::floor(Val(s.view.PuzNumNow));
  if (n >= 1 && n <= 2147483647.0) LoadPuzzle(s, ui, s.session.CurrentPuzzleFile, static_cast<int>(n));
}

void mnusaveassli(GameState& s, UserInterface& ui) {
  const std::string name = AskPuzzleFileName(s.session.AppFolder, ui, "SAVE");
  if (name.empty()) return;
  ShowWrittenTitle(s, ui);
  const int n = AppendPuzzleRecord(s.puzzle, name, s.view.PuzTitle);
  if (n == 0) {
    ui.ShowMessage(std::string("Error saving to file:") + kNewLine + name);
    return;
  }
  ui.ShowMessage("Puzzle number" + Str(n) + " added to file:" + kNewLine + name);
}

void mnuappend(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s.session, ui)) return;
  const std::string file = s.session.CurrentPuzzleFile;
  if (!ui.AskYesNo(std::string("Append current puzzle to file:") + kNewLine + file)) return;
  ShowWrittenTitle(s, ui);
  const int n = AppendPuzzleRecord(s.puzzle, file, s.view.PuzTitle);
  if (n == 0) {
    ui.ShowMessage("Error apending puzzle to file: " + file);
    return;
  }
  LoadPuzzle(s, ui, file, n);
  ui.SetBusy(false);
  ui.ShowMessage("Puzzle#" + NumText(n) + " appended to file " + file);
}

bool FileWithoutRecord(const std::string& file, int n, std::string& contents) {
  LineReader reader(file);
  if (!reader.IsOpen()) return false;
  contents.clear();
  auto write = [&contents](const std::string& line) {
    contents += line;
    contents += kNewLine;
  };
  int headers = 0;
  std::string line;
  while (reader.ReadLine(line)) {
    if (IsHeader(line) && ++headers == n) {
      // Drop the header and the lines after it up to the next header; the
      // later headers keep their numbers.
      bool more = false;
      for (int dropped = 0; dropped < kMaxDroppedLines; ++dropped) {
        more = reader.ReadLine(line);
        if (!more || IsHeader(line)) break;
      }
      if (!more) break;  // the file ended inside the dropped record
    }
    write(line);
  }
  return reader.error() == 0;  // a damaged file is left as it is
}

void mnudelete(GameState& s, UserInterface& ui) {
  if (RefusedWhileSolving(s.session, ui)) return;
  if (s.session.PuzzleCount < 2) {
    ui.ShowMessage(kOnlyOnePuzzle);
    return;
  }
  const std::string file = s.session.CurrentPuzzleFile;
  if (!ui.AskYesNo(std::string("Delete current puzzle from file:") + kNewLine + file)) return;
  const auto typed = ValInt(s.view.PuzNumNow);
  const int n = typed ? *typed : 0;
  // Locked from the count to the rename, so no other writer's records get lost.
  LockedFile locked(file, false);
  if (locked.ok() && CountPuzzles(locked.path()) == 1) {
    ui.ShowMessage(kOnlyOnePuzzle);
    return;
  }
  // The new contents are complete before anything is replaced, and the file
  // itself is swapped in one rename: a crash leaves the old or the new file.
  std::string contents;
  if (!locked.ok() || !locked.Replaceable() || !FileWithoutRecord(locked.path(), n, contents) ||
      !WriteWorkFile(kDeleteWorkFile, contents) || !locked.Replace(contents)) {
    ui.ShowMessage(std::string("Error saving to file:") + kNewLine + file);
    return;
  }
  IndexWritten(locked.Replaced(), contents);  // the reload need not read the file again
  LoadPuzzle(s, ui, file, n == 1 ? 1 : n - 1);
  ui.ShowMessage("Done");
}

void arrowsMouseUp(GameState& s, UserInterface& ui, int index, int button) {
  const int m = s.session.CurrentPuzzleNumber;
  if (m == 0 || (m == 1 && s.session.PuzzleCount == 1)) return;
  if (RefusedWhileSolving(s.session, ui)) return;
  s.session.PuzzleCount = CountPuzzles(s.session.CurrentPuzzleFile);
  const int count = s.session.PuzzleCount;
  int n = m;
  if (index == kArrowPrevious) {
    n = button == kRightButton ? 1 : (m - 1 < 1 ? count : m - 1);
  } else if (index == kArrowNext) {
    n = button == kRightButton ? count : (m >= count ? 1 : m + 1);
  } else if (index == kArrowRandom) {
    n = s.session.rng.Pick(count);
  } else {
    return;
  }
  ShowRecord(s, ui, n, m);
}

void PuzNumNowEnter(GameState& s, UserInterface& ui) {
  const auto typed = ValInt(s.view.PuzNumNow);
  s.session.PuzzleCount = CountPuzzles(s.session.CurrentPuzzleFile);
  if (!typed || *typed < 1 || *typed > s.session.PuzzleCount) return;  // the typed text stays
  ShowRecord(s, ui, *typed, s.session.CurrentPuzzleNumber);
}

}  // namespace velmora
