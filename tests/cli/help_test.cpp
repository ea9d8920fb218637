// velmora-cli's help: the list of subcommands, each one's own usage, and the
// shell completion that offers the same subcommands.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/cli_support.h"

namespace velmora {
namespace {

TEST(CliHelp, ListsEverySubcommandEachExplainsItselfAndCompletionOffersTheSame) {
  const auto all = test::RunCli({"--help"});
  ASSERT_EQ(all.exitCode, 0);
  EXPECT_EQ(all.out.rfind("Usage: velmora-cli COMMAND [ARGS]\n\nCommands:\n", 0), 0u) << all.out;
  std::string listed;
  std::istringstream lines(all.out);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("  ", 0) != 0 || line[2] == ' ') continue;
    const std::string name = line.substr(2, line.find(' ', 2) - 2);
    listed += name + " ";
    const auto one = test::RunCli({name, "--help"});
    EXPECT_EQ(std::to_string(one.exitCode) + one.out.substr(0, 19 + name.size()),
              "0usage: velmora-cli " + name);
  }
  std::string completion;
  ReadWholeFile(std::string(VELMORA_DATA_DIR) + "/desktop/velmora-cli.bash", completion);
  if (listed.find("print ") == std::string::npos)
    listed += "print book export ";  // a build without Qt has none
  const size_t at = completion.find("commands=\"") + 10;
  EXPECT_EQ(completion.substr(at, completion.find('"', at) - at) + " ", listed);
  const auto none = test::RunCli({});
  EXPECT_EQ(std::to_string(none.exitCode) + none.err.substr(0, 18), "2Usage: velmora-cli");
}

}  // namespace
}  // namespace velmora
