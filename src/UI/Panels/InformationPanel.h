#pragma once

#include "Platform/FaceAxes.h"
#include "Platform/FontMetrics.h"
#include "UI/Panels/FacePanel.h"

#include <QProperty>

#include <optional>
#include <vector>

class QLabel;
class QPushButton;
class QToolButton;
class QUrl;

namespace kerlune {

class ChipRow;
class FactList;

// Everything that is known about the face and its family: names, rights, measures, file, languages, tags and
// collections, and its style sheet.
//
// Thread: main.
class InformationPanel final : public FacePanel {
    Q_OBJECT

public:
    explicit InformationPanel(Workspace &workspace, QWidget *parent = nullptr);

protected:
    void showFace(Change change) override;
    void retranslate() override;

private:
    // What the index does not keep.
    struct Details {
        std::uint32_t unitsPerEm = 0;
        FontMetrics metrics = {};
        FaceAxes space = {};
    };

    QLabel *makeTitle();
    QWidget *makeContents();
    QWidget *makeFileButtons();
    void connectButtons();
    void showFacts();
    void showMeasures();
    void showLanguages();
    void showTags();
    void showCollections();
    void offerCollections();
    void copy(const QString &text, const char *notice);
    void openLink(const QUrl &link);
    void openFolder();

    QLabel *m_fileTitle = nullptr;
    QLabel *m_measuresTitle = nullptr;
    QLabel *m_languagesTitle = nullptr;
    QLabel *m_tagsTitle = nullptr;
    QLabel *m_collectionsTitle = nullptr;
    FactList *m_names = nullptr;
    FactList *m_measures = nullptr;
    FactList *m_file = nullptr;
    FactList *m_languages = nullptr;
    ChipRow *m_tags = nullptr;
    ChipRow *m_collections = nullptr;
    QPushButton *m_copyName = nullptr;
    QPushButton *m_copyCss = nullptr;
    QPushButton *m_copyRule = nullptr;
    QPushButton *m_openFolder = nullptr;
    QPushButton *m_copyPath = nullptr;
    std::optional<Details> m_details;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
