#include "UI/Panels/GlyphPanel.h"

#include "Platform/CharacterSearch.h"
#include "Platform/UnicodeBlocks.h"
#include "Support/Localization.h"
#include "UI/InterfaceText.h"
#include "UI/Panels/GlyphDetail.h"
#include "UI/Panels/GlyphGrid.h"
#include "UI/SearchField.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

constexpr double kCellEm = 26; // logical pixels

}

GlyphPanel::GlyphPanel(Workspace &workspace, QWidget *parent)
    : FacePanel(workspace, parent)
    , m_search(new SearchField(this))
    , m_blocks(new QComboBox(this))
    , m_message(new QLabel(this))
    , m_grid(new GlyphGrid(workspace.theme(), m_images, this))
    , m_detail(new GlyphDetail(workspace.theme(), this))
    , m_copy(new QPushButton(this))
{
    m_search->setObjectName(QStringLiteral("glyphSearch"));
    m_blocks->setObjectName(QStringLiteral("glyphBlocks"));
    m_blocks->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_blocks->setMinimumContentsLength(8);
    m_message->setObjectName(QStringLiteral("glyphMessage"));
    m_message->setProperty("secondary", true);
    m_message->setWordWrap(true);
    m_message->setAlignment(Qt::AlignTop);
    m_grid->setObjectName(QStringLiteral("glyphGrid"));
    m_copy->setObjectName(QStringLiteral("copyCharacter"));
    m_copy->setIcon(workspace.theme().icon("copy"));
    layOut();
    follow();
    GlyphPanel::retranslate();
}

GlyphPanel::~GlyphPanel()
{
    if (m_stopSearch != nullptr)
        *m_stopSearch = true;
}

void GlyphPanel::layOut()
{
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, kCardGap, 0, kCardGap);
    column->setSpacing(kGridStep);
    const auto addInset = [&](QWidget *widget) {
        auto *const inset = new QHBoxLayout;
        inset->setContentsMargins(kCardPadding, 0, kCardPadding, 0);
        inset->addWidget(widget);
        column->addLayout(inset);
    };
    addInset(m_search);
    addInset(m_blocks);
    addInset(m_message);
    column->addWidget(m_grid, 1);
    addInset(m_detail);
    addInset(m_copy);
}

void GlyphPanel::follow()
{
    connect(m_search, &QLineEdit::textChanged, this, &GlyphPanel::search);
    connect(m_blocks, &QComboBox::currentIndexChanged, this, &GlyphPanel::search);
    connect(&m_searching, &QFutureWatcherBase::finished, this, [this] {
        if (*m_stopSearch)
            return;
        m_isSearching = false;
        m_grid->setEntries(m_searching.result());
        showMessage(m_grid->entries().empty() ? uiText("Aucun caractère trouvé.") : QString());
    });
    connect(m_grid, &GlyphGrid::currentChanged, this, &GlyphPanel::showCurrent);
    connect(m_grid, &GlyphGrid::cellSizeChanged, this, &GlyphPanel::styleImages);
    connect(m_grid, &GlyphGrid::copyWanted, this, [this] { copyText(currentText()); });
    connect(m_grid, &GlyphGrid::menuWanted, this, &GlyphPanel::openMenu);
    connect(m_copy, &QPushButton::clicked, this, [this] { copyText(currentText()); });
    const auto styleAgain = [this] {
        if (!isVisible())
            return;
        styleImages();
        showCurrent();
    };
    connect(&workspace().theme(), &Theme::changed, this, styleAgain);
    m_observers.push_back(workspace().coordinates.addNotifier(styleAgain));
}

bool GlyphPanel::isSettled() const
{
    return FacePanel::isSettled() && !m_isSearching && m_images.isIdle();
}

GlyphPanel::Contents GlyphPanel::readContents(const FontFace &face)
{
    Contents contents{std::make_shared<const Entries>(readCharacters(face))};
    const Entries &characters = *contents.characters;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const int block = unicodeBlock(characters[i].character);
        if (contents.blocks.empty() || contents.blocks.back().id != block)
            contents.blocks.push_back({block, i, 0});
        ++contents.blocks.back().count;
    }
    return contents;
}

void GlyphPanel::showFace(Change)
{
    m_contents.reset();
    m_isUnreadable = false;
    m_isPortraying = false; // of the face before, if at all
    m_isSearching = false;
    if (m_stopSearch != nullptr)
        *m_stopSearch = true;
    m_grid->setEntries({});
    listBlocks();
    styleImages();
    if (face() == nullptr)
        return;
    showMessage(uiText("Lecture…"));
    const auto read = [](const std::shared_ptr<const FontFace> &open) { return readContents(*open); };
    readFace(read, [this](std::optional<Contents> contents) {
        m_contents = std::move(contents);
        m_isUnreadable = !m_contents;
        if (!m_contents)
            return showMessage(uiText("Le fichier ne peut pas être lu."));
        listBlocks();
        search();
    });
}

