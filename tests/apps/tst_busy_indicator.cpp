// SPDX-License-Identifier: MIT
#include <QFile>
#include <QGuiApplication>
#include <QMovie>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class tst_busy_indicator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAnAnimationWithoutAnEnd()
    {
        QMovie movie(QStringLiteral(KEST_BUSY_INDICATOR));
        QVERIFY(movie.isValid());
        QVERIFY(movie.jumpToFrame(0));
        QCOMPARE(movie.loopCount(), -1);
        QCOMPARE(movie.frameCount(), 24);
        QVERIFY(movie.nextFrameDelay() <= 50);
        QCOMPARE(movie.frameRect().size(), QSize(24, 24));
    }

    void everyFrameDiffersFromTheOneBefore()
    {
        QMovie movie(QStringLiteral(KEST_BUSY_INDICATOR));
        QVERIFY(movie.jumpToFrame(0));
        const QImage first = movie.currentImage();
        QImage before = first;
        for (int frame = 1; frame < movie.frameCount(); ++frame) {
            QVERIFY(movie.jumpToNextFrame());
            QVERIFY(movie.currentImage() != before);
            before = movie.currentImage();
        }
        QVERIFY(before != first);
    }

    void isTransparentAroundItsDots()
    {
        QMovie movie(QStringLiteral(KEST_BUSY_INDICATOR));
        for (int frame = 0; frame < movie.frameCount(); ++frame) {
            QVERIFY(movie.jumpToFrame(frame));
            const QImage image = movie.currentImage();
            for (const QPoint& corner :
                 {QPoint(0, 0), QPoint(23, 0), QPoint(0, 23), QPoint(12, 12)}) {
                QCOMPARE(image.pixelColor(corner).alpha(), 0);
            }
        }
    }

    // Colours that are too near to white or black cannot be seen on one of the two.
    void canBeSeenOnLightAndDark()
    {
        QMovie movie(QStringLiteral(KEST_BUSY_INDICATOR));
        QVERIFY(movie.jumpToFrame(0));
        const QImage image = movie.currentImage();
        int drawn = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                if (colour.alpha() > 0) {
                    ++drawn;
                    QVERIFY(qGray(colour.rgb()) > 90 && qGray(colour.rgb()) < 170);
                }
            }
        }
        QVERIFY(drawn > 60);
    }

    void isWhatTheScriptMakes()
    {
        const QTemporaryDir folder;
        const QString made = folder.filePath(QStringLiteral("made.gif"));
        QProcess script;
        script.start(QStringLiteral("python3"), {QStringLiteral(KEST_MAKE_BUSY_INDICATOR), made});
        if (!script.waitForStarted()) {
            QTest::qSkip("there is no python3", __FILE__, __LINE__);
            return;
        }
        QVERIFY(script.waitForFinished(120000));
        QFile one(made);
        QFile other(QStringLiteral(KEST_BUSY_INDICATOR));
        QVERIFY(one.open(QIODevice::ReadOnly));
        QVERIFY(other.open(QIODevice::ReadOnly));
        QVERIFY(one.readAll() == other.readAll());
    }
};

QTEST_MAIN(tst_busy_indicator)
#include "tst_busy_indicator.moc"
