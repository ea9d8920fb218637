// Subcommands of velmora-cli register themselves here.
#pragma once

#include <string>
#include <vector>

namespace velmora::cli {

// Exit codes: 0 done, 1 the command's own failure (e.g. "not found"), 2 usage.
inline constexpr int kUsageError = 2;

struct Subcommand {
  const char* name;
  const char* usage;    // e.g. "count FILE"
  const char* summary;  // one line for --help
  int order;            // position in --help
  int (*run)(const std::vector<std::string>& args);
};

// Adds a subcommand; used through a static Registration in each cli/*.cpp.
struct Registration {
  explicit Registration(const Subcommand& command);
};

const std::vector<Subcommand>& Subcommands();

// Prints "velmora-cli: MESSAGE" and the usage line, returns kUsageError.
int UsageError(const Subcommand& command, const std::string& message);

// Parses a whole decimal integer; false for anything else.
bool ParseInt(const std::string& text, long long& value);

}  // namespace velmora::cli
