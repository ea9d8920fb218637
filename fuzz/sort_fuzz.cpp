// libFuzzer harness: any bytes as the sort's source must sort or fail
// cleanly by every key and order, and the source stays as it was.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "files/sort.h"
#include "files/text_file.h"
#include "fuzz_support.h"

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const fuzz::PrivateFolder& folder = fuzz::PrivateFolder::Get();
  const std::string source = folder.Write("source.vlm", data, size);
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  SilentUserInterface ui;
  Random rng = Random::Seeded(size);
  for (const SortKey key : {SortKey::kHeader, SortKey::kSize, SortKey::kNumber, SortKey::kBlanks}) {
    for (const SortOrder order : {SortOrder::kAscending, SortOrder::kDescending, SortOrder::kRandom}) {
      SortSettings settings;
      settings.source = source;
      settings.output = folder.File("sorted.vlm");
      settings.key = key;
      settings.order = order;
      settings.resequence = key == SortKey::kNumber;
      SortPuzzleFile(settings, rng, ui, [](long long) {});
      std::string after;
      if (!ReadWholeFile(source, after) || after != bytes) std::abort();
    }
  }
  return 0;
}
