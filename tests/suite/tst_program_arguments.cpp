// SPDX-License-Identifier: MIT
#include "ProgramArguments.h"
#include "VisibleText.h"

#include <ChildRun.h>
#include <SystemSkips.h>
#include <Text.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

namespace {

/// A command line as main() gets it.
class Given
{
public:
    explicit Given(QList<QByteArray> words) : m_words(std::move(words))
    {
        for (QByteArray& word : m_words) {
            m_pointers.push_back(word.data());
        }
        m_pointers.push_back(nullptr);
    }

    int count() const { return m_words.size(); }
    char** values() { return m_pointers.data(); }

private:
    QList<QByteArray> m_words;
    std::vector<char*> m_pointers;
};

/// What a program finds in its command line. It is a process of its own: on Windows the words are
/// those that the system keeps for the process.
QStringList foundIn(const QStringList& words, const QString& task = text("words"))
{
    const ChildRun run(task, words);
    return run.hasEndedWell() ? run.output().split(QLatin1Char('\n')) : QStringList(run.error());
}

/// Prints what is found: the words in brackets, and the hint.
int printFound(const QString& task, int argc, char* argv[])
{
    suite::ProgramArguments arguments(argc, argv);
    if (task == text("application")) {
        const QApplication application(arguments.count(), arguments.values());
        std::printf("%s\n", QApplication::isRightToLeft() ? "right to left" : "left to right");
    }
    const QStringList words = arguments.words().mid(1);
    for (const QString& word : words) {
        std::printf("<%s>\n", word.toUtf8().constData());
    }
    std::printf("%s", arguments.hint().toUtf8().constData());
    return 0;
}

} // namespace

class tst_program_arguments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wordsAreWhatWasGiven()
    {
        QCOMPARE(foundIn({text("--option"), text("caf\u00e9 \u6f22"), QString(), text("-x")}),
                 QStringList({text("<--option>"), text("<caf\u00e9 \u6f22>"), text("<>"),
                              text("<-x>"), QString()}));
    }

    void namesBehindTwoHyphensAreNoOptions()
    {
        QCOMPARE(foundIn({text("-a"), text("--"), text("-platform"), text("--"), text("-"),
                          text("plain"), text("--help")}),
                 QStringList({text("<-a>"), text("<-->"), text("<./-platform>"), text("<./-->"),
                              text("<->"), text("<plain>"), text("<./--help>"), QString()}));
    }

    // Qt looks for its own options everywhere.
    void namesAreLeftByTheApplication()
    {
        QCOMPARE(foundIn({text("-style"), text("fusion"), text("--"), text("-style"), text("model"),
                          text("-reverse")},
                         text("application")),
                 QStringList({text("left to right"), text("<-->"), text("<./-style>"),
                              text("<model>"), text("<./-reverse>"), QString()}));
    }

    void otherBytesAreKept()
    {
        SKIP_WITHOUT_BYTES_IN_ARGUMENTS();
        Given given({"program", "caf\xe9"});
        const suite::ProgramArguments arguments(given.count(), given.values());
        QCOMPARE(suite::visibleText(arguments.words().at(1)), text("caf\\xE9"));
    }

    void programWithoutWords()
    {
        SKIP_ON_WINDOWS("a command line has the program's name at least");
        Given given({});
        const suite::ProgramArguments arguments(given.count(), given.values());
        QCOMPARE(arguments.words(), QStringList());
        QCOMPARE(arguments.hint(), QString());
    }

    void fileThatLooksLikeAnOptionIsHintedAt()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir::setCurrent(folder.path()));
        QFile file(text("-model.nec"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QString hint = foundIn({text("-x"), text("-model.nec")}).constLast();
        QVERIFY2(hint.contains(text("\"./-model.nec\"")), qPrintable(hint));
        QCOMPARE(foundIn({text("-x"), text("model.nec")}).constLast(), QString());
        QVERIFY(QDir::setCurrent(QDir::rootPath()));
    }
};

int main(int argc, char* argv[])
{
    const QString task = ChildRun::taskOfThisRun();
    if (!task.isEmpty()) {
        return printFound(task, argc, argv);
    }
    const QCoreApplication application(argc, argv);
    tst_program_arguments test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_program_arguments.moc"
