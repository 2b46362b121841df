// SPDX-License-Identifier: MIT
#include "OutputViews.h"

#include <DialogStage.h>

#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include <ctime>
#include <functional>

namespace {

/// A picture and a style sheet that a child might name, both in a colour that nothing else has.
class Bait
{
public:
    Bait() : m_oldDirectory(QDir::currentPath())
    {
        QImage image(40, 40, QImage::Format_RGB32);
        image.fill(colour());
        image.save(m_folder.filePath(QStringLiteral("bait.png")));
        SettingsFolders::write(m_folder.filePath(QStringLiteral("bait.css")),
                               "p, td { background-color: #12ab34 }");
        QDir::setCurrent(m_folder.path());
    }
    Bait(const Bait&) = delete;
    Bait& operator=(const Bait&) = delete;
    ~Bait() { QDir::setCurrent(m_oldDirectory); }

    static QColor colour() { return QColor(0x12, 0xab, 0x34); }

    QString inLine(QString line) const
    {
        return line.replace(QStringLiteral("FOLDER"), m_folder.path());
    }

private:
    QTemporaryDir m_folder;
    QString m_oldDirectory;
};

const char* const baits[] = {
    "<img src='FOLDER/bait.png'>",
    "<img src='file://FOLDER/bait.png'>",
    "<img src='bait.png'>",
    "<img src=bait.png width=500 height=300>",
    "<img src='FOLDER/bait.png' style='float:right'>",
    "<table background='FOLDER/bait.png'><tr><td>text text text</td></tr></table>",
    "<table background='bait.png'><tr><td>text text text</td></tr></table>",
    "<p style='background-image: url(bait.png)'>text text text</p>",
    "<table><tr><td style='background-image: url(\"bait.png\")'>text text</td></tr></table>",
    ("<html><head><link rel='stylesheet' type='text/css' href='bait.css'></head>"
     "<body><p>text text text</p></body></html>"),
    "<html><head><style>@import url('bait.css');</style></head><body><p>text</p></body></html>",
    "<base href='file://FOLDER/'><img src='bait.png'>",
};

} // namespace

class tst_common_KestProcessOutputTabWidget_safety : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsNothingThatIsNamed_data();
    void readsNothingThatIsNamed();
    void namesImages();
    void showsBlocksAsLines();
    void staysAliveWithVeryManyLines_data();
    void staysAliveWithVeryManyLines();
    void staysAliveWithNestedTables_data();
    void staysAliveWithNestedTables();
    void connectsToNothingThatIsNamed_data();
    void connectsToNothingThatIsNamed();
    void readsNothingForTheClipboard();
    void copiesVeryMuchAsPlainText();
    void linksDoNothing();
};

void tst_common_KestProcessOutputTabWidget_safety::readsNothingThatIsNamed_data()
{
    QTest::addColumn<QString>("line");

    for (const char* const line : baits) {
        QTest::newRow(line) << QString::fromUtf8(line);
    }
}

// What is bait for a plain view is told by such a view.
void tst_common_KestProcessOutputTabWidget_safety::readsNothingThatIsNamed()
{
    QFETCH(QString, line);
    const Bait bait;
    line = bait.inLine(line);
    QTextEdit plain;
    plain.resize(600, 300);
    plain.append(line);
    static int taken = 0;
    taken += shows(&plain, Bait::colour()) ? 1 : 0;
    if (QLatin1String(QTest::currentDataTag()) == QLatin1String(*std::rbegin(baits))) {
        QVERIFY2(taken >= 6, "the plain view takes the baits");
    }

    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const TabStage stage;
        stage.runner->say(type, line);
        stage.runner->output(QStringLiteral("next"));
        stage.tabs()->setCurrentIndex(0);
        QVERIFY(!shows(stage.dialog, Bait::colour()));
        stage.tabs()->setCurrentIndex(3);
        QVERIFY(!shows(stage.dialog, Bait::colour()));
    }

    const TabStage stage;
    stage.dialog->setInfoLabel(line);
    QVERIFY(!shows(stage.dialog, Bait::colour()));
    stage.dialog->setInfoLabel(QString());
    stage.runner->start(QStringLiteral("/bin/x"), {line});
    QVERIFY(!shows(stage.dialog, Bait::colour()));
    QCOMPARE(stage.info()->text(), QStringLiteral("> x ") + line);
}

