#pragma once

#include "document/DocumentStore.h"

#include <QWidget>

#include <memory>

namespace quillon {

/// The right column of a document window: what is selected, to be edited.
class InspectorColumn : public QWidget {
    Q_OBJECT

public:
    /// `store` outlives the column.
    InspectorColumn(DocumentStore& store, QWidget* parent);
    ~InspectorColumn() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
