// The undo list of mouse changes and the grid snapshot taken before AutoSolve.
#include "model/undo.h"

#include <string_view>
#include <vector>

#include "model/hint.h"
#include "model/rules.h"
#include "model/text.h"

namespace velmora {
namespace {

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  size_t start = 0;
  for (size_t i = 0; i <= text.size(); ++i) {
    if (i == text.size() || text[i] == separator) {
      parts.push_back(text.substr(start, i - start));
      start = i + 1;
    }
  }
  return parts;
}

bool OnBoardArrays(int row, int col) { return row >= 0 && row <= kMaxIndex && col >= 0 && col <= kMaxIndex; }

constexpr int kAllRanks = (1 << 13) - 1;

}  // namespace

std::string UndoEntry(int row, int col, int value) { return Str(row) + "," + Str(col) + "," + Str(value); }

std::string NoteUndoEntry(int row, int col, int notes) {
  return std::string(kNoteUndoPrefix) + UndoEntry(row, col, notes);
}

void PushUndo(const Puzzle& p, Session& session, WindowTexts& view, int row, int col) {
  if (!OnBoardArrays(row, col)) return;
  session.UndoList.push_front(UndoEntry(row, col, p.Grid[row][col]));
  session.aids.RedoList.clear();  // a new change ends what could be redone
  EndHint(session.aids, view);
}

void UndoLast(GameState& s, UserInterface& ui) {
  if (s.session.UndoList.empty()) return;
  EndHint(s.session.aids, s.view);
  std::string_view entry = s.session.UndoList.front();
  const bool note = entry.starts_with(kNoteUndoPrefix);
  if (note) entry.remove_prefix(kNoteUndoPrefix.size());
  const auto parts = Split(entry, ',');
  const int row = parts.size() >= 3 ? ValInt(parts[0]).value_or(-1) : -1;
  const int col = parts.size() >= 3 ? ValInt(parts[1]).value_or(-1) : -1;
  // An entry that names no cell is dropped without a change.
  if (note && OnBoardArrays(row, col)) {
    s.session.aids.RedoList.push_back({row, col, s.puzzle.Notes[row][col], true});
    s.puzzle.Notes[row][col] = static_cast<uint16_t>(ValInt(parts[2]).value_or(0) & kAllRanks);
  } else if (OnBoardArrays(row, col)) {
    s.session.aids.RedoList.push_back({row, col, s.puzzle.Grid[row][col]});
    s.puzzle.Grid[row][col] = ValInt(parts[2]).value_or(0);
    s.puzzle.CellOptions[row][col] = 0;
    UpdateOptions(s.puzzle, s.view.Remain);
    ui.DrawCell(-1, "", row, col);
  }
  s.session.SelectedCard.clear();
  s.session.UndoList.pop_front();
  ui.ControlsChanged();
}

void RedoLast(GameState& s, UserInterface& ui) {
  if (s.session.aids.RedoList.empty()) return;
  EndHint(s.session.aids, s.view);
  const PlayAids::Change change = s.session.aids.RedoList.back();
  s.session.aids.RedoList.pop_back();
  const int row = change.row, col = change.col, value = change.value;
  if (change.note) {
    s.session.UndoList.push_front(NoteUndoEntry(row, col, s.puzzle.Notes[row][col]));
    s.puzzle.Notes[row][col] = static_cast<uint16_t>(value & kAllRanks);
    ui.ControlsChanged();
    return;
  }
  // Not PushUndo: that would end the rest of the redo list.
  s.session.UndoList.push_front(UndoEntry(row, col, s.puzzle.Grid[row][col]));
  s.puzzle.Grid[row][col] = value;
  s.puzzle.CellOptions[row][col] = 0;
  UpdateOptions(s.puzzle, s.view.Remain);
  // Unlike an undo, the cell shows what it now holds.
  if (value >= 1 && value <= kMaxCardIndex) {
    ui.DrawCell(s.puzzle.CardCodes.Rank(value), std::string(1, s.puzzle.CardCodes.SuitLetter(value)), row,
                col);
  } else if (value < 0 && value >= kMinCardIndex) {
    ui.DrawCell(-1, std::string(1, kSuitLetters[-value]), row, col);
  } else {
    ui.DrawCell(-1, "", row, col);
  }
  s.session.SelectedCard.clear();
  ui.ControlsChanged();
}

void SaveGridSnapshot(const Puzzle& p, Session& session, int n) {
  if (n < 0 || n >= static_cast<int>(session.GridBackups.size())) return;
  std::string text;
  for (int r = 1; r <= LoopRows(p); ++r) {
    for (int c = 1; c <= LoopCols(p); ++c) text += NumText(p.Grid[r][c]) + ";";
  }
  session.GridBackups[static_cast<size_t>(n)] = text;
}

void RestoreGridSnapshot(Puzzle& p, const Session& session, int n) {
  if (n < 0 || n >= static_cast<int>(session.GridBackups.size())) return;
  const auto parts = Split(session.GridBackups[static_cast<size_t>(n)], ';');
  size_t next = 0;
  // A snapshot of a smaller board fills only the cells it has values for.
  for (int r = 1; r <= LoopRows(p); ++r) {
    for (int c = 1; c <= LoopCols(p); ++c) {
      if (next >= parts.size()) return;
      p.Grid[r][c] = ValInt(parts[next++]).value_or(0);
    }
  }
}

}  // namespace velmora
