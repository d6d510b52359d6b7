#pragma once

#include "UI/Panels/FacePanel.h"

#include <QProperty>

#include <vector>

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QStackedWidget;

namespace kerlune {

class FaceList;

// The fonts that look like the active face. Where the library has not been analysed it offers to do so, and shows how
// far it has come.
//
// Thread: main; comparing one face with 50,000 takes about one frame there.
class SimilarPanel final : public FacePanel {
    Q_OBJECT

public:
    explicit SimilarPanel(Workspace &workspace, QWidget *parent = nullptr);

    bool isSettled() const override { return FacePanel::isSettled() && !m_isReading; }

protected:
    void showFace(Change change) override;
    void retranslate() override;

private:
    QWidget *makeIntroduction();
    QWidget *makeProgress();
    QWidget *makeResults();
    void follow();
    void showState(); // of the index
    void showResults();
    QCoro::Task<> read();
    void choose(const FontRecordPointer &chosen);
    void compare();

    QLabel *m_introduction = nullptr;
    QPushButton *m_analyse = nullptr;
    QLabel *m_working = nullptr;
    QProgressBar *m_progress = nullptr;
    QLabel *m_title = nullptr;
    FaceList *m_list = nullptr;
    QLabel *m_nothing = nullptr;
    QPushButton *m_compare = nullptr;
    QLabel *m_scripts = nullptr;
    QCheckBox *m_latinOnly = nullptr;
    QLabel *m_why = nullptr;
    QStackedWidget *m_pages; // of the three below, each filled with what stands above
    QWidget *m_introductionPage;
    QWidget *m_progressPage;
    QWidget *m_resultsPage;
    std::vector<std::string> m_families; // of the results
    bool m_isReading = false;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
