#include "desktop/TerminationSignals.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace quillon {

namespace {

constexpr std::array numbers = {SIGTERM, SIGINT, SIGHUP};

int writeEnd = -1; ///< of the pipe; the one thing that a signal handler may touch

void passOn(int) {
    const int saved = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(writeEnd, &byte, 1);
    errno = saved;
}

} // namespace

struct TerminationSignals::Parts {
    std::array<int, 2> pipe = {-1, -1};
    std::array<struct sigaction, numbers.size()> before = {};
    std::unique_ptr<QSocketNotifier> notifier;
};

TerminationSignals::TerminationSignals(std::function<void()> action) : m_parts(std::make_unique<Parts>()) {
    if (pipe(m_parts->pipe.data()) != 0) {
        return;
    }
    for (const int end : m_parts->pipe) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    writeEnd = m_parts->pipe[1];
    m_parts->notifier = std::make_unique<QSocketNotifier>(m_parts->pipe[0], QSocketNotifier::Read);
    QObject::connect(m_parts->notifier.get(), &QSocketNotifier::activated, m_parts->notifier.get(),
                     [end = m_parts->pipe[0], action = std::move(action)] {
                         char byte = 0;
                         [[maybe_unused]] const ssize_t count = read(end, &byte, 1);
                         action();
                     });
    struct sigaction handler = {};
    handler.sa_handler = passOn;
    handler.sa_flags = SA_RESTART;
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        sigaction(numbers[index], &handler, &m_parts->before[index]);
    }
}

TerminationSignals::~TerminationSignals() {
    if (!m_parts->notifier) {
        return;
    }
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        sigaction(numbers[index], &m_parts->before[index], nullptr);
    }
    writeEnd = -1;
    for (const int end : m_parts->pipe) {
        close(end);
    }
}

} // namespace quillon

#else

namespace quillon {

// Other systems end programs by a message to their windows, which close as the user would close them.
struct TerminationSignals::Parts {};

TerminationSignals::TerminationSignals(std::function<void()>) {}

TerminationSignals::~TerminationSignals() = default;

} // namespace quillon

#endif
