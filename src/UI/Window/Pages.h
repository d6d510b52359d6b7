#pragma once

#include "UI/MessagePage.h"
#include "UI/Window/FilterCriteria.h"
#include "UI/Workspace.h"

#include <QCoroTask>
#include <QTimer>
#include <QWidget>

#include <optional>
#include <vector>

class QStackedWidget;

namespace kerlune {

class CatalogPage;
class WelcomeBanner;

// The browser, or a page in its place where it has nothing to show.
//
// Thread: main.
class Pages final : public QWidget {
    Q_OBJECT

public:
    Pages(Workspace &workspace, QWidget *browser, QWidget *parent = nullptr);

    bool isBrowserShown() const;
    bool isPainted() const; // of what is not the browser's
    bool isSettled() const; // nothing on the page is still to change by itself

protected:
    void changeEvent(QEvent *event) override;

private:
    enum class Page { Browser, Loading, Failed, NoFonts, NoResult, EmptySelection, Catalogue, NoCatalogue };

    Page wantedPage() const;
    void updateSoon();
    void update();
    void updateProgress();
    MessagePage::Content contentOf(Page page);
    MessagePage::Content noResult();
    MessagePage::Content emptySelection() const;
    QCoro::Task<> countCriteria(int run);

    Workspace &m_workspace;
    QStackedWidget *m_stack;
    QWidget *m_browser;
    CatalogPage *m_catalog;
    MessagePage *m_message;
    QWidget *m_blank; // while the library is read that fast that a page would only flicker
    WelcomeBanner *m_welcome;
    std::optional<Page> m_page;
    std::vector<FilterCriterion> m_criteria; // those offered to be lifted
    int m_countingRun = 0;
    bool m_isCounting = false; // how many families each of them brings back
    QTimer m_updating;
    QTimer m_patience;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
