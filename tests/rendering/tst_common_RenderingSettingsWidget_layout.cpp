// SPDX-License-Identifier: MIT
#include "RenderingPanel.h"

#include <common_RenderingSettingsWidget.h>

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Cell
{
    int row = -1;
    int column = -1;
    int rows = -1;
    int columns = -1;

    bool operator==(const Cell& other) const
    {
        return row == other.row && column == other.column && rows == other.rows &&
               columns == other.columns;
    }
};

Cell cellAt(const QGridLayout* grid, int index)
{
    Cell cell;
    if (index >= 0) {
        grid->getItemPosition(index, &cell.row, &cell.column, &cell.rows, &cell.columns);
    }
    return cell;
}

Cell cellOf(const QGridLayout* grid, QWidget* widget)
{
    return cellAt(grid, grid->indexOf(widget));
}

int indexOf(const QLayout* layout, const QLayout* inner)
{
    for (int i = 0; i < layout->count(); ++i) {
        if (layout->itemAt(i)->layout() == inner) {
            return i;
        }
    }
    return -1;
}

Cell cellOf(const QGridLayout* grid, const QLayout* inner)
{
    return cellAt(grid, indexOf(grid, inner));
}

QVBoxLayout* mainLayout(const Widget& widget)
{
    return qobject_cast<QVBoxLayout*>(widget.layout());
}

/// Those of the controls that come in the order of the Tab key, from the first radio button on.
QWidgetList tabOrderOf(const Widget& widget)
{
    QWidgetList order;
    QWidget* const first = widget.m_pHardwareRadioButton;
    QWidget* next = first;
    do {
        if (next == first || slidersOf(widget).contains(qobject_cast<QSlider*>(next))) {
            order.append(next);
        }
        next = next->nextInFocusChain();
    } while (next != first);
    return order;
}

} // namespace

