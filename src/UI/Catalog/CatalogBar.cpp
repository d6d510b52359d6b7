#include "UI/Catalog/CatalogBar.h"

#include "UI/InterfaceText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace kerlune {

namespace {

constexpr std::array kOrders{CatalogOrder::popularity, CatalogOrder::trending, CatalogOrder::newest,
                             CatalogOrder::name};

QString orderLabel(CatalogOrder order)
{
    switch (order) {
    case CatalogOrder::popularity:
        return uiText("Popularité");
    case CatalogOrder::trending:
        return uiText("Tendance");
    case CatalogOrder::newest:
        return uiText("Nouveautés");
    case CatalogOrder::name:
        break;
    }
    return uiText("Nom");
}

} // namespace

CatalogBar::CatalogBar(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_categories(new QComboBox)
    , m_order(new QComboBox)
    , m_variable(new QCheckBox)
    , m_installed(new QCheckBox)
    , m_refresh(new QToolButton)
{
    setFixedHeight(kFilterBarHeight);
    m_categories->setObjectName(QStringLiteral("catalogCategories"));
    m_order->setObjectName(QStringLiteral("catalogOrder"));
    m_variable->setObjectName(QStringLiteral("catalogVariable"));
    m_installed->setObjectName(QStringLiteral("catalogInstalled"));
    m_refresh->setObjectName(QStringLiteral("catalogRefresh"));
    m_refresh->setIcon(workspace.theme().icon("refresh"));
    m_categories->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_order->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(kCardPadding, kGridStep, kCardPadding, 4);
    layout->setSpacing(kCardGap);
    layout->addWidget(m_categories);
    layout->addWidget(m_order);
    layout->addWidget(m_variable);
    layout->addWidget(m_installed);
    layout->addStretch(1);
    layout->addWidget(m_refresh);
    retranslate();
    connect(m_categories, &QComboBox::currentIndexChanged, this, &CatalogBar::queryChanged);
    connect(m_order, &QComboBox::currentIndexChanged, this, &CatalogBar::queryChanged);
    connect(m_variable, &QCheckBox::toggled, this, &CatalogBar::queryChanged);
    connect(m_installed, &QCheckBox::toggled, this, &CatalogBar::queryChanged);
    connect(m_refresh, &QToolButton::clicked, this, &CatalogBar::refreshWanted);
}

CatalogQuery CatalogBar::query() const
{
    const int category = m_categories->currentIndex() - 1;
    return {.category = category < 0 ? std::string() : m_keys[static_cast<std::size_t>(category)],
            .order = kOrders.at(static_cast<std::size_t>(std::max(0, m_order->currentIndex()))),
            .onlyVariable = m_variable->isChecked(),
            .onlyInstalled = m_installed->isChecked()};
}

void CatalogBar::clear()
{
    {
        const QSignalBlocker categories(m_categories);
        const QSignalBlocker variable(m_variable);
        const QSignalBlocker installed(m_installed);
        m_categories->setCurrentIndex(0);
        m_variable->setChecked(false);
        m_installed->setChecked(false);
    }
    Q_EMIT queryChanged();
}

// What was chosen stays chosen where it is still there.
void CatalogBar::setCategories(const std::vector<std::string> &categories)
{
    const std::string chosen = query().category;
    const QSignalBlocker silent(m_categories);
    m_keys = categories;
    m_categories->clear();
    m_categories->addItem(QString::fromStdString(allCategoriesLabel()));
    for (const std::string &category : m_keys)
        m_categories->addItem(shown(categoryLabel(category)));
    const auto found = std::find(m_keys.begin(), m_keys.end(), chosen);
    m_categories->setCurrentIndex(found == m_keys.end() ? 0 : static_cast<int>(found - m_keys.begin()) + 1);
}

void CatalogBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CatalogBar::retranslate()
{
    setCategories(std::vector<std::string>(m_keys));
    const QSignalBlocker silent(m_order);
    const int chosen = std::max(0, m_order->currentIndex());
    m_order->clear();
    for (const CatalogOrder order : kOrders)
        m_order->addItem(orderLabel(order));
    m_order->setCurrentIndex(chosen);
    m_variable->setText(uiText("Variables"));
    m_installed->setText(uiText("Installées"));
    m_categories->setAccessibleName(uiText("Catégorie"));
    m_order->setAccessibleName(uiText("Ordre"));
    m_refresh->setToolTip(uiText("Lire le catalogue de nouveau"));
    m_refresh->setAccessibleName(uiText("Lire le catalogue de nouveau"));
}

} // namespace kerlune
