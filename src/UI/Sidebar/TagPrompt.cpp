#include "UI/Sidebar/TagPrompt.h"

#include "UI/InterfaceText.h"

#include <QCompleter>
#include <QLineEdit>

#include <iterator>
#include <utility>

namespace kerlune {

TagPrompt::TagPrompt(Workspace &workspace, std::vector<std::string> families, QWidget *parent)
    : NamePrompt(parent)
    , m_workspace(workspace)
    , m_families(std::move(families))
{
    QStringList known;
    for (const auto &[tag, count] : m_workspace.state().allTags())
        known.push_back(QString::fromStdString(tag));
    auto *completer = new QCompleter(known, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    nameEdit().setCompleter(completer);
    nameEdit().setObjectName(QStringLiteral("tagName"));
    TagPrompt::retranslate();
}

void TagPrompt::retranslate()
{
    setTexts(uiText("Ajouter un tag"),
             m_families.size() == 1 ? uiText("Tag pour « %1 »", {shown(m_families.front())})
                                    : uiCount("Tag pour %1 famille", "Tag pour %1 familles", std::ssize(m_families)),
             uiText("Tag"), uiText("Ajouter"));
}

bool TagPrompt::take(const std::string &name)
{
    m_workspace.commands().setTag(name, m_families, true);
    return true;
}

} // namespace kerlune
