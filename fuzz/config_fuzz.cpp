// libFuzzer harness: any bytes as velmora.cfg must read (or be replaced by a
// fresh file) and save cleanly; afterwards the file names the scheme read.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "files/config.h"
#include "fuzz_support.h"

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const fuzz::PrivateFolder& folder = fuzz::PrivateFolder::Get();
  folder.Write(kConfigFileName, data, size);
  const std::string appFolder = folder.path() + "/";
  const std::string configured = ConfiguredSchemeName(appFolder);
  GameState s;
  s.session.AppFolder = appFolder;
  SilentUserInterface ui;
  ReadcfgFile(s.session, s.look, ui);
  // Both readers take the scheme the same way, and a damaged file was
  // replaced by one that names the scheme now in use.
  if (configured != s.look.ColorSchemeName) std::abort();
  if (ConfiguredSchemeName(appFolder) != s.look.ColorSchemeName) std::abort();
  if (!SavecfgFile(s.session, s.look, ui)) std::abort();
  GameState again;
  again.session.AppFolder = appFolder;
  ReadcfgFile(again.session, again.look, ui);
  return 0;
}
