// velmora-cli scheme: the colour-scheme commands of the options dialog over
// all.col and velmora.cfg in the program's folder.
#include <cstdio>
#include <string>
#include <vector>

#include "app/app_folder.h"
#include "appearance/color_scheme.h"
#include "appearance/scheme_options.h"
#include "files/config.h"
#include "script_ui.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunScheme(const std::vector<std::string>& args);

const Subcommand kScheme{
    "scheme",
    "scheme list|show NAME|add NAME|replace NAME|delete NAME [--from SCHEME] [--background R,G,B] [--folder "
    "DIR] "
    "[--no]",
    "list, show, add, replace or delete colour schemes in all.col (--from: the scheme to start from, default "
    "the active one; --background: its background colour; --no answers No)",
    70, RunScheme};
const Registration kSchemeReg(kScheme);

struct SchemeArgs {
  std::string action, name, from, folder;
  bool hasBackground = false;
  uint32_t background = 0;
  bool no = false;
};

// "R,G,B" with each part 0..255.
bool ParseColor(const std::string& text, uint32_t& color) {
  long long rgb[3] = {0, 0, 0};
  size_t at = 0;
  for (int i = 0; i < 3; ++i) {
    const size_t comma = i < 2 ? text.find(',', at) : text.size();
    if (comma == std::string::npos || !ParseInt(text.substr(at, comma - at), rgb[i])) return false;
    if (rgb[i] < 0 || rgb[i] > 255) return false;
    at = comma + 1;
  }
  color = Rgb(static_cast<int>(rgb[0]), static_cast<int>(rgb[1]), static_cast<int>(rgb[2]));
  return true;
}

// Empty on success, else what was wrong.
std::string Parse(const std::vector<std::string>& args, SchemeArgs& out) {
  std::vector<std::string> words;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    const bool takesValue = a == "--from" || a == "--background" || a == "--folder";
    if (takesValue && i + 1 == args.size()) return a + " needs a value";
    if (a == "--no") {
      out.no = true;
    } else if (a == "--from") {
      out.from = args[++i];
    } else if (a == "--folder") {
      out.folder = args[++i];
    } else if (a == "--background") {
      out.hasBackground = true;
      if (!ParseColor(args[++i], out.background)) return "--background takes R,G,B, each 0 to 255";
    } else if (a.size() > 1 && a[0] == '-') {
      return "unknown option " + a;
    } else {
      words.push_back(a);
    }
  }
  if (words.empty()) return "no command";
  out.action = words[0];
  const bool list = out.action == "list";
  if (!list && out.action != "show" && out.action != "add" && out.action != "replace" &&
      out.action != "delete")
    return "unknown command " + out.action;
  if (words.size() != (list ? 1u : 2u)) return list ? "list takes no name" : out.action + " takes one NAME";
  if (!list) out.name = words[1];
  if (out.name.find_first_of("\r\n") != std::string::npos) return "NAME must be one line";
  return {};
}

void PrintLine(const std::string& line) { std::printf("%s\n", line.c_str()); }

int Show(GameState& s, ScriptUserInterface& ui, const std::string& name) {
  if (!ReadColorScheme(s.session.AppFolder, s.look, ui, name + kSchemeExtension)) return 1;
  const std::vector<std::string> lines = SchemeLines(name, s.look.Scheme);
  for (size_t i = 1; i < lines.size(); ++i) PrintLine(lines[i]);
  return 0;
}

// As in the dialog: the active scheme read at start-up (or the one chosen
// with --from), the picker's background, then the command on NAME.
int Edit(GameState& s, ScriptUserInterface& ui, const SchemeArgs& a) {
  s.look.ColorSchemeName = ConfiguredSchemeName(s.session.AppFolder);
  ReadColorScheme(s.session.AppFolder, s.look, ui, s.look.ColorSchemeName);
  if (!a.from.empty()) ReadColorScheme(s.session.AppFolder, s.look, ui, a.from + kSchemeExtension);
  if (a.hasBackground) s.look.Scheme[kSchemeBackground] = a.background;
  SchemeListBox list;
  FillSchemeList(s.session.AppFolder, list);
  if (a.action == "add") {
    ui.QueueAnswer(a.name);
    return AddSch(s.session.AppFolder, s.look, ui, list) ? 0 : 1;
  }
  list.Select(a.name);
  if (a.action == "replace") return RepSch(s.session.AppFolder, s.look, ui, list) ? 0 : 1;
  return DelSch(s.session.AppFolder, s.look, ui, list) ? 0 : 1;
}

int RunScheme(const std::vector<std::string>& args) {
  SchemeArgs a;
  if (const std::string wrong = Parse(args, a); !wrong.empty()) return UsageError(kScheme, wrong);
  GameState s;
  // The folder the desktop program would use.
  s.session.AppFolder = SetUpProgramFolders(a.folder, ExecutableFolder()).app;
  s.look.Scheme = DefaultSchemeColors();
  ScriptUserInterface ui(stdout);
  ui.AnswerNo(a.no);
  if (a.action == "list") {
    SchemeListBox list;
    FillSchemeList(s.session.AppFolder, list);
    for (const std::string& item : list.items) PrintLine(item);
    return 0;
  }
  if (a.action == "show") return Show(s, ui, a.name);
  return Edit(s, ui, a);
}

}  // namespace
}  // namespace velmora::cli
