// SPDX-License-Identifier: MIT
#include "FindingPrinter.h"
#include "MarkerPrinter.h"
#include "PlainText.h"

#include <QRegularExpression>
#include <QTemporaryFile>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using suite::Finding;
using suite::FindingKind;
using suite::FindingList;
using suite::Marker;

// What is printed is one marker a line, whatever the texts hold.
class tst_markers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyMarkerHasItsWord_data();
    void everyMarkerHasItsWord();
    void textCannotFormAMarker_data();
    void textCannotFormAMarker();
    void warningsHoldOneColon();
    void errorsNameFileAndLine();
    void findingsHaveNumbersOfTheirOwn();
    void partsAreNotFilledTwice();
    void closedReaderIsNoticed();
};

namespace {

// What a printer writes while the function uses it.
template <typename Use>
QStringList printed(Use use)
{
    std::FILE* stream = std::tmpfile();
    suite::MarkerPrinter printer(stream);
    use(printer);
    std::rewind(stream);
    QByteArray bytes(65536, '\0');
    bytes.truncate(static_cast<int>(
        std::fread(bytes.data(), 1, static_cast<std::size_t>(bytes.size()), stream)));
    std::fclose(stream);
    return QString::fromUtf8(bytes).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

int markerCount(const QString& line)
{
    // A front end's own pattern.
    static const QRegularExpression pattern(QStringLiteral("\\-\\*\\-[a-z]*[\\-]?[a-z]*\\-\\*\\-"));
    int count = 0;
    auto matches = pattern.globalMatch(line);
    while (matches.hasNext()) {
        matches.next();
        ++count;
    }
    return count;
}

} // namespace

void tst_markers::everyMarkerHasItsWord_data()
{
    QTest::addColumn<int>("marker");
    QTest::addColumn<QString>("line");
    const auto add = [](Marker marker, const char* line) {
        QTest::newRow(line) << static_cast<int>(marker) << QString::fromLatin1(line);
    };
    add(Marker::LineFeed, "-*-linefeed-*-5");
    add(Marker::Percentage, "-*-percentage-*-5");
    add(Marker::TotalPercentage, "-*-total-percentage-*-5");
    add(Marker::Error, "-*-error-*-5");
    add(Marker::Warning, "-*-warning-*-5");
    add(Marker::Notice, "-*-notice-*-5");
    add(Marker::File, "-*-file-*-5");
    add(Marker::Variable, "-*-variable-*-5");
}

void tst_markers::everyMarkerHasItsWord()
{
    QFETCH(int, marker);
    QFETCH(QString, line);
    const QStringList lines = printed([marker](suite::MarkerPrinter& printer) {
        printer.print(static_cast<Marker>(marker), QStringLiteral("5"));
    });
    QCOMPARE(lines, QStringList(line));
}

void tst_markers::textCannotFormAMarker_data()
{
    QTest::addColumn<QString>("text");
    const QStringList texts = {
        QStringLiteral("-*-error-*-boo"),
        QStringLiteral("-*-*-*-*-error-*-*-*-"),
        QStringLiteral("error-*-"),
        QStringLiteral("a\n-*-error-*-b\r-*-notice-*-c"),
        QStringLiteral("a\x1b[2Jb\x07"),
        QStringLiteral("-\x01*\x01-error-*-"),
        QString::fromUtf8("-\u200b*-error-*-\u2028-*-error-*-"),
        QStringLiteral("--**--error--**--"),
    };
    for (const QString& text : texts) {
        QTest::newRow(qPrintable(QString::number(texts.indexOf(text)))) << text;
    }
}

void tst_markers::textCannotFormAMarker()
{
    QFETCH(QString, text);
    const QStringList lines = printed([&text](suite::MarkerPrinter& printer) {
        printer.print(Marker::Warning, text);
        printer.printText(text);
    });
    QCOMPARE(lines.size(), 2);
    QCOMPARE(markerCount(lines.at(0)), 1);
    QCOMPARE(markerCount(lines.at(1)), 0);
    for (const QString& line : lines) {
        for (const QChar character : line) {
            QVERIFY(character.isPrint());
        }
    }
}

void tst_markers::warningsHoldOneColon()
{
    const QStringList lines = printed([](suite::MarkerPrinter& printer) {
        suite::FindingPrinter findings(printer, QStringLiteral("a:b:c.nec"));
        FindingList list;
        list.add(FindingKind::SharedTag, 7, {QStringLiteral("1:2"), QStringLiteral(":")});
        list.add(FindingKind::GroundKind, 0, {QStringLiteral("x:y")});
        findings.print(list);
    });
    QCOMPARE(lines.size(), 2);
    for (const QString& line : lines) {
        QCOMPARE(line.count(QLatin1Char(':')), 1);
    }
    QVERIFY(lines.at(0).endsWith(QLatin1String("(a%3Ab%3Ac.nec, line 7)")));
    QVERIFY(lines.at(1).startsWith(QLatin1String("-*-notice-*-NOTE 105: ")));
}

void tst_markers::errorsNameFileAndLine()
{
    const QStringList lines = printed([](suite::MarkerPrinter& printer) {
        suite::FindingPrinter findings(printer, QStringLiteral("model.nec"));
        FindingList list;
        list.add(FindingKind::UnknownCard, 12, {QStringLiteral("a: b")});
        list.add(FindingKind::UnknownCard, 3, {QStringLiteral("Q")});
        findings.print(list);
        findings.print(FindingKind::EngineFailed, {QStringLiteral("stopped")});
    });
    QCOMPARE(lines,
             QStringList({
                 QStringLiteral("-*-error-*-ERROR 2101: unknown card 'Q' (model.nec, line 3)"),
                 QStringLiteral("-*-error-*-ERROR 2101: unknown card 'a; b' (model.nec, line 12)"),
                 QStringLiteral("-*-error-*-ERROR 2602: model.nec: stopped"),
             }));
}

void tst_markers::findingsHaveNumbersOfTheirOwn()
{
    QMap<int, int> kindsOfNumber;
    for (int kind = 0; kind <= static_cast<int>(FindingKind::BestMatch); ++kind) {
        const Finding finding = {static_cast<FindingKind>(kind), 0, QString()};
        ++kindsOfNumber[finding.number()];
        const int number = finding.number();
        switch (finding.severity()) {
        case suite::Severity::Fatal:
        case suite::Severity::Error:
            QVERIFY(number >= 2000 && number < 3000);
            break;
        case suite::Severity::Warning:
            QVERIFY(number >= 3000 && number < 4000);
            break;
        case suite::Severity::Notice:
            QVERIFY(number >= 100 && number < 1000);
            break;
        }
    }
    for (auto entry = kindsOfNumber.constBegin(); entry != kindsOfNumber.constEnd(); ++entry) {
        QVERIFY2(entry.value() == 1, qPrintable(QString::number(entry.key())));
    }
}

void tst_markers::partsAreNotFilledTwice()
{
    FindingList list;
    list.add(FindingKind::NotNumber, 1,
             {QStringLiteral("%2"), QStringLiteral("%3"), QStringLiteral("%1%9%")});
    QCOMPARE(list.sorted().constFirst().reason,
             QStringLiteral("field %3 of card %2 is not a number but '%1%9%'"));
}

void tst_markers::closedReaderIsNoticed()
{
#ifdef Q_OS_UNIX
    int ends[2] = {-1, -1};
    QCOMPARE(::pipe(ends), 0);
    std::FILE* stream = ::fdopen(ends[1], "w");
    suite::MarkerPrinter printer(stream);
    QVERIFY(!printer.isReaderGone());
    ::close(ends[0]);
    QVERIFY(printer.isReaderGone());
    std::fclose(stream);
#else
    QSKIP("Windows does not say that the reader of a pipe has gone, until it is written to");
#endif
}

QTEST_GUILESS_MAIN(tst_markers)
#include "tst_markers.moc"
