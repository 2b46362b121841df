// SPDX-License-Identifier: MIT
/// Holds what common_RenderingSettingsWidget looks like against those in the folder pictures.
///
/// To make the pictures anew, after looking at why they differ:
///   KEST_NEW_PICTURES=1 ctest --preset dev -R tst_rendering_pictures
/// The rows that compare fail then, so that nobody leaves the variable set.
///
/// The style, the colours and the size are fixed; the fonts are those of the machine. So texts may
/// be set differently and push the rest about a little, in any proportional font. What a slider
/// looks like does not depend on fonts: it is found by its pixels, and compared more strictly than
/// the picture as a whole.

#include <SystemSkips.h>

#include <common_RenderingSettingsWidget.h>

#include <QApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

using Widget = common_RenderingSettingsWidget;
using Change = std::function<void(Widget&)>;

constexpr QSize pictureSize(560, 280);

/// A slider as it is seen: a scale of 33 marks, and a bright handle above it.
struct SeenSlider
{
    double top; // as parts of the picture's height and width
    double left;
    double right;
    double handle; // its middle on the scale, from 0 to 1; -1 when there is none
};

int grey(const QImage& image, int x, int y)
{
    return qGray(image.pixel(x, y));
}

bool isMark(const QImage& image, int x, int y)
{
    const int here = grey(image, x, y);
    return grey(image, x - 1, y) - here > 25 && grey(image, x + 1, y) - here > 25;
}

/// The marks in a row of pixels that make a slider's scale, one distance apart give or take the
/// rounding; nothing when there are none.
QVector<int> scaleIn(const QImage& image, int y)
{
    constexpr int marksOfAScale = 33;
    QVector<int> scale;
    int leastGap = 0;
    for (int x = 1; x < image.width() - 1; ++x) {
        if (!isMark(image, x, y)) {
            continue;
        }
        const int gap = scale.isEmpty() ? 0 : x - scale.last();
        if (scale.size() == 1) {
            leastGap = gap - 1;
        } else if (scale.size() > 1 && (gap < leastGap || gap > leastGap + 2)) {
            if (scale.size() == marksOfAScale) {
                return scale;
            }
            scale = {scale.last()};
            leastGap = gap - 1;
        }
        scale.append(x);
    }
    return scale.size() == marksOfAScale ? scale : QVector<int>();
}

/// The middle of the handle above the scale, in pixels; -1 when there is none.
double handleAbove(const QImage& image, int y, int left, int right)
{
    constexpr int leastWidth = 7;
    constexpr int whereHandlesAre = 10; // above the scale
    int run = 0;
    for (int x = std::max(0, left - 8); x < std::min(image.width(), right + 9); ++x) {
        if (grey(image, x, y - whereHandlesAre) >= 245) {
            ++run;
        } else if (run >= leastWidth) {
            return x - 1 - (run - 1) / 2.0;
        } else {
            run = 0;
        }
    }
    return -1;
}

QVector<SeenSlider> slidersIn(const QImage& image)
{
    constexpr int mostRowsOfAScale = 6;
    QVector<SeenSlider> found;
    int lastRow = -mostRowsOfAScale;
    for (int y = 12; y < image.height(); ++y) {
        const QVector<int> marks = scaleIn(image, y);
        if (marks.isEmpty() || y - lastRow < mostRowsOfAScale) {
            continue;
        }
        lastRow = y;
        const double length = marks.last() - marks.first();
        const double handle = handleAbove(image, y, marks.first(), marks.last());
        found.append({double(y) / image.height(), double(marks.first()) / image.width(),
                      double(marks.last()) / image.width(),
                      handle < 0 ? -1 : (handle - marks.first()) / length});
    }
    return found;
}

using Squares = QVector<QVector<bool>>;

/// Which squares of the picture have something drawn in them.
Squares squaresOf(const QImage& image)
{
    constexpr int side = 10;
    constexpr int leastInk = 6; // on average, of 255: more than a box's frame and shade
    const int background = grey(image, image.width() / 4, image.height() - 3);
    Squares squares;
    for (int top = 0; top + side <= image.height(); top += side) {
        squares.append(QVector<bool>());
        for (int left = 0; left + side <= image.width(); left += side) {
            int ink = 0;
            for (int pixel = 0; pixel < side * side; ++pixel) {
                ink += std::abs(background - grey(image, left + pixel % side, top + pixel / side));
            }
            squares.last().append(ink > leastInk * side * side);
        }
    }
    return squares;
}

