#pragma once

#include "UI/Theme.h"

#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QProgressBar;
class QVBoxLayout;

namespace kerlune {

// Stands where there is nothing to see: what is the case, why, and what can be done.
//
// Thread: main.
class MessagePage final : public QWidget {
    Q_OBJECT

public:
    struct Button {
        QString text;
        std::function<void()> does;
        bool isProminent = false;
    };
    struct Content {
        const char *icon = "info";
        QString title = {};
        QString text = {};
        std::vector<Button> buttons = {};
        bool hasProgress = false;
    };

    explicit MessagePage(const Theme &theme, QWidget *parent = nullptr);

    void setContent(Content content);
    void setButtonText(std::size_t index, const QString &text);
    void setButtonVisible(std::size_t index, bool isVisible);
    void setProgress(double share); // 0…1

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void paintIcon();
    void makeButtons();

    const Theme &m_theme;
    Content m_content;
    QLabel *m_icon;
    QLabel *m_title;
    QLabel *m_text;
    QProgressBar *m_progress;
    QVBoxLayout *m_buttons;
};

} // namespace kerlune
