// SPDX-License-Identifier: MIT
#include "Desk.h"

#include <NativeRun.h>
#include <TerminalRun.h>

namespace {

const char* const overriding = "left\u202egnp"; // turns the direction of writing
const char* const seen = "left<U+202E>gnp";

} // namespace

// kestdesk in a terminal, on models whose names are not what they look like.
class tst_hostile_names : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Desk> m_desk;

    QString folder() const { return m_desk->path("models"); }

    void useScript(const QByteArray& script) const
    {
        const QString program = m_desk->path("home/bin/runkest");
        QFile::remove(program);
        writeFile(program, "#!/bin/sh\n" + script);
        QVERIFY(
            QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner));
    }

    NativeRun runNative(const QList<QByteArray>& words) const
    {
        return NativeRun::of(text(KESTDESK), words, folder(), m_desk->environment());
    }

private Q_SLOTS:
    void init() { m_desk = std::make_unique<Desk>(); }

    void childsLinesCannotTurnTheTerminal()
    {
        useScript("printf 'a\\342\\200\\256b\\n-*-error-*-c\\342\\201\\247d\\n"
                  "-*-file-*-e\\342\\200\\217f\\n-*-variable-*-g\\342\\200\\250h\\n'\n");
        writeFile(folder() + text("/m.nec"), "x");
        const Desk::Result result = m_desk->run({text("--non-interactive"), text("m.nec")});
        const QStringList lines = result.output.split(QLatin1Char('\n'));
        QCOMPARE(lines.mid(0, 4), QStringList({text("a<U+202E>b"), text("c<U+2067>d"),
                                               text("g<U+2028>h"), text("wrote e<U+200F>f")}));
    }

    void namesOfModelsCannotTurnTheTerminal()
    {
        useScript("sleep 1\n");
        const QString name = text(overriding) + text(".nec");
        writeFile(folder() + QLatin1Char('/') + name, "x");
        m_desk->set("TERM", text("xterm"));
        const TerminalRun run =
            TerminalRun::of(text(KESTDESK),
                            {text("--non-interactive"), folder() + QLatin1Char('/') + name,
                             text("missing") + name, text("--")},
                            m_desk->environment().toStringList());
        const QString output = QString::fromUtf8(run.output);
        QVERIFY2(!output.contains(QChar(0x202e)), run.output.constData());
        // The line of progress, the outcome, and what is wrong with the other.
        QVERIFY(output.contains(text("phase   0%, 0:00:00  ") + text(seen)));
        QVERIFY(output.contains(text(seen) + text(".nec: fault")));
        QVERIFY(output.contains(text("there is no model missing") + text(seen)));
    }

    void namesOfModelsInComplaintsCannotTurnTheTerminal()
    {
        const Desk::Result result = m_desk->run({text("--") + text(overriding)});
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text(seen)) && !result.errors.contains(QChar(0x202e)),
                 qPrintable(result.errors));
    }

    void modelsThatLookLikeOptionsAreRun_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* const name :
             {"--help", "-np", "--machines-file", "-style", "--", "options"}) {
            QTest::newRow(name) << text(name);
        }
    }

    void modelsThatLookLikeOptionsAreRun()
    {
        QFETCH(QString, name);
#ifdef KEST_SUITE
        m_desk->set("KEST_HOME", text(KEST_SUITE));
        writeFile(folder() + QLatin1Char('/') + name,
                  contentOf(text(KEST_SUITE "/models/dipole.nec")));
        const Desk::Result result = m_desk->run({text("--non-interactive"), text("--"), name});
        QVERIFY2(result.output.endsWith(name + text(": valid\n")), qPrintable(result.output));
        QCOMPARE(result.exitCode, 0);
        QVERIFY(QFile::exists(folder() + QLatin1Char('/') + name + text(".csv")));
#else
        QSKIP("needs the sample installation");
#endif
    }

    // A word of the library's own must not be taken for it.
    void modelNamedLikeTheMachinesFilesOptionNeedsNoMachinesFile()
    {
        useScript("echo '-*-total-percentage-*-100%'\n");
        writeFile(folder() + text("/--machines-file"), "x");
        const Desk::Result result =
            m_desk->run({text("--non-interactive"), text("./--machines-file")});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
    }

    void fileThatLooksLikeAnOptionIsHintedAt()
    {
        writeFile(folder() + text("/-np"), "x");
        const Desk::Result result = m_desk->run({text("--non-interactive"), text("-np")});
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("\"./-np\"")), qPrintable(result.errors));
    }

    void nameThatIsNoTextIsToldAndTheOthersAreRun()
    {
        useScript("echo '-*-total-percentage-*-100%'\n");
        writeFile(folder() + text("/good.nec"), "x");
        QCOMPARE(
            NativeRun::of(text("/usr/bin/touch"), {"caf\xe9.nec"}, folder(), m_desk->environment())
                .exitCode,
            0);
        const NativeRun run = runNative({"--non-interactive", "caf\xe9.nec", "good.nec"});
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.errors.contains("caf\\xE9.nec") && run.errors.contains("is not UTF-8") &&
                     run.errors.contains("rename it"),
                 run.errors.constData());
        QVERIFY2(run.output.contains("good.nec: valid"), run.output.constData());
    }

    void folderThatIsNoTextIsTold()
    {
        useScript("echo '-*-total-percentage-*-100%'\n");
        const NativeRun run = NativeRun::of(
            text("/bin/sh"),
            {"-c", R"(mkdir "$0" && cd "$0" && touch m.nec && "$1" --non-interactive m.nec)",
             "d\xe9p", KESTDESK},
            folder(), m_desk->environment());
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.errors.contains("is not UTF-8"), run.errors.constData());
    }
};

QTEST_GUILESS_MAIN(tst_hostile_names)
#include "tst_hostile_names.moc"
