// Runs velmora-cli as a child process and captures what it prints.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace velmora::test {

struct CliResult {
  int exitCode = -1;
  std::string out;
};

inline std::string Quote(const std::string& arg) {
  std::string q = "'";
  for (char c : arg) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return q + "'";
}

// Runs `velmora-cli ARGS` with INPUT on standard input (from a file, so no
// pipe deadlock), capturing standard output only.
inline CliResult RunCli(const std::vector<std::string>& args, const std::string& input = "") {
  char inPath[] = "/tmp/velmora-cli-in-XXXXXX";
  if (const int fd = ::mkstemp(inPath); fd >= 0) ::close(fd);
  std::ofstream(inPath, std::ios::binary) << input;
  std::string command = Quote(VELMORA_CLI);
  for (const auto& a : args) command += " " + Quote(a);
  CliResult result;
  if (std::FILE* p = ::popen((command + " <" + Quote(inPath) + " 2>/dev/null").c_str(), "r")) {
    char buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, p)) > 0;) result.out.append(buffer, n);
    const int status = ::pclose(p);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  ::unlink(inPath);
  return result;
}

}  // namespace velmora::test
