// SPDX-License-Identifier: MIT
#include "WindowTest.h"

#include <SystemSkips.h>

#include <QMessageBox>
#include <QRegularExpression>

#include <csignal>

namespace {

/// Looks at the question that comes up while it lives, and does not answer it.
class QuestionReader
{
public:
    using Deed = std::function<void()>;

    explicit QuestionReader(const Deed& deed = {})
        : m_visitor([this, deed](QDialog& dialog) {
            m_box = qobject_cast<QMessageBox*>(&dialog);
            text = m_box ? m_box->text() : QString();
            if (deed) {
                deed();
            }
        })
    {}

    QMessageBox* box() const { return m_box; }

    QString text;

private:
    QPointer<QMessageBox> m_box;
    ModalVisitor m_visitor;
};

} // namespace

// What the window asks before it stops runs, and what answers it.
class tst_stop_question : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup()
    {
        m_stage->endRuns(SIGKILL); // some do not end otherwise
        tearDown();
    }

    void keysThatSlipKeepTheRun_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
        QTest::newRow("Space") << int(Qt::Key_Space);
        QTest::newRow("Escape") << int(Qt::Key_Escape);
    }

    void keysThatSlipKeepTheRun()
    {
        QFETCH(int, key);
        m_stage->askFromTheStart();
        startWaitingRun();
        BoxAnswerer slipping(
            [key](QMessageBox& box) { QTest::keyClick(box.focusWidget(), Qt::Key(key)); });
        m_stage->pressStop();
        m_stage->window().close();
        QCOMPARE(slipping.texts.size(), 2);
        QVERIFY(m_stage->window().isVisible());
        QCOMPARE(m_stage->state(), text("running"));
    }

    void keysThatSlipDoNotEndByForce()
    {
        SKIP_WITHOUT_STOP_REQUESTS();
        startWaitingRun("stubborn");
        {
            const BoxAnswerer willing(WindowStage::agreeing());
            m_stage->window().close();
        }
        BoxAnswerer slipping(
            [](QMessageBox& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); });
        m_stage->window().close();
        QCOMPARE(slipping.texts.size(), 1);
        QCOMPARE(m_stage->state(), text("stopping, still running"));
    }

    void enterFromTheModelOnStopsNothing()
    {
        m_stage->typeModel(m_stage->model("m.nec", "wait"));
        BoxAnswerer reader(WindowStage::pressing(Qt::Key_Return));
        QTest::keyClick(m_stage->find<QLineEdit>("modelEdit"), Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("running"), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(QApplication::activeWindow(), m_stage->dialogs().constLast(),
                                  longTime);
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }
        QCOMPARE(m_stage->runCount(), 1);
        QCOMPARE(reader.texts, QStringList());
        QCOMPARE(m_stage->state(), text("running"));
    }

    void nameAndProgressOfTheRunAreInTheQuestion()
    {
        m_stage->askFromTheStart();
        startWaitingRun("halfway", "long.nec");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Progress"), text("50 %"), longTime);
        BoxAnswerer unwilling(WindowStage::pressing(Qt::Key_Escape));
        m_stage->pressStop();
        m_stage->window().close();
        QCOMPARE(unwilling.texts, QStringList({text("Stop long.nec, 50 %?"),
                                               text("Stop long.nec, 50 %, and quit?")}));
    }

    void remainingTimeIsInTheQuestionAndFollowsTheRun()
    {
        m_stage->askFromTheStart();
        startWaitingRun("steady", "long.nec");
        QTRY_VERIFY_WITH_TIMEOUT(!m_stage->cell(0, "Remaining").isEmpty(), longTime);
        const QRegularExpression form(text("^Stop long\\.nec, [0-9]+ %, about [0-9]+ s left\\?$"));
        QString later;
        BoxAnswerer patient([&later](QMessageBox& box) {
            const QString first = box.text();
            const bool isUpdated =
                QTest::qWaitFor([&] { return box.text() != first; }, longTime / 2);
            later = isUpdated ? box.text() : text("the same");
            box.reject();
        });
        m_stage->pressStop();
        QCOMPARE(patient.texts.size(), 1);
        QVERIFY2(form.match(patient.texts.first()).hasMatch(), qPrintable(patient.texts.first()));
        QVERIFY2(form.match(later).hasMatch(), qPrintable(later));
    }

    // Nothing else changes any more.
    void remainingTimeGoesFromTheQuestionWhenItIsNoLongerKnown()
    {
        m_stage->askFromTheStart();
        startWaitingRun("paused", "long.nec");
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(0, "Progress"), text("50 %"), longTime);
        QVERIFY(!m_stage->cell(0, "Remaining").isEmpty());
        bool hasGone = false;
        BoxAnswerer patient([&hasGone](QMessageBox& box) {
            hasGone = QTest::qWaitFor([&] { return box.text() == text("Stop long.nec, 50 %?"); },
                                      longTime / 2);
            box.reject();
        });
        m_stage->pressStop();
        QVERIFY(hasGone);
        QCOMPARE(patient.texts.size(), 1);
        QVERIFY2(patient.texts.first().startsWith(text("Stop long.nec, 50 %, about ")),
                 qPrintable(patient.texts.first()));
    }

    void ofSeveralRunsEachHasItsRemainingTime()
    {
        startWaitingRun("steady", "a.nec");
        startWaitingRun("wait", "b.nec");
        QTRY_VERIFY_WITH_TIMEOUT(!m_stage->cell(0, "Remaining").isEmpty(), longTime);
        BoxAnswerer unwilling(WindowStage::pressing(Qt::Key_Escape));
        m_stage->window().close();
        QCOMPARE(unwilling.texts.size(), 1);
        const QRegularExpression form(
            text("^Stop these 2 runs, and quit\\?\n\na\\.nec, [0-9]+ %, about [0-9]+ s left\n"
                 "b\\.nec, 0 %$"));
        QVERIFY2(form.match(unwilling.texts.first()).hasMatch(),
                 qPrintable(unwilling.texts.first()));
    }

    void ofManyRunsTheFirstAreNamed()
    {
        const QVector<const char*> names = {"a.nec", "b.nec", "c.nec", "d.nec",
                                            "e.nec", "f.nec", "g.nec"};
        for (const char* const name : names) {
            startWaitingRun("wait", name);
        }
        BoxAnswerer unwilling(WindowStage::pressing(Qt::Key_Escape));
        m_stage->window().close();
        QCOMPARE(unwilling.texts,
                 QStringList(text("Stop these 7 runs, and quit?\n\na.nec, 0 %\nb.nec, 0 %\n"
                                  "c.nec, 0 %\nd.nec, 0 %\ne.nec, 0 %\nand 2 more")));
    }

    void nameThatLooksLikeMarkupIsShownAsItIs()
    {
        SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES();
        m_stage->askFromTheStart();
        startWaitingRun("wait", "<b>m.nec");
        Qt::TextFormat format = Qt::AutoText;
        BoxAnswerer unwilling([&format](QMessageBox& box) {
            format = box.textFormat();
            box.reject();
        });
        m_stage->pressStop();
        QCOMPARE(format, Qt::PlainText);
        QCOMPARE(unwilling.texts, QStringList(text("Stop <b>m.nec, 0 %?")));
    }

    void onlyARunThatHasTakenSomeTimeIsAskedAbout_data()
    {
        QTest::addColumn<bool>("asks");
        QTest::addColumn<int>("seconds");
        QTest::addColumn<int>("questions");
        QTest::newRow("has taken the time") << true << 0 << 1;
        QTest::newRow("has just started") << true << 86400 << 0;
        QTest::newRow("user wants no question") << false << 0 << 0;
    }

    void onlyARunThatHasTakenSomeTimeIsAskedAbout()
    {
        QFETCH(bool, asks);
        QFETCH(int, seconds);
        QFETCH(int, questions);
        m_stage->setPreference("askBeforeStopping", asks);
        m_stage->setPreference("askAfterSeconds", seconds);
        startWaitingRun();
        BoxAnswerer willing(WindowStage::agreeing());
        m_stage->pressStop();
        QCOMPARE(willing.texts.size(), questions);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
    }

    void closingAsksHoweverYoungTheRunIs()
    {
        m_stage->setPreference("askBeforeStopping", false);
        startWaitingRun();
        BoxAnswerer unwilling(WindowStage::pressing(Qt::Key_Escape));
        m_stage->window().close();
        QCOMPARE(unwilling.texts.size(), 1);
        QCOMPARE(m_stage->state(), text("running"));
    }

    void runThatIsStoppingIsNotAskedAboutAgain()
    {
        m_stage->askFromTheStart();
        startWaitingRun("stubborn");
        BoxAnswerer willing(WindowStage::agreeing());
        m_stage->pressStop();
        QCOMPARE(m_stage->state(), text("stopping, still running"));
        m_stage->pressStop();
        QCOMPARE(willing.texts.size(), 1);
    }

    void questionGoesWhenItsRunEnds()
    {
        m_stage->askFromTheStart();
        startWaitingRun();
        const QuestionReader reader([this] { m_stage->endRuns(SIGKILL); });
        m_stage->pressStop(); // returns without an answer
        QCOMPARE(reader.text, text("Stop m.nec, 0 %?"));
        QVERIFY(reader.box() == nullptr);
        QCOMPARE(m_stage->state(), Processes::killed().state); // and not stopped
    }

    void questionAboutSeveralRunsNamesThoseThatAreLeft()
    {
        SKIP_WITHOUT_SIGNALS();
        startWaitingRun("wait", "a.nec");
        m_stage->run(m_stage->model("b.nec", "stubborn"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("running"), longTime);
        QString left;
        BoxAnswerer patient([this, &left](QMessageBox& box) {
            m_stage->endRuns(SIGTERM); // which the other one ignores
            QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("stopped"), longTime);
            left = box.text();
            box.reject();
        });
        m_stage->window().close();
        QCOMPARE(patient.texts.size(), 1);
        QVERIFY(patient.texts.constFirst().startsWith(text("Stop these 2 runs, and quit?")));
        QCOMPARE(left, text("Stop b.nec, 0 %, and quit?"));
        QVERIFY(m_stage->window().isVisible());
    }

    void windowClosesWhenItsRunsEndBeforeTheAnswer()
    {
        startWaitingRun();
        const QuestionReader reader([this] { m_stage->endRuns(SIGKILL); });
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QCOMPARE(reader.text, text("Stop m.nec, 0 %, and quit?"));
        QVERIFY(reader.box() == nullptr);
        QVERIFY(!m_stage->window().isVisible());
    }

    void windowMayGoDuringTheQuestion()
    {
        m_stage->askFromTheStart();
        startWaitingRun();
        bool isGone = false;
        const QuestionReader reader([this, &isGone] {
            m_stage->close();
            isGone = true;
        });
        m_stage->pressStop();
        QVERIFY(isGone);
        QVERIFY(reader.box() == nullptr);
    }
};

QTEST_MAIN(tst_stop_question)

#include "tst_stop_question.moc"
