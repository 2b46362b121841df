// SPDX-License-Identifier: MIT
#include "ProgramArguments.h"
#include "VisibleText.h"

#include <Text.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

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

} // namespace

class tst_program_arguments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wordsAreWhatWasGiven()
    {
        Given given({"program", "--option", "café", "", "-x"});
        const suite::ProgramArguments arguments(given.count(), given.values());
        QCOMPARE(arguments.words(), QStringList({text("program"), text("--option"), text("café"),
                                                 QString(), text("-x")}));
    }

    void namesBehindTwoHyphensAreNoOptions()
    {
        Given given({"program", "-a", "--", "-platform", "--", "-", "plain", "--help"});
        const suite::ProgramArguments arguments(given.count(), given.values());
        QCOMPARE(arguments.words().mid(1),
                 QStringList({text("-a"), text("--"), text("./-platform"), text("./--"), text("-"),
                              text("plain"), text("./--help")}));
    }

    // Qt looks for its own options everywhere.
    void namesAreLeftByTheApplication()
    {
        Given given({"program", "-style", "fusion", "--", "-style", "model", "-reverse"});
        suite::ProgramArguments arguments(given.count(), given.values());
        {
            const QApplication application(arguments.count(), arguments.values());
            QVERIFY(!QApplication::isRightToLeft());
        }
        QCOMPARE(arguments.words(), QStringList({text("program"), text("--"), text("./-style"),
                                                 text("model"), text("./-reverse")}));
    }

    void otherBytesAreKept()
    {
        Given given({"program", "caf\xe9"});
        const suite::ProgramArguments arguments(given.count(), given.values());
        QCOMPARE(suite::visibleText(arguments.words().at(1)), text("caf\\xE9"));
    }

    void programWithoutWords()
    {
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
        Given given({"program", "-x", "-model.nec"});
        const suite::ProgramArguments arguments(given.count(), given.values());
        QVERIFY2(arguments.hint().contains(text("\"./-model.nec\"")), qPrintable(arguments.hint()));
        Given other({"program", "-x", "model.nec"});
        QCOMPARE(suite::ProgramArguments(other.count(), other.values()).hint(), QString());
        QVERIFY(QDir::setCurrent(QDir::rootPath()));
    }
};

QTEST_APPLESS_MAIN(tst_program_arguments)
#include "tst_program_arguments.moc"
