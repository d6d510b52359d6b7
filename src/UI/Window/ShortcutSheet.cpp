#include "UI/Window/ShortcutSheet.h"

#include "Support/Localization.h"
#include "UI/InterfaceText.h"
#include "UI/Theme.h"
#include "UI/Window/WindowMenus.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include <array>
#include <utility>
#include <vector>

namespace kerlune {

namespace {

using Rows = std::vector<std::pair<QString, QString>>; // what, and by which keys

// What the views do by themselves.
constexpr std::array<std::pair<const char *, const char *>, 6> kViewKeys{
    {{marked("Aller d’une police à l’autre"), marked("Flèches")},
     {marked("Première et dernière police"), marked("Début, Fin")},
     {marked("Étendre la sélection"), marked("Maj + flèches")},
     {marked("Chercher un nom"), marked("Taper ses premières lettres")},
     {marked("Grand aperçu"), marked("Espace")},
     {marked("Menu contextuel"), marked("Maj+F10")}}};

QString keysOf(const QAction &action)
{
    if (const qsizetype tab = action.text().indexOf(u'\t'); tab >= 0)
        return action.text().mid(tab + 1);
    return action.shortcut().toString(QKeySequence::NativeText);
}

QString nameOf(const QAction &action)
{
    QString text = action.text().section(u'\t', 0, 0);
    return text.replace(QStringLiteral("&&"), QStringLiteral("\x01")).remove(u'&').replace(u'\x01', u'&');
}

QLabel *sectionHeading(const QString &text)
{
    auto *label = new QLabel(text);
    label->setFont(Theme::font(TextSize::title, QFont::DemiBold));
    label->setContentsMargins(0, kGridStep, 0, 0);
    return label;
}

QWidget *table(const std::vector<std::pair<QString, Rows>> &sections)
{
    auto *sheet = new QWidget;
    auto *columns = new QHBoxLayout(sheet);
    columns->setSpacing(5 * kGridStep);
    constexpr std::size_t kColumns = 2;
    std::array<QGridLayout *, kColumns> grids{};
    for (QGridLayout *&grid : grids) {
        auto *column = new QVBoxLayout;
        grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGridStep);
        grid->setVerticalSpacing(kGridStep / 2);
        column->addLayout(grid);
        column->addStretch(1);
        columns->addLayout(column, 1);
    }
    for (const auto &[title, rows] : sections) {
        QGridLayout *grid = grids[0]->rowCount() <= grids[1]->rowCount() ? grids[0] : grids[1];
        grid->addWidget(sectionHeading(title), grid->rowCount(), 0, 1, 2);
        for (const auto &[what, keys] : rows) {
            const int row = grid->rowCount();
            auto *name = new QLabel(what);
            name->setTextFormat(Qt::PlainText);
            auto *by = new QLabel(keys);
            by->setTextFormat(Qt::PlainText);
            by->setProperty("secondary", true);
            grid->addWidget(name, row, 0);
            grid->addWidget(by, row, 1, Qt::AlignRight);
        }
    }
    return sheet;
}

} // namespace

void ShortcutSheet::open(const WindowMenus &menus, QWidget *parent)
{
    std::vector<std::pair<QString, Rows>> sections;
    for (const WindowMenus::Section &section : menus.sections()) {
        Rows rows;
        for (const QAction *action : section.actions)
            rows.emplace_back(nameOf(*action), keysOf(*action));
        sections.emplace_back(section.title, std::move(rows));
    }
    Rows viewRows;
    for (const auto &[what, keys] : kViewKeys)
        viewRows.emplace_back(uiText(what), uiText(keys));
    sections.emplace_back(uiText("Dans la vue des polices"), std::move(viewRows));

    auto *dialog = new QDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("shortcutSheet"));
    dialog->setWindowTitle(uiText("Raccourcis clavier"));
    auto *scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(table(sections));
    scroll->setAccessibleName(uiText("Raccourcis clavier"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setText(uiText("Fermer"));
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(kCardPadding, kCardPadding, kCardPadding, kCardPadding);
    layout->addWidget(scroll, 1);
    layout->addWidget(buttons);
    dialog->resize(760, 620);
    dialog->open();
}

} // namespace kerlune
