#pragma once

#include <QLabel>

namespace kerlune {

// A name on two lines at most, elided in its middle where these are not enough; the tool tip has all of it. It can be
// selected.
//
// Thread: main.
class ElidedName final : public QLabel {
    Q_OBJECT

public:
    explicit ElidedName(QWidget *parent = nullptr);

    void setName(const QString &name); // plain text

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;
    int heightForWidth(int width) const override;
    bool hasHeightForWidth() const override { return true; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QString fitted(int width) const;

    QString m_name;
};

} // namespace kerlune
