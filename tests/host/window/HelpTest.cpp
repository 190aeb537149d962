#include "FrameTest.h"
#include "host/toolkit/HelpWindow.h"

#include <QTextBrowser>

namespace ko::test {
namespace {

using HelpTest = FrameTest;

TEST_F(HelpTest, ShowsTheFilesOfItsFolderAlone)
{
    const std::string outside = file("outside.html", "<p>outside</p>");
    std::filesystem::create_directory(folder.path / "help");
    file("help/index.html", "<p>contents</p>");
    file("help/page.html", "<p>page</p>");
    ASSERT_TRUE(QFile::link(toQt(outside), toQt(folder.file("help/link.html"))));
    HelpWindow help(texts, toQt(folder.file("help")), nullptr);
    help.turnTo(0);
    for (const QString& url :
         {QString("../outside.html"), QString("link.html"), QString("file:///etc/passwd"), QString("http://127.0.0.1/"),
          QString("qrc:/help/index.html"), QString("data:text/html,x"), QString("file://host/help/index.html"),
          QString("."), QString("gone.html"), "file://" + toQt(outside)}) {
        help.browser().setSource(url);
        EXPECT_EQ(help.browser().toPlainText(), "contents") << url.toStdString();
        for (const int type : {QTextDocument::ImageResource, QTextDocument::StyleSheetResource})
            EXPECT_TRUE(help.browser().loadResource(type, url).isNull()) << url.toStdString();
    }
    help.browser().setSource(QUrl("page.html#place"));
    EXPECT_EQ(help.browser().toPlainText(), "page");
}

TEST_F(HelpTest, TurnsItsPagesByLinksAndButtons)
{
    HelpWindow help(texts, QStringLiteral(KO_DEMO_FOLDER "/../help/en"), &window);
    help.turnTo(contentsTopic);
    help.show();
    QTextBrowser& browser = help.browser();
    const auto page = [&] {
        EXPECT_EQ(help.windowTitle(), browser.documentTitle());
        return browser.source().fileName();
    };
    const auto button = [&](int text) {
        for (QPushButton* const it : help.findChildren<QPushButton*>())
            if (it->text() == window.text(text))
                return it;
        throw std::out_of_range("no such button");
    };
    const auto states = [&] {
        return std::pair(button(hostText::back)->isEnabled(), button(hostText::forward)->isEnabled());
    };
    EXPECT_EQ(page(), "index.html");
    EXPECT_EQ(states(), std::pair(false, false));
    QTest::keyClick(&browser, Qt::Key_Tab);
    QTest::keyClick(&browser, Qt::Key_Return);
    EXPECT_EQ(page(), "page.html");
    EXPECT_EQ(states(), std::pair(true, false));
    button(hostText::back)->click();
    EXPECT_EQ(page(), "index.html");
    EXPECT_EQ(states(), std::pair(false, true));
    button(hostText::forward)->click();
    EXPECT_EQ(page(), "page.html");
    button(hostText::contents)->click();
    EXPECT_EQ(page(), "index.html");
    EXPECT_TRUE(button(hostText::closeHelp)->isDefault());
    button(hostText::closeHelp)->click();
    EXPECT_FALSE(help.isVisible());
    HelpWindow none(texts, "/nowhere", &window);
    none.turnTo(contentsTopic);
    EXPECT_TRUE(none.browser().toPlainText().contains("/nowhere/index.html"));
}

} // namespace
} // namespace ko::test
