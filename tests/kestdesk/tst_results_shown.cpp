// SPDX-License-Identifier: MIT
// kestdesk and postkest as a person has them before the eyes: both are real processes, worked by
// clicks from outside.
#include "Desk.h"
#include "TestedProgram.h"

#include <QImage>
#include <QJsonArray>
#include <QProcess>

namespace {

constexpr int longTime = 120000; // ms, on a machine with much to do

using Curve = QVector<QPointF>;

// A column of a run's table over its first one.
Curve columnOf(const QString& fileName, int column)
{
    QList<QByteArray> lines = contentOf(fileName).split('\n');
    lines.removeFirst();
    Curve result;
    for (const QByteArray& line : qAsConst(lines)) {
        const QList<QByteArray> cells = line.split(',');
        if (cells.size() > column) {
            result.append(QPointF(cells.first().toDouble(), cells.at(column).toDouble()));
        }
    }
    return result;
}

Curve curveOf(const QJsonValue& drawn)
{
    Curve result;
    const QJsonArray points = drawn.toObject().value(text("points")).toArray();
    for (const QJsonValue& point : points) {
        result.append(QPointF(point.toArray().at(0).toDouble(), point.toArray().at(1).toDouble()));
    }
    return result;
}

int pixelCount(const QImage& picture, const QColor& colour)
{
    int result = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            result += picture.pixelColor(x, y) == colour ? 1 : 0;
        }
    }
    return result;
}

void install(const QString& prefix)
{
    for (const char* const component : {"Runtime", "Applications", "Postkest", "Suite"}) {
        QProcess installer;
        installer.start(text(CMAKE_PROGRAM),
                        {text("--install"), text(BUILD_FOLDER), text("--prefix"), prefix,
                         text("--component"), text(component)});
        QVERIFY(installer.waitForFinished(longTime));
        QVERIFY2(installer.exitCode() == 0, installer.readAllStandardError().constData());
    }
}

} // namespace

class tst_results_shown : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Desk> m_desk;

    QString socket(const char* program) const { return m_desk->path("user/") + text(program); }

    // The three charts show what the run has written.
    static void compareCharts(TestedProgram& postkest, const QString& fileName)
    {
        const char* const charts[] = {"chart0", "chart1", "chart2"};
        for (int i = 0; i < 3; ++i) {
            QTRY_COMPARE_WITH_TIMEOUT(postkest.ask("curves", charts[i]).toArray().size(), 1,
                                      longTime);
            const Curve expected = columnOf(fileName, i + 1);
            QCOMPARE(expected.size(), 41);
            QCOMPARE(curveOf(postkest.ask("curves", charts[i]).toArray().first()), expected);
        }
    }

    // And one can see it.
    static void checkPicture(TestedProgram& postkest, const QString& fileName)
    {
        QFile::remove(fileName);
        QVERIFY(postkest.ask("picture", "postkestWindow", "file", fileName).toBool());
        const QImage picture(fileName);
        const QColor colour(postkest.ask("curves", "chart0")
                                .toArray()
                                .first()
                                .toObject()
                                .value(text("colour"))
                                .toString());
        QVERIFY(colour.isValid() && colour != Qt::white);
        const int count = pixelCount(picture, colour);
        QVERIFY2(count > 300, qPrintable(QString::number(count)));
    }

private Q_SLOTS:
    void init()
    {
        m_desk = std::make_unique<Desk>();
        m_desk->set("QT_PLUGIN_PATH", text(TESTER_PATH));
        m_desk->set("QT_QPA_GENERIC_PLUGINS", text("guitester"));
        m_desk->set("KEST_TEST_DESK", m_desk->path("user"));
        QVERIFY(
            QFile::copy(text(KEST_SUITE "/models/yagi.nec"), m_desk->path("models/the yagi.nec")));
    }

    void cleanup()
    {
        Processes::send(SIGKILL, m_desk->processes()); // of a failed test
        m_desk.reset();
    }

    void yagiIsRunAndItsResultsAreShown_data()
    {
        QTest::addColumn<bool>("isInstalled");
        QTest::newRow("where it was built") << false;
        QTest::newRow("installed") << true;
    }

    void yagiIsRunAndItsResultsAreShown()
    {
        QFETCH(bool, isInstalled);
        const QString prefix = m_desk->path("an installation");
        if (isInstalled) {
            install(prefix);
            m_desk->setProgram(prefix + text("/bin/kestdesk"));
            m_desk->unset("KEST_HOME"); // it is found beside the program
        } else {
            m_desk->set("KEST_HOME", text(KEST_SUITE));
        }

        QProcess process;
        m_desk->start(process, {text("the yagi.nec")});
        TestedProgram kestdesk(socket("kestdesk"));
        QVERIFY(kestdesk.isReached(longTime));
        QTRY_COMPARE_WITH_TIMEOUT(kestdesk.property("modelEdit", "text").toString(),
                                  m_desk->path("models/the yagi.nec"), longTime);
        QCOMPARE(kestdesk.property("showResultsButton", "enabled"), QJsonValue(false));
        QVERIFY(kestdesk.click("runButton", longTime));
        QTRY_VERIFY_WITH_TIMEOUT(kestdesk.ask("rows", "runList").toArray().size() == 1, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(
            kestdesk.ask("rows", "runList").toArray().first().toArray().at(2).toString(),
            text("valid"), longTime);

        QVERIFY(kestdesk.click("showResultsButton", longTime));
        TestedProgram postkest(socket("postkest"));
        QVERIFY(postkest.isReached(longTime));
        compareCharts(postkest, m_desk->path("models/the yagi.csv"));
        const QString program =
            isInstalled ? prefix + text("/lib/kest/suite") : QDir(text(KEST_SUITE)).path();
        QCOMPARE(m_desk->processes().filter(program + text("/bin/postkest")).size(), 1);
        checkPicture(postkest, text(PICTURE_FOLDER "/results_shown_%1_%2.png")
                                   .arg(qEnvironmentVariable("QT_QPA_PLATFORM"),
                                        text(isInstalled ? "installed" : "built")));

        QVERIFY(kestdesk.ask("close", "kestdeskWindow").toBool());
        QVERIFY(process.state() == QProcess::NotRunning || process.waitForFinished(longTime));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        const QString title = postkest.property("postkestWindow", "windowTitle").toString();
        QVERIFY2(title.startsWith(text("the yagi.csv (")) && title.endsWith(text(" - postkest")),
                 qPrintable(title));
        QVERIFY(postkest.ask("close", "postkestWindow").toBool());
        QTRY_COMPARE_WITH_TIMEOUT(m_desk->processes(), QStringList(), longTime);
    }
};

QTEST_GUILESS_MAIN(tst_results_shown)

#include "tst_results_shown.moc"
