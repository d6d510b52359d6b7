#include "UI/Panels/FeatureRow.h"

#include "Platform/FaceAxes.h"
#include "UI/InterfaceText.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>

namespace kerlune {

namespace {

constexpr std::uint32_t kMostAlternates = 9999;
constexpr int kBoxWidth = 28; // of the check box without its text

} // namespace

FeatureRow::FeatureRow(const FaceFeature &feature, QWidget *parent)
    : QWidget(parent)
    , m_feature(feature)
    , m_box(new QCheckBox(this))
    , m_tag(new QLabel(this))
{
    const QString tag = QString::fromStdString(tagText(feature.tag));
    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_box, 1);
    m_box->setObjectName(QStringLiteral("feature-") + tag);
    m_box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_box->setMinimumHeight(26);
    m_tag->setTextFormat(Qt::PlainText);
    m_tag->setText(tag);
    m_tag->setProperty("secondary", true);
    connect(m_box, &QCheckBox::toggled, this, [this](bool isOn) {
        if (m_number != nullptr) {
            const QSignalBlocker silent(m_number);
            m_number->setValue(isOn ? std::max(1, m_number->value()) : 0);
        }
        Q_EMIT valueChanged();
    });
    if (feature.alternates > 1) {
        m_number = new QSpinBox(this);
        m_number->setObjectName(QStringLiteral("alternate-") + tag);
        m_number->setRange(0, static_cast<int>(std::min(feature.alternates, kMostAlternates)));
        m_number->setFixedWidth(56);
        row->addWidget(m_number);
        connect(m_number, &QSpinBox::valueChanged, this, [this](int number) {
            const QSignalBlocker silent(m_box);
            m_box->setChecked(number > 0);
            Q_EMIT valueChanged();
        });
    }
    row->addWidget(m_tag);
    setValue(feature.isOnByDefault ? 1 : 0);
    retranslate();
}

std::uint32_t FeatureRow::value() const
{
    if (m_number != nullptr)
        return static_cast<std::uint32_t>(m_number->value());
    return m_box->isChecked() ? 1 : 0;
}

void FeatureRow::setValue(std::uint32_t value)
{
    const QSignalBlocker silentBox(m_box);
    m_box->setChecked(value > 0);
    if (m_number == nullptr)
        return;
    const QSignalBlocker silentNumber(m_number);
    m_number->setValue(static_cast<int>(std::min(value, kMostAlternates)));
}

void FeatureRow::retranslate()
{
    const QString registered = QString::fromStdString(featureLabel(m_feature.tag));
    const QString own = m_feature.ownName ? shown(*m_feature.ownName) : QString();
    const QString tag = m_tag->text();
    if (!own.isEmpty())
        m_name = own;
    else
        m_name = registered.isEmpty() ? uiText("Fonction propre à la police") : registered;
    QString details = own.isEmpty() ? m_name : registered + QStringLiteral("\n") + own;
    for (std::size_t i = 0; i < m_feature.valueNames.size(); ++i)
        details += QStringLiteral("\n%1  ").arg(i + 1) + shown(m_feature.valueNames[i]);
    m_box->setToolTip(details.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
    m_box->setAccessibleName(m_name + QStringLiteral(" (") + tag + QStringLiteral(")"));
    if (m_number != nullptr)
        m_number->setAccessibleName(uiText("%1, variante", {m_name}));
    showName();
}

void FeatureRow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    showName();
}

void FeatureRow::showName()
{
    const int taken = m_tag->sizeHint().width() + (m_number == nullptr ? 0 : m_number->width() + 6) + 6;
    const int room = std::max(40, width() - taken - kBoxWidth);
    m_box->setText(m_box->fontMetrics().elidedText(m_name, Qt::ElideRight, room).replace(u'&', QLatin1String("&&")));
}

} // namespace kerlune
