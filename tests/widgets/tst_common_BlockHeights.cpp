// SPDX-License-Identifier: MIT
#include <TestRandom.h>

#include <common_BlockHeights.h>

#include <QtTest>

#include <vector>

namespace {

/// The same, with every sum made anew.
class PlainHeights
{
public:
    void append(int height) { m_heights.push_back(height); }
    void set(int block, int height) { m_heights[static_cast<std::size_t>(block)] = height; }
    void truncate(int count) { m_heights.resize(static_cast<std::size_t>(count)); }

    qint64 top(int block) const
    {
        qint64 sum = 0;
        for (int other = 0; other < block; ++other) {
            sum += m_heights[static_cast<std::size_t>(other)];
        }
        return sum;
    }

    int blockAt(qint64 place) const
    {
        const int last = static_cast<int>(m_heights.size()) - 1;
        int block = 0;
        while (block < last && place >= top(block + 1)) {
            ++block;
        }
        return std::min(block, last);
    }

private:
    std::vector<int> m_heights;
};

common_BlockHeights heightsOf(const std::vector<int>& characters, common_BlockHeights::Line line)
{
    common_BlockHeights heights;
    heights.estimate(line);
    for (const int count : characters) {
        heights.append(count);
    }
    return heights;
}

} // namespace

class tst_common_BlockHeights : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst();
    void estimatesFromCharacters_data();
    void estimatesFromCharacters();
    void measuresOneBlock();
    void estimatesAnewInAnotherWidth();
    void forgetsWhatIsCutOff();
    void limitsHeights();
    void findsPlacesAmongMany();
};

void tst_common_BlockHeights::isEmptyAtFirst()
{
    const common_BlockHeights heights;
    QCOMPARE(heights.count(), 0);
    QCOMPARE(heights.total(), 0);
    QCOMPARE(heights.blockAt(0), -1);
    QCOMPARE(heights.blockAt(100), -1);
}

void tst_common_BlockHeights::estimatesFromCharacters_data()
{
    QTest::addColumn<int>("characters");
    QTest::addColumn<int>("lines");

    QTest::newRow("empty") << 1 << 1;
    QTest::newRow("nothing") << 0 << 1;
    QTest::newRow("fits") << 80 << 1;
    QTest::newRow("one too many") << 81 << 2;
    QTest::newRow("two lines") << 160 << 2;
    QTest::newRow("three lines") << 161 << 3;
}

void tst_common_BlockHeights::estimatesFromCharacters()
{
    QFETCH(int, characters);
    QFETCH(int, lines);
    const common_BlockHeights heights = heightsOf({characters}, {15, 80});
    QCOMPARE(heights.height(0), lines * 15);
    QCOMPARE(heights.total(), lines * 15);
    QVERIFY(!heights.isMeasured(0));
}

void tst_common_BlockHeights::measuresOneBlock()
{
    common_BlockHeights heights = heightsOf({1, 1, 1}, {10, 80});
    QCOMPARE(heights.setMeasured(1, 25), 15);
    QVERIFY(heights.isMeasured(1));
    QVERIFY(!heights.isMeasured(0));
    QCOMPARE(heights.top(1), 10);
    QCOMPARE(heights.top(2), 35);
    QCOMPARE(heights.total(), 45);
    QCOMPARE(heights.setMeasured(1, 5), -20);
    QCOMPARE(heights.total(), 25);
    QCOMPARE(heights.blockAt(14), 1);
    QCOMPARE(heights.blockAt(15), 2);
}

void tst_common_BlockHeights::estimatesAnewInAnotherWidth()
{
    common_BlockHeights heights = heightsOf({100, 100}, {10, 80});
    heights.setMeasured(0, 77);
    heights.estimate({12, 200});
    QCOMPARE(heights.total(), 24);
    QVERIFY(!heights.isMeasured(0));
    heights.append(201);
    QCOMPARE(heights.height(2), 24);
    heights.estimate({0, 0});
    QCOMPARE(heights.total(), 100 + 100 + 201);
}

void tst_common_BlockHeights::forgetsWhatIsCutOff()
{
    common_BlockHeights heights = heightsOf(std::vector<int>(3000, 1), {10, 80});
    heights.setMeasured(1500, 100);
    heights.truncate(1024);
    QCOMPARE(heights.count(), 1024);
    QCOMPARE(heights.total(), 10240);
    heights.truncate(0);
    QCOMPARE(heights.total(), 0);
    QCOMPARE(heights.blockAt(5), -1);
    heights.append(1);
    QCOMPARE(heights.total(), 10);
    QCOMPARE(heights.blockAt(5), 0);
}

// A text of so many characters and pixels cannot be shown, but it must not spoil the others'
// places.
void tst_common_BlockHeights::limitsHeights()
{
    const int most = std::numeric_limits<int>::max();
    common_BlockHeights heights = heightsOf({most, most, most}, {1000, 1});
    QVERIFY(heights.height(0) > 1000000000);
    QCOMPARE(heights.total(), 3 * static_cast<qint64>(heights.height(0)));
    heights.setMeasured(0, most);
    QVERIFY(heights.height(0) > 0);
    QCOMPARE(heights.top(1), static_cast<qint64>(heights.height(0)));
}

void tst_common_BlockHeights::findsPlacesAmongMany()
{
    QRandomGenerator random = TestRandom::usual(3);
    common_BlockHeights heights;
    heights.estimate({1, 10});
    PlainHeights plain;
    for (int count : {1023, 1024, 1025, 2048, 5000}) {
        heights.truncate(count / 3);
        plain.truncate(heights.count());
        while (heights.count() < count) {
            const int characters = random.bounded(100);
            heights.append(characters);
            plain.append(heights.height(heights.count() - 1));
        }
        for (int change = 0; change < 100; ++change) {
            const int block = random.bounded(count);
            const int height = random.bounded(30);
            heights.setMeasured(block, height);
            plain.set(block, height);
        }
        QCOMPARE(heights.total(), plain.top(count));
        for (int look = 0; look < 50; ++look) {
            const int block = random.bounded(count + 1);
            QCOMPARE(heights.top(block), plain.top(block));
            const qint64 place = random.bounded(static_cast<int>(heights.total()) + 20) - 10;
            QCOMPARE(heights.blockAt(place), plain.blockAt(place));
        }
    }
}

QTEST_APPLESS_MAIN(tst_common_BlockHeights)
#include "tst_common_BlockHeights.moc"