class tst_common_RenderingSettingsWidget_layout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laysOutTheMainRows()
    {
        const Widget widget;
        const QVBoxLayout* const layout = mainLayout(widget);
        QVERIFY(layout);
        QCOMPARE(layout->contentsMargins(), QMargins(2, 2, 2, 2));
        QCOMPARE(layout->count(), 4);
        QCOMPARE(layout->itemAt(0)->layout(), widget.m_pMainGrid);
        QVERIFY(layout->itemAt(1)->spacerItem());
        QCOMPARE(layout->stretch(1), 1);
        QVERIFY(layout->itemAt(3)->spacerItem());
        QCOMPARE(layout->itemAt(3)->spacerItem()->sizeHint().height(), 20);
        QCOMPARE(layout->stretch(3), 0);

        const auto* const row = qobject_cast<QHBoxLayout*>(layout->itemAt(2)->layout());
        QVERIFY(row);
        QCOMPARE(row->spacing(), 3);
        QCOMPARE(row->count(), 2);
        QVERIFY(row->itemAt(0)->spacerItem());
        QVERIFY(row->itemAt(0)->expandingDirections() & Qt::Horizontal);
        QCOMPARE(row->itemAt(1)->widget(), defaultsButton(widget));
        QCOMPARE(defaultsButton(widget)->parentWidget(), &widget);
    }

    void laysOutTheRadioButtons()
    {
        const Widget widget;
        QCOMPARE(widget.m_pMainGrid->count(), 2);
        QVERIFY(cellOf(widget.m_pMainGrid, widget.m_pRadioLayout) == (Cell{0, 0, 1, 1}));
        QVBoxLayout* const layout = widget.m_pRadioLayout;
        QCOMPARE(layout->alignment(), Qt::Alignment(Qt::AlignTop));
        QCOMPARE(layout->count(), 3);
        QCOMPARE(layout->itemAt(0)->widget(), widget.m_pHardwareRadioButton);
        QCOMPARE(layout->itemAt(1)->widget(), widget.m_pSoftwareRadioButton);
        QCOMPARE(layout->itemAt(2)->spacerItem(), widget.m_pSpacer);
        QCOMPARE(widget.m_pSpacer->sizeHint(), QSize(21, 10));
        QCOMPARE(widget.m_pSpacer->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
        QCOMPARE(widget.m_pSpacer->sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);
    }

    void laysOutTheBox()
    {
        const Widget widget;
        QVERIFY(cellOf(widget.m_pMainGrid, widget.m_pFaceDisplacementBox) == (Cell{0, 1, 1, 1}));
        QGridLayout* const grid = widget.m_pGroupGrid;
        QCOMPARE(widget.m_pFaceDisplacementBox->layout(), grid);
        QCOMPARE(grid->alignment(), Qt::Alignment(Qt::AlignTop));
        QCOMPARE(grid->count(), 3);
        QVERIFY(cellOf(grid, widget.m_pFaceDisplacementText) == (Cell{0, 0, 1, 1}));
        QVERIFY(cellOf(grid, widget.m_pFaceDisplacementSlider) == (Cell{1, 0, 1, 1}));
        QVERIFY(cellOf(grid, widget.m_pTwoSlidersGrid) == (Cell{2, 0, 1, 1}));
    }

    void laysOutTheTwoSliders()
    {
        const Widget widget;
        QGridLayout* const grid = widget.m_pTwoSlidersGrid;
        QCOMPARE(grid->horizontalSpacing(), 6);
        QCOMPARE(grid->verticalSpacing(), 6);
        QCOMPARE(grid->count(), 4);
        QVERIFY(cellOf(grid, widget.m_pGeometryLabel) == (Cell{0, 0, 1, 1}));
        QVERIFY(cellOf(grid, widget.m_pGeometrySlider) == (Cell{0, 1, 1, 1}));
        QVERIFY(cellOf(grid, widget.m_pMeshesLabel) == (Cell{1, 2, 1, 2}));
        QVERIFY(cellOf(grid, widget.m_pMeshesSlider) == (Cell{2, 1, 1, 1}));
    }

    void givesControlsTheirSizePolicies()
    {
        const Widget widget;
        const auto policyOf = [](const QWidget* control) {
            return qMakePair(control->sizePolicy().horizontalPolicy(),
                             control->sizePolicy().verticalPolicy());
        };
        const auto flat = qMakePair(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
        const auto growing =
            qMakePair(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
        QVERIFY(policyOf(widget.m_pHardwareRadioButton) == flat);
        QVERIFY(policyOf(widget.m_pSoftwareRadioButton) == flat);
        QVERIFY(policyOf(widget.m_pFaceDisplacementText) == flat);
        QVERIFY(policyOf(widget.m_pFaceDisplacementBox) == growing);
        QCOMPARE(widget.m_pFaceDisplacementText->alignment(), Qt::AlignLeft | Qt::AlignTop);
    }

    void showsTheWholeHelpText_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("1") << 1;
        QTest::newRow("2") << 2;
    }

    // In several lines: in one line the text alone would be wider than many screens.
    void showsTheWholeHelpText()
    {
        QFETCH(int, mode);
        Widget widget(nullptr, nullptr, {}, mode);
        widget.show();
        const QLabel* const text = widget.m_pFaceDisplacementText;
        QVERIFY(text->wordWrap());
        QVERIFY(text->height() >= text->heightForWidth(text->width()));
        QVERIFY(text->width() < text->fontMetrics().horizontalAdvance(text->text()));
    }

    void hasAnInitialSize_data()
    {
        QTest::addColumn<int>("pixelSize");
        QTest::newRow("small font") << 4;
        QTest::newRow("large font") << 40;
    }

    void hasAnInitialSize()
    {
        QFETCH(int, pixelSize);
        const QFont before = QApplication::font();
        QFont font = before;
        font.setPixelSize(pixelSize);
        QApplication::setFont(font);
        const Widget widget;
        QApplication::setFont(before);
        const QSize minimum = widget.minimumSizeHint();
        QCOMPARE(minimum.width() > 344, pixelSize == 40);
        QCOMPARE(minimum.height() > 227, pixelSize == 40);
        QCOMPARE(widget.size(), QSize(344, 227).expandedTo(minimum));
        QCOMPARE(widget.windowState(), Qt::WindowStates(Qt::WindowNoState));
    }

    void tabGoesFromTheRadioButtonsToTheSliders()
    {
        const Widget widget;
        const QWidgetList expected = {widget.m_pHardwareRadioButton, widget.m_pGeometrySlider,
                                      widget.m_pMeshesSlider, widget.m_pFaceDisplacementSlider};
        QCOMPARE(tabOrderOf(widget), expected);
        QWidget* next = widget.m_pHardwareRadioButton;
        for (QWidget* control : expected) {
            QCOMPARE(next, control);
            next = next->nextInFocusChain();
        }
    }

    void theHardwareButtonHasTheFocus()
    {
        Widget widget;
        QCOMPARE(widget.focusWidget(), widget.m_pHardwareRadioButton);
        widget.show();
        widget.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&widget));
        QVERIFY(widget.m_pHardwareRadioButton->hasFocus());
    }
};

int main(int argc, char* argv[])
{
    const QTemporaryDir runtimeDirectory;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));
    const QApplication application(argc, argv);
    tst_common_RenderingSettingsWidget_layout test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_RenderingSettingsWidget_layout.moc"
