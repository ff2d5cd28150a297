#pragma once

#include "document/TextLines.h"

#include <QCache>
#include <QColor>
#include <QFont>
#include <QTextLayout>

#include <array>
#include <span>
#include <unordered_map>
#include <vector>

class QPainter;

namespace quillon {

/// A colour behind some bytes.
struct SourceTint {
    TextRange bytes;
    QColor color;
};

/// What of a line a point stands for.
enum class SourceHit { nearestGap, character };

/// Where the characters of single lines stand, from the line's begin, in one font; in points. Lines of ASCII
/// in a font of one width are counted, all others laid out in pieces, and only those pieces that are asked
/// for. In a line longer than `exactBytes` the pieces ahead of one are not laid out for it: their widths are
/// guessed, and each piece is stretched to fill what was guessed.
class SourceLayout {
public:
    static constexpr std::size_t pieceBytes = 512;
    static constexpr std::size_t mirroredPieceBytes = 16384; ///< where some of the line reads to the left
    static constexpr std::size_t exactBytes = 65536;

    /// `lines` outlives the layout or its next text.
    void setLines(const TextLines& lines);
    void setFont(const QFont& font);
    const QFont& font() const { return m_font; }

    int lineHeight() const { return m_lineHeight; }
    double columnWidth() const { return m_columnWidth; }
    /// The width of the widest line, as far as lines have been looked at; a guess for one of many pieces.
    double width() const { return m_width; }

    double xOf(std::size_t line, std::size_t place);
    std::size_t placeAt(std::size_t line, double x, SourceHit hit);

    /// Draws what of a line is seen from the painter's 0 to `right`; the line begins at `origin`. Text is in
    /// the painter's pen; a tint that reaches beyond the line's end shows a column more.
    void draw(QPainter& painter, std::size_t line, QPointF origin, double right,
              std::span<const SourceTint> tints);
    /// The bytes of a line of which something is between `left` and `right`.
    TextRange bytesBetween(std::size_t line, double left, double right);

private:
    /// A line of several pieces, or a long one that is counted.
    struct LongLine {
        bool isCounted = false;
        std::size_t pieceBytes = 0;
        std::vector<std::size_t> begins; ///< of the pieces known so far, and the end of the last
        std::vector<double> xs;          ///< of each of them
    };
    struct Piece {
        TextRange bytes;
        double x = 0;
        double width = -1; ///< negative for its own
    };
    struct Layout {
        QTextLayout text;
        double width = 0;
    };

    LongLine& longLine(std::size_t line);
    std::size_t pieceEnd(TextRange rest, std::size_t size) const;
    bool isCounted(std::size_t line);
    template <typename IsBehind>
    Piece pieceOf(std::size_t line, IsBehind isBehind);
    Piece pieceAt(std::size_t line, double x);
    Piece pieceWith(std::size_t line, std::size_t place);
    double guessedWidth(std::string_view text) const;
    Layout& layoutOf(TextRange bytes);
    double stretchOf(const Piece& piece, const Layout& layout) const;
    void drawPiece(QPainter& painter, const Piece& piece, QPointF origin, std::span<const SourceTint> tints);
    void drawCounted(QPainter& painter, TextRange bytes, TextRange seen, QPointF origin,
                     std::span<const SourceTint> tints);
    void noteWidth(double width) { m_width = std::max(m_width, width); }
    void measureWidest();

    const TextLines* m_lines = nullptr;
    QFont m_font;
    bool m_isFixedPitch = false;
    double m_columnWidth = 0;
    std::array<double, 5> m_scalarWidths{}; ///< of usual scalars, by the number of their bytes
    int m_lineHeight = 1;
    double m_ascent = 0;
    double m_width = 0;
    std::unordered_map<std::size_t, LongLine> m_longLines;
    QCache<std::size_t, Layout> m_layouts{256}; ///< by the place of a piece
};

} // namespace quillon
