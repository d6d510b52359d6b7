#include "UI/Preview/LargePreview.h"

#include "UI/InterfaceText.h"
#include "UI/Preview/PreviewLabel.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace kerlune {

namespace {

constexpr double kLeastEmSize = 12;
constexpr double kMostEmSize = 800;
constexpr int kEdge = 4 * kGridStep;

constexpr std::array kKeys{Qt::Key_Space, Qt::Key_Escape, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,   Qt::Key_Down,
                           Qt::Key_Home,  Qt::Key_End,    Qt::Key_Plus, Qt::Key_Equal, Qt::Key_Minus};

bool isOwnKey(const QKeyEvent &event)
{
    constexpr auto kPlain = Qt::ShiftModifier | Qt::KeypadModifier;
    return (event.modifiers() & ~kPlain) == Qt::NoModifier &&
           std::find(kKeys.begin(), kKeys.end(), event.key()) != kKeys.end();
}

QLabel *addLabel(QWidget *parent, const char *objectName, TextSize size)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(objectName));
    label->setTextFormat(Qt::PlainText);
    label->setFont(Theme::font(size, size == TextSize::large ? QFont::DemiBold : QFont::Normal));
    label->setProperty("secondary", size != TextSize::large);
    return label;
}

} // namespace

LargePreview::LargePreview(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_family(addLabel(this, "largePreviewFamily", TextSize::large))
    , m_style(addLabel(this, "largePreviewStyle", TextSize::title))
    , m_position(addLabel(this, "largePreviewPosition", TextSize::body))
    , m_size(addLabel(this, "largePreviewSize", TextSize::body))
    , m_previous(addButton("largePreviewPrevious", "chevron-left", &LargePreview::showPrevious))
    , m_next(addButton("largePreviewNext", "chevron-right", &LargePreview::showNext))
    , m_smaller(addButton("largePreviewSmaller", "minus", &LargePreview::showSmaller))
    , m_larger(addButton("largePreviewLarger", "plus", &LargePreview::showLarger))
    , m_close(addButton("largePreviewClose", "close", &LargePreview::leave))
    , m_preview(new PreviewLabel(workspace, this))
{
    setObjectName(QStringLiteral("largePreview"));
    setFocusPolicy(Qt::StrongFocus);
    hide();

    for (QLabel *label : {m_family, m_style})
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // elided, however long the name is
    auto *names = new QVBoxLayout;
    names->setSpacing(2);
    names->addWidget(m_family);
    names->addWidget(m_style);
    auto *head = new QHBoxLayout;
    head->setSpacing(kGridStep);
    head->addLayout(names, 1);
    for (QWidget *widget :
         {static_cast<QWidget *>(m_smaller), static_cast<QWidget *>(m_size), static_cast<QWidget *>(m_larger)})
        head->addWidget(widget);
    head->addSpacing(2 * kGridStep);
    for (QWidget *widget :
         {static_cast<QWidget *>(m_previous), static_cast<QWidget *>(m_position), static_cast<QWidget *>(m_next)})
        head->addWidget(widget);
    head->addSpacing(2 * kGridStep);
    head->addWidget(m_close);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kEdge, 2 * kGridStep, kEdge, kEdge);
    layout->setSpacing(2 * kGridStep);
    layout->addLayout(head);
    layout->addWidget(m_preview, 1);

    if (parent != nullptr)
        parent->installEventFilter(this);
    AppState &state = workspace.state();
    const auto follow = [this] {
        if (isVisible())
            refresh();
    };
    m_observers.push_back(state.selectedFamily.addNotifier(follow));
    m_observers.push_back(state.selectedFace.addNotifier(follow));
    m_observers.push_back(state.previewText.addNotifier(follow));
    m_observers.push_back(workspace.features.addNotifier(follow));
    m_observers.push_back(workspace.coordinates.addNotifier(follow));
    connect(&state, &AppState::visibleFamiliesChanged, this, follow);
    connect(&workspace.theme(), &Theme::changed, this, [this] { update(); });
    retranslate();
}

void LargePreview::open()
{
    if (m_workspace.state().activeRecord() == nullptr)
        return;
    if (!isVisible())
        m_focusedBefore = QApplication::focusWidget();
    if (parentWidget() != nullptr)
        setGeometry(parentWidget()->rect());
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
    refresh();
}

void LargePreview::leave()
{
    if (!isVisible())
        return;
    hide();
    if (m_focusedBefore)
        m_focusedBefore->setFocus(Qt::OtherFocusReason);
    m_workspace.state().scrollTarget = m_workspace.state().selectedFamily.value();
}

// The window's own shortcuts do not take these keys while the preview is open.
bool LargePreview::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void LargePreview::keyPressEvent(QKeyEvent *event)
{
    if (!isOwnKey(*event)) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int all = static_cast<int>(m_workspace.state().visibleFamilies().size());
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        return step(-1);
    case Qt::Key_Right:
    case Qt::Key_Down:
        return step(1);
    case Qt::Key_Home:
        return step(-all);
    case Qt::Key_End:
        return step(all);
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return showLarger();
    case Qt::Key_Minus:
        return showSmaller();
    default:
        return leave();
    }
}

