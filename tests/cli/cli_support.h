// Runs velmora-cli as a child process and captures what it prints.
#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
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

// Runs a shell command, capturing its standard output only.
inline CliResult RunCommand(const std::string& command) {
  CliResult result;
  if (std::FILE* p = ::popen((command + " 2>/dev/null").c_str(), "r")) {
    char buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, p)) > 0;) result.out.append(buffer, n);
    const int status = ::pclose(p);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  return result;
}

// Runs `velmora-cli ARGS` with INPUT on standard input (from a file, so no
// pipe deadlock).
inline CliResult RunCli(const std::vector<std::string>& args, const std::string& input = "") {
  char inPath[] = "/tmp/velmora-cli-in-XXXXXX";
  if (const int fd = ::mkstemp(inPath); fd >= 0) ::close(fd);
  std::ofstream(inPath, std::ios::binary) << input;
  std::string command = Quote(VELMORA_CLI);
  for (const auto& a : args) command += " " + Quote(a);
  const CliResult result = RunCommand(command + " <" + Quote(inPath));
  ::unlink(inPath);
  return result;
}

// Starts `velmora-cli ARGS` with its three standard streams on the files
// named, its files limited to `limit` bytes: past it a write fails, as on a
// full disk.
inline pid_t StartCli(std::vector<std::string> args, const std::string& in, const std::string& out,
                      const std::string& err, rlim_t limit = RLIM_INFINITY) {
  args.insert(args.begin(), VELMORA_CLI);
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit r{limit, limit};
    const int fds[] = {::open(in.c_str(), O_RDONLY), ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644),
                       ::open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644)};
    for (int i = 0; i < 3; ++i) ::dup2(fds[i], i);
    std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &r);
    ::execv(argv[0], argv.data());
    ::_exit(127);
  }
  return child;
}

}  // namespace velmora::test
