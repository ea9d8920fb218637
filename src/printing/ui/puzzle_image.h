// One puzzle or its solution saved as an SVG or PNG image for publishing.
#pragma once

#include <string>

#include "model/puzzle.h"
#include "printing/print_commands.h"

namespace velmora {

enum class ImageFormat { kSvg, kPng };

inline constexpr int kDefaultImageWidth = 1000;
inline constexpr int kMinImageWidth = 100, kMaxImageWidth = 10000;

// Draws the puzzle (or, with kSolution, its solution) with its Not used line
// `width` pixels wide on white and writes it to `path` through a temporary
// file. False when it could not be drawn or written.
bool SavePuzzleImage(const Puzzle& p, PageKind kind, ImageFormat format, int width, const std::string& path);

}  // namespace velmora
