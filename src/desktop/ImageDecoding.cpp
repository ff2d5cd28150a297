#include "desktop/ImageDecoding.h"

#include <QBuffer>
#include <QImageReader>

#include <cstring>

namespace quillon {

SharedImage decodeImage(std::string_view bytes) {
    QByteArray array = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&array);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QImage image = reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return nullptr;
    }
    auto decoded = std::make_shared<DecodedImage>();
    decoded->width = image.width();
    decoded->height = image.height();
    const auto width = static_cast<std::size_t>(image.width());
    decoded->pixels.resize(width * static_cast<std::size_t>(image.height()));
    for (int row = 0; row < image.height(); ++row) {
        std::memcpy(decoded->pixels.data() + static_cast<std::size_t>(row) * width, image.constScanLine(row),
                    width * sizeof(std::uint32_t));
    }
    return decoded;
}

} // namespace quillon
