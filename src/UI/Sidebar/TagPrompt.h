#pragma once

#include "UI/NamePrompt.h"

#include <string>
#include <vector>

namespace kerlune {

// Asks for a tag for some families, and completes what is typed from the tags that there are.
//
// Thread: main.
class TagPrompt final : public NamePrompt {
    Q_OBJECT

public:
    TagPrompt(Workspace &workspace, std::vector<std::string> families, QWidget *parent);

protected:
    bool take(const std::string &name) override;
    void retranslate() override;

private:
    Workspace &m_workspace;
    std::vector<std::string> m_families;
};

} // namespace kerlune
