// What the subcommands that draw with Qt (print, book, export) share.
#pragma once

#include <QGuiApplication>
#include <memory>

namespace velmora::cli {

// Qt draws the pages, always offscreen: a command-line run opens no window and
// must not depend on a display being there.
std::unique_ptr<QGuiApplication> PageApplication();

}  // namespace velmora::cli
