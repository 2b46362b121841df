// SPDX-License-Identifier: MIT
#include "Heartbeat.h"
#include "RecordMaker.h"

#include <ApplicationIdentity.h>
#include <MessageTableModel.h>
#include <MessageView.h>
#include <RecordWindow.h>
#include <Services.h>
#include <ShellCommand.h>
#include <SystemSkips.h>

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTextBrowser>
#include <QToolButton>

#include <memory>

using State = RunRecord::State;
using Message = RecordedMessage;

// The window of one record.
class tst_record_window : public QObject
{
    Q_OBJECT

private:
    static constexpr int longTime = 60000; // ms, on a machine with much to do

    std::unique_ptr<Desk> m_desk;
    std::unique_ptr<Services> m_services;
    std::unique_ptr<RecordMaker> m_records;
    std::unique_ptr<RecordWindow> m_window;

    template <typename Widget>
    Widget* find(const char* name) const
    {
        return m_window->findChild<Widget*>(text(name));
    }

    void open(int number)
    {
        m_window = std::make_unique<RecordWindow>(m_records->archive(), number, nullptr);
        m_window->setAttribute(Qt::WA_DeleteOnClose, false);
        static_cast<QWidget*>(m_window.get())->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTRY_VERIFY_WITH_TIMEOUT(find<QTableView>("messageTable") != nullptr, longTime);
    }

    QTableView* table(const char* name) const { return find<QTableView>(name); }

    void waitForRows(const char* name, int count) const
    {
        QTRY_COMPARE_WITH_TIMEOUT(table(name)->model()->rowCount(), count, longTime);
    }

    QString cell(const char* name, int row) const
    {
        return table(name)->model()->index(row, MessageTableModel::TextColumn).data().toString();
    }

    void showPage(const char* name) const
    {
        auto* const tabs = find<QTabWidget>("recordTabs");
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->tabText(i).remove(QLatin1Char('&')) == text(name)) {
                tabs->setCurrentIndex(i);
                return;
            }
        }
        QFAIL("no such page");
    }

    static QVector<Message> messages()
    {
        return {{0, common_IProcessMessage::Output, text("  begin\n")},
                {1000, common_IProcessMessage::Warning, text("3101: thick (a.nec, line 3)")},
                {2000, common_IProcessMessage::Output, text("<b>middle</b>\n")},
                {3000, common_IProcessMessage::Error, text("2101: unknown card (a.nec, line 12)")},
                {65000, common_IProcessMessage::Notice, text("done")},
                {65000, common_IProcessMessage::TotalPercentage, text("100%")}};
    }

