#pragma once

#include "UI/NamePrompt.h"

namespace kerlune {

// Asks for the name under which the current filters become a smart collection.
//
// Thread: main.
class SmartNamePrompt final : public NamePrompt {
    Q_OBJECT

public:
    SmartNamePrompt(Workspace &workspace, QWidget *parent);

protected:
    bool take(const std::string &name) override;
    void retranslate() override;

private:
    Workspace &m_workspace;
};

} // namespace kerlune