bool isDrawnNear(const Squares& squares, int row, int column)
{
    constexpr int rowsAround = 1;
    constexpr int columnsAround = 2;
    for (int y = std::max(0, row - rowsAround); y <= row + rowsAround; ++y) {
        for (int x = std::max(0, column - columnsAround); x <= column + columnsAround; ++x) {
            if (squares.value(y).value(x)) {
                return true;
            }
        }
    }
    return false;
}

/// How many drawn squares of the one picture have none near the same place in the other.
int missingSquares(const Squares& one, const Squares& other)
{
    int missing = 0;
    for (int row = 0; row < one.size(); ++row) {
        for (int column = 0; column < one.at(row).size(); ++column) {
            missing += one.at(row).at(column) && !isDrawnNear(other, row, column) ? 1 : 0;
        }
    }
    return missing;
}

/// In how many squares the two pictures differ.
int difference(const QImage& one, const QImage& other)
{
    const Squares squares = squaresOf(one);
    const Squares otherSquares = squaresOf(other);
    return missingSquares(squares, otherSquares) + missingSquares(otherSquares, squares);
}

/// What is wrong with the picture, compared with the reference; empty when nothing is.
QString compared(const QImage& picture, const QImage& reference)
{
    constexpr double nearEnough = 0.12; // of the picture
    constexpr double sameHandle = 0.02; // of the scale: less than one mark
    constexpr int mostDifferent = 6;    // squares
    if (picture.size() != reference.size()) {
        return QStringLiteral("another size");
    }
    const QVector<SeenSlider> seen = slidersIn(picture);
    const QVector<SeenSlider> expected = slidersIn(reference);
    if (seen.size() != expected.size()) {
        return QStringLiteral("%1 sliders, not %2").arg(seen.size()).arg(expected.size());
    }
    for (int i = 0; i < seen.size(); ++i) {
        const SeenSlider& one = seen.at(i);
        const SeenSlider& other = expected.at(i);
        if (std::abs(one.top - other.top) > nearEnough ||
            std::abs(one.left - other.left) > nearEnough ||
            std::abs(one.right - other.right) > nearEnough) {
            return QStringLiteral("slider %1 in another place").arg(i);
        }
        if (std::abs(one.handle - other.handle) > sameHandle) {
            return QStringLiteral("slider %1 set to another value").arg(i);
        }
    }
    const int different = difference(picture, reference);
    return different > mostDifferent ? QStringLiteral("different in %1 squares").arg(different)
                                     : QString();
}

/// The family in the size and the stretch in which texts need the same space in every family.
QFont fontOf(const QString& family)
{
    constexpr int height = 15;
    constexpr double width = 380;
    const QString sample =
        QStringLiteral("Hardware rendering2 Software rendering Face displacement Geometry Meshes");
    QFont font(family);
    int size = height;
    do {
        font.setPixelSize(size--);
    } while (QFontMetrics(font).height() > height);
    font.setStretch(qRound(100 * width / QFontMetrics(font).horizontalAdvance(sample)));
    return font;
}

