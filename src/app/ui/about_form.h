// The about box: the rules in a few sentences and the version.
#pragma once

#include <QWidget>

namespace velmora {

QWidget* NewAboutForm(QWidget* parent);

}  // namespace velmora
