#pragma once

#include <memory>

class QApplication;

namespace quillon::test {

/// What pages are told when they ask for the preferred colour scheme. It is a property of the process.
enum class EngineScheme { light, dark };

/// The web engine of this process, without a display: made once in main() ahead of every page, and gone after
/// the last one.
class BrowserEngine {
public:
    BrowserEngine(int& argc, char** argv, EngineScheme scheme);
    ~BrowserEngine();

private:
    std::unique_ptr<QApplication> m_application;
};

} // namespace quillon::test