void tst_common_KestProcessOutputTabWidget_safety::connectsToNothingThatIsNamed_data()
{
    QTest::addColumn<QString>("line");

    const char* const lines[] = {
        "<img src='http://ADDRESS/bait.png'>",
        "<a href='http://ADDRESS/bait.html'>http://ADDRESS/bait.html</a>",
        "<table background='http://ADDRESS/bait.png'><tr><td>text</td></tr></table>",
        "<p style='background-image: url(http://ADDRESS/bait.png)'>text</p>",
        "<html><head><link rel='stylesheet' href='http://ADDRESS/bait.css'></head>text</html>",
        "<base href='http://ADDRESS/'><img src='bait.png'>",
        "http://ADDRESS/bait.png",
    };
    for (const char* const line : lines) {
        QTest::newRow(line) << QString::fromUtf8(line);
    }
}

void tst_common_KestProcessOutputTabWidget_safety::connectsToNothingThatIsNamed()
{
    QFETCH(QString, line);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    line.replace(QStringLiteral("ADDRESS"),
                 QStringLiteral("127.0.0.1:%1").arg(server.serverPort()));
    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const TabStage stage;
        stage.runner->say(type, line);
        stage.dialog->setInfoLabel(line);
        for (int tab = 0; tab < stage.tabs()->count(); ++tab) {
            stage.tabs()->setCurrentIndex(tab);
            stage.dialog->grab();
        }
        stage.output()->selectAll();
        stage.output()->copy();
        QCoreApplication::processEvents();
    }
    QVERIFY(!server.hasPendingConnections() && !server.waitForNewConnection(50));
    QTcpSocket caller; // as the server would be told
    caller.connectToHost(server.serverAddress(), server.serverPort());
    QVERIFY(server.waitForNewConnection(30000));
}

void tst_common_KestProcessOutputTabWidget_safety::namesImages()
{
    const TabStage stage;
    stage.runner->output(QStringLiteral("<img src='missing.png' width=5000 height=5000> &lt;"));
    stage.runner->notice(QStringLiteral("<img src='x.png' alt='a picture'>"));
    QCOMPARE(stage.text(), QStringLiteral("[missing.png] <\n[a picture]"));
    QVERIFY(stage.output()->document()->size().height() < 60);
}

void tst_common_KestProcessOutputTabWidget_safety::showsBlocksAsLines()
{
    const QString table = QStringLiteral("<table><tr><td>a</td><td>b</td></tr></table><p>c</p>"
                                         "<ul><li>d<li>e</ul>x<hr>");
    const QString text =
        QStringLiteral("a\tb\nc\n\u2022 d\n\u2022 e\nx\n") + QString(40, QLatin1Char('-'));
    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const DialogStage stage;
        stage.runner->say(type, table);
        QCOMPARE(stage.text(), text);
        const QTextDocument* const document = stage.output()->document();
        QVERIFY(document->rootFrame()->childFrames().isEmpty());
        const QTextCharFormat format = document->lastBlock().begin().fragment().charFormat();
        QCOMPARE(format.foreground().style() != Qt::NoBrush,
                 type != common_IProcessMessage::Output);
    }
}

void tst_common_KestProcessOutputTabWidget_safety::staysAliveWithVeryManyLines_data()
{
    QTest::addColumn<bool>("open");

    QTest::newRow("folded") << false;
    QTest::newRow("open") << true;
}

