#include "editor/SourceLayout.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

constexpr std::size_t mostLongLines = 1024;

bool isPrintableAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char byte) { return byte >= ' ' && byte < '\x7F'; });
}

std::string_view bytesOf(const TextLines& lines, TextRange range) {
    return lines.text().substr(range.begin, range.size());
}

TextRange common(TextRange one, TextRange other) {
    const std::size_t begin = std::max(one.begin, other.begin);
    return {begin, std::max(begin, std::min(one.end, other.end))};
}

/// Fills what stands for a range of UTF-16 units, which text of both directions may tear apart. The runs of
/// several fonts overlap, and a see-through colour must not be laid twice.
void fillUnits(QPainter& painter, const QTextLayout& text, int begin, int end, double height,
               const QColor& color) {
    std::vector<std::pair<double, double>> spans;
    for (const QGlyphRun& run : text.lineAt(0).glyphRuns(begin, end - begin)) {
        spans.emplace_back(run.boundingRect().left(), run.boundingRect().right());
    }
    std::sort(spans.begin(), spans.end());
    double filled = 0;
    for (const auto& [left, right] : spans) {
        const double from = std::max(left, filled);
        if (right > from) {
            painter.fillRect(QRectF(from, 0, right - from, height), color);
            filled = right;
        }
    }
}

} // namespace

void SourceLayout::setLines(const TextLines& lines) {
    m_lines = &lines;
    m_layouts.clear();
    m_longLines.clear();
    measureWidest();
}

void SourceLayout::setFont(const QFont& font) {
    if (font == m_font && m_columnWidth > 0) {
        return;
    }
    m_font = font;
    const QFontMetricsF metrics(font);
    const auto widthOf = [&metrics](const QString& sign) {
        constexpr int count = 100;
        return metrics.horizontalAdvance(sign.repeated(count)) / count;
    };
    m_columnWidth = widthOf(QStringLiteral("M"));
    m_isFixedPitch =
        widthOf(QStringLiteral("i")) == m_columnWidth && widthOf(QStringLiteral(" ")) == m_columnWidth;
    m_scalarWidths = {0, m_columnWidth, widthOf(QStringLiteral("é")), widthOf(QStringLiteral("漢")),
                      widthOf(QStringLiteral("😀"))};
    m_lineHeight = std::max(1, static_cast<int>(std::ceil(metrics.lineSpacing())));
    m_ascent = metrics.ascent();
    m_layouts.clear();
    m_longLines.clear();
    measureWidest();
}

void SourceLayout::measureWidest() {
    m_width = 0;
    if (!m_lines || m_columnWidth <= 0) {
        return;
    }
    const std::size_t widest = m_lines->widestLine();
    const TextRange line = m_lines->line(widest);
    m_width = line.size() > pieceBytes ? guessedWidth(bytesOf(*m_lines, line)) : xOf(widest, line.end);
}

double SourceLayout::guessedWidth(std::string_view text) const {
    std::array<std::size_t, 5> counts{};
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        counts[1] += static_cast<std::size_t>(value < 0x80U);
        counts[2] += static_cast<std::size_t>(value >= 0xC0U && value < 0xE0U);
        counts[3] += static_cast<std::size_t>(value >= 0xE0U && value < 0xF0U);
        counts[4] += static_cast<std::size_t>(value >= 0xF0U);
    }
    double width = 0;
    for (std::size_t bytes = 1; bytes < counts.size(); ++bytes) {
        width += static_cast<double>(counts[bytes]) * m_scalarWidths[bytes];
    }
    return width;
}

SourceLayout::LongLine& SourceLayout::longLine(std::size_t line) {
    const auto found = m_longLines.find(line);
    if (found != m_longLines.end()) {
        return found->second;
    }
    if (m_longLines.size() >= mostLongLines) {
        m_longLines.clear();
    }
    LongLine& made = m_longLines[line];
    const TextRange bytes = m_lines->line(line);
    made.isCounted = m_isFixedPitch && isPrintableAscii(bytesOf(*m_lines, bytes));
    made.pieceBytes = mayReadRightToLeft(bytesOf(*m_lines, bytes)) ? mirroredPieceBytes : pieceBytes;
    made.begins = {bytes.begin};
    made.xs = {0};
    return made;
}

bool SourceLayout::isCounted(std::size_t line) {
    const TextRange bytes = m_lines->line(line);
    if (bytes.size() > pieceBytes) {
        return longLine(line).isCounted;
    }
    return m_isFixedPitch && isPrintableAscii(bytesOf(*m_lines, bytes));
}

