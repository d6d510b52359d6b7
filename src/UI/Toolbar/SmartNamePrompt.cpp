#include "UI/Toolbar/SmartNamePrompt.h"

#include "UI/InterfaceText.h"

#include <QLineEdit>

namespace kerlune {

SmartNamePrompt::SmartNamePrompt(Workspace &workspace, QWidget *parent)
    : NamePrompt(parent)
    , m_workspace(workspace)
{
    constexpr qsizetype kLongestProposal = 60;
    nameEdit().setObjectName(QStringLiteral("smartName"));
    nameEdit().setText(shown(summary(m_workspace.state().filters.value())).left(kLongestProposal));
    nameEdit().selectAll();
    SmartNamePrompt::retranslate();
}

void SmartNamePrompt::retranslate()
{
    setTexts(uiText("Enregistrer une collection intelligente"), shown(summary(m_workspace.state().filters.value())),
             uiText("Nom"), uiText("Enregistrer"));
    nameEdit().setPlaceholderText(uiText("Nom"));
}

bool SmartNamePrompt::take(const std::string &name)
{
    return m_workspace.commands().saveFilters(name).has_value();
}

} // namespace kerlune
