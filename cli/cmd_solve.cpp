// velmora-cli solve and check: the solver and the board check on one record.
#include <cstdio>
#include <string>
#include <vector>

#include "model/check.h"
#include "model/solver.h"
#include "record.h"
#include "script_ui.h"
#include "subcommand.h"

namespace velmora::cli {
namespace {

int RunSolve(const std::vector<std::string>& args);
int RunCheck(const std::vector<std::string>& args);

const Subcommand kSolve{"solve", "solve FILE N",
                        "load record N, solve it by deduction, print the result and the board", 30, RunSolve};
const Subcommand kCheck{"check", "check FILE N",
                        "load record N and print the board check's status and message", 31, RunCheck};
const Registration kSolveReg(kSolve);
const Registration kCheckReg(kCheck);

int RunSolve(const std::vector<std::string>& args) {
  GameState state;
  SilentUserInterface ui;
  if (const int failed = LoadRecordArgs(kSolve, args, state, ui); failed != 0) return failed;
  const SolveResult result = SolveGrid(state.puzzle, state.session, ui);
  const std::string out = "result " + std::to_string(static_cast<int>(result)) + "\n" + BoardText(state);
  std::fwrite(out.data(), 1, out.size(), stdout);
  return 0;
}

int RunCheck(const std::vector<std::string>& args) {
  GameState state;
  SilentUserInterface ui;
  if (const int failed = LoadRecordArgs(kCheck, args, state, ui); failed != 0) return failed;
  const CheckResult check = CheckBoard(state.puzzle);
  const std::string out =
      "status " + std::to_string(check.status) + "\nmessage: " + OneLine(check.message) + "\n";
  std::fwrite(out.data(), 1, out.size(), stdout);
  return 0;
}

}  // namespace
}  // namespace velmora::cli
