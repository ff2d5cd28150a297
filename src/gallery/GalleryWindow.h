#pragma once

#include <QWidget>

namespace quillon {

/// Every widget in each of its states, in sections, and a choice of the appearance above them.
class GalleryWindow : public QWidget {
    Q_OBJECT

public:
    GalleryWindow();

    /// The samples alone, in their whole height.
    QWidget& samples() { return *m_samples; }

private:
    QWidget* m_samples;
};

} // namespace quillon