void LargePreview::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    const bool isForGood = event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason;
    if (isVisible() && isForGood && QApplication::focusWidget() != nullptr) {
        m_focusedBefore.clear(); // another part of the window took it
        leave();
    }
}

void LargePreview::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), m_workspace.theme().colors().card);
}

void LargePreview::resizeEvent(QResizeEvent *)
{
    if (const FontRecordPointer face = m_workspace.state().activeRecord())
        elideNames(*face);
}

void LargePreview::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

bool LargePreview::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == parent())
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

QToolButton *LargePreview::addButton(const char *objectName, const char *icon, void (LargePreview::*command)())
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(objectName));
    button->setIcon(m_workspace.theme().icon(icon));
    button->setIconSize({20, 20});
    button->setFocusPolicy(Qt::NoFocus); // each has its key
    connect(button, &QToolButton::clicked, this, command);
    return button;
}

void LargePreview::step(int by)
{
    const AppState::Families &families = m_workspace.state().visibleFamilies();
    if (families.empty())
        return;
    const auto here = position();
    const int last = static_cast<int>(families.size()) - 1;
    const int there = std::clamp(here ? static_cast<int>(*here) + by : 0, 0, last);
    const std::string name = families[static_cast<std::size_t>(there)]->name;
    m_workspace.select({name});
}

void LargePreview::setEmSize(double emSize)
{
    m_emSize = std::clamp(emSize, kLeastEmSize, kMostEmSize);
    refresh();
}

std::optional<std::size_t> LargePreview::position()
{
    const auto selected = m_workspace.state().selectedFamily.value();
    const AppState::Families &families = m_workspace.state().visibleFamilies();
    if (!selected)
        return std::nullopt;
    if (m_lastPosition < families.size() && families[m_lastPosition]->name == *selected)
        return m_lastPosition;
    const auto found = std::find_if(families.begin(), families.end(),
                                    [&](const FontFamilyPointer &family) { return family->name == *selected; });
    if (found == families.end())
        return std::nullopt;
    m_lastPosition = static_cast<std::size_t>(found - families.begin());
    return m_lastPosition;
}

void LargePreview::refresh()
{
    const FontRecordPointer face = m_workspace.state().activeRecord();
    if (face == nullptr)
        return leave();
    const std::size_t count = m_workspace.state().visibleFamilies().size();
    const auto here = position();
    elideNames(*face);
    m_position->setText(here ? uiText("%1 / %2", {QString::number(*here + 1), QString::number(count)}) : QString());
    m_size->setText(uiText("%1 px", {QString::number(qRound(m_emSize))}));
    m_previous->setEnabled(here && *here > 0);
    m_next->setEnabled(here && *here + 1 < count);
    m_smaller->setEnabled(m_emSize > kLeastEmSize);
    m_larger->setEnabled(m_emSize < kMostEmSize);
    m_preview->setContent({.face = face,
                           .text = m_workspace.previewText(),
                           .emSize = m_emSize,
                           .lines = PreviewRequest::Lines::Many,
                           .features = m_workspace.features.value(),
                           .coordinates = m_workspace.coordinates.value()});

    const QString name = uiText("Grand aperçu : %1, %2, %3", {m_family->text(), m_style->text(), m_position->text()});
    if (name == accessibleName())
        return;
    setAccessibleName(name);
    QAccessibleEvent told(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&told);
}

void LargePreview::elideNames(const FontRecord &face)
{
    layout()->activate();
    const auto elide = [](QLabel *label, const std::string &name) {
        label->setText(label->fontMetrics().elidedText(shown(name), Qt::ElideMiddle, label->width()));
        label->setToolTip(shownAsMarkup(name));
    };
    elide(m_family, face.family);
    elide(m_style, face.style);
}

void LargePreview::retranslate()
{
    const auto describe = [](QToolButton *button, const QString &name, const QString &key) {
        button->setAccessibleName(name);
        button->setToolTip(QStringLiteral("%1 (%2)").arg(name, key));
    };
    const auto keyName = [](Qt::Key key) { return QKeySequence(key).toString(QKeySequence::NativeText); };
    describe(m_previous, uiText("Famille précédente"), keyName(Qt::Key_Left));
    describe(m_next, uiText("Famille suivante"), keyName(Qt::Key_Right));
    describe(m_smaller, uiText("Plus petit"), keyName(Qt::Key_Minus));
    describe(m_larger, uiText("Plus grand"), keyName(Qt::Key_Plus));
    describe(m_close, uiText("Fermer le grand aperçu"), keyName(Qt::Key_Escape));
    if (isVisible())
        refresh();
}

} // namespace kerlune
