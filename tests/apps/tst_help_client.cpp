// SPDX-License-Identifier: MIT
#include <SettingsFolders.h>

#include <HelpClient.h>
#include <HelpPages.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace {

QTextBrowser* browser()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        if (window->objectName() == QLatin1String("helpViewer") && window->isVisible()) {
            return window->findChild<QTextBrowser*>();
        }
    }
    return nullptr;
}

QString shownText()
{
    const QTextBrowser* const shown = browser();
    return shown == nullptr ? QString() : shown->toPlainText().simplified();
}

} // namespace

class tst_help_client : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QDir().mkdir(m_folder->filePath(QStringLiteral("help")));
        write("help/index.md",
              "# Contents\n\n[One](one.md) [two](two.md) [web](https://example.org/x)");
        write("help/one.md", "# Page one\n\n[back](index.md)");
        write("help/two.md", "# Page two");
        write("secret.md", "# Secret");
        m_client = std::make_unique<HelpClient>(m_folder->filePath(QStringLiteral("help")));
        m_window = std::make_unique<QWidget>();
        auto* const layout = new QVBoxLayout(m_window.get());
        m_group = new QWidget(m_window.get());
        layout->addWidget(m_group);
        auto* const groupLayout = new QVBoxLayout(m_group);
        m_line = new QLineEdit(m_group);
        groupLayout->addWidget(m_line);
        m_window->show();
        QApplication::setActiveWindow(m_window.get());
        m_line->setFocus();
    }

    void cleanup()
    {
        m_window.reset();
        m_client.reset();
    }

    void f1ShowsTheNearestPage()
    {
        QTest::keyClick(m_line, Qt::Key_F1);
        QVERIFY(shownText().startsWith(QStringLiteral("Contents")));
        m_client->registerPage(m_window.get(), QStringLiteral("one"));
        QTest::keyClick(m_line, Qt::Key_F1);
        QVERIFY(shownText().startsWith(QStringLiteral("Page one")));
        m_client->registerPage(m_line, QStringLiteral("two"));
        QTest::keyClick(m_line, Qt::Key_F1);
        QCOMPARE(shownText(), QStringLiteral("Page two"));
        QTest::keyClick(m_group, Qt::Key_F1);
        QVERIFY(shownText().startsWith(QStringLiteral("Page one")));
    }

    void otherKeysGoWhereTheyWent()
    {
        QTest::keyClick(m_line, Qt::Key_A);
        QTest::keyClick(m_line, Qt::Key_F1, Qt::ShiftModifier);
        QCOMPARE(m_line->text(), QStringLiteral("a"));
        QVERIFY(browser() == nullptr);
    }

    void aLaterPageTakesTheEarlierOnesPlace()
    {
        m_client->registerPage(m_line, QStringLiteral("one"));
        m_client->registerPage(m_line, QStringLiteral("two"));
        QCOMPARE(m_client->pageOf(m_line), QStringLiteral("two"));
    }

    void aWidgetThatIsGoneIsForgotten()
    {
        m_client->registerPage(m_line, QStringLiteral("one"));
        const auto* const gone = m_line;
        delete m_line;
        // The address alone: another widget may be there later.
        QCOMPARE(m_client->pageOf(nullptr), QStringLiteral("index"));
        QScopedPointer<QLineEdit> next(new QLineEdit);
        for (int i = 0; i < 1000 && next.data() != gone; ++i) {
            next.reset(new QLineEdit);
        }
        QCOMPARE(m_client->pageOf(next.data()), QStringLiteral("index"));
    }

    void worksInAModalDialogAndEndsWithIt()
    {
        m_client->registerPage(m_window.get(), QStringLiteral("one"));
        {
            QDialog dialog(m_window.get());
            m_client->registerPage(&dialog, QStringLiteral("two"));
            dialog.setModal(true);
            dialog.show();
            QTest::keyClick(&dialog, Qt::Key_F1);
            QCOMPARE(shownText(), QStringLiteral("Page two"));
            QCOMPARE(browser()->window()->parentWidget(), &dialog);
        }
        QVERIFY(browser() == nullptr);
        QTest::keyClick(m_line, Qt::Key_F1);
        QVERIFY(shownText().startsWith(QStringLiteral("Page one")));
    }

    void linksLeadFromPageToPageAndBack()
    {
        m_client->showPage(QStringLiteral("index"), m_window.get());
        QWidget* const viewer = browser()->window();
        auto* const back = viewer->findChild<QPushButton*>(QStringLiteral("helpBack"));
        QVERIFY(!back->isEnabled());
        Q_EMIT browser()->anchorClicked(QUrl(QStringLiteral("one.md")));
        QVERIFY(shownText().startsWith(QStringLiteral("Page one")));
        QVERIFY(back->isEnabled());
        back->click();
        QVERIFY(shownText().startsWith(QStringLiteral("Contents")));
        viewer->findChild<QPushButton*>(QStringLiteral("helpForward"))->click();
        QVERIFY(shownText().startsWith(QStringLiteral("Page one")));
        viewer->findChild<QPushButton*>(QStringLiteral("helpContents"))->click();
        QVERIFY(shownText().startsWith(QStringLiteral("Contents")));
    }

    void aLinkIsFollowedByTheKeyboard()
    {
        m_client->showPage(QStringLiteral("index"), m_window.get());
        QApplication::setActiveWindow(browser()->window());
        browser()->setFocus();
        QTest::keyClick(browser(), Qt::Key_Tab);
        QTest::keyClick(browser(), Qt::Key_Return);
        QVERIFY(shownText().startsWith(QStringLiteral("Page one")));
    }

    void aPageThatIsMissingIsToldClearly()
    {
        m_client->showPage(QStringLiteral("no such page"), m_window.get());
        QVERIFY(shownText().contains(QStringLiteral("This page is missing")));
        QVERIFY(shownText().contains(QStringLiteral("no such page")));
        QVERIFY(shownText().contains(
            QDir::toNativeSeparators(m_folder->filePath(QStringLiteral("help")))));
        Q_EMIT browser()->anchorClicked(QUrl(QStringLiteral("index.md")));
        QVERIFY(shownText().startsWith(QStringLiteral("Contents")));
    }

    void withoutTheFolderEveryPageIsMissing()
    {
        HelpClient client(m_folder->filePath(QStringLiteral("nowhere")));
        client.showPage(QStringLiteral("index"), m_window.get());
        QVERIFY(shownText().contains(QStringLiteral("This page is missing")));
    }

    void nothingOutsideOfTheFolderIsShown_data()
    {
        QTest::addColumn<QString>("address");
        QTest::newRow("above") << "kesthelp:/../secret.md";
        QTest::newRow("link above") << "../secret.md";
        QTest::newRow("encoded") << "kesthelp:/%2e%2e/secret.md";
        QTest::newRow("through a link of the file system") << "link.md";
        QTest::newRow("file") << "file://SECRET";
        QTest::newRow("web") << "https://example.org/secret.md";
    }

    void nothingOutsideOfTheFolderIsShown()
    {
        QFETCH(QString, address);
        const QString secret = m_folder->filePath(QStringLiteral("secret.md"));
        QFile::link(secret, m_folder->filePath(QStringLiteral("help/link.md")));
        m_client->showPage(QStringLiteral("index"), m_window.get());
        Q_EMIT browser()->anchorClicked(QUrl(address.replace(QStringLiteral("SECRET"), secret)));
        QVERIFY(!shownText().contains(QStringLiteral("Secret")));
        QVERIFY(!HelpPages(m_folder->filePath(QStringLiteral("help"))).content(QUrl(address)));
    }

    void aLinkToElsewhereIsOnlyTold()
    {
        m_client->showPage(QStringLiteral("index"), m_window.get());
        auto* const message =
            browser()->window()->findChild<QLabel*>(QStringLiteral("helpMessage"));
        QVERIFY(!message->isVisible());
        Q_EMIT browser()->anchorClicked(QUrl(QStringLiteral("https://example.org/x")));
        QVERIFY(message->isVisible());
        QVERIFY(message->text().contains(QStringLiteral("https://example.org/x")));
        QVERIFY(shownText().startsWith(QStringLiteral("Contents")));
        Q_EMIT browser()->anchorClicked(QUrl(QStringLiteral("one.md")));
        QVERIFY(!message->isVisible());
    }

    // A picture of one colour is 40 pixels wide, and what stands for a missing one is not.
    void onlyPicturesOfTheFolderAreLoaded()
    {
        QImage picture(40, 40, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(m_folder->filePath(QStringLiteral("help/in.png"))));
        QVERIFY(picture.save(m_folder->filePath(QStringLiteral("out.png"))));
        const QString outside = m_folder->filePath(QStringLiteral("out.png"));
        m_client->showPage(QStringLiteral("index"), m_window.get());
        const auto width = [](const QString& name) {
            return browser()
                ->loadResource(QTextDocument::ImageResource, QUrl(name))
                .value<QImage>()
                .width();
        };
        QCOMPARE(width(QStringLiteral("in.png")), 40);
        QCOMPARE(width(QStringLiteral("../out.png")), 1);
        QCOMPARE(width(outside), 1);
        QCOMPARE(width(QStringLiteral("file://") + outside), 1);
        QCOMPARE(width(QStringLiteral("http://localhost/out.png")), 1);
    }

    void aPageWithPicturesFromElsewhereShowsNoneOfThem()
    {
        QImage picture(40, 40, QImage::Format_RGB32);
        picture.fill(QColor(1, 2, 3));
        const QString outside = m_folder->filePath(QStringLiteral("out.png"));
        QVERIFY(picture.save(outside));
        write("help/pictures.md",
              "![a](" + outside.toUtf8() + ") ![b](file://" + outside.toUtf8() + ")");
        m_client->showPage(QStringLiteral("pictures"), m_window.get());
        const QImage grabbed = browser()->grab().toImage();
        for (int y = 0; y < grabbed.height(); ++y) {
            for (int x = 0; x < grabbed.width(); ++x) {
                QVERIFY(grabbed.pixelColor(x, y) != QColor(1, 2, 3));
            }
        }
    }

    // The pages themselves: what the classes register is there, and no link leads nowhere.
    void thePagesOfTheSuiteAreThere_data()
    {
        QTest::addColumn<QString>("page");
        for (const char* const page : {"index", "kestdesk", "launch-options", "machines-file",
                                       "kestdesk-batch", "run-window", "cadkest", "postkest",
                                       "editkest", "online_InitialRenderingSettingsDialog"}) {
            QTest::newRow(page) << QString::fromLatin1(page);
        }
    }

    void thePagesOfTheSuiteAreThere()
    {
        QFETCH(QString, page);
        const HelpPages pages(QStringLiteral(KEST_HELP_PAGES));
        const std::optional<QByteArray> content = pages.content(HelpPages::address(page));
        QVERIFY(content && content->startsWith("# ") && content->size() > 400);
        static const QRegularExpression link(QStringLiteral("\\]\\(([^)]*)\\)"));
        QRegularExpressionMatchIterator links = link.globalMatch(QString::fromUtf8(*content));
        int count = 0;
        while (links.hasNext()) {
            const QUrl target = HelpPages::address(page).resolved(QUrl(links.next().captured(1)));
            QVERIFY2(pages.content(target), qPrintable(target.toString()));
            ++count;
        }
        QVERIFY(count > 0);
    }

private:
    void write(const char* name, const QByteArray& content)
    {
        QVERIFY(SettingsFolders::write(m_folder->filePath(QString::fromLatin1(name)), content));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<HelpClient> m_client;
    std::unique_ptr<QWidget> m_window;
    QWidget* m_group = nullptr;
    QLineEdit* m_line = nullptr;
};

QTEST_MAIN(tst_help_client)
#include "tst_help_client.moc"
