// Runs velmora-cli (or another program) as a child process and captures what it writes.
#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "test_support.h"

namespace velmora::test {

struct CliResult {
  int exitCode = -1;
  std::string out, err;
};

// Starts COMMAND with its three standard streams on the files named, its
// files limited to `limit` bytes: past it a write fails, as on a full disk.
inline pid_t Start(std::vector<std::string> command, const std::string& in, const std::string& out,
                   const std::string& err, rlim_t limit = RLIM_INFINITY) {
  std::vector<char*> argv;
  argv.reserve(command.size() + 1);
  for (auto& a : command) argv.push_back(a.data());
  argv.push_back(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit r{limit, limit};
    const int fds[] = {::open(in.c_str(), O_RDONLY), ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644),
                       ::open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644)};
    for (int i = 0; i < 3; ++i) ::dup2(fds[i], i);
    ::setrlimit(RLIMIT_FSIZE, &r);
    ::execvp(argv[0], argv.data());
    ::_exit(127);
  }
  return child;
}

// Runs COMMAND to its end with INPUT on standard input (from a file, so no
// pipe deadlock); standard output goes to `out` instead when one is named.
inline CliResult RunProgram(const std::vector<std::string>& command, const std::string& input = "",
                            rlim_t limit = RLIM_INFINITY, const std::string& out = "") {
  const TempDir dir;
  const pid_t child =
      Start(command, dir.Write("in", input), out.empty() ? dir.File("out") : out, dir.File("err"), limit);
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child) return {};
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, dir.Read("out"), dir.Read("err")};
}

// `velmora-cli ARGS`, run the same way.
inline CliResult RunCli(std::vector<std::string> args, const std::string& input = "",
                        rlim_t limit = RLIM_INFINITY, const std::string& out = "") {
  args.insert(args.begin(), VELMORA_CLI);
  return RunProgram(args, input, limit, out);
}

// Exit code and standard output of `velmora-cli ARGS` as "CODE:OUT"; a run
// that writes to standard error says so with "+stderr" at the end.
inline std::string CodeAndOutput(const std::vector<std::string>& args) {
  const CliResult r = RunCli(args);
  return std::to_string(r.exitCode) + ":" + r.out + (r.err.empty() ? "" : "+stderr");
}

// A command that writes the PDF `pdf`: its "CODE:OUT" is `out`, the PDF's text
// and pdfinfo hold every one of `shown`, and the PDF is there only when `shown`
// names something. The PDF is removed afterwards.
inline void ExpectPdfRun(const std::vector<std::string>& args, const std::string& pdf, const std::string& out,
                         const std::vector<std::string>& shown) {
  EXPECT_EQ(CodeAndOutput(args), out);
  const std::string text = RunProgram({"pdftotext", pdf, "-"}).out + RunProgram({"pdfinfo", pdf}).out;
  for (const std::string& t : shown) EXPECT_NE(text.find(t), std::string::npos) << t;
  EXPECT_EQ(std::filesystem::remove(pdf), !shown.empty()) << out;
}

}  // namespace velmora::test
