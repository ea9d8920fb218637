// The about box: the rules in a few sentences, the version and the folder the
// program keeps its files in.
#pragma once

#include <QWidget>
#include <string>

namespace velmora {

QWidget* NewAboutForm(QWidget* parent, const std::string& folder);

}  // namespace velmora
