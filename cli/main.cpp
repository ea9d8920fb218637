// velmora-cli: headless batch work on the program's own core.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "subcommand.h"

namespace velmora::cli {
namespace {

void PrintHelp(std::FILE* out) {
  std::fprintf(out, "Usage: velmora-cli COMMAND [ARGS]\n\nCommands:\n");
  for (const auto& c : Subcommands()) std::fprintf(out, "  %s\n      %s\n", c.usage, c.summary);
  std::fprintf(out, "\nvelmora-cli --help shows this text.\n");
}

// Output that did not reach its file is a failure, whatever the command did.
int Finish(int code) {
  const bool flushed = std::fflush(stdout) == 0;
  const int error = errno;
  if (flushed && !std::ferror(stdout)) return code;
  std::fprintf(stderr, "velmora-cli: cannot write standard output%s%s\n", flushed ? "" : ": ",
               flushed ? "" : std::strerror(error));
  return code == 0 ? 1 : code;
}

}  // namespace

}  // namespace velmora::cli

int main(int argc, char** argv) {
  using namespace velmora::cli;
  std::vector<std::string> args(argv + 1, argv + argc);
  // Past a file size limit a write fails (and the file is cut back to whole
  // records) instead of the process being killed in the middle of one.
  std::signal(SIGXFSZ, SIG_IGN);
  if (args.empty()) {
    PrintHelp(stderr);
    return kUsageError;
  }
  if (args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
    PrintHelp(stdout);
    return Finish(0);
  }
  for (const auto& c : Subcommands()) {
    if (args[0] != c.name) continue;
    std::vector<std::string> rest(args.begin() + 1, args.end());
    if (!rest.empty() && (rest[0] == "--help" || rest[0] == "-h")) {
      std::printf("usage: velmora-cli %s\n%s\n", c.usage, c.summary);
      return Finish(0);
    }
    try {
      return Finish(c.run(rest));
    } catch (const std::bad_alloc&) {  // said, not a crash; every file is whole or untouched
      std::fprintf(stderr, "velmora-cli %s: out of memory\n", c.name);
    } catch (const std::exception& e) {
      std::fprintf(stderr, "velmora-cli %s: %s\n", c.name, e.what());
    }
    return Finish(1);
  }
  std::fprintf(stderr, "velmora-cli: unknown command '%s' (see velmora-cli --help)\n", args[0].c_str());
  return kUsageError;
}
