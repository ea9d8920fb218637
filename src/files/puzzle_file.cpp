// Reading and writing puzzle records.
#include "files/puzzle_file.h"

#include <cerrno>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "files/record_index.h"
#include "model/hint.h"
#include "model/rules.h"
#include "model/text.h"

namespace velmora {
namespace {

// A step that would index outside a table or read past a line: the load's
// failure exit.
struct LoadError {};

int32_t& Cell(Board<int32_t>& board, int row, int col) {
  if (row < 0 || row > kMaxIndex || col < 0 || col > kMaxIndex) throw LoadError{};
  return board[row][col];
}

int CharCode(const std::string& line, long long position) {  // 1-based position
  if (position < 1 || position > static_cast<long long>(line.size())) throw LoadError{};
  return static_cast<unsigned char>(line[static_cast<size_t>(position - 1)]);
}

std::string NextLine(LineReader& reader) {
  std::string line;
  if (!reader.ReadLine(line)) throw LoadError{};
  return line;
}

int32_t SizeField(const std::string& field) {
  const auto v = ValInt(field);
  if (!v) throw LoadError{};
  return *v;
}

// Puts the reader on the size line of record n, with the record's title read,
// as reading from the top would: false when the file ends before record n,
// and a failed load when it ends between a header and its title.
bool SeekRecord(LineReader& reader, int n, std::string& title) {
  const auto index = IndexRecords(reader);
  if (!index->complete) throw LoadError{};
  const auto& titles = index->titles;
  if (n >= 1 && static_cast<size_t>(n) <= titles.size()) {
    if (!reader.Seek(titles[static_cast<size_t>(n) - 1])) throw LoadError{};
    title = NextLine(reader);
    return true;
  }
  // Reading to the end passed every title; the last one is what stays read.
  std::string last;
  if (!titles.empty() && reader.Seek(titles.back()) && reader.ReadLine(last)) title = last;
  if (index->titleMissing) throw LoadError{};
  return false;
}

}  // namespace

int CountPuzzles(const std::string& file, int* error) {
  LineReader reader(file);
  const auto index = reader.IsOpen() ? IndexRecords(reader) : nullptr;
  const bool whole = index && index->complete;
  if (error) *error = whole ? 0 : (reader.error() != 0 ? reader.error() : EIO);
  return whole ? index->headerLines : 0;
}

namespace {

// The size line and the grids of the record the reader stands on. What it
// read before a failure stays in the puzzle.
void ReadGrids(Puzzle& p, LineReader& reader) {
  p.Notes = {};
  const std::string size = NextLine(reader);
  const size_t comma = size.find(',');
  if (comma == std::string::npos) throw LoadError{};  // the size line has no second field
  const size_t comma2 = size.find(',', comma + 1);
  p.Rows = SizeField(size.substr(0, comma));
  p.Cols =
      SizeField(size.substr(comma + 1, comma2 == std::string::npos ? std::string::npos : comma2 - comma - 1));
  for (long long r = 1; r <= p.Rows; ++r) {
    const std::string row = NextLine(reader);
    const size_t bar = row.find('|');
    const long long at = bar == std::string::npos ? 0 : static_cast<long long>(bar) + 1;
    const int ri = r > kMaxIndex ? kGridDim : static_cast<int>(r);
    if (at > 1) {
      for (long long c = 1; c <= p.Cols; ++c) {
        const int ci = c > kMaxIndex ? kGridDim : static_cast<int>(c);
        Cell(p.SolutionGrid, ri, ci) = CharCode(row, at + c) - 64;
      }
    }
    for (long long c = 1; c <= p.Cols; ++c) {
      const int ci = c > kMaxIndex ? kGridDim : static_cast<int>(c);
      const int v = CharCode(row, c) - 64;
      Cell(p.Grid, ri, ci) = v;
      Cell(p.PuzzleGrid, ri, ci) = v;
      p.CellOptions[ri][ci] = 0;
    }
  }
}

// The window's texts for record n of `file`, loaded.
void ShowLoaded(GameState& s, const std::string& file, int n, const std::string& title) {
  s.session.CurrentPuzzleNumber = n;
  s.view.PuzNumNow = NumText(n);
  s.session.PuzzleCount = CountPuzzles(file);
  s.view.MaxPuzCount = " of" + Str(s.session.PuzzleCount);
  s.view.PuzTitle = title;
  s.view.Caption = "File: " + file;
}

// The options and the card codes of the grids just read.
void Prepare(Puzzle& p, RemainLists& lists) {
  if (!RebuildCardCodes(p) || !UpdateOptions(p, lists)) throw LoadError{};
  p.CellOptionsSaved = p.CellOptions;
}

}  // namespace

std::optional<std::string> ReadPuzzle(Puzzle& p, RemainLists& lists, const std::string& file, int n) {
  try {
    LineReader reader(file);
    if (!reader.IsOpen()) return std::nullopt;
    std::string title;
    if (!SeekRecord(reader, n, title)) return std::nullopt;
    ReadGrids(p, reader);
    Prepare(p, lists);
    return title;
  } catch (const LoadError&) {
    return std::nullopt;
  }
}

bool LoadPuzzle(GameState& s, UserInterface& ui, const std::string& file, int n, Draw draw) {
  ui.SetBusy(true);
  try {
    LineReader reader(file);
    if (!reader.IsOpen()) throw LoadError{};
    std::string title;
    if (!SeekRecord(reader, n, title)) {
      ui.SetBusy(false);
      return false;
    }
    ReadGrids(s.puzzle, reader);
    // The window shows the record's number and title before its cards.
    ShowLoaded(s, file, n, title);
    ui.ControlsChanged();
    Prepare(s.puzzle, s.view.Remain);
    if (draw == Draw::kBoard) ui.DrawBoard();
    s.session.Solving = 0;
    s.session.SelectedCard.clear();
    // The keyboard cursor and a hint belonged to the board that was shown.
    EndHint(s.session.aids, s.view);
    s.session.aids.cursorRow = s.session.aids.cursorCol = 0;
    s.session.aids.pendingRank = 0;
    ++s.session.LoadCount;
    ui.ControlsChanged();
    ui.SetBusy(false);
    return true;
  } catch (const LoadError&) {
    ui.SetBusy(false);
    s.session.Solving = 0;
    return false;
  }
}

std::string PuzzleRecordText(const Puzzle& p, int number, const std::string& title) {
  std::vector<std::string> lines;
  std::string header = "#";
  header += NumText(number == 0 ? 1 : number);
  lines.push_back(std::move(header));
  lines.push_back(TitleLine(title));
  lines.push_back(Str(p.Rows) + "," + Str(p.Cols) + "," + Str(CountBlanks(p)));
  if (p.Rows > kMaxIndex || p.Cols > kMaxIndex) return {};  // no such grid cells
  auto letter = [](int v, std::string& out) {
    if (v + 64 < 0 || v + 64 > 255) return false;
    out += static_cast<char>(v + 64);
    return true;
  };
  for (int r = 1; r <= p.Rows; ++r) {
    std::string puzzle, solution;
    for (int c = 1; c <= LoopCols(p); ++c) {
      if (p.Grid[r][c] <= 0) {
        puzzle += '@';
      } else if (!letter(p.SolutionGrid[r][c], puzzle)) {
        return {};
      }
      if (!letter(p.SolutionGrid[r][c], solution)) return {};
    }
    lines.push_back(puzzle + "|" + solution);
  }
  return JoinLines(lines);
}

bool WritePuzzleRecord(const Puzzle& p, const std::string& file, int number, const std::string& title) {
  const std::string text = PuzzleRecordText(p, number, title);
  if (text.empty()) return false;
  return number != 0 ? AppendToFile(file, text) : WriteFileAtomically(file, text);
}

int AppendPuzzleRecord(const Puzzle& p, const std::string& file, const std::string& title) {
  LockedFile locked(file, true);
  const FileStamp before = locked.Stamp();
  // A damaged file has no count to number the record from.
  int error = 0;
  const int count = locked.Exists() ? CountPuzzles(locked.path(), &error) : 0;
  const int n = locked.ok() && error == 0 ? count + 1 : 0;
  const std::string text = n > 0 ? PuzzleRecordText(p, n, title) : std::string();
  if (text.empty() || !locked.Append(text)) return 0;
  IndexAppended(before, locked.Stamp(), text);
  return n;
}

std::string TitleLine(const std::string& title) {
  std::string line = title;
  for (char& c : line) {
    if (c == '\r' || c == '\n') c = ' ';
  }
  return line.empty() || line[0] != '#' ? line : " " + line;
}

bool IsTitleLine(const std::string& title) { return TitleLine(title) == title; }

int CountBlanks(const Puzzle& p) {
  int blanks = 0;
  for (int r = 1; r <= LoopRows(p); ++r) {
    for (int c = 1; c <= LoopCols(p); ++c) blanks += p.Grid[r][c] == 0;
  }
  return blanks;
}

}  // namespace velmora
