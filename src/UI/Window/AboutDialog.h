#pragma once

#include <QWidget>

namespace kerlune {

class Workspace;

namespace AboutDialog {

// What the program is, its version and its licence.
void open(Workspace &workspace, QWidget *parent);

} // namespace AboutDialog

} // namespace kerlune
