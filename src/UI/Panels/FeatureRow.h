#pragma once

#include "Platform/FaceFeatures.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QSpinBox;

namespace kerlune {

// One feature: a box to switch it, and a number where it chooses among alternates.
//
// Thread: main.
class FeatureRow final : public QWidget {
    Q_OBJECT

public:
    explicit FeatureRow(const FaceFeature &feature, QWidget *parent = nullptr);

    const FaceFeature &feature() const { return m_feature; }
    std::uint32_t value() const;        // 0 is off
    void setValue(std::uint32_t value); // without valueChanged()
    void retranslate();

Q_SIGNALS:
    void valueChanged(); // by the user

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void showName();

    FaceFeature m_feature;
    QString m_name;
    QCheckBox *m_box;
    QLabel *m_tag;
    QSpinBox *m_number = nullptr;
};

} // namespace kerlune