private Q_SLOTS:
    void init()
    {
        m_window.reset();
        m_desk = std::make_unique<Desk>();
        qputenv("KEST_USER_HOME", m_desk->path("user").toLocal8Bit());
        qputenv("KEST_HOME", m_desk->path("home").toLocal8Bit());
        m_services = std::make_unique<Services>(
            ApplicationIdentity{text("kestdesk"), text("models/dipole.nec")}, false);
        m_records = std::make_unique<RecordMaker>(*m_desk);
    }

    void cleanup()
    {
        m_window.reset();
        m_records.reset();
        m_services.reset();
    }

    void summarySaysWhatBecameOfTheRun_data()
    {
        QTest::addColumn<QByteArray>("model");
        QTest::newRow("name like markup") << QByteArray("a<b>.nec");
        QTest::newRow("name like an entity") << QByteArray("a&lt;b.nec");
    }

    void summarySaysWhatBecameOfTheRun()
    {
        QFETCH(QByteArray, model);
        if (model.contains('<')) {
            SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES();
        }
        const QString killed = Processes::killed().state;
        const int number =
            m_records->add(model.constData(), State::Fault, qPrintable(killed), messages());
        RecordFolder folder(m_records->archive().record(number)->folder);
        RunRecord record = *m_records->archive().record(number);
        record.isCrash = true;
        record.exitCode = crashCode(SIGKILL);
        record.reason = text("was ended by another program");
        record.lastLines = QStringList{text("<i>last</i>")};
        record.files = {{m_desk->path("models/a.csv"), 3, text("0123"), {}},
                        {m_desk->path("models/gone.csv"), 3, text("0123"), {}}};
        writeFile(m_desk->path("models/a.csv"), "new");
        QVERIFY(folder.writeEnd(record));
        open(number);
        QCOMPARE(m_window->windowTitle(), text("Run 1: ") + text(model.constData()));
        auto* const summary = find<QTextBrowser>("summaryPage");
        QTRY_VERIFY_WITH_TIMEOUT(summary->toPlainText().contains(text("changed since")), longTime);
        const QString shown = summary->toPlainText();
        for (const QString& part :
             {killed, text("runkest was ended by another program."),
              killed.section(text(", "), 1) + text(": ") + Processes::killed().meaning,
              text("no longer there"), text("unchanged since"), text("<i>last</i>"),
              text(model.constData()), text("1:15")}) {
            QVERIFY2(shown.contains(part), qPrintable(part + shown));
        }
    }

    void messagesAreFilteredByKindAndText()
    {
        open(m_records->add("a.nec", State::Valid, "", messages()));
        waitForRows("messageTable", 3);
        QCOMPARE(find<QToolButton>("ErrorsButton")->text(), text("Errors (1)"));
        QCOMPARE(cell("messageTable", 1), text("2101: unknown card (a.nec, line 12)"));
        QCOMPARE(table("messageTable")->model()->index(2, 0).data().toString(), text("1:05"));
        find<QToolButton>("WarningsButton")->setChecked(false);
        waitForRows("messageTable", 2);
        find<QToolButton>("WarningsButton")->setChecked(true);
        auto* const view = qobject_cast<MessageView*>(table("messageTable")->parentWidget());
        view->setFilter(text("UNKNOWN"));
        waitForRows("messageTable", 1);
        QCOMPARE(cell("messageTable", 0), text("2101: unknown card (a.nec, line 12)"));
    }

    void outputIsWholeAndCanBeCopied()
    {
        open(m_records->add("a.nec", State::Valid, "", messages()));
        showPage("Output");
        waitForRows("outputTable", 5);
        QCOMPARE(cell("outputTable", 0), text("  begin"));
        QCOMPARE(cell("outputTable", 2), text("<b>middle</b>"));
        table("outputTable")->setFocus();
        table("outputTable")->selectAll();
        QTest::keyClick(table("outputTable"), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text().section(QLatin1Char('\n'), 0, 2),
                 text("  begin\n3101: thick (a.nec, line 3)\n<b>middle</b>"));
    }

    void textIsFoundForwardsAndBackwards()
    {
        open(m_records->add("a.nec", State::Valid, "", messages()));
        waitForRows("messageTable", 3);
        showPage("Messages");
        auto* const messageTable = table("messageTable");
        auto* const edit =
            messageTable->parentWidget()->findChild<QLineEdit*>(text("messageFindEdit"));
        messageTable->setFocus();
        messageTable->setCurrentIndex(messageTable->model()->index(2, 2));
        QTest::keyClick(messageTable, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(edit->hasFocus());
        QTest::keyClicks(edit, text("A.NEC"));
        QTest::keyClick(edit, Qt::Key_Return); // round about
        QCOMPARE(messageTable->currentIndex().row(), 0);
        QTest::keyClick(edit, Qt::Key_F3);
        QCOMPARE(messageTable->currentIndex().row(), 1);
        QTest::keyClick(edit, Qt::Key_F3);
        QCOMPARE(messageTable->currentIndex().row(), 0);
        QTest::keyClick(edit, Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(messageTable->currentIndex().row(), 1);
        edit->setText(text("nowhere"));
        QTest::keyClick(edit, Qt::Key_Return);
        QTRY_COMPARE(
            messageTable->parentWidget()->findChild<QLabel*>(text("messageFoundLabel"))->text(),
            text("Not found"));
    }

    void runThatGoesOnIsFollowed()
    {
        const RunArchive::Addition running = m_records->addRunning("a.nec");
        open(running.number);
        QVERIFY(!find<QPushButton>("runAgainButton")->isEnabled());
        QVERIFY(find<QTextBrowser>("summaryPage")->toPlainText().contains(text("running")));
        RecordMaker::writeMessages(running.folder, messages());
        waitForRows("outputTable", 5);
        RecordMaker::writeMessages(running.folder, messages());
        waitForRows("outputTable", 10);
        RunRecord record = *m_records->archive().record(running.number);
        RecordMaker::writeMessages(running.folder,
                                   {{5, common_IProcessMessage::Output, text("the last one")}});
        record.state = State::Stopped;
        record.outcome = text("stopped");
        record.stoppedBy = text("the user");
        record.ended = record.started.addSecs(1);
        QVERIFY(RecordFolder(running.folder).writeEnd(record));
        waitForRows("outputTable", 11);
        QTRY_VERIFY_WITH_TIMEOUT(
            find<QTextBrowser>("summaryPage")->toPlainText().contains(text("the user")), longTime);
        QTRY_VERIFY(find<QPushButton>("runAgainButton")->isEnabled());
    }

    void commandAndOptionsAreShown()
    {
        const int number = m_records->add("a.nec", State::Valid);
        RunRecord record = *m_records->archive().record(number);
        record.launchOptions = {{text("Colour"), text("red"), text("blue")},
                                {text("Size"), text("1"), text("1")}};
        QVERIFY(RecordFolder(record.folder).writeStart(record));
        open(number);
        const QString shown = find<QPlainTextEdit>("commandText")->toPlainText();
        const QString program = QDir::toNativeSeparators(record.program);
        const QString command =
            ShellCommand::line(QDir::toNativeSeparators(record.workingDirectory), {},
                               {program, text("a.nec"), text("--run-from-gui")});
        QVERIFY2(shown.contains(command), qPrintable(shown));
        QCOMPARE(shown.count(text("Colour = red")), 2);
        QVERIFY(shown.contains(text("Colour = red   (default: blue)")));
        QCOMPARE(shown.count(text("Size = 1")), 1);
        find<QPushButton>("copyCommandButton")->click();
        QCOMPARE(QGuiApplication::clipboard()->text(), command);
    }

    void previousRunOfTheModelIsComparedWith()
    {
        writeFile(m_desk->path("models/a.nec"), "one\ntwo\n");
        m_records->add("a.nec", State::Valid);
        m_records->add("b.nec", State::Valid);
        writeFile(m_desk->path("models/a.nec"), "one\nthree\n");
        open(m_records->add("a.nec", State::Fault, "fault, exit code 3"));
        showPage("Differences");
        auto* const differences = find<QTextBrowser>("differencesText");
        QTRY_VERIFY2_WITH_TIMEOUT(differences->toPlainText().contains(text("+ three")),
                                  qPrintable(differences->toPlainText()), longTime);
        const QString shown = differences->toPlainText();
        QVERIFY(shown.contains(text("- two")));
        QVERIFY(shown.contains(text("run 1")) && shown.contains(text("run 3")));
        QVERIFY(shown.contains(text("fault, exit code 3")));
    }

    void messageOfACardOffersTheCard()
    {
        open(m_records->add("a.nec", State::Fault, "fault, exit code 1", messages()));
        waitForRows("messageTable", 3);
        showPage("Messages");
        const auto shared = std::make_shared<QVector<QPair<int, QString>>>();
        connect(m_window.get(), &RecordWindow::cureRequested, this,
                [shared](const ProblemCures::Cure& cure, const QString& message) {
                    shared->append({int(cure.action), message});
                });
        const QVector<QPair<int, QString>>& cures = *shared;
        QVERIFY(!find<QPushButton>("cureButton")->isVisible());
        table("messageTable")->setCurrentIndex(table("messageTable")->model()->index(1, 2));
        QVERIFY(find<QPushButton>("cureButton")->isVisible());
        table("messageTable")->setFocus();
        QTest::keyClick(table("messageTable"), Qt::Key_Return);
        QTest::mouseClick(find<QPushButton>("cureButton"), Qt::LeftButton);
        QCOMPARE(cures.size(), 2);
        QCOMPARE(cures.first().first, int(ProblemCures::Action::OpenCard));
        QCOMPARE(cures.first(), cures.last());
        QCOMPARE(ProblemCures::lineOf(cures.first().second)->line, 12);
        table("messageTable")->setCurrentIndex(table("messageTable")->model()->index(2, 2));
        QVERIFY(!find<QPushButton>("cureButton")->isVisible());
    }

    void largeRecordDoesNotHoldUpTheWindow()
    {
        constexpr int count = 300000;
        const int number = m_records->add("a.nec", State::Valid);
        {
            QFile file(RecordFolder(m_records->archive().record(number)->folder).messagesFile());
            QVERIFY(file.open(QIODevice::WriteOnly));
            for (int i = 0; i < count; ++i) {
                file.write(Message{i,
                                   i % 100 == 0 ? common_IProcessMessage::Warning
                                                : common_IProcessMessage::Output,
                                   text("line %1 of the output\n").arg(i)}
                               .toLine());
            }
        }
        const Heartbeat heart;
        open(number);
        showPage("Output");
        waitForRows("outputTable", count);
        QCOMPARE(cell("outputTable", count - 1), text("line 299999 of the output"));
        auto* const view = qobject_cast<MessageView*>(table("outputTable")->parentWidget());
        view->setFilter(text("99999"));
        waitForRows("outputTable", 3);
        view->setFilter(QString());
        waitForRows("outputTable", count);
        auto* const edit = view->findChild<QLineEdit*>(text("messageFindEdit"));
        edit->setText(text("line 299998 "));
        QTest::keyClick(edit, Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(table("outputTable")->currentIndex().row(), 299998, longTime);
        SKIP_WITHOUT_WAITING_TIMES();
        QVERIFY2(heart.longestGap() < Heartbeat::noticeable,
                 qPrintable(QString::number(heart.longestGap())));
    }

    void deletedRecordIsSaid()
    {
        const RunArchive::Addition running = m_records->addRunning("a.nec");
        open(running.number);
        QVERIFY(QDir(running.folder).removeRecursively());
        QTRY_COMPARE_WITH_TIMEOUT(find<QLabel>("recordProblemLabel")->text(),
                                  text("The record has been deleted."), longTime);
    }
};

QTEST_MAIN(tst_record_window)

#include "tst_record_window.moc"
