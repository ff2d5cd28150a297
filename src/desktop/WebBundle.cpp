#include "desktop/WebBundle.h"

#include "base/Uuid.h"

#include <QBuffer>
#include <QWebEngineUrlRequestJob>

#include <utility>

namespace quillon {

namespace {

/// Reads bytes where they lie and keeps them alive. A QBuffer, since the engine reads any other device with
/// pauses of a second.
class BytesBuffer : public QBuffer {
public:
    BytesBuffer(Bytes bytes, QObject* parent)
        : QBuffer(parent), m_bytes(std::move(bytes)),
          m_array(QByteArray::fromRawData(m_bytes.view().data(), static_cast<qsizetype>(m_bytes.size()))) {
        setBuffer(&m_array);
        open(QIODevice::ReadOnly);
    }
    ~BytesBuffer() override { close(); }

private:
    Bytes m_bytes;
    QByteArray m_array;
};

void reply(QWebEngineUrlRequestJob* job, const std::string& type, Bytes bytes) {
    job->reply(QByteArray::fromStdString(type), new BytesBuffer(std::move(bytes), job));
}

constexpr std::string_view pageFolder = "bundle:///.page/";

} // namespace

WebBundle::WebBundle(const BundleSchemeHandler& assets) : m_assets(assets) {}

std::string WebBundle::offerPage(std::uint64_t page, Bytes script) {
    m_offeredPage = page;
    m_offeredScript = std::move(script);
    m_offeredURL = std::string(pageFolder) + Uuid::random().text();
    return m_offeredURL;
}

void WebBundle::requestStarted(QWebEngineUrlRequestJob* job) {
    const std::string url = job->requestUrl().toEncoded().toStdString();
    if (m_offeredPage != 0 && url == m_offeredURL) {
        const std::uint64_t page = std::exchange(m_offeredPage, 0);
        if (onPageRequested) {
            onPageRequested(page);
        }
        reply(job, "text/javascript;charset=utf-8", std::exchange(m_offeredScript, Bytes()));
        return;
    }
    auto answer = m_assets.answer(url);
    if (!answer) {
        const bool isBad = answer.error() == BundleSchemeHandler::Failure::badURL;
        job->fail(isBad ? QWebEngineUrlRequestJob::UrlInvalid : QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    reply(job, answer->mimeType, std::move(answer->data));
}

} // namespace quillon
