#include "UI/Panels/ControlsPanel.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace kerlune {

ControlsPanel::ControlsPanel(Workspace &workspace, QWidget *parent)
    : FacePanel(workspace, parent)
    , m_message(new QLabel(this))
{
    m_message->setProperty("secondary", true);
    m_message->setWordWrap(true);
    m_message->setMargin(kCardPadding);
    m_message->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
}

void ControlsPanel::setControls(QWidget *contents, const char *messageName)
{
    m_message->setObjectName(QLatin1String(messageName));
    auto *const area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(contents);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_message);
    layout->addWidget(area, 1);
    m_controls = area;
}

void ControlsPanel::showControls()
{
    m_message->hide();
    m_controls->show();
}

void ControlsPanel::showMessage(const QString &why)
{
    m_controls->hide();
    m_message->setText(why);
    m_message->show();
}

} // namespace kerlune
