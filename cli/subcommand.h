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

// A parsed record number as the program's commands take it: held to
// -2147483647..2147483647, so a huge N still finds no record.
constexpr int RecordNumber(long long n) {
  return n > 2147483647LL ? 2147483647 : (n < -2147483647LL ? -2147483647 : static_cast<int>(n));
}

}  // namespace velmora::cli
