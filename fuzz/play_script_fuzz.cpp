// libFuzzer harness: any bytes as the script of `velmora-cli play`, run
// against a small fixed puzzle file, must run to its end cleanly. The session
// works in the private folder (the delete command's work file goes to the
// current folder), its output is thrown away, and the script is read from
// memory, where no save of its own can add lines to it.
#include <fcntl.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "../cli/play_script.h"
#include "../cli/record.h"
#include "../cli/subcommand.h"
#include "fuzz_support.h"

using namespace velmora;

namespace {

// Three records: one deduction solves, two that need the search.
constexpr const char* kPuzzles[] = {
    "#1",
    "Deduction 1",
    " 7, 7, 14",
    "L@i_f@m|Lci_fPm",
    "YD@e@jG|YDSeWjG",
    "C@\\sI@U|CN\\sIdU",
    "pE@V@BO|pEgV`BO",
    "R@^Kr@b|Rl^Kr[b",
    "tZ@n@Tk|tZAnaTk",
    "F@XMo@Q|FqXMoJQ",
    "#2",
    "Sample 2",
    " 7, 7, 14",
    "k@ZS`@P|kIZS`gP",
    "r_@B@La|r_eBoLa",
    "T@tMX@D|TFtMXbD",
    "Ap@s@Wj|Ap]sJWj",
    "^@K\\c@G|^QK\\cmG",
    "H[@i@Cf|H[diNCf",
    "O@EVl@Y|OhEVlRY",
    "#3",
    "Sample 3",
    " 7, 7, 14",
    "V@j]H@p|Vtj]Hgp",
    "Mb@r@IW|Mb[rSIW",
    "D@Ja\\@^|DQJa\\o^",
    "en@K@TA|endKqTA",
    "F@UlO@L|F`UlOBL",
    "sE@R@cY|sE_RicY",
    "Z@NmC@G|ZkNmCXG",
};

std::string PuzzleText() {
  std::string text;
  for (const char* line : kPuzzles) (text += line) += "\r\n";
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // File names in the script are taken in the current folder, the private
  // one; a name with a slash could reach beyond it.
  if (size == 0 || std::memchr(data, '/', size) != nullptr) return -1;
  static const std::string puzzles = PuzzleText();
  static std::FILE* const out = std::fopen("/dev/null", "w");
  static const int home = ::open(".", O_RDONLY | O_DIRECTORY);
  const fuzz::PrivateFolder& folder = fuzz::PrivateFolder::Get();
  folder.Empty();
  const std::string file =
      folder.Write("puzzles.vlm", reinterpret_cast<const uint8_t*>(puzzles.data()), puzzles.size());
  std::FILE* script = ::fmemopen(const_cast<uint8_t*>(data), size, "r");
  if (!out || home < 0 || !script || ::chdir(folder.path().c_str()) != 0) std::abort();

  GameState state;
  state.session.rng = Random::Seeded(size);
  cli::ScriptUserInterface ui(out);
  // As `velmora-cli play FILE 1` starts a session.
  const cli::Subcommand play{"play", "play FILE N", "", 0, nullptr};
  if (cli::LoadRecordArgs(play, {file, "1"}, state, ui) != 0) std::abort();
  state.session.CurrentPuzzleFile = file;
  cli::PlaySession session{state, ui, out, file};
  cli::RunPlayScript(session, script);

  std::fclose(script);
  if (::fchdir(home) != 0) std::abort();
  return 0;
}
