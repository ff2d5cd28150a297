#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace quillon {

/// One widget of the gallery, in one or more states side by side.
struct GalleryRow {
    QString name;
    struct Sample {
        QString state;
        std::function<QWidget*(QWidget* parent)> make;
    };
    std::vector<Sample> samples;
};

std::vector<GalleryRow> choiceRows();    ///< what is pressed and chosen from
std::vector<GalleryRow> fieldRows();     ///< what is typed into
std::vector<GalleryRow> containerRows(); ///< what holds others

} // namespace quillon
