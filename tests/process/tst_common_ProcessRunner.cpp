// SPDX-License-Identifier: MIT
#include <RecordingObserver.h>

#include <common_ProcessRunner.h>

#include <QtTest>

#include <type_traits>

namespace {

using PlainRunner = common_ProcessRunner<common_GenericProcessMessage>;
using SolverRunner = common_ProcessRunner<common_KestProcessMessage>;

static_assert(std::is_copy_constructible<PlainRunner>::value, "public, but asserts");
static_assert(std::is_copy_assignable<PlainRunner>::value, "public, but asserts");

/// A message class of an application's own: each character is a message.
class LetterMessage : public common_IProcessMessage
{
public:
    LetterMessage() = default;
    LetterMessage(Type type, QChar letter) : m_letter(letter), m_type(type) {}

    QString getText() const override { return m_letter; }
    Type getType() const override { return m_type; }

    static QVector<LetterMessage> parse(Type type, const QString& line)
    {
        QVector<LetterMessage> messages;
        const QString letters = line.trimmed();
        for (const QChar letter : letters) {
            messages.append(LetterMessage(type, letter));
        }
        return messages;
    }
    static QVector<LetterMessage> parseOutput(const QString& line) { return parse(Notice, line); }
    static QVector<LetterMessage> parseError(const QString& line) { return parse(Warning, line); }

private:
    QChar m_letter;
    Type m_type = Output;
};

/// Of an application, which is another module than the library: it calls what the library has
/// compiled.
class UpperCaseRunner : public SolverRunner
{
protected:
    void onOutputRecieved(const QString& line) override
    {
        SolverRunner::onOutputRecieved(line.toUpper());
    }
    void onErrorRecieved(const QString& line) override
    {
        SolverRunner::onErrorRecieved(line.toUpper());
    }
};

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

template <typename Runner>
bool run(Runner& runner, const QStringList& commands)
{
    runner.setExecutable(text(KEST_TEST_CHILD));
    runner.setArguments(commands);
    return runner.runAndWaitForFinish();
}

} // namespace

class tst_common_ProcessRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainMessagesTakeTheirTypeFromTheChannel()
    {
        PlainRunner runner;
        const RecordingObserver observer(&runner);
        QVERIFY(
            run(runner, {text("out"), text("-*-error-*-a \\n\\n"), text("err"), text(" b\\n")}));
        QCOMPARE(observer.texts[common_IProcessMessage::Output],
                 QStringList({text("-*-error-*-a"), QString()}));
        QCOMPARE(observer.texts[common_IProcessMessage::Error], QStringList(text("b")));
    }

    void solverMessagesTakeTheirTypeFromTheMarkers()
    {
        SolverRunner runner;
        const RecordingObserver observer(&runner);
        QVERIFY(run(runner, {text("out"), text("x-*-percentage-*-5%-*-notice-*-n\\n \\nplain\\n"),
                             text("err"), text("-*-warning-*-w\\nplain too\\n")}));
        QCOMPARE(observer.texts[common_IProcessMessage::Percentage], QStringList(text("5")));
        QCOMPARE(observer.texts[common_IProcessMessage::Notice], QStringList(text("n")));
        QCOMPARE(observer.texts[common_IProcessMessage::Warning], QStringList(text("w")));
        QStringList output = observer.texts[common_IProcessMessage::Output];
        output.sort(); // of two channels
        QCOMPARE(output, QStringList({text("plain"), text("plain too")}));
        QCOMPARE(observer.events.count(text("message")), 5);
    }

    void derivedRunnerChangesLinesBeforeTheyAreParsed()
    {
        UpperCaseRunner runner;
        const RecordingObserver observer(&runner);
        QVERIFY(run(runner, {text("out"), text("plain\\n"), text("err"), text("too\\n")}));
        QStringList output = observer.texts[common_IProcessMessage::Output];
        output.sort(); // of two channels
        QCOMPARE(output, QStringList({text("PLAIN"), text("TOO")}));
    }

    void markerCutBetweenTwoPiecesIsNotRecognised()
    {
        SolverRunner runner;
        const RecordingObserver observer(&runner);
        const QString line = QString(1018, QLatin1Char('x')) + text("-*-error-*-y\\n");
        QVERIFY(run(runner, {text("out"), line}));
        QCOMPARE(observer.texts[common_IProcessMessage::Output],
                 QStringList({QString(1018, QLatin1Char('x')) + text("-*-er"), text("ror-*-y")}));
        QVERIFY(observer.texts[common_IProcessMessage::Error].isEmpty());
    }

    void messagesOfALineComeInOrder()
    {
        common_ProcessRunner<LetterMessage> runner;
        const RecordingObserver observer(&runner);
        QVERIFY(run(runner, {text("out"), text("abc\\n"), text("err"), text("d\\n")}));
        QCOMPARE(observer.texts[common_IProcessMessage::Notice],
                 QStringList({text("a"), text("b"), text("c")}));
        QCOMPARE(observer.texts[common_IProcessMessage::Warning], QStringList(text("d")));
    }

    void everyObserverGetsEveryMessageBeforeTheNext()
    {
        common_ProcessRunner<LetterMessage> runner;
        RecordingObserver first(&runner);
        RecordingObserver second(&runner);
        QStringList order;
        first.then = [&](const QString& event) { order.append(text("1") + event.at(0)); };
        second.then = [&](const QString& event) { order.append(text("2") + event.at(0)); };
        QVERIFY(run(runner, {text("out"), text("ab\\n")}));
        QCOMPARE(order.join(QLatin1Char(' ')), text("1s 2s 1m 2m 1m 2m 1e 1d 2e 2d"));
    }

    void releasedInAMessageItTellsNoMore()
    {
        common_ActivePtr<common_ProcessRunner<LetterMessage>> runner(
            new common_ProcessRunner<LetterMessage>);
        RecordingObserver first(runner.get());
        const RecordingObserver second(runner.get());
        first.then = [&runner](const QString& event) {
            if (event == text("message")) {
                runner.reset();
            }
        };
        runner->setExecutable(text(KEST_TEST_CHILD));
        runner->setArguments({text("out"), text("abc\\nd\\n")});
        QVERIFY(runner->run());
        QVERIFY(QTest::qWaitFor([&runner] { return runner.isNull(); }));
        QCOMPARE(first.events.count(text("message")), 1);
        QCOMPARE(second.events.count(text("message")), 1);
        QCOMPARE(PlainRunner::getProcessCount(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunner)
#include "tst_common_ProcessRunner.moc"
