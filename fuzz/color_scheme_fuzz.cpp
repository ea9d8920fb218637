// libFuzzer harness: any bytes as all.col must list, read and edit cleanly;
// a replaced scheme reads back as written, a deleted one is gone and an
// added one is listed last.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "appearance/color_scheme.h"
#include "files/text_file.h"
#include "fuzz_support.h"

using namespace velmora;

namespace {

SchemeColors Shade(int n) {
  SchemeColors colors;
  for (size_t i = 0; i < colors.size(); ++i) colors[i] = Rgb(n, static_cast<int>(i) * 19, 255 - n);
  return colors;
}

std::vector<std::string> FileLines(const std::string& file) {
  std::vector<std::string> lines;
  LineReader reader(file);
  std::string line;
  while (reader.ReadLine(line)) lines.push_back(line);
  return lines;
}

void Check(bool ok) {
  if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const fuzz::PrivateFolder& folder = fuzz::PrivateFolder::Get();
  const std::string file = folder.Write(kSchemeFileName, data, size);
  const std::string work = folder.File(kSchemeWorkFileName);
  GameState s;
  s.session.AppFolder = folder.path() + "/";
  SilentUserInterface ui;
  const std::vector<std::string> names = SchemeNames(file);
  const std::vector<std::string> lines = FileLines(file);
  for (size_t i = 0; i < names.size() && i < 4; ++i) {
    s.look.Scheme = DefaultSchemeColors();
    ReadColorScheme(s.session.AppFolder, s.look, ui, names[i] + ".col");
  }

  // Each edit starts again from the fuzzed bytes.
  for (size_t i = 0; i < names.size() && i < 3; ++i) {
    const std::string nameLine = names[i] + ".col";
    const bool present = std::find(lines.begin(), lines.end(), nameLine) != lines.end();
    const SchemeColors colors = Shade(static_cast<int>(i));
    folder.Write(kSchemeFileName, data, size);
    const SchemeEdit replaced = ReplaceScheme(file, work, nameLine, colors);
    Check(replaced != SchemeEdit::kNotFound || !present);  // a name it lists but cannot find is said
    if (replaced == SchemeEdit::kDone) {
      SchemeColors expected = colors;
      expected[kSchemeTitleCopy] = expected[kSchemeTitleBox];
      Check(ReadColorScheme(s.session.AppFolder, s.look, ui, nameLine) == present);
      Check(!present || s.look.Scheme == expected);
    }
    folder.Write(kSchemeFileName, data, size);
    if (DeleteScheme(file, work, nameLine) == SchemeEdit::kDone)
      Check(!ReadColorScheme(s.session.AppFolder, s.look, ui, nameLine));
  }
  folder.Write(kSchemeFileName, data, size);
  if (AppendScheme(file, "Fuzzed", Shade(7))) {
    const std::vector<std::string> after = SchemeNames(file);
    Check(!after.empty() && after.back() == "fuzzed");
  }
  return 0;
}
