#include "desktop/Settings.h"
#include "package/BlankArticle.h"
#include "package/NewArticle.h"
#include "package/PackageFile.h"
#include "support/ScratchFolder.h"

#include <QImage>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

namespace quillon::test {

namespace {

/// The program itself, with a home of its own.
class ProgramTest : public testing::Test {
protected:
    ProgramTest() {
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME"}) {
            environment.insert(name, QString::fromStdString(m_folder.path(name)));
        }
        m_program.setProcessEnvironment(environment);
    }

    void start(const QStringList& arguments) { m_program.start(QUILLON_PROGRAM, arguments); }
    bool ends() {
        return QTest::qWaitFor([&] { return m_program.state() == QProcess::NotRunning; }, 20'000);
    }

    ScratchFolder m_folder;
    QProcess m_program;
};

TEST_F(ProgramTest, answersOnTheCommandLine) {
    const struct {
        QStringList arguments;
        int status;
        const char* output;
        const char* errors;
    } rows[] = {
        {{"--version"}, 0, "quillon ", ""},
        {{"--help"}, 0, "Usage: quillon ", ""},
        {{""}, 2, "", "the name of a package is empty"},
        {{"--no-such"}, 2, "", "unknown option --no-such"},
    };
    for (const auto& row : rows) {
        start(row.arguments);
        ASSERT_TRUE(ends());
        EXPECT_EQ(m_program.exitCode(), row.status);
        EXPECT_TRUE(m_program.readAllStandardOutput().startsWith(row.output));
        EXPECT_TRUE(m_program.readAllStandardError().contains(row.errors));
    }
}

TEST_F(ProgramTest, paintsItsWindowOrSaysWhyNot) {
    const QString picture = QString::fromStdString(m_folder.path("window.png"));
    ASSERT_TRUE(savePackage(makeNewDocument(makeBlankArticle(0)), m_folder.path("Trip")));
    start({"--screenshot", picture, QString::fromStdString(m_folder.path("Trip"))});
    ASSERT_TRUE(ends());
    EXPECT_EQ(m_program.exitCode(), 0);
    EXPECT_FALSE(QImage(picture).isNull());

    m_folder.write("Broken/article.json", "{");
    start({"--screenshot", picture, QString::fromStdString(m_folder.path("Broken"))});
    ASSERT_TRUE(ends());
    EXPECT_EQ(m_program.exitCode(), 1);
    EXPECT_TRUE(m_program.readAllStandardError().contains("Broken/article.json: line 1, column 2"));
}

TEST_F(ProgramTest, opensAPackageAndLeavesWhenItIsTold) {
    const std::string package = m_folder.path("Trip");
    ASSERT_TRUE(savePackage(makeNewDocument(makeBlankArticle(0)), package));
    const auto before = snapshot(package);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const ScratchFolder home;
        Settings settings(QString::fromStdString(home.path("Tarnwell/Quillon.ini")), nullptr);
        auto environment = m_program.processEnvironment();
        environment.insert("XDG_CONFIG_HOME", QString::fromStdString(home.path()));
        m_program.setProcessEnvironment(environment);
        start({QString::fromStdString(package)});
        ASSERT_TRUE(QTest::qWaitFor([&] { return !settings.recentDocuments().isEmpty(); }, 30'000));
        ::kill(static_cast<pid_t>(m_program.processId()), signal);
        ASSERT_TRUE(ends());
        EXPECT_EQ(m_program.exitStatus(), QProcess::NormalExit) << signal;
        EXPECT_EQ(m_program.exitCode(), 0);
        EXPECT_EQ(snapshot(package), before);
    }
}

} // namespace

} // namespace quillon::test
