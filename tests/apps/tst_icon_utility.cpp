// SPDX-License-Identifier: MIT
#include <ChildRun.h>

#include <IconUtility.h>
#include <PixmapUtility.h>

#include <QDirIterator>
#include <QIcon>
#include <QPainter>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

const QString images = QStringLiteral(":/rc/images");

int inkedPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += qAlpha(image.pixel(x, y)) > 127 ? 1 : 0;
        }
    }
    return count;
}

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

/// Sets the application's palette, and puts the old one back.
class Palette
{
public:
    Palette(const QColor& window, const QColor& text) : m_old(QGuiApplication::palette())
    {
        QPalette palette = m_old;
        palette.setColor(QPalette::Window, window);
        palette.setColor(QPalette::WindowText, text);
        QGuiApplication::setPalette(palette);
    }
    Palette(const Palette&) = delete;
    Palette& operator=(const Palette&) = delete;
    ~Palette() { QGuiApplication::setPalette(m_old); }

private:
    QPalette m_old;
};

} // namespace

class tst_icon_utility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasEveryIcon_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* const name : {"info",
                                       "warning",
                                       "fault",
                                       "valid",
                                       "play",
                                       "exclude",
                                       "show_details_arrow",
                                       "hide_arrow",
                                       "open",
                                       "stop",
                                       "settings",
                                       "machines",
                                       "help",
                                       "recent",
                                       "model",
                                       "result",
                                       "kestdesk",
                                       "cadkest",
                                       "postkest",
                                       "editkest"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }

    void hasEveryIcon()
    {
        QFETCH(QString, name);
        const QIcon icon = IconUtility().getIcon(name);
        QVERIFY(!icon.isNull());
        for (const int side : {16, 24, 32, 64}) {
            const QPixmap pixmap = icon.pixmap(side, side);
            QCOMPARE(pixmap.size(), QSize(side, side));
            QVERIFY(inkedPixels(pixmap.toImage()) * 20 > side * side); // a twentieth is drawn
        }
    }

    // Most of what is drawn must stand out from a light and from a dark window.
    void everyIconStandsOutFromLightAndDark_data() { hasEveryIcon_data(); }
    void everyIconStandsOutFromLightAndDark()
    {
        QFETCH(QString, name);
        for (const auto& [window, text] :
             {std::make_pair(QColor(0xf0, 0xf0, 0xf0), QColor(Qt::black)),
              std::make_pair(QColor(0x2b, 0x2b, 0x2b), QColor(0xe6, 0xe6, 0xe6))}) {
            const Palette palette(window, text);
            const QImage image = IconUtility().getIcon(name).pixmap(64, 64).toImage();
            int standsOut = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor colour = image.pixelColor(x, y);
                    standsOut += colour.alpha() > 127 && contrast(colour, window) >= 2.5 ? 1 : 0;
                }
            }
            QVERIFY2(standsOut * 2 > inkedPixels(image) || standsOut > 64 * 64 / 10,
                     qPrintable(QStringLiteral("%1 of %2").arg(standsOut).arg(inkedPixels(image))));
        }
    }

    void isSharpWhereTheScreenHasMorePixels_data()
    {
        QTest::addColumn<qreal>("ratio");
        QTest::newRow("150 %") << 1.5;
        QTest::newRow("200 %") << 2.0;
    }

    void isSharpWhereTheScreenHasMorePixels()
    {
        QFETCH(qreal, ratio);
        const QIcon icon = IconUtility().getIcon(QStringLiteral("info"));
        QImage painted(QSize(16, 16) * ratio, QImage::Format_ARGB32_Premultiplied);
        painted.setDevicePixelRatio(ratio);
        painted.fill(Qt::transparent);
        QPainter painter(&painted);
        icon.paint(&painter, QRect(0, 0, 16, 16));
        painter.end();
        painted.setDevicePixelRatio(1);
        const int side = qRound(16 * ratio);
        QCOMPARE(painted, icon.pixmap(side, side).toImage());
    }

    void followsThePaletteWhenThatChanges()
    {
        const QIcon icon = IconUtility().getIcon(QStringLiteral("hide_arrow"));
        for (const QColor& text : {QColor(0x10, 0x20, 0x30), QColor(0xf0, 0xe0, 0xd0)}) {
            const Palette palette(Qt::gray, text);
            QCOMPARE(icon.pixmap(64, 64).toImage().pixelColor(40, 32).rgb(), text.rgb());
        }
    }

    void isPalerWhenDisabledAndReadableWhenSelected()
    {
        const QIcon icon = IconUtility().getIcon(QStringLiteral("hide_arrow"));
        const QPoint inside(40, 32);
        QVERIFY(icon.pixmap(64, 64, QIcon::Disabled).toImage().pixelColor(inside).alpha() < 128);
        QCOMPARE(icon.pixmap(64, 64, QIcon::Selected).toImage().pixelColor(inside).rgb(),
                 QGuiApplication::palette().color(QPalette::HighlightedText).rgb());
    }

    void aNameThatIsNotKnownIsTold()
    {
        IconUtility utility;
        QTest::ignoreMessage(QtWarningMsg, "There is no icon \"no such\"");
        QVERIFY(utility.getIcon(QStringLiteral("no such")).isNull());
        QVERIFY(utility.getIcon(QStringLiteral("no such")).isNull()); // and not again
    }

    void givesThePicturesOfTheDetailsButton_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("shown") << QStringLiteral("show_details_arrow");
        QTest::newRow("hidden") << QStringLiteral("hide_arrow");
    }

    void givesThePicturesOfTheDetailsButton()
    {
        QFETCH(QString, name);
        QPixmap pixmap;
        QVERIFY(PixmapUtility().getPixmap(pixmap, images, name));
        QCOMPARE(pixmap.size() / pixmap.devicePixelRatio(), QSize(16, 16));
        QVERIFY(inkedPixels(pixmap.toImage()) > 10);
    }

    void aPictureThatIsMissingLeavesTheOther_data()
    {
        QTest::addColumn<QString>("directory");
        QTest::addColumn<QString>("name");
        QTest::newRow("name") << images << QStringLiteral("no such");
        QTest::newRow("directory") << QStringLiteral(":/rc") << QStringLiteral("hide_arrow");
        QTest::newRow("both empty") << QString() << QString();
    }

    void aPictureThatIsMissingLeavesTheOther()
    {
        QFETCH(QString, directory);
        QFETCH(QString, name);
        QPixmap pixmap(3, 5);
        QVERIFY(!PixmapUtility().getPixmap(pixmap, directory, name));
        QCOMPARE(pixmap.size(), QSize(3, 5));
    }

    void withoutAWindowSystemThereIsNothing()
    {
        const ChildRun child(QStringLiteral("batch"));
        QVERIFY2(child.hasEndedWell(), qPrintable(child.error()));
        QCOMPARE(child.output(), QStringLiteral("nothing\n"));
    }

    void drawsNothingThatIsNoFileOfItsOwn()
    {
        QDirIterator files(images);
        int count = 0;
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray content = file.readAll();
            QVERIFY2(!content.contains("href") && !content.contains("url("),
                     qPrintable(file.fileName()));
            ++count;
        }
        QCOMPARE(count, 20);
    }
};

static int batch(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    // A QPixmap cannot be made here; this stands in for one that nobody may touch.
    alignas(QPixmap) char room[sizeof(QPixmap)] = {};
    auto* const pixmap = reinterpret_cast<QPixmap*>(room);
    const bool none = IconUtility().getIcon(QStringLiteral("info")).isNull() &&
                      !PixmapUtility().getPixmap(*pixmap, images, QStringLiteral("hide_arrow"));
    std::puts(none ? "nothing" : "something");
    return 0;
}

int main(int argc, char* argv[])
{
    if (!ChildRun::taskOfThisRun().isEmpty()) {
        return batch(argc, argv);
    }
    QGuiApplication application(argc, argv);
    tst_icon_utility test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_icon_utility.moc"
