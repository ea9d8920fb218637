// The subcommand registry and the argument helpers the subcommands share;
// apart from main.cpp, so the play interpreter links without a main.
#include "subcommand.h"

#include <algorithm>
#include <cstdio>

namespace velmora::cli {
namespace {

std::vector<Subcommand>& Registry() {
  static std::vector<Subcommand> commands;
  return commands;
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
