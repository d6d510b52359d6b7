#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace kerlune {

// Sets its items in lines, each as wide as it would like to be, and begins a new line where one does not fit.
class FlowLayout final : public QLayout {
public:
    explicit FlowLayout(QWidget *parent = nullptr);
    ~FlowLayout() override;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;

private:
    template <typename Place>
    int arrange(const QRect &rect, Place place) const; // gives the height

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace kerlune
