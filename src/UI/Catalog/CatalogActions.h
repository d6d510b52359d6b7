#pragma once

#include "UI/Workspace.h"

#include <QObject>

#include <string>

class QMenu;
class QPoint;

namespace kerlune {

// What can be done with a family of the Google catalogue.
//
// Thread: main.
class CatalogActions final : public QObject {
    Q_OBJECT

public:
    CatalogActions(Workspace &workspace, QWidget &parent);

    void install(const std::string &family); // nothing where it is installed, or being installed
    void askToRemove(const std::string &family);
    void compare(const std::string &family);       // adds it to the comparison
    void showInLibrary(const std::string &family); // tells when the library does not have it yet
    void openMenu(const std::string &family, const QPoint &globalPosition);

private:
    Workspace &m_workspace;
    QWidget &m_parent;
};

} // namespace kerlune
