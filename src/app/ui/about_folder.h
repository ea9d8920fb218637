// The line of the about box that says which folder the program keeps its files in.
#pragma once

#include <QWidget>
#include <string>

namespace velmora {

// Adds the line "Folder: " and `folder` above the about box's button.
void ShowFolderInAbout(QWidget* about, const std::string& folder);

}  // namespace velmora
