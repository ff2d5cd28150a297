#include "gallery/GalleryWindow.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/SegmentedControl.h"
#include "gallery/GalleryRow.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>

#include <memory>
#include <optional>
#include <utility>

namespace quillon {

namespace {

QLabel* label(const QString& text, TextSize size, QFont::Weight weight, QPalette::ColorRole role) {
    auto* made = new QLabel(text);
    made->setFont(theme().font(size, weight));
    made->setForegroundRole(role);
    return made;
}

/// The caption of a sample with the sample below it.
QWidget* captioned(const GalleryRow::Sample& sample) {
    auto* cell = new QWidget;
    auto* column = new QVBoxLayout(cell);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(distance::inside);
    column->addWidget(label(sample.state, TextSize::Caption, QFont::Normal, QPalette::PlaceholderText));
    column->addWidget(sample.make(cell), 0, Qt::AlignLeft | Qt::AlignTop);
    column->addStretch(1);
    return cell;
}

/// One section: a line for each widget, its name first.
void addSection(QVBoxLayout& column, const QString& title, const std::vector<GalleryRow>& rows) {
    if (rows.empty()) {
        return;
    }
    column.addWidget(label(title, TextSize::Title, QFont::DemiBold, QPalette::WindowText));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(distance::around);
    grid->setVerticalSpacing(distance::groups);
    grid->setColumnMinimumWidth(0, extent::rowLabel);
    int line = 0;
    int columns = 0;
    for (const GalleryRow& row : rows) {
        grid->addWidget(label(row.name, TextSize::Label, QFont::Normal, QPalette::WindowText), line, 0,
                        Qt::AlignTop);
        int at = 0;
        for (const GalleryRow::Sample& sample : row.samples) {
            grid->addWidget(captioned(sample), line, ++at);
        }
        columns = std::max(columns, at);
        ++line;
    }
    grid->setColumnStretch(columns + 1, 1);
    column.addLayout(grid);
}

QWidget* makeSamples() {
    auto* samples = new QWidget;
    samples->setAutoFillBackground(true);
    auto* column = new QVBoxLayout(samples);
    column->setContentsMargins(distance::around, distance::around, distance::around, distance::around);
    column->setSpacing(distance::around);
    addSection(*column, QObject::tr("Choices"), choiceRows());
    addSection(*column, QObject::tr("Fields"), fieldRows());
    addSection(*column, QObject::tr("Containers"), containerRows());
    column->addStretch(1);
    return samples;
}

Binding<int> pinnedAppearance() {
    const auto pinned = std::make_shared<std::optional<Appearance>>();
    const Binding<std::optional<Appearance>> appearance([pinned] { return *pinned; },
                                                        [pinned](std::optional<Appearance> chosen) {
                                                            *pinned = chosen;
                                                            theme().pin(chosen);
                                                        });
    return choiceAmong<std::optional<Appearance>>(appearance,
                                                  {std::nullopt, Appearance::Light, Appearance::Dark});
}

} // namespace

GalleryWindow::GalleryWindow() : m_samples(makeSamples()) {
    setWindowTitle(tr("Gallery"));
    auto* appearance = new SegmentedControl(
        tr("Appearance"),
        {{tr("Automatic"), "circle.lefthalf.filled"}, {tr("Light"), "sun.max"}, {tr("Dark"), "moon"}},
        pinnedAppearance());
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(m_samples);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, distance::beside, 0, 0);
    column->addWidget(appearance, 0, Qt::AlignHCenter);
    column->addWidget(scroll, 1);
}

} // namespace quillon
