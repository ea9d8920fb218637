// velmora-cli: headless batch work on the program's own core.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "subcommand.h"

namespace velmora::cli {
namespace {

std::vector<Subcommand>& Registry() {
  static std::vector<Subcommand> commands;
  return commands;
}

void PrintHelp(std::FILE* out) {
  std::fprintf(out, "Usage: velmora-cli COMMAND [ARGS]\n\nCommands:\n");
  for (const auto& c : Subcommands()) std::fprintf(out, "  %s\n      %s\n", c.usage, c.summary);
  std::fprintf(out, "\nvelmora-cli --help shows this text.\n");
}

}  // namespace

Registration::Registration(const Subcommand& command) {
  auto& r = Registry();
  r.push_back(command);
  std::sort(r.begin(), r.end(), [](const Subcommand& a, const Subcommand& b) { return a.order < b.order; });
}

const std::vector<Subcommand>& Subcommands() { return Registry(); }

int UsageError(const Subcommand& command, const std::string& message) {
  std::fprintf(stderr, "velmora-cli %s: %s\nusage: velmora-cli %s\n", command.name, message.c_str(),
               command.usage);
  return kUsageError;
}

bool ParseInt(const std::string& text, long long& value) {
  if (text.empty() || text.size() > 18) return false;
  size_t i = text[0] == '-' || text[0] == '+' ? 1 : 0;
  if (i == text.size()) return false;
  for (size_t j = i; j < text.size(); ++j)
    if (text[j] < '0' || text[j] > '9') return false;
  value = std::stoll(text);
  return true;
}

}  // namespace velmora::cli

int main(int argc, char** argv) {
  using namespace velmora::cli;
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) {
    PrintHelp(stderr);
    return kUsageError;
  }
  if (args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
    PrintHelp(stdout);
    return 0;
  }
  for (const auto& c : Subcommands()) {
    if (args[0] != c.name) continue;
    std::vector<std::string> rest(args.begin() + 1, args.end());
    if (!rest.empty() && (rest[0] == "--help" || rest[0] == "-h")) {
      std::printf("usage: velmora-cli %s\n%s\n", c.usage, c.summary);
      return 0;
    }
    return c.run(rest);
  }
  std::fprintf(stderr, "velmora-cli: unknown command '%s' (see velmora-cli --help)\n", args[0].c_str());
  return kUsageError;
}
