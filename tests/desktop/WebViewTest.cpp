#include "desktop/WebFixture.h"

#include "desktop/WebRequests.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QWebEngineView>

#include <csignal>

namespace quillon::test {

namespace {

Bytes picture(int width, Qt::GlobalColor color = Qt::red) {
    QImage image(width, 2, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return Bytes(bytes.toStdString());
}

std::string imageOf(const std::string& url) {
    return "<img src=\"" + url + "\">";
}

} // namespace

TEST_F(WebViewTest, assetsOfEveryNameAreServed) {
    const std::vector<std::string> keys = {
        "Images/A.png",  "IMAGES/a b.png",  "Größe/ü.png", "a+b/c+d.png",  "it's/o'neil.png",
        "50%/100%.png",  ".hidden/x.png",   "1/2.png",     "-/a.png",      "(1)/[a].png",
        "日本/写真.png", "deep/er/x@2.png", "A.PNG",       "e=m&c/d;e.png"};
    Assets files;
    std::string body;
    int width = 3;
    for (const std::string& key : keys) {
        files.emplace(key, picture(width++));
        std::string shown = key;
        for (std::size_t at = 0; (at = shown.find('&', at)) != std::string::npos; at += 5) {
            shown.replace(at, 1, "&amp;");
        }
        body += imageOf("bundle://" + shown);
    }
    body += "<div id='styled' style=\"background-image: url('bundle://Images/A.png')\" "
            "title='bundle://T/A'></div>";
    assets.assets = std::move(files);
    ASSERT_TRUE(load(page(body)));
    for (std::size_t index = 0; index < keys.size(); ++index) {
        EXPECT_EQ(run("document.images[" + std::to_string(index) + "].naturalWidth"),
                  std::to_string(index + 3))
            << keys[index];
    }
    EXPECT_EQ(run("document.getElementById('styled').title"), "bundle://T/A");
}

TEST_F(WebViewTest, aPageHandedOverInPiecesIsTheSameDocument) {
    const std::string odd =
        page("<p data-x='\"\\\\'>\"quoted\" \\n </p><script>window.ran = document.scripts.length;"
             "</script>\r\n<pre>\n\n\xE2\x80\xA8</pre><table><tr><td>1</table><!-- </head> -->",
             "<title>T &amp; U</title><style>p { color: rgb(1, 2, 3) }</style>");
    ASSERT_TRUE(load(odd, "https://maps.example/embed/"));
    EXPECT_EQ(run("location.origin + ' ' + document.baseURI"),
              "https://maps.example https://maps.example/embed/");
    EXPECT_EQ(run("window.ran"), "1");
    EXPECT_EQ(run("document.compatMode + document.characterSet"), "CSS1CompatUTF-8");
    EXPECT_EQ(run("getComputedStyle(document.querySelector('p')).color"), "rgb(1, 2, 3)");
    QString literal = QString::fromStdString(odd);
    for (const auto& [from, to] : {std::pair("\\", "\\\\"), std::pair("`", "\\`"), std::pair("\r", "\\r")}) {
        literal.replace(from, to);
    }
    EXPECT_EQ(run("document.documentElement.outerHTML"),
              run("new DOMParser().parseFromString(`" + literal.toStdString() +
                  "`, 'text/html').documentElement.outerHTML"));
}

TEST_F(WebViewTest, nothingIsDraggedOutOfAPage) {
    ASSERT_TRUE(load(
        page("<p id='p'>words</p><script>"
             "window.addEventListener('dragstart', () => { window.wasAsked = true; }, true);</script>")));
    EXPECT_EQ(run("document.getElementById('p').dispatchEvent("
                  "new DragEvent('dragstart', {bubbles: true, cancelable: true}))"),
              "false");
    EXPECT_EQ(run("window.wasAsked"), "undefined");
}

TEST_F(WebViewTest, largePagesLoad) {
    const std::string filler(20U << 20U, 'x');
    ASSERT_TRUE(load(page("<div hidden>" + filler + "</div><p id='end'>end</p>")));
    EXPECT_EQ(
        run("document.getElementById('end').textContent + document.querySelector('div').textContent.length"),
        "end" + std::to_string(filler.size()));
}

TEST_F(WebViewTest, ofSeveralPagesInARowTheLastComesUpAndIsToldOnce) {
    for (int number = 0; number < 5; ++number) {
        web.loadHTML(page("<p>" + std::to_string(number) + "</p>"), "https://page.example/");
    }
    ASSERT_TRUE(load(page("<p>last</p>")));
    EXPECT_EQ(run("document.querySelector('p').textContent"), "last");
    QTest::qWait(200);
    EXPECT_EQ(finishes, 1);
}

TEST_F(WebViewTest, anAssetOfTheSameNameShowsItsNewBytes) {
    for (const int width : {3, 4, 5}) {
        assets.assets = Assets{{"a.png", picture(width)}};
        ASSERT_TRUE(load(page(imageOf("bundle://a.png"))));
        EXPECT_EQ(run("document.images[0].naturalWidth"), std::to_string(width));
    }
}

TEST_F(WebViewTest, theProductsOwnPicturesComeFromTheProgram) {
    ASSERT_TRUE(load(page(imageOf("https://quillon.example/assets/icon.png") +
                          imageOf("https://quillon.example/assets/none.png"))));
    EXPECT_EQ(run("document.images[0].naturalWidth"), "1024");
    EXPECT_EQ(run("document.images[1].naturalWidth"), "0");
}

TEST_F(WebViewTest, theReaderStaysWhereHeWas) {
    const std::string tall = "<div style='height: 3000px'></div>";
    ASSERT_TRUE(load(page(tall)));
    run("window.scrollTo(0, 700)");
    ASSERT_TRUE(waitFor([&] { return web.view()->page()->scrollPosition().y() == 700; }, longestScript));
    ASSERT_TRUE(load(page(tall + "more")));
    EXPECT_EQ(run("window.scrollY"), "700");
}

TEST_F(WebViewTest, theWheelGoesOnWhereThePageDoesNotScroll) {
    web.setPassesWheel(true);
    ASSERT_TRUE(load(page("<div style='overflow-x: auto; height: 100px'><p style='width: 3000px'>wide</div>"
                          "<div style='height: 3000px'></div>")));
    const auto passed = [&](const QPoint& at, const QPoint& turn, Qt::KeyboardModifiers keys = {}) {
        QSignalSpy spy(&web, &PreviewWebWidget::wheelPassed);
        QWheelEvent event(at, web.view()->mapToGlobal(at), {}, turn, Qt::NoButton, keys, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(web.view()->focusProxy(), &event);
        run("0"); // whatever was asked before has been answered
        return spy.isEmpty() ? QPoint() : spy[0][0].toPoint();
    };
    constexpr QPoint wide(50, 50);
    constexpr QPoint below(50, 300);
    const QPoint up(0, 120);
    const QPoint left(120, 0);
    EXPECT_EQ(passed(below, -left), -left);
    EXPECT_EQ(passed(below, -up, Qt::ShiftModifier), -left);
    EXPECT_EQ(passed(below, -up, Qt::ControlModifier), QPoint());
    EXPECT_EQ(passed(wide, left), left) << "at the begin of what scrolls within the page";
    EXPECT_EQ(passed(wide, -left), QPoint());
    EXPECT_EQ(passed(below, up), up) << "at the page's begin";
    EXPECT_EQ(passed(below, -up), QPoint());
    run("window.scrollTo(0, 10000)");
    EXPECT_EQ(passed(below, -up), -up) << "at the page's end";
    web.setPassesWheel(false);
    EXPECT_EQ(passed(below, -up), QPoint());
}

TEST_F(WebViewTest, aLoadLeavesTheKeyboardWhereItIs) {
    QLineEdit field(&window);
    field.show();
    window.activateWindow();
    field.setFocus();
    ASSERT_TRUE(waitFor([&] { return field.hasFocus(); }, longestScript));
    ASSERT_TRUE(load(page("<input autofocus><script>document.querySelector('input').focus()</script>")));
    QTest::keyClicks(&field, "typed");
    EXPECT_EQ(field.text(), "typed");
    EXPECT_TRUE(field.hasFocus());
}

TEST_F(WebViewTest, theOldPageStaysUntilTheNewOneIsThere) {
    const auto dark = [&](const std::string& color, int rows) {
        std::string body;
        for (int row = 0; row < rows; ++row) {
            body += "<p>A line of the page, number " + std::to_string(row) + "</p>";
        }
        return page(body, "<style>body { background: " + color + "; color: gray }</style>");
    };
    const auto corner = [&] {
        return window.grab().toImage().pixelColor(400, 200).name().toStdString();
    };
    ASSERT_TRUE(load(dark("#000064", 500)));
    ASSERT_TRUE(waitFor([&] { return corner() == "#000064"; }));
    QTest::qWait(300);
    std::string last = "#000064";
    for (const char* next : {"#006400", "#640000", "#000064"}) {
        web.loadHTML(dark(next, 4000), "https://page.example/");
        std::vector<std::string> seen;
        ASSERT_TRUE(waitFor([&] {
            const std::string color = corner();
            if (seen.empty() || seen.back() != color) {
                seen.push_back(color);
            }
            return color == next;
        }));
        EXPECT_EQ(seen, (std::vector<std::string>{last, next}));
        last = next;
    }
}

TEST_F(WebViewTest, thePageFollowsTheWindowBetweenLightAndDark) {
    const std::string asked =
        page("<script>const dark = matchMedia('(prefers-color-scheme: dark)'); debugger;</script>");
    ASSERT_TRUE(load(asked));
    EXPECT_EQ(run("dark.matches"), "false");
    const auto paint = [&](Qt::GlobalColor color) {
        QPalette palette = web.palette();
        palette.setColor(QPalette::Window, color);
        web.setPalette(palette);
    };
    paint(Qt::black);
    EXPECT_TRUE(comesTrue("dark.matches"));
    ASSERT_TRUE(load(asked));
    EXPECT_EQ(run("dark.matches"), "true") << "the next page as well";
    ::kill(static_cast<pid_t>(web.processId()), SIGKILL);
    const int before = finishes;
    ASSERT_TRUE(waitFor([&] { return finishes > before; }, longestLoad));
    EXPECT_TRUE(comesTrue("dark.matches")) << "and one in a new process";
    paint(Qt::white);
    EXPECT_TRUE(comesTrue("!dark.matches"));
}

TEST_F(WebViewTest, aWebProcessThatDiesIsReplaced) {
    ASSERT_TRUE(load(page("<p>kept</p>")));
    QSignalSpy restarts(&web, &PreviewWebWidget::restarted);
    const int before = finishes;
    ::kill(static_cast<pid_t>(web.processId()), SIGKILL);
    ASSERT_TRUE(waitFor([&] { return finishes > before; }, longestLoad));
    EXPECT_EQ(restarts.count(), 1);
    EXPECT_EQ(run("document.querySelector('p').textContent"), "kept");
}

TEST_F(WebViewTest, aNewProcessLeavesTheKeyboardWhereItIs) {
    QLineEdit field(&window);
    field.show();
    window.activateWindow();
    field.setFocus();
    ASSERT_TRUE(waitFor([&] { return field.hasFocus(); }, longestScript));
    ASSERT_TRUE(load(page("<p>first</p>")));
    const auto restart = [&] {
        const int before = finishes;
        ::kill(static_cast<pid_t>(web.processId()), SIGKILL);
        return waitFor([&] { return finishes > before; }, longestLoad);
    };
    ASSERT_TRUE(restart());
    QTest::qWait(200);
    EXPECT_TRUE(field.hasFocus());
    web.view()->setFocus();
    ASSERT_FALSE(field.hasFocus());
    ASSERT_TRUE(restart());
    QTest::qWait(200);
    EXPECT_TRUE(web.view()->hasFocus()) << "nor does it take it from the page";
}

TEST_F(WebViewTest, aPageThatNeverComesToRestDoesNotKeepTheNextOneOut) {
    for (const char* script : {"for (;;) {}", "setInterval(() => { for (;;) {} }, 1)",
                               "window.onbeforeunload = () => 'stay'; for (;;) {}"}) {
        web.loadHTML(page("<script>setTimeout(() => {" + std::string(script) + "}, 1)</script>"),
                     "https://page.example/");
        QTest::qWait(700);
        ASSERT_TRUE(load(page("<p>next</p>"))) << script;
        EXPECT_EQ(run("document.querySelector('p').textContent"), "next");
    }
}

TEST_F(WebViewTest, aHostilePageSpoilsOnlyItself) {
    const char* script = R"js(
window.done = [];
for (let i = 0; i < 50; ++i) {
  alert('x'); confirm('y'); prompt('z'); window.print(); window.open('https://evil.example/' + i);
  window.open('bundle:///a'); document.documentElement.requestFullscreen?.().catch(() => {});
}
debugger;
done.push('dialogs');
navigator.geolocation.getCurrentPosition(() => done.push('PLACE'), () => done.push('no place'));
navigator.mediaDevices?.getUserMedia({audio: true, video: true}).then(() => done.push('CAMERA'), () => done.push('no camera'));
Notification.requestPermission().then((answer) => done.push('notification ' + answer));
navigator.clipboard?.readText().then(() => done.push('CLIPBOARD'), () => done.push('no clipboard'));
for (const url of ['file:///etc/passwd', 'mailto:a@b', 'view-source:about:blank', 'chrome://version', 'ftp://x.example/',
                   'https://page.example/elsewhere', 'javascript:void 0', 'tel:123', 'qrc:/x']) {
  const link = document.createElement('a'); link.href = url; link.target = '_top'; document.body.append(link); link.click();
  const frame = document.createElement('iframe'); frame.src = url; document.body.append(frame);
  const picture = new Image(); picture.src = url;
}
location.reload();
const file = document.createElement('input'); file.type = 'file'; document.body.append(file); file.click();
const save = document.createElement('a'); save.href = 'data:application/octet-stream,x'; save.download = 'evil'; save.click();
fetch('bundle:///secret.txt').then((r) => r.text()).then((t) => done.push('READ ' + t), () => done.push('no fetch'));
const xhr = new XMLHttpRequest(); xhr.onload = () => done.push('READ ' + xhr.responseText);
xhr.onerror = () => done.push('no xhr'); xhr.open('GET', 'bundle:///secret.txt'); xhr.send();
fetch('http://127.0.0.1:9/').then(() => done.push('LOCAL'), () => done.push('no local'));
onbeforeunload = () => 'stay';
)js";
    assets.assets = Assets{{"secret.txt", Bytes("secret")}};
    ASSERT_TRUE(load(page("<p>shown</p><script>" + std::string(script) + "</script>")));
    ASSERT_TRUE(comesTrue("done.length >= 8")) << run("done.join()");
    EXPECT_EQ(run("done.slice().sort().join()"),
              "dialogs,no camera,no clipboard,no fetch,no local,no place,no xhr,notification denied");
    EXPECT_EQ(run("document.querySelector('p').textContent"), "shown");
    EXPECT_TRUE(QApplication::topLevelWidgets().size() <= 2);
    ASSERT_TRUE(load(page("<p>next</p>")));
    EXPECT_EQ(run("document.querySelector('p').textContent"), "next");
}

TEST_F(WebViewTest, noServerOfThisMachineIsReached) {
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    int connections = 0;
    QObject::connect(&server, &QTcpServer::newConnection, [&] { ++connections; });
    const std::string port = std::to_string(server.serverPort());
    std::string script = "window.done = 0; const end = () => ++done;";
    int count = 0;
    for (const char* host :
         {"127.0.0.1", "localhost", "localhost.", "a.localhost", "127.1", "2130706433", "[::1]"}) {
        const std::string address = std::string(host) + ":" + port + "/";
        script += "fetch('http://" + address + "').then(end, end);";
        script += "{ const p = new Image(); p.onload = p.onerror = end; p.src = 'http://" + address + "'; }";
        script +=
            "try { const s = new WebSocket('ws://" + address + "'); s.onclose = end; } catch { end(); }";
        script += "{ const f = document.createElement('iframe'); f.src = 'http://" + address +
                  "'; document.documentElement.append(f); }";
        count += 3;
    }
    script += "window.hasSharedWorkers = typeof SharedWorker;";
    script +=
        "try { const c = new RTCPeerConnection({iceServers: [{urls: 'stun:127.0.0.1:" + port +
        "'}]}); c.createDataChannel('x'); c.createOffer().then(o => c.setLocalDescription(o)); } catch {}";
    ASSERT_TRUE(load(page("<script>" + script + "</script>", "")));
    EXPECT_TRUE(comesTrue("done === " + std::to_string(count))) << run("done");
    EXPECT_EQ(run("hasSharedWorkers"), "undefined");
    EXPECT_EQ(connections, 0);
}

TEST_F(WebViewTest, aPageCannotTakeItsSuccessorsPlace) {
    // Everything that an address of a script could be guessed from.
    ASSERT_TRUE(load(page(R"html(<p>first</p><script>
const known = (new Error().stack + performance.getEntriesByType('resource').map(e => e.name).join()).match(/bundle:[^\s:)"]*/g) || [];
setInterval(() => { for (const url of known) for (let n = 0; n < 5; ++n) {
  for (const guess of [url, url.replace(/[0-9]+$/, n)]) { const s = document.createElement('script'); s.src = guess; document.head.append(s); }
} }, 1);
</script>)html")));
    for (const char* text : {"second", "third"}) {
        ASSERT_TRUE(load(page("<p>" + std::string(text) + "</p>")));
        EXPECT_EQ(run("document.querySelector('p').textContent"), text);
    }
    web.view()->page()->triggerAction(QWebEnginePage::Back);
    run("history.back()");
    QTest::qWait(100);
    EXPECT_EQ(run("document.querySelector('p').textContent"), "third");
}

TEST_F(WebViewTest, itsMenuMayBeOpenWhenItGoes) {
    auto other = std::make_unique<PreviewWebWidget>(configuration(), scheduler);
    other->resize(300, 300);
    other->show();
    const int before = finishes;
    other->loadHTML(page("<p>words</p>"), "https://page.example/");
    ASSERT_TRUE(waitFor([&] { return finishes > before; }));
    QTest::qWait(200); // clicks on a page that is not painted yet are lost
    QTest::mouseClick(other->view()->focusProxy(), Qt::RightButton, {}, {20, 20});
    EXPECT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    other.reset();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST(WebRequests, nothingOfThisMachineIsReached) {
    for (const char* url :
         {"file:///etc/passwd", "chrome://version", "qrc:/x", "ftp://a.example/", "http://localhost/",
          "https://api.localhost:8080/", "http://LOCALHOST./", "http://127.0.0.1/", "http://127.9.9.9/",
          "http://0.0.0.0/", "http://[::1]/", "http://[::ffff:127.0.0.1]/", "http://169.254.169.254/latest/",
          "http://[fe80::1]/", "ws://127.0.0.1:9222/"}) {
        EXPECT_FALSE(isRequestAllowed(QUrl(url))) << url;
    }
    for (const char* url : {"https://a.example/x", "http://192.168.1.5/cms.jpg", "bundle:///a.png", "data:,x",
                            "about:blank", "https://[2001:db8::1]/"}) {
        EXPECT_TRUE(isRequestAllowed(QUrl(url))) << url;
    }
}

} // namespace quillon::test
