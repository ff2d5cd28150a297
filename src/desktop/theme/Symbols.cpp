#include "desktop/theme/Symbols.h"

#include "desktop/theme/SymbolTable.h"
#include "desktop/theme/Theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

// The files of assets/symbols, as the build embeds them.
struct EmbeddedSymbol {
    const char* name;
    const char* bytes;
    std::size_t size;
};
extern "C" const EmbeddedSymbol quillonSymbols[];
extern "C" const std::size_t quillonSymbolsCount;

namespace quillon {

namespace {

/// An icon leaves air round its drawing; this is its square against the text's size.
constexpr double boxPerPoint = 1.25;
/// The inner icon against the outer one, and the weight that makes its lines as strong.
constexpr double innerScale = 0.56;

/// What is added to an icon's lines for each weight, in the units of its 256 wide drawing.
int strokeOf(SymbolWeight weight) {
    switch (weight) {
    case SymbolWeight::Regular:
        return 0;
    case SymbolWeight::Medium:
        return 5;
    case SymbolWeight::Semibold:
        return 11;
    }
    return 0;
}

struct Drawing {
    const SymbolRow* row = nullptr;
    bool isFilled = false;
};

using Drawings = std::unordered_map<std::string_view, Drawing>;

const Drawings& drawings() {
    static const Drawings made = [] {
        Drawings found;
        for (const SymbolRow& row : symbolRows) {
            found.emplace(row.name, Drawing{&row, false});
            found.emplace(row.filled, Drawing{&row, true});
        }
        found.erase(std::string_view());
        return found;
    }();
    return made;
}

Drawing drawingOf(std::string_view name) {
    const auto found = drawings().find(name);
    return found == drawings().end() ? Drawing{&symbolRows[0], false} : found->second;
}

/// The text of an icon's file; empty where it is missing.
QByteArray iconText(const std::string& file) {
    static const auto files = [] {
        std::unordered_map<std::string_view, const EmbeddedSymbol*> found;
        for (std::size_t index = 0; index < quillonSymbolsCount; ++index) {
            found.emplace(quillonSymbols[index].name, &quillonSymbols[index]);
        }
        return found;
    }();
    const auto found = files.find(file);
    return found == files.end() ? QByteArray()
                                : QByteArray(found->second->bytes, static_cast<int>(found->second->size));
}

void drawIcon(QPainter& painter, const QRectF& box, const std::string& icon, int stroke) {
    QByteArray text = iconText(icon + ".svg");
    if (stroke > 0) {
        text.replace("fill=\"currentColor\"",
                     "fill=\"#000\" stroke=\"#000\" stroke-linejoin=\"round\" stroke-width=\"" +
                         QByteArray::number(stroke) + "\"");
    }
    QSvgRenderer(text).render(&painter, box);
}

void applyTurn(QPainter& painter, SymbolTurn turn, double side) {
    painter.translate(side / 2, side / 2);
    if (turn == SymbolTurn::Mirrored) {
        painter.scale(-1, 1);
    } else if (turn == SymbolTurn::Quarter) {
        painter.rotate(90);
    } else if (turn == SymbolTurn::Eighth) {
        painter.rotate(45);
    }
    painter.translate(-side / 2, -side / 2);
}

/// The symbol in `color`, `side` device pixels wide and high.
QPixmap rendered(const Drawing& drawing, int side, const QColor& color, SymbolWeight weight) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const SymbolRow& row = *drawing.row;
    painter.save();
    applyTurn(painter, row.turn, side);
    drawIcon(painter, {0.0, 0.0, 1.0 * side, 1.0 * side},
             std::string(row.icon) + (drawing.isFilled ? "-fill" : ""), strokeOf(weight));
    painter.restore();
    if (!row.inner.empty()) {
        // On a filled icon the inner one is a hole.
        painter.setCompositionMode(drawing.isFilled ? QPainter::CompositionMode_DestinationOut
                                                    : QPainter::CompositionMode_SourceOver);
        const double inner = side * innerScale;
        drawIcon(painter, {(side - inner) / 2, (side - inner) / 2, inner, inner}, std::string(row.inner),
                 strokeOf(SymbolWeight::Semibold));
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    return pixmap;
}

class SymbolIconEngine : public QIconEngine {
public:
    explicit SymbolIconEngine(std::string_view name) : m_name(name) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const ThemeColors& colors = theme().colors();
        const QColor color = mode == QIcon::Disabled   ? colors.textTertiary
                             : mode == QIcon::Selected ? colors.onAccent
                                                       : colors.text;
        drawSymbol(*painter, rect, m_name, rect.height() / boxPerPoint, color);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new SymbolIconEngine(m_name); }

private:
    std::string m_name;
};

} // namespace

double symbolExtent(double pointSize) {
    return std::ceil(pointSize * boxPerPoint);
}

void drawSymbol(QPainter& painter, const QRectF& rect, std::string_view name, double pointSize,
                const QColor& color, SymbolWeight weight) {
    const double scale = painter.device()->devicePixelRatioF();
    const int side = static_cast<int>(std::lround(pointSize * boxPerPoint * scale));
    if (side <= 0) {
        return;
    }
    const QString key = QStringLiteral("symbol %1 %2 %3 %4")
                            .arg(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())))
                            .arg(side)
                            .arg(color.rgba(), 0, 16)
                            .arg(static_cast<int>(weight));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = rendered(drawingOf(name), side, color, weight);
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(scale);
    // On whole device pixels, so that it stays sharp.
    const QTransform toDevice = painter.deviceTransform();
    const QPointF corner = rect.center() - QPointF(side, side) / scale / 2;
    const bool isPlain = toDevice.type() <= QTransform::TxScale;
    const QPointF snapped =
        isPlain ? toDevice.inverted().map(QPointF(toDevice.map(corner).toPoint())) : corner;
    painter.drawPixmap(snapped, pixmap);
}

QIcon symbolIcon(std::string_view name) {
    return QIcon(new SymbolIconEngine(name));
}

bool hasSymbol(std::string_view name) {
    return drawings().contains(name);
}

std::span<const std::string_view> symbolNames() {
    static const std::vector<std::string_view> names = [] {
        std::vector<std::string_view> found;
        for (const auto& [name, drawing] : drawings()) {
            found.push_back(name);
        }
        return found;
    }();
    return names;
}

} // namespace quillon
