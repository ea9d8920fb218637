// Helpers shared by the tests: temporary folders, small puzzle files, loading.
#pragma once

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "files/puzzle_file.h"
#include "files/text_file.h"
#include "model/cpu_level.h"

namespace velmora::test {

// A fresh folder removed again when the object goes out of scope.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmora-test-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data()) ? pattern : std::string();
  }
  ~TempDir() {
    std::error_code ec;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ec);
    std::filesystem::remove_all(path_, ec);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return path_; }
  std::string File(const std::string& name) const { return path_ + "/" + name; }
  std::string Write(const std::string& name, const std::string& contents) const {
    std::ofstream(File(name), std::ios::binary) << contents;
    return File(name);
  }
  std::string Read(const std::string& name) const {
    std::string contents;
    ReadWholeFile(File(name), contents);
    return contents;
  }

 private:
  std::string path_;
};

// Runs a test in its own current folder, where the delete command writes velmora.tmp.
class InDirectory {
 public:
  explicit InDirectory(const std::string& dir) : old_(std::filesystem::current_path()) {
    std::filesystem::current_path(dir);
  }
  ~InDirectory() {
    std::error_code ec;
    std::filesystem::current_path(old_, ec);
  }

 private:
  std::filesystem::path old_;
};

// Sets (or with nullopt removes) an environment variable for one scope.
class ScopedEnv {
 public:
  ScopedEnv(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    Set(value);
  }
  ~ScopedEnv() { Set(old_); }

 private:
  void Set(const std::optional<std::string>& value) {
    value ? ::setenv(name_, value->c_str(), 1) : ::unsetenv(name_);
  }
  const char* name_;
  std::optional<std::string> old_;
};

// Runs `body` once for each CPU level of the hot paths this machine has,
// named in the failures' trace, then goes back to the level it started with.
inline void ForEachCpuLevel(const std::function<void()>& body) {
  const CpuLevel start = ActiveCpuLevel();
  for (const CpuLevel level : SupportedCpuLevels()) {
    UseCpuLevel(level);
    SCOPED_TRACE("cpu " + std::string(CpuLevelName(level)));
    body();
  }
  UseCpuLevel(start);
}

// The ordinary user tests act as; they run as root in CI.
inline constexpr uid_t kNobody = 65534;

// Runs `body` in a child process as the user nobody and returns what it
// returned ("" when the child could not become nobody or died).
inline std::string AsNobody(const std::function<std::string()>& body) {
  int pipe[2];
  if (::pipe(pipe) != 0) return "";
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(pipe[0]);
    const bool dropped = ::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0;
    const std::string seen = dropped ? body() : "";
    ::_exit(::write(pipe[1], seen.data(), seen.size()) == static_cast<ssize_t>(seen.size()) ? 0 : 1);
  }
  ::close(pipe[1]);
  std::string seen;
  char buffer[4096];
  for (ssize_t n; (n = ::read(pipe[0], buffer, sizeof buffer)) > 0;)
    seen.append(buffer, static_cast<size_t>(n));
  ::close(pipe[0]);
  ::waitpid(child, nullptr, 0);
  return seen;
}

// Written an hour ago, so that the record index made of it is kept.
inline void AtRest(const std::string& file) {
  std::filesystem::last_write_time(file,
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
}

inline std::string SampleFile() { return std::string(VELMORA_TEST_DATA_DIR) + "/sample.vlm"; }
// One record that deduction alone solves.
inline std::string SolvableFile() { return std::string(VELMORA_TEST_DATA_DIR) + "/solvable.vlm"; }

// Record n of a file, loaded as the program loads it (not drawn).
inline GameState Loaded(const std::string& file, int n = 1) {
  GameState s;
  SilentUserInterface ui;
  EXPECT_TRUE(LoadPuzzle(s, ui, file, n, Draw::kNo)) << file << " " << n;
  return s;
}

// An empty 7x7 record whose solution letters start at card k + 1, so records
// can be told apart by their grids as well as their titles.
inline std::string Record(int header, const std::string& title, int k = 0) {
  std::string text = "#" + std::to_string(header) + "\r\n" + title + "\r\n 7, 7, 49\r\n";
  for (int r = 0; r < 7; ++r) {
    text += "@@@@@@@|";
    for (int c = 0; c < 7; ++c) text += static_cast<char>('A' + (k + c) % 52);
    text += "\r\n";
  }
  return text;
}

// Records #first.. titled T1, T2, ...
inline std::string Records(int count, int first = 1) {
  std::string text;
  for (int i = 0; i < count; ++i) text += Record(first + i, "T" + std::to_string(i + 1), i);
  return text;
}

// The lines of a CR LF text.
inline std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (size_t at = 0, end; at < text.size(); at = end + 2) {
    end = std::min(text.find("\r\n", at), text.size());
    lines.push_back(text.substr(at, end - at));
  }
  return lines;
}

// The header lines of a text, in order.
inline std::vector<std::string> Headers(const std::string& text) {
  std::vector<std::string> headers;
  for (const std::string& line : Lines(text))
    if (!line.empty() && line[0] == '#') headers.push_back(line);
  return headers;
}

// "Hard 15/11/2026 10:03:33" and the like, of `level` when one is named. Not with
// <regex>, which the sanitizer build's compiler warns about inside the standard library.
inline bool IsAutomaticTitle(const std::string& title, const std::string& level = "") {
  const std::string name = title.substr(0, title.find(' ')), form = " 00/00/0000 00:00:00";
  bool ok = (name == "Easy" || name == "Hard" || name == "VHard") && (level.empty() || name == level) &&
            title.size() == name.size() + form.size();
  for (size_t i = 0; ok && i < form.size(); ++i) {
    const char c = title[name.size() + i];
    ok = form[i] == '0' ? std::isdigit(static_cast<unsigned char>(c)) != 0 : c == form[i];
  }
  return ok;
}

}  // namespace velmora::test
