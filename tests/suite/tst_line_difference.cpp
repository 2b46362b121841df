// SPDX-License-Identifier: MIT
#include <LineDifference.h>
#include <Stopwatch.h>
#include <TestRandom.h>

#include <QtTest>

#include <algorithm>

using suite::LineChange;

namespace {

QByteArrayList split(const QByteArray& text)
{
    QByteArrayList lines = text.split('\n');
    lines.removeLast();
    return lines;
}

// What the changes make of the left text; what they take from it must be there.
QByteArray applied(const QVector<LineChange>& changes, const QByteArray& left)
{
    const QByteArrayList lines = split(left);
    QByteArrayList result;
    int position = 0;
    for (const LineChange& change : changes) {
        result += lines.mid(position, change.leftLine - 1 - position);
        position = change.leftLine - 1;
        if (result.size() != change.rightLine - 1) {
            return "wrong line of the right text";
        }
        for (const QString& line : change.left) {
            if (QString::fromUtf8(lines.value(position++)) != line) {
                return "not a line of the left text";
            }
        }
        for (const QString& line : change.right) {
            result.append(line.toUtf8());
        }
    }
    result += lines.mid(position);
    return result.isEmpty() ? QByteArray() : result.join('\n') + '\n';
}

int size(const QVector<LineChange>& changes)
{
    int lines = 0;
    for (const LineChange& change : changes) {
        lines += change.left.size() + change.right.size();
    }
    return lines;
}

// By the table of the longest common subsequence.
int shortest(const QByteArrayList& left, const QByteArrayList& right)
{
    QVector<QVector<int>> table(left.size() + 1, QVector<int>(right.size() + 1, 0));
    for (int i = 1; i <= left.size(); ++i) {
        for (int j = 1; j <= right.size(); ++j) {
            table[i][j] = left.at(i - 1) == right.at(j - 1)
                              ? table[i - 1][j - 1] + 1
                              : std::max(table[i - 1][j], table[i][j - 1]);
        }
    }
    return left.size() + right.size() - 2 * table[left.size()][right.size()];
}

} // namespace

class tst_line_difference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesAreFound_data()
    {
        QTest::addColumn<QByteArray>("left");
        QTest::addColumn<QByteArray>("right");
        QTest::addColumn<QByteArray>("expected"); // left line, right line, "-" and "+" lines
        QTest::newRow("nothing") << QByteArray() << QByteArray() << QByteArray();
        QTest::newRow("equal") << QByteArray("a\nb\n") << QByteArray("a\nb\n") << QByteArray();
        QTest::newRow("one changed")
            << QByteArray("a\nb\nc\n") << QByteArray("a\nx\nc\n") << QByteArray("2,2 -b +x");
        QTest::newRow("one more") << QByteArray("a\nc\n") << QByteArray("a\nb\nc\n")
                                  << QByteArray("2,2 +b");
        QTest::newRow("one less") << QByteArray("a\nb\nc\n") << QByteArray("a\nc\n")
                                  << QByteArray("2,2 -b");
        QTest::newRow("two places") << QByteArray("a\nb\nc\nd\n") << QByteArray("x\nb\nc\nd\ne\n")
                                    << QByteArray("1,1 -a +x 5,5 +e");
        QTest::newRow("all new") << QByteArray() << QByteArray("a\nb\n") << QByteArray("1,1 +a +b");
        QTest::newRow("line ends")
            << QByteArray("a\r\nb\r\n") << QByteArray("a\nb") << QByteArray();
        QTest::newRow("empty lines count")
            << QByteArray("a\n") << QByteArray("a\n\n") << QByteArray("2,2 +");
        QTest::newRow("not text") << QByteArray("\xff\n") << QByteArray("\xfe\n")
                                  << QByteArray("1,1 -\ufffd +\ufffd");
    }

    void changesAreFound()
    {
        QFETCH(QByteArray, left);
        QFETCH(QByteArray, right);
        QStringList found;
        const QVector<LineChange> changes = suite::LineDifference::of(left, right);
        for (const LineChange& change : changes) {
            found.append(QStringLiteral("%1,%2").arg(change.leftLine).arg(change.rightLine));
            for (const QString& line : change.left) {
                found.append(QLatin1Char('-') + line);
            }
            for (const QString& line : change.right) {
                found.append(QLatin1Char('+') + line);
            }
        }
        QTEST(found.join(QLatin1Char(' ')).toUtf8(), "expected");
    }

    void changesOfRandomTextsAreRightAndShortest()
    {
        QRandomGenerator random = TestRandom::anew();
        for (int i = 0; i < 2000; ++i) {
            QByteArray texts[2];
            for (QByteArray& text : texts) {
                for (int lines = random.bounded(12); lines > 0; --lines) {
                    text += static_cast<char>('a' + random.bounded(3));
                    text += '\n';
                }
            }
            const auto changes = suite::LineDifference::of(texts[0], texts[1]);
            QCOMPARE(applied(changes, texts[0]), texts[1]);
            QCOMPARE(size(changes), shortest(split(texts[0]), split(texts[1])));
        }
    }

    void largeTextsWithoutAnythingInCommonAreReplaced()
    {
        QByteArray left;
        QByteArray right;
        for (int i = 0; i < 200000; ++i) {
            left += "l" + QByteArray::number(i) + '\n';
            right += "r" + QByteArray::number(i) + '\n';
        }
        const Stopwatch stopwatch;
        const auto changes = suite::LineDifference::of(left, right);
        QVERIFY2(stopwatch.elapsed() < 5000, "too slow");
        QCOMPARE(changes.size(), 1);
        QCOMPARE(applied(changes, left), right);
    }
};

QTEST_GUILESS_MAIN(tst_line_difference)
#include "tst_line_difference.moc"
