#include "UI/Panels/FacePanel.h"

#include <QEvent>

#include <utility>

namespace kerlune {

FacePanel::FacePanel(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
{}

namespace {

// A library that is read again brings the same families as new objects.
template <typename Value>
bool areSame(const std::shared_ptr<const Value> &a, const std::shared_ptr<const Value> &b)
{
    return a == b || (a != nullptr && b != nullptr && *a == *b);
}

} // namespace

void FacePanel::setFace(FontFamilyPointer family, FontRecordPointer face)
{
    const bool isOtherFamily = !areSame(family, m_family);
    if (!isOtherFamily && areSame(face, m_face))
        return;
    m_family = std::move(family);
    m_face = std::move(face);
    m_pending = isOtherFamily || m_pending == Change::Family ? Change::Family : Change::Face;
    if (isVisible())
        fill();
}

void FacePanel::fill()
{
    if (m_pending)
        showFace(*std::exchange(m_pending, std::nullopt));
}

void FacePanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    fill();
}

void FacePanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

} // namespace kerlune
