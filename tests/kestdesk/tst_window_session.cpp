// SPDX-License-Identifier: MIT
#include "WindowStage.h"

#include <SystemSkips.h>

#include <QFileDialog>
#include <QTextEdit>

namespace {

constexpr int longTime = 60000; // ms, on a machine with much to do

// Two long wires at so many frequencies that the solver needs many minutes.
constexpr const char* longModel = "CM Takes long\n"
                                  "CE\n"
                                  "GW 1 301 0 0 -5 0 0 5 0.001\n"
                                  "GW 2 301 1 0 -5 1 0 5 0.001\n"
                                  "GE 0\n"
                                  "EX 0 1 151 0 1 0\n"
                                  "FR 0 2000 0 0 100 0.1\n"
                                  "XQ\n"
                                  "EN\n";

} // namespace

/// Two sessions of a person with the window, on the sample installation with its real solver, by
/// the keyboard alone.
class tst_window_session : public QObject
{
    Q_OBJECT

private:
    WindowStage m_stage;

    void openByTheDialog(const QString& model) const
    {
        const ModalVisitor chooser([model](QDialog& dialog) {
            auto* const name = dialog.findChild<QLineEdit*>(text("fileNameEdit"));
            name->setText(model); // not typed: the list of completions would open
            QTest::keyClick(name, Qt::Key_Return);
        });
        m_stage.press(Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(QDir::fromNativeSeparators(m_stage.find<QLineEdit>("modelEdit")->text()), model);
    }

    // The dialog of the newest run.
    common_KestProcessDialog* dialog() const { return m_stage.dialogs().constLast(); }

    QString outcome() const
    {
        return WindowStage::inDialog<QPushButton>(dialog(), "buttonOk")
            ->property("squishValue")
            .toString();
    }

    QStringList recentFiles() const
    {
        auto* const menu = m_stage.find<QMenu>("recentMenu");
        Q_EMIT menu->aboutToShow();
        QStringList result;
        const QList<QAction*> actions = menu->actions();
        for (const QAction* const action : actions) {
            result.append(action->text().section(QLatin1Char(' '), 1));
        }
        return result;
    }

    void runAModel(const QString& model) const
    {
        openByTheDialog(model);
        m_stage.pressFocused(Qt::Key_Space); // on Run
        QCOMPARE(m_stage.dialogs().size(), 1);
        QVERIFY(QTest::qWaitForWindowActive(dialog()));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage.state(), text("valid"), longTime);
        QCOMPARE(outcome(), text("valid"));
        QVERIFY(!contentOf(m_stage.desk().path("models/dipole.csv")).isEmpty());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space); // on OK
        QTRY_VERIFY_WITH_TIMEOUT(m_stage.dialogs().isEmpty(), longTime);
    }

    void stopAnotherRun(const QString& model) const
    {
        openByTheDialog(model);
        m_stage.pressRun();
        QCOMPARE(m_stage.state(1), text("running"));
        QTRY_VERIFY_WITH_TIMEOUT(m_stage.cell(1, "Progress") != text("0 %"), longTime);
        QTRY_VERIFY_WITH_TIMEOUT(!m_stage.desk().processes().filter(text("runkest")).isEmpty(),
                                 longTime);
        m_stage.askFromTheStart();
        BoxAnswerer willing(WindowStage::agreeing());
        m_stage.pressStop();
        QCOMPARE(willing.texts.size(), 1);
        QVERIFY2(QRegularExpression(text("^Stop long\\.nec, [1-9][0-9]? %\\?$"))
                     .match(willing.texts.constFirst())
                     .hasMatch(),
                 qPrintable(willing.texts.constFirst()));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage.state(1), text("stopped"), longTime);
        QCOMPARE(m_stage.outcomeText(), text("runkest of long.nec: stopped"));
        QCOMPARE(outcome(), text("fault"));
        QCOMPARE(m_stage.state(0), text("valid"));
    }

private Q_SLOTS:
    void runsAreMadeAndStoppedAndTheNextStartIsAsTheLastEnd()
    {
        SKIP_WITHOUT_STOP_REQUESTS();
        qputenv("KEST_HOME", KEST_SUITE);
        const QString dipole = m_stage.desk().path("models/dipole.nec");
        const QString slow = m_stage.model("long.nec", longModel);
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/dipole.nec"), dipole));
        m_stage.open();
        runAModel(dipole);
        stopAnotherRun(slow);
        m_stage.window().setGeometry(70, 60, 520, 430);
        const QPoint place = m_stage.window().pos();
        BoxAnswerer nobody(WindowStage::pressing(Qt::Key_Escape));
        QVERIFY(WindowStage::quits([this] { m_stage.press(Qt::Key_Q, Qt::ControlModifier); }));
        QCOMPARE(nobody.texts, QStringList()); // all have ended
        QCOMPARE(m_stage.desk().processes(), QStringList());

        m_stage.open();
        QCOMPARE(m_stage.window().pos(), place);
        QCOMPARE(m_stage.window().size(), QSize(520, 430));
        QCOMPARE(recentFiles().mid(0, 2), QStringList({slow, dipole}));
        QCOMPARE(m_stage.find<QLineEdit>("modelEdit")->text(), slow);
        QTRY_COMPARE(m_stage.runCount(), 2); // from their records
    }
};

QTEST_MAIN(tst_window_session)

#include "tst_window_session.moc"
