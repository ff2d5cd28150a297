#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quillon::bench {

/// What processes hold in memory, in MB; what they share is divided among all that share it.
struct HeldMemory {
    double whole = 0;
    double withoutFiles = 0; ///< of that, what no file backs: other programs that run cannot change it

    HeldMemory& operator+=(const HeldMemory& other);
};

/// What a program and the processes below it hold.
struct TreeMemory {
    HeldMemory tree;
    HeldMemory own; ///< the program without the processes below it
    int processes = 0;
};

/// A program from its start to its end, with settings and a state of its own. It tells each time that it
/// paints, and everything that the program's performance log has.
class FreshProgram {
public:
    /// What the lines contain that tell of something painted and of a page that is complete.
    static constexpr char painted[] = "Flushing QRegion";
    static constexpr char pageShown[] = "preview.webview.reload.finish";

    FreshProgram(const QString& path, const QStringList& arguments);
    /// Ends the program.
    ~FreshProgram();

    /// Waits for the line that is the `count`th to contain `text`, and returns when it came, in seconds since
    /// the start; infinite where it does not come.
    double timeOf(const char* text, int count = 1);

    TreeMemory memory() const;

private:
    void read();

    QTemporaryDir m_folder;
    QProcess m_process;
    QElapsedTimer m_clock;
    QByteArray m_rest; ///< of a line that is not complete yet
    std::vector<std::pair<double, QByteArray>> m_lines;
    std::function<void()> m_onLines;
};

} // namespace quillon::bench