QImage pictureOf(int mode, const QString& family = QStringLiteral("sans-serif"),
                 const Change& change = nullptr)
{
    QApplication::setFont(fontOf(family));
    Widget widget(nullptr, nullptr, {}, mode);
    if (change) {
        change(widget);
    }
    widget.resize(pictureSize);
    widget.show();
    QCoreApplication::processEvents();
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QString pathOf(int mode)
{
    return QStringLiteral(KEST_PICTURES "/rendering_widget_mode_%1.png").arg(mode);
}

bool makesNewPictures()
{
    return qEnvironmentVariableIsSet("KEST_NEW_PICTURES");
}

void moveTo(Widget& widget, QWidget* control, int row, int column)
{
    widget.m_pTwoSlidersGrid->removeWidget(control);
    widget.m_pTwoSlidersGrid->addWidget(control, row, column);
}

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_rendering_pictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (makesNewPictures()) {
            QVERIFY(pictureOf(1).save(pathOf(1)));
            QVERIFY(pictureOf(2).save(pathOf(2)));
        }
    }

    void showsItsSliders_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("sliders");
        QTest::newRow("one") << 1 << 1;
        QTest::newRow("two") << 2 << 2;
    }

    void showsItsSliders()
    {
        QFETCH(int, mode);
        QFETCH(int, sliders);
        const QVector<SeenSlider> seen = slidersIn(pictureOf(mode));
        QCOMPARE(seen.size(), sliders);
        for (const SeenSlider& slider : seen) {
            QVERIFY(std::abs(slider.handle - 2 / 32.0) < 0.02);
            QVERIFY(slider.right < 1);
        }
        if (mode == 2) {
            QCOMPARE(seen.at(0).left, seen.at(1).left);
            QCOMPARE(seen.at(0).right, seen.at(1).right);
        }
    }

    void looksAsItDid_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("family");
        for (const int mode : {1, 2}) {
            QTest::addRow("mode %d", mode) << mode << QStringLiteral("sans-serif");
            for (const char* family : {"DejaVu Sans", "DejaVu Serif", "Liberation Sans",
                                       "Nimbus Sans", "Nimbus Roman", "Noto Sans", "URW Gothic"}) {
                if (QFontDatabase().families().contains(QLatin1String(family))) {
                    QTest::addRow("mode %d, %s", mode, family)
                        << mode << QString::fromLatin1(family);
                }
            }
        }
    }

    void looksAsItDid()
    {
        QFETCH(int, mode);
        QFETCH(QString, family);
        if (family == QLatin1String("sans-serif")) {
            SKIP_ON_WINDOWS("no family of fonts is named sans-serif");
        }
        QVERIFY2(!makesNewPictures(), "The pictures were made anew");
        const QImage reference(pathOf(mode));
        QVERIFY(!reference.isNull());
        const QImage picture = pictureOf(mode, family);
        const QString wrong = compared(picture, reference.convertToFormat(QImage::Format_RGB32));
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }

    void aChangedWidgetLooksDifferent_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<Change>("change");
        const auto row = [](const char* what, int mode, const Change& change) {
            QTest::newRow(what) << mode << change;
        };
        row("no slider", 1, [](Widget& w) { w.m_pFaceDisplacementSlider->hide(); });
        row("no geometry slider", 2, [](Widget& w) { w.m_pGeometrySlider->hide(); });
        row("no meshes slider", 2, [](Widget& w) { w.m_pMeshesSlider->hide(); });
        row("a third slider", 2, [](Widget& w) { w.m_pFaceDisplacementSlider->show(); });
        row("the wrong slider", 2, [](Widget& w) {
            w.m_pFaceDisplacementSlider->show();
            w.m_pGeometrySlider->hide();
        });
        row("set to 3", 1, [](Widget& w) { w.m_pFaceDisplacementSlider->setValue(3); });
        row("meshes set to 1", 2, [](Widget& w) { w.m_pMeshesSlider->setValue(1); });
        row("no marks", 1,
            [](Widget& w) { w.m_pFaceDisplacementSlider->setTickPosition(QSlider::NoTicks); });
        row("half as many marks", 1,
            [](Widget& w) { w.m_pFaceDisplacementSlider->setTickInterval(2); });
        row("marks above", 1,
            [](Widget& w) { w.m_pFaceDisplacementSlider->setTickPosition(QSlider::TicksAbove); });
        row("meshes slider in the last column", 2,
            [](Widget& w) { moveTo(w, w.m_pMeshesSlider, 2, 2); });
        row("meshes slider beside the other", 2,
            [](Widget& w) { moveTo(w, w.m_pMeshesSlider, 0, 2); });
        row("meshes label before its slider", 2,
            [](Widget& w) { moveTo(w, w.m_pMeshesLabel, 2, 0); });
        row("no help text", 1, [](Widget& w) { w.m_pFaceDisplacementText->hide(); });
        row("no box", 1, [](Widget& w) { w.m_pFaceDisplacementBox->hide(); });
        row("no software button", 1, [](Widget& w) { w.m_pSoftwareRadioButton->hide(); });
        row("no defaults button", 2, [](Widget& w) { w.findChild<QPushButton*>()->hide(); });
        row("right to left", 1, [](Widget& w) { w.setLayoutDirection(Qt::RightToLeft); });
    }

    void aChangedWidgetLooksDifferent()
    {
        QFETCH(int, mode);
        QFETCH(Change, change);
        const QImage reference = pictureOf(mode);
        const QImage picture = pictureOf(mode, QStringLiteral("sans-serif"), change);
        QVERIFY(compared(reference, reference).isEmpty());
        QVERIFY(!compared(picture, reference).isEmpty());
    }
};

int main(int argc, char* argv[])
{
    for (const char* variable : {"QT_SCREEN_SCALE_FACTORS", "QT_AUTO_SCREEN_SCALE_FACTOR",
                                 "QT_STYLE_OVERRIDE", "QT_ENABLE_HIGHDPI_SCALING"}) {
        qunsetenv(variable);
    }
    qputenv("QT_SCALE_FACTOR", "1");
    qputenv("QT_FONT_DPI", "96");
    const QTemporaryDir runtimeDirectory;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(QApplication::style()->standardPalette());
    tst_rendering_pictures test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_rendering_pictures.moc"