// What a user waits for is one turn of the event loop. A view that lays out all lines takes seconds
// for some of these, and the more lines there are, the longer.
void tst_common_KestProcessOutputTabWidget_safety::staysAliveWithVeryManyLines()
{
    QFETCH(bool, open);
    constexpr int turns = 200;
    constexpr int linesOfTurn = 1000;
    constexpr std::clock_t longest = CLOCKS_PER_SEC / 2; // of this process, whatever else runs
    const DialogStage stage;
    std::clock_t slowest = 0;
    const auto inOneTurn = [&slowest](const std::function<void()>& happens) {
        const std::clock_t begin = std::clock();
        happens();
        QCoreApplication::processEvents();
        slowest = qMax(slowest, std::clock() - begin);
    };
    stage.runner->start();
    if (open) {
        stage.openDetails();
    }
    for (int turn = 0; turn < turns; ++turn) {
        inOneTurn([&] {
            for (int line = 0; line < linesOfTurn; ++line) {
                stage.runner->output(
                    QStringLiteral("this is line number %1").arg(turn * linesOfTurn + line));
            }
        });
    }
    inOneTurn([&stage] { stage.openDetails(); });
    stage.tabs()->setCurrentIndex(0);
    inOneTurn([&stage] { stage.dialog->resize(stage.dialog->size() + QSize(150, 0)); });
    inOneTurn([&stage] { stage.dialog->grab(); });
    qInfo("slowest turn: %ld ms of processor time", long(slowest * 1000 / CLOCKS_PER_SEC));
    QVERIFY(slowest < longest);
    QCOMPARE(stage.output()->document()->blockCount(), turns * linesOfTurn);
    QCOMPARE(stage.output()->document()->lastBlock().text(),
             QStringLiteral("this is line number 199999"));
    const QScrollBar* const bar = stage.output()->verticalScrollBar();
    QVERIFY(bar->maximum() > turns * linesOfTurn);
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_common_KestProcessOutputTabWidget_safety::staysAliveWithNestedTables_data()
{
    QTest::addColumn<bool>("open");

    QTest::newRow("folded") << false;
    QTest::newRow("open") << true;
}

// Laid out as tables in tables, thirty of them would take for ever.
void tst_common_KestProcessOutputTabWidget_safety::staysAliveWithNestedTables()
{
    QFETCH(bool, open);
    const QString nested = QStringLiteral("<table><tr><td>").repeated(30);
    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const DialogStage stage;
        stage.runner->start(QStringLiteral("/bin/x"), {nested});
        if (open) {
            stage.openDetails();
        }
        stage.runner->say(type, nested + QStringLiteral("x"));
        stage.runner->say(type, nested.repeated(100) + QStringLiteral("y"));
        stage.runner->output(QStringLiteral("next"));
        QCoreApplication::processEvents();
        stage.dialog->grab();
        QVERIFY(stage.text().endsWith(QStringLiteral("y\nnext")));
        QCOMPARE(stage.info()->text(), QStringLiteral("> x ") + nested);
    }
}

void tst_common_KestProcessOutputTabWidget_safety::readsNothingForTheClipboard()
{
    const Bait bait;
    const TabStage stage;
    stage.runner->output(bait.inLine(QStringLiteral("<b>bold</b> <img src='FOLDER/bait.png'> x")));
    stage.output()->selectAll();
    stage.output()->copy();
    const QMimeData* const data = QApplication::clipboard()->mimeData();
    QVERIFY(data->text().startsWith(QStringLiteral("bold ")));
    QVERIFY(data->hasHtml());
    QVERIFY(!data->hasImage());
    QVERIFY(!data->hasFormat(QStringLiteral("application/vnd.oasis.opendocument.text")));
}

void tst_common_KestProcessOutputTabWidget_safety::copiesVeryMuchAsPlainText()
{
    const TabStage stage;
    stage.runner->notice(QStringLiteral("a&nbsp;b<br>c"));
    for (int line = 0; line < 30000; ++line) {
        stage.runner->error(QStringLiteral("error %1").arg(line));
    }
    stage.output()->selectAll();
    stage.output()->copy();
    const QMimeData* const data = QApplication::clipboard()->mimeData();
    QVERIFY(data->text() == stage.text());
    QVERIFY(!data->hasHtml());
}

void tst_common_KestProcessOutputTabWidget_safety::linksDoNothing()
{
    const TabStage stage;
    QVERIFY(!(stage.output()->textInteractionFlags() &
              (Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard)));
    QVERIFY(!(stage.errors()->textInteractionFlags() &
              (Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard)));
    QVERIFY(!stage.info()->openExternalLinks());
}

QTEST_MAIN(tst_common_KestProcessOutputTabWidget_safety)
#include "tst_common_KestProcessOutputTabWidget_safety.moc"
