// Start-up of the main window: tables, folder, configuration, colours, first puzzle.
#include "app/startup.h"

#include "appearance/color_scheme.h"
#include "board/geometry.h"
#include "files/config.h"
#include "files/puzzle_file.h"
#include "files/text_file.h"

namespace velmora {

std::string FolderWithSlash(const std::string& folder) {
  if (folder.empty() || folder.back() == '/') return folder;
  return folder + "/";
}

void StartUp(GameState& s, UserInterface& ui, const std::string& appFolder,
             const std::function<void()>& setCol) {
  s.Solving = 0;
  BuildCardCodes(s.CardCodes);
  s.Scheme = DefaultSchemeColors();
  s.AppFolder = FolderWithSlash(appFolder);
  if (s.ShippedFolder.empty()) s.ShippedFolder = s.AppFolder;
  s.Rows = s.Cols = kBoardSize;
  CalcCellPos(s);

  ReadcfgFile(s, ui);
  ReadColorScheme(s, ui, s.ColorSchemeName);
  if (setCol) setCol();

  // A file that is missing, empty or unreadable gives way to the default one.
  if (FileLength(s.CurrentPuzzleFile) <= 0) s.CurrentPuzzleFile = s.AppFolder + kPuzzleFileName;
  s.PuzzleCount = CountPuzzles(s.CurrentPuzzleFile);
  std::string title;
  const int notFound = LoadPuzzle(s, ui, s.CurrentPuzzleFile, s.CurrentPuzzleNumber, title, 1);
  ui.SetBusy(false);
  if (notFound == 0) return;

  s.Rows = s.Cols = kBoardSize;
  CalcCellPos(s);
  s.CurrentPuzzleFile.clear();
  s.CurrentPuzzleNumber = 0;
  s.view.PuzNumNow.clear();
  ui.ControlsChanged();
  ui.DrawBoard();
}

}  // namespace velmora
