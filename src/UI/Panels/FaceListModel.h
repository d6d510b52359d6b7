#pragma once

#include "Model/FontRecord.h"

#include <QAbstractListModel>
#include <QString>

#include <vector>

namespace kerlune {

// A face in a list, with what is said of it.
struct FaceLine {
    FontRecordPointer face;
    QString caption = {};
    QString detail = {}; // short, at the right
};

// Faces in a given order.
class FaceListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setLines(std::vector<FaceLine> lines);
    const FaceLine &line(const QModelIndex &index) const;     // of a valid index
    QModelIndex indexOf(const FontRecordPointer &face) const; // invalid when it is none of them

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    std::vector<FaceLine> m_lines;
};

} // namespace kerlune
