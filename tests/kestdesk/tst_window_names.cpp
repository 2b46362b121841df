// SPDX-License-Identifier: MIT
#include "WindowStage.h"

#include <NativeRun.h>
#include <RunResults.h>
#include <SpecialFile.h>
#include <SystemSkips.h>

#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>

namespace {

constexpr int longTime = 60000;                     // ms, on a machine with much to do
const char* const overriding = "left\u202egnp.nec"; // turns the direction of writing
const char* const seen = "left<U+202E>gnp.nec";

} // namespace

// kestdesk's window with models whose names are not what they look like.
class tst_window_names : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowStage> m_stage;

    MainWindow& window() const { return m_stage->window(); }

    void run(const char* name, const QByteArray& word) const
    {
        const int row = m_stage->runCount();
        m_stage->window().openModel(m_stage->model(name, word));
        m_stage->pressRun();
        QTRY_VERIFY_WITH_TIMEOUT(
            m_stage->runCount() > row && m_stage->state(row) != text("running"), longTime);
    }

    // Makes a file whose name is not UTF-8, and drops it.
    QStringList drop(const QByteArray& name) const
    {
        const QString folder = m_stage->desk().path("models");
        if (NativeRun::of(text("/usr/bin/touch"), {name}, folder, m_stage->desk().environment())
                .exitCode != 0) {
            qFatal("no file");
        }
        QMimeData data;
        data.setUrls({QUrl::fromEncoded(QUrl::fromLocalFile(folder + QLatin1Char('/')).toEncoded() +
                                        name.toPercentEncoding())});
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window(), &enter);
        if (enter.isAccepted()) {
            QDropEvent event({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&window(), &event);
        }
        return reader.texts;
    }

private Q_SLOTS:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void init()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<WindowStage>();
        m_stage->open();
    }

    void namesCannotTurnTheWindowsTexts()
    {
        SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES();
        run(overriding, "valid");
        QCOMPARE(m_stage->state(), text("valid"));
        const QString name = text(seen);
        QCOMPARE(m_stage->cell(0, "Model"), name);
        QVERIFY2(window().windowTitle().startsWith(name), qPrintable(window().windowTitle()));
        QCOMPARE(m_stage->outcomeText(), text("runkest of ") + name + text(": valid"));
        const QAbstractItemModel* const runs = m_stage->find<QTableView>("runList")->model();
        const QString toolTip = runs->index(0, 0).data(Qt::ToolTipRole).toString();
        QVERIFY2(!toolTip.contains(QChar(0x202e)) && toolTip.contains(text("U+202E")),
                 qPrintable(toolTip));
        auto* const recent = m_stage->find<QMenu>("recentMenu");
        Q_EMIT recent->aboutToShow();
        QVERIFY2(recent->actions().value(0)->text().endsWith(name),
                 qPrintable(recent->actions().value(0)->text()));
        // What is opened is the file itself.
        recent->actions().value(0)->trigger();
        QCOMPARE(QFileInfo(m_stage->find<QLineEdit>("modelEdit")->text()).fileName(),
                 text(overriding));
    }

    void namesCannotTurnTheQuestions()
    {
        window().openModel(m_stage->model(overriding, "wait"));
        m_stage->pressRun();
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("running"), longTime);
        m_stage->askFromTheStart();
        const BoxAnswerer agreeing(WindowStage::agreeing());
        m_stage->pressStop();
        QCOMPARE(agreeing.texts, QStringList(text("Stop ") + text(seen) + text(", 0 %?")));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
    }

    void namesCannotTurnTheComplaints()
    {
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        window().openModel(m_stage->desk().path(text(overriding)));
        m_stage->find<QLineEdit>("modelEdit")->setText(m_stage->desk().path(text(overriding)));
        m_stage->pressRun();
        m_stage->find<QAction>("viewModelAction")->trigger();
        QCOMPARE(reader.texts.size(), 3);
        for (const QString& each : reader.texts) {
            QVERIFY2(each.contains(text(seen)) && !each.contains(QChar(0x202e)), qPrintable(each));
        }
    }

    // Not even where a label would take it for text with marks.
    void markupInNamesIsText()
    {
        SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES();
        run("<h1>x.nec", "valid");
        QCOMPARE(m_stage->find<QLabel>("outcomeLabel")->textFormat(), Qt::PlainText);
        const QAbstractItemModel* const runs = m_stage->find<QTableView>("runList")->model();
        const QString toolTip = runs->index(0, 0).data(Qt::ToolTipRole).toString();
        QVERIFY2(!toolTip.contains(text("<h1>")), qPrintable(toolTip));
    }

    void nameThatIsNoTextIsToldWhenItIsDropped()
    {
        SKIP_WITHOUT_BYTES_IN_NAMES();
        const QStringList told = drop("caf\xe9 \xc3\xa9.nec");
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.first().contains(text("caf\\xE9 é.nec")) &&
                     told.first().contains(text("is not UTF-8; rename it")),
                 qPrintable(told.first()));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
    }

    // As desktops' own dialogs give it.
    void nameThatIsNoTextIsToldWhenItIsChosen()
    {
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        window().openModel(m_stage->desk().path(text("models/caf\ufffd.nec")));
        QCOMPARE(reader.texts.size(), 1);
        QVERIFY2(reader.texts.first().contains(text("is not UTF-8")),
                 qPrintable(reader.texts.first()));
    }

    // Qt's dialog does not list it: who looks for it in vain hears why.
    void filesThatTheDialogCannotListAreTold()
    {
        SKIP_WITHOUT_BYTES_IN_NAMES();
        window().openModel(m_stage->model("m.nec", "valid"));
        QCOMPARE(NativeRun::of(text("/usr/bin/touch"), {"caf\xe9.nec", "x\xe9.txt"},
                               m_stage->desk().path("models"), m_stage->desk().environment())
                     .exitCode,
                 0);
        QStringList told;
        const ModalVisitor closing([&told](QDialog& dialog) {
            if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
                told.append(box->text());
            }
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        m_stage->press(Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.first().contains(text("caf\\xE9.nec")) && !told.first().contains(text("txt")),
                 qPrintable(told.first()));
    }

    // Whatever a component names: to open a pipe would wait for its other end.
    void pipeIsNoTable()
    {
        const QString folder = m_stage->desk().path("models");
        SPECIAL_FILE_OR_SKIP(S_IFIFO, folder + text("/pipe.csv"));
        writeFile(folder + text("/good.csv"), "frequency_MHz,resistance_ohm,reactance_ohm,swr\n");
        QCOMPARE(RunResults::tables({text("pipe.csv"), text("good.csv")}, folder),
                 QStringList(folder + text("/good.csv")));
    }
};

QTEST_MAIN(tst_window_names)
#include "tst_window_names.moc"