/// Behind a blank where there is one near, as letters of some scripts take their shape from their neighbours.
std::size_t SourceLayout::pieceEnd(TextRange rest, std::size_t size) const {
    if (rest.size() <= size) {
        return rest.end;
    }
    constexpr std::size_t near = 128;
    const std::size_t most = m_lines->boundaryUpTo(rest.begin + size, rest.begin);
    const std::size_t blank = bytesOf(*m_lines, {most - near, most}).rfind(' ');
    const std::size_t wanted = blank == std::string_view::npos ? most : most - near + blank + 1;
    return m_lines->boundaryUpTo(wanted, rest.begin);
}

/// The first piece whose end lies behind what is looked for, or the last one.
template <typename IsBehind>
SourceLayout::Piece SourceLayout::pieceOf(std::size_t line, IsBehind isBehind) {
    const TextRange bytes = m_lines->line(line);
    if (bytes.size() <= pieceBytes) {
        return {bytes, 0, -1};
    }
    LongLine& known = longLine(line);
    const bool isExact = bytes.size() <= exactBytes;
    while (known.begins.size() < 2 ||
           (known.begins.back() < bytes.end && !isBehind(known.begins.back(), known.xs.back()))) {
        const std::size_t begin = known.begins.back();
        const std::size_t end = pieceEnd({begin, bytes.end}, known.pieceBytes);
        const double width =
            isExact ? layoutOf({begin, end}).width : guessedWidth(bytesOf(*m_lines, {begin, end}));
        known.begins.push_back(end);
        known.xs.push_back(known.xs.back() + width);
    }
    std::size_t low = 0;
    for (std::size_t high = known.begins.size() - 2; low < high;) {
        const std::size_t middle = (low + high) / 2;
        if (isBehind(known.begins[middle + 1], known.xs[middle + 1])) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    noteWidth(known.xs.back());
    return {{known.begins[low], known.begins[low + 1]}, known.xs[low], known.xs[low + 1] - known.xs[low]};
}

SourceLayout::Piece SourceLayout::pieceAt(std::size_t line, double x) {
    return pieceOf(line, [x](std::size_t, double end) { return end > x; });
}

SourceLayout::Piece SourceLayout::pieceWith(std::size_t line, std::size_t place) {
    return pieceOf(line, [place](std::size_t end, double) { return end > place; });
}

SourceLayout::Layout& SourceLayout::layoutOf(TextRange bytes) {
    if (Layout* known = m_layouts.object(bytes.begin)) {
        return *known;
    }
    auto* made = new Layout;
    const std::string_view text = bytesOf(*m_lines, bytes);
    QString units = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    // The layout would begin a line of its own behind these.
    constexpr QChar shown(u'↵');
    units.replace(QChar(QChar::LineSeparator), shown).replace(QChar(QChar::ParagraphSeparator), shown);
    made->text.setText(units);
    made->text.setFont(m_font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(Qt::LeftToRight);
    made->text.setTextOption(option);
    made->text.beginLayout();
    QTextLine line = made->text.createLine();
    line.setLineWidth(1e6);
    made->text.endLayout();
    made->width = std::max(line.horizontalAdvance(), line.naturalTextWidth());
    m_layouts.insert(bytes.begin, made, static_cast<int>(bytes.size() / pieceBytes) + 1);
    return *made;
}

double SourceLayout::stretchOf(const Piece& piece, const Layout& layout) const {
    return piece.width < 0 || layout.width <= 0 ? 1 : piece.width / layout.width;
}

double SourceLayout::xOf(std::size_t line, std::size_t place) {
    const TextRange bytes = m_lines->line(line);
    place = std::clamp(place, bytes.begin, bytes.end);
    if (isCounted(line)) {
        return static_cast<double>(place - bytes.begin) * m_columnWidth;
    }
    const Piece piece = pieceWith(line, place);
    Layout& layout = layoutOf(piece.bytes);
    noteWidth(piece.x + layout.width * stretchOf(piece, layout));
    const auto unit = static_cast<int>(
        utf16Length(bytesOf(*m_lines, {piece.bytes.begin, std::min(place, piece.bytes.end)})));
    return piece.x + layout.text.lineAt(0).cursorToX(unit) * stretchOf(piece, layout);
}

std::size_t SourceLayout::placeAt(std::size_t line, double x, SourceHit hit) {
    const TextRange bytes = m_lines->line(line);
    if (isCounted(line)) {
        const double column = std::max(0.0, x / m_columnWidth + (hit == SourceHit::nearestGap ? 0.5 : 0));
        return bytes.begin + static_cast<std::size_t>(std::min(column, static_cast<double>(bytes.size())));
    }
    const Piece piece = pieceAt(line, x);
    Layout& layout = layoutOf(piece.bytes);
    const int unit = layout.text.lineAt(0).xToCursor(
        (x - piece.x) / stretchOf(piece, layout),
        hit == SourceHit::nearestGap ? QTextLine::CursorBetweenCharacters : QTextLine::CursorOnCharacter);
    return piece.bytes.begin +
           placeOfUtf16(bytesOf(*m_lines, piece.bytes), static_cast<std::size_t>(std::max(0, unit)));
}

TextRange SourceLayout::bytesBetween(std::size_t line, double left, double right) {
    const TextRange bytes = m_lines->line(line);
    if (isCounted(line)) {
        const std::size_t end = placeAt(line, right, SourceHit::character);
        return {placeAt(line, left, SourceHit::character), std::min(end + 1, bytes.end)};
    }
    return {pieceAt(line, left).bytes.begin, pieceAt(line, right).bytes.end};
}

// Places are taken from the origin before they reach the painter, which counts in 32 bits.
void SourceLayout::draw(QPainter& painter, std::size_t line, QPointF origin, double right,
                        std::span<const SourceTint> tints) {
    const TextRange bytes = m_lines->line(line);
    const TextRange seen = bytesBetween(line, -origin.x(), right - origin.x());
    for (const SourceTint& tint : tints) {
        if (seen.end == bytes.end && tint.bytes.begin <= bytes.end && tint.bytes.end > bytes.end) {
            painter.fillRect(
                QRectF(origin.x() + xOf(line, bytes.end), origin.y(), m_columnWidth, m_lineHeight),
                tint.color);
        }
    }
    if (isCounted(line)) {
        drawCounted(painter, bytes, seen, origin, tints);
        return;
    }
    Piece piece = pieceAt(line, -origin.x());
    drawPiece(painter, piece, origin, tints);
    while (piece.bytes.end < bytes.end && origin.x() + piece.x + piece.width < right) {
        piece = pieceWith(line, piece.bytes.end);
        drawPiece(painter, piece, origin, tints);
    }
}

void SourceLayout::drawCounted(QPainter& painter, TextRange bytes, TextRange seen, QPointF origin,
                               std::span<const SourceTint> tints) {
    const auto xAt = [&](std::size_t place) {
        return origin.x() + static_cast<double>(place - bytes.begin) * m_columnWidth;
    };
    for (const SourceTint& tint : tints) {
        const TextRange part = common(tint.bytes, seen);
        if (!part.isEmpty()) {
            painter.fillRect(
                QRectF(xAt(part.begin), origin.y(), xAt(part.end) - xAt(part.begin), m_lineHeight),
                tint.color);
        }
    }
    // From places that do not depend on what is seen, so that letters keep theirs when the view is scrolled.
    seen.begin -= (seen.begin - bytes.begin) % pieceBytes;
    for (std::size_t begin = seen.begin; begin < seen.end; begin += pieceBytes) {
        const std::string_view text = bytesOf(*m_lines, {begin, std::min(begin + pieceBytes, bytes.end)});
        painter.drawText(QPointF(xAt(begin), origin.y() + m_ascent),
                         QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())));
    }
}

void SourceLayout::drawPiece(QPainter& painter, const Piece& piece, QPointF origin,
                             std::span<const SourceTint> tints) {
    Layout& layout = layoutOf(piece.bytes);
    const double stretch = stretchOf(piece, layout);
    painter.save();
    painter.translate(origin.x() + piece.x, origin.y());
    painter.scale(stretch, 1);
    for (const SourceTint& tint : tints) {
        const TextRange part = common(tint.bytes, piece.bytes);
        if (part == piece.bytes) {
            painter.fillRect(QRectF(0, 0, layout.width, m_lineHeight), tint.color);
        } else if (!part.isEmpty()) {
            const auto unitOf = [&](std::size_t place) {
                return static_cast<int>(utf16Length(bytesOf(*m_lines, {piece.bytes.begin, place})));
            };
            fillUnits(painter, layout.text, unitOf(part.begin), unitOf(part.end), m_lineHeight, tint.color);
        }
    }
    // Other fonts' signs may be taller; all stand on the same line.
    layout.text.draw(&painter, QPointF(0, m_ascent - layout.text.lineAt(0).ascent()));
    painter.restore();
    noteWidth(piece.x + layout.width * stretch);
}

} // namespace quillon