void GlyphPanel::listBlocks()
{
    const QSignalBlocker silent(m_blocks);
    const int before = m_blocks->currentIndex();
    m_blocks->clear();
    const auto count = m_contents ? static_cast<std::int64_t>(m_contents->characters->size()) : 0;
    m_blocks->addItem(uiText("Tous les blocs (%1)", {QString::fromStdString(groupedDigits(count))}));
    if (!m_contents)
        return;
    for (const Block &block : m_contents->blocks)
        m_blocks->addItem(
            uiText("%1 (%2)", {QString::fromStdString(blockLabel(block.id)),
                               QString::fromStdString(groupedDigits(static_cast<std::int64_t>(block.count)))}));
    m_blocks->setCurrentIndex(before > 0 && before < m_blocks->count() ? before : 0);
}

// The answer to an earlier search is not waited for.
void GlyphPanel::search()
{
    if (!m_contents)
        return;
    if (m_stopSearch != nullptr)
        *m_stopSearch = true;
    m_stopSearch = std::make_shared<std::atomic<bool>>(false);
    m_isSearching = true;
    Block part{0, 0, m_contents->characters->size()};
    if (const int index = m_blocks->currentIndex(); index > 0)
        part = m_contents->blocks.at(static_cast<std::size_t>(index) - 1);
    m_searching.setFuture(QtConcurrent::run(
        [characters = m_contents->characters, part, stop = m_stopSearch, query = m_search->text().toStdString()] {
            return searchCharacters(std::span(*characters).subspan(part.first, part.count), query, *stop);
        }));
}

void GlyphPanel::showMessage(const QString &text)
{
    m_message->setText(text);
    m_message->setVisible(!text.isEmpty());
}

void GlyphPanel::styleImages()
{
    const double ratio = devicePixelRatioF();
    m_images.setFace(face(), {.size = (QSizeF(m_grid->cellSize()) * ratio).toSize(),
                              .emPixels = kCellEm * ratio,
                              .color = workspace().theme().colors().text,
                              .coordinates = workspace().coordinates.value(),
                              .devicePixelRatio = ratio});
    m_grid->wantImages();
}

void GlyphPanel::showCurrent()
{
    const CharacterMap::Entry *const current = m_grid->current();
    m_copy->setEnabled(current != nullptr);
    m_detail->setEntry(current == nullptr ? std::nullopt : std::optional(*current));
    m_grid->setAccessibleDescription(current == nullptr ? QString()
                                                        : QString::fromStdString(characterName(current->character)));
    if (current != nullptr && face() != nullptr)
        portray();
}

// One after the other, however fast the user goes through the glyphs.
void GlyphPanel::portray()
{
    if (std::exchange(m_isPortraying, true)) {
        m_isPortraitOld = true;
        return;
    }
    m_isPortraitOld = false;
    const GlyphDrawer::Style style{.size = (QSizeF(m_detail->portraitSize()) * devicePixelRatioF()).toSize(),
                                   .emPixels = 1,
                                   .color = workspace().theme().colors().text,
                                   .coordinates = workspace().coordinates.value(),
                                   .devicePixelRatio = devicePixelRatioF()};
    const auto read = [glyph = m_grid->current()->glyph, style](const std::shared_ptr<const FontFace> &open) {
        const auto drawer = GlyphDrawer::create(open);
        return drawer == nullptr ? GlyphDrawer::Portrait() : drawer->portray(glyph, style);
    };
    readFace(read, [this](std::optional<GlyphDrawer::Portrait> portrait) {
        m_isPortraying = false;
        if (m_grid->current() == nullptr)
            return;
        if (m_isPortraitOld)
            portray();
        else if (portrait)
            m_detail->setPortrait(*std::move(portrait));
    });
}

QString GlyphPanel::currentText() const
{
    const CharacterMap::Entry *const current = m_grid->current();
    return current == nullptr ? QString() : QString::fromUcs4(&current->character, 1);
}

void GlyphPanel::copyText(const QString &text)
{
    if (text.isEmpty())
        return;
    QGuiApplication::clipboard()->setText(text);
    workspace().state().setNotice({localized("Copié : %1", {shown(text.toStdString()).toStdString()})});
}

void GlyphPanel::openMenu(const QPoint &position)
{
    const QString code = QStringLiteral("%1")
                             .arg(static_cast<std::uint32_t>(m_grid->current()->character), 4, 16, QLatin1Char('0'))
                             .toUpper();
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto offer = [&](const QString &title, const QString &text) {
        menu->addAction(title, this, [this, text] { copyText(text); });
    };
    offer(uiText("Copier le caractère"), currentText());
    offer(uiText("Copier le point de code"), QStringLiteral("U+") + code);
    offer(uiText("Copier l’entité HTML"), QStringLiteral("&#x%1;").arg(code));
    offer(uiText("Copier le nom"), QString::fromStdString(characterName(m_grid->current()->character)));
    menu->popup(position);
}

void GlyphPanel::retranslate()
{
    m_search->setPlaceholderText(uiText("Caractère, nom anglais ou U+…"));
    m_search->setAccessibleName(uiText("Rechercher un caractère"));
    m_blocks->setAccessibleName(uiText("Bloc Unicode"));
    m_grid->setAccessibleName(uiText("Caractères"));
    m_copy->setText(uiText("Copier le caractère"));
    listBlocks();
    m_detail->retranslate();
    if (!m_contents && face() != nullptr)
        showMessage(m_isUnreadable ? uiText("Le fichier ne peut pas être lu.") : uiText("Lecture…"));
    else if (m_contents)
        showMessage(m_grid->entries().empty() ? uiText("Aucun caractère trouvé.") : QString());
}

} // namespace kerlune
