#pragma once

#include "base/Scheduler.h"
#include "desktop/Settings.h"
#include "document/DocumentStore.h"

#include <QWidget>

#include <memory>

namespace quillon {

/// The middle of a document window: the article's page, which follows every change of the store.
class PreviewPane : public QWidget {
    Q_OBJECT

public:
    PreviewPane(DocumentStore& store, Settings& settings, Scheduler& scheduler, QWidget* parent = nullptr);
    ~PreviewPane() override;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
