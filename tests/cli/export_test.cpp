// velmora-cli export: the image files as their readers see them, and the
// refusals that leave no file behind.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_support.h"

namespace velmora {
namespace {

// "WIDTHxHEIGHT" from a PNG file's header.
std::string PngSize(const std::string& bytes) {
  const auto at = [&](size_t i) {
    unsigned v = 0;
    for (size_t k = i; k < i + 4 && k < bytes.size(); ++k) v = v << 8 | static_cast<unsigned char>(bytes[k]);
    return std::to_string(v);
  };
  return bytes.substr(1, 3) + at(16) + "x" + at(20);
}

TEST(CliExport, WritesTheImageAskedForOrNoFile) {
  test::TempDir dir;
  const std::string sample = test::SampleFile(), png = dir.File("p.png"), svg = dir.File("p.svg");
  EXPECT_EQ(test::CodeAndOutput({"export", sample, "1", "--png", png}), "0:Done\n");
  EXPECT_EQ(PngSize(dir.Read("p.png")), "PNG1000x1066");
  EXPECT_EQ(test::CodeAndOutput({"export", sample, "2", "--png", png, "--size", "300"}), "0:Done\n");
  EXPECT_EQ(PngSize(dir.Read("p.png")), "PNG300x320");
  // Vectors with the text as text: the solution's 49 ranks, its 49 suits and the Not used line.
  EXPECT_EQ(test::CodeAndOutput({"export", sample, "1", "--svg", svg, "--solution"}), "0:Done\n");
  const std::string text = dir.Read("p.svg");
  size_t texts = 0;
  for (size_t at = text.find("<text"); at != std::string::npos; at = text.find("<text", at + 1)) ++texts;
  EXPECT_EQ(texts, 99u);
  EXPECT_NE(text.find(">Not used: 2D TH KH<"), std::string::npos);
  EXPECT_EQ(text.find("<image"), std::string::npos);

  const std::string out = dir.File("none.png");
  EXPECT_EQ(test::CodeAndOutput({"export", sample, "4", "--png", out}), "1:not found\n");
  EXPECT_EQ(test::CodeAndOutput({"export", sample, "1", "--png", out, "--svg", svg}), "2:+stderr");
  EXPECT_EQ(test::CodeAndOutput({"export", sample, "1", "--png", out, "--size", "99"}), "2:+stderr");
  std::filesystem::create_symlink(sample, dir.File("link.png"));
  const auto same = test::RunCli({"export", sample, "1", "--png", dir.File("link.png")});
  EXPECT_EQ(std::to_string(same.exitCode) + same.err,
            "1velmora-cli export: Input and output files cannot be same\n");
  EXPECT_FALSE(std::filesystem::exists(out));
}

}  // namespace
}  // namespace velmora
