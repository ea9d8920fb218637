// Batch transformation: every record of a numeric-form puzzle file made into
// a new puzzle from its solution, written to the "_new" file beside it.
#include "creation/transform.h"

#include "board/geometry.h"
#include "creation/generator.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/text.h"

namespace velmora {
namespace {

// A missing line or a cell outside the grids: the run's "error?".
struct TransformError {};

std::string NextLine(LineReader& in) {
  std::string line;
  if (!in.ReadLine(line)) throw TransformError{};
  return line;
}

// The lenient value of one character: a digit, else 0.
int DigitValue(const std::string& line, size_t position) {
  if (position >= line.size()) return 0;
  const char c = line[position];
  return c >= '0' && c <= '9' ? c - '0' : 0;
}

void ReadRecord(Puzzle& p, LineReader& in) {
  for (int i = 0; i < 3; ++i) NextLine(in);  // header, title, size line
  for (int r = 1; r <= p.Rows; ++r) {
    const std::string line = NextLine(in);
    const size_t bar = line.find('|');
    if (bar == std::string::npos) continue;  // the row keeps what it held
    for (int c = 1; c <= p.Cols; ++c) {
      if (r > kMaxIndex || c > kMaxIndex) throw TransformError{};
      p.SolutionGrid[r][c] = p.Grid[r][c] = DigitValue(line, bar + static_cast<size_t>(c));
    }
  }
}

std::string RecordText(const Puzzle& p, int count) {
  std::vector<std::string> lines{"#" + NumText(count), "Created:" + DateTimeText(LocalTimeNow()),
                                 Str(p.Rows) + "," + Str(p.Cols) + "," + Str(CountBlanks(p))};
  for (int r = 1; r <= LoopRows(p); ++r) {
    std::string puzzle, solution;
    for (int c = 1; c <= LoopCols(p); ++c) {
      puzzle += p.Grid[r][c] <= 0 ? std::string(".") : NumText(p.Grid[r][c]);
      solution += NumText(p.SolutionGrid[r][c]);
    }
    lines.push_back(puzzle + "|" + solution);
  }
  return JoinLines(lines);
}

}  // namespace

std::string TransformedFileName(const std::string& file) {
  const size_t slash = file.find_last_of("/\\");
  const size_t dot = file.rfind('.');
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return file + "_new";
  return file.substr(0, dot) + "_new" + file.substr(dot);
}

TransformOutcome MakePuzzlesFromFile(GameState& s, UserInterface& ui, const std::string& file,
                                     int& difficulty) {
  const std::string output = TransformedFileName(file);
  LineReader in(file);
  if (!in.IsOpen()) {
    ui.ShowMessage("error?");
    return {0, true};
  }
  // The records are collected and the output replaced in one step, so a run
  // that dies leaves the old output whole; an error still writes what is made.
  std::string made;
  int count = 0;
  bool failed = false;
  try {
    while (!in.AtEnd()) {
      ReadRecord(s.puzzle, in);
      if (!RemoveGivens(s.puzzle, s.session, ui, difficulty)) throw TransformError{};
      ++count;
      s.view.Label3 = NumText(count);
      ui.ControlsChanged();
      made += RecordText(s.puzzle, count);
    }
  } catch (const TransformError&) {
    failed = true;
  }
  if (!WriteFileAtomically(output, made)) failed = true;
  ui.ShowMessage(failed ? "error?" : Str(count) + " puzzles made");
  return {count, failed};
}

}  // namespace velmora
