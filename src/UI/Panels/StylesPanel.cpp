#include "UI/Panels/StylesPanel.h"

#include "UI/InterfaceText.h"
#include "UI/Panels/FaceList.h"

#include <QVBoxLayout>

#include <utility>

namespace kerlune {

StylesPanel::StylesPanel(Workspace &workspace, QWidget *parent)
    : FacePanel(workspace, parent)
    , m_list(new FaceList(workspace, this))
{
    m_list->setObjectName(QStringLiteral("styles"));
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, kGridStep, 0, 0);
    layout->addWidget(m_list);
    connect(m_list, &FaceList::faceChosen, this, [this](const FontRecordPointer &chosen) {
        this->workspace().state().selectedFace = chosen->postScriptName;
    });
    StylesPanel::retranslate();
}

void StylesPanel::showFace(Change change)
{
    if (change == Change::Family) {
        std::vector<FaceLine> lines;
        for (const FontRecordPointer &style :
             family() == nullptr ? std::vector<FontRecordPointer>() : family()->sortedFaces())
            lines.push_back({style, shown(style->style), QString::number(style->cssWeight())});
        m_list->setLines(std::move(lines));
    }
    m_list->setCurrentFace(face());
}

void StylesPanel::retranslate()
{
    m_list->setAccessibleName(uiText("Styles"));
}

} // namespace kerlune
