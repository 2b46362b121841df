#include <common_RenderingSettingsWidget.h>

#include <QApplication>
#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMetaMethod>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

using Widget = common_RenderingSettingsWidget;

/// A panel that says in which order its protected operations are called.
class Panel : public Widget
{
public:
    using Widget::languageChange;
    using Widget::Widget;

    void onWidgetChanged() override { ++changes; }

    int changes = 0;
};

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

QPushButton* defaultsButton(const Widget& widget)
{
    return widget.findChild<QPushButton*>(QStringLiteral("DefaultsButton"));
}

QVector<QSlider*> slidersOf(const Widget& widget)
{
    return {widget.m_pGeometrySlider, widget.m_pMeshesSlider, widget.m_pFaceDisplacementSlider};
}

using State = QVector<int>;

State stateOf(const Widget& widget)
{
    State state = {widget.m_pHardwareRadioButton->isChecked(),
                   widget.m_pSoftwareRadioButton->isChecked()};
    const QVector<QSlider*> sliders = slidersOf(widget);
    for (const QSlider* slider : sliders) {
        state.append(slider->value());
    }
    return state;
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

int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext&, const QString&)
{
    warnings += type == QtDebugMsg || type == QtInfoMsg ? 0 : 1;
}

} // namespace

Q_DECLARE_METATYPE(QSizePolicy::Policy)

class tst_common_RenderingSettingsWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMethodsInOrder()
    {
        const QMetaObject& meta = Widget::staticMetaObject;
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            methods.append(QStringLiteral("%1 %2 %3")
                               .arg(QString::fromLatin1(method.methodSignature()),
                                    QString::number(method.methodType()),
                                    QString::number(method.access())));
        }
        const auto line = [](const char* name, int type, int access) {
            return QStringLiteral("%1 %2 %3").arg(QLatin1String(name)).arg(type).arg(access);
        };
        const QStringList expected = {
            line("renderingSettingsChanged()", QMetaMethod::Signal, QMetaMethod::Public),
            line("useDefaults()", QMetaMethod::Signal, QMetaMethod::Public),
            line("onWidgetChanged()", QMetaMethod::Slot, QMetaMethod::Public),
            line("onDefaultsClicked()", QMetaMethod::Slot, QMetaMethod::Protected),
            line("languageChange()", QMetaMethod::Slot, QMetaMethod::Protected)};
        QCOMPARE(methods, expected);
        QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    }

    void takesParentNameAndFlags()
    {
        QWidget parent;
        const Widget inside(&parent, "caf\xe9", Qt::Tool);
        QCOMPARE(inside.parentWidget(), &parent);
        QCOMPARE(inside.objectName(), QStringLiteral("caf\u00e9"));
        QCOMPARE(inside.windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::Tool));
        const Widget plain;
        QVERIFY(!plain.parentWidget());
        QCOMPARE(plain.objectName(), QStringLiteral("common_Rendering_Settings_Widget"));
        QCOMPARE(plain.windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::Window));
        QCOMPARE(Widget(&parent, "").objectName(), QString());
        QVERIFY(!Widget(&parent).isWindow());
    }

    void namesItsControls_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const char* type, const char* text) {
            QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(type)
                                << QString::fromLatin1(text);
        };
        row("m_pMeshesSlider", "QSlider", nullptr);
        row("m_pGeometrySlider", "QSlider", nullptr);
        row("faceDisplacementSlider", "QSlider", nullptr);
        row("hardwareRadioButton", "QRadioButton", "Hardware rendering2");
        row("faceDisplacementGroupBox", "QGroupBox", "Face displacement");
        row("faceDisplacementTextLabel", "QLabel",
            "The ideal face displacement depends on the graphics card. This value should be "
            "increased if the edges appear broken and decreased if edges which are supposed to be "
            "hidden become visible.");
        row("m_pGeometryLabel", "QLabel", "Geometry");
        row("m_pMeshesLabel", "QLabel", "Meshes");
        row("DefaultsButton", "QPushButton", "&Reset to defaults");
    }

    void namesItsControls()
    {
        QFETCH(QString, name);
        QFETCH(QString, type);
        QFETCH(QString, text);
        const Widget widget;
        const auto found = widget.findChildren<QWidget*>(name);
        QCOMPARE(found.size(), 1);
        QCOMPARE(QString::fromLatin1(found.first()->metaObject()->className()), type);
        const char* property = type == QLatin1String("QGroupBox") ? "title" : "text";
        QCOMPARE(found.first()->property(property).toString(), text);
    }

    void hasNoOtherControl()
    {
        const Widget widget;
        QCOMPARE(widget.findChildren<QWidget*>().size(), 10);
        QCOMPARE(widget.m_pSoftwareRadioButton->objectName(), QString());
        QCOMPARE(widget.m_pSoftwareRadioButton->text(), QStringLiteral("Software rendering"));
    }

    void hasEachControlInItsMember()
    {
        const Widget widget;
        const QVector<QPair<QObject*, const char*>> members = {
            {widget.m_pMeshesSlider, "m_pMeshesSlider"},
            {widget.m_pGeometrySlider, "m_pGeometrySlider"},
            {widget.m_pFaceDisplacementSlider, "faceDisplacementSlider"},
            {widget.m_pHardwareRadioButton, "hardwareRadioButton"},
            {widget.m_pFaceDisplacementBox, "faceDisplacementGroupBox"},
            {widget.m_pFaceDisplacementText, "faceDisplacementTextLabel"},
            {widget.m_pGeometryLabel, "m_pGeometryLabel"},
            {widget.m_pMeshesLabel, "m_pMeshesLabel"}};
        for (const auto& member : members) {
            QCOMPARE(member.first, widget.findChild<QObject*>(QLatin1String(member.second)));
        }
    }

    void hasThreeSlidersAlike()
    {
        const Widget widget;
        const QVector<QSlider*> sliders = slidersOf(widget);
        for (const QSlider* slider : sliders) {
            QCOMPARE(slider->minimum(), 0);
            QCOMPARE(slider->maximum(), 32);
            QCOMPARE(slider->singleStep(), 1);
            QCOMPARE(slider->value(), 2);
            QCOMPARE(slider->orientation(), Qt::Horizontal);
            QCOMPARE(slider->tickPosition(), QSlider::TicksBelow);
            QCOMPARE(slider->tickInterval(), 1);
        }
    }

    void startsWithHardwareRendering()
    {
        const Widget widget;
        QVERIFY(widget.m_pHardwareRadioButton->isChecked());
        QVERIFY(!widget.m_pSoftwareRadioButton->isChecked());
    }

    void showsTheSlidersOfItsMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("single");
        QTest::newRow("1") << 1 << true;
        QTest::newRow("2") << 2 << false;
        QTest::newRow("0") << 0 << false;
        QTest::newRow("3") << 3 << false;
        QTest::newRow("-1") << -1 << false;
    }

    void showsTheSlidersOfItsMode()
    {
        QFETCH(int, mode);
        QFETCH(bool, single);
        Widget widget(nullptr, nullptr, {}, mode);
        widget.show();
        QCOMPARE(widget.m_pFaceDisplacementSlider->isVisible(), single);
        const QWidgetList twoSliders = {widget.m_pGeometrySlider, widget.m_pGeometryLabel,
                                        widget.m_pMeshesSlider, widget.m_pMeshesLabel};
        for (const QWidget* one : twoSliders) {
            QCOMPARE(one->isVisible(), !single);
        }
        QVERIFY(widget.m_pFaceDisplacementText->isVisible());
        QVERIFY(widget.m_pSoftwareRadioButton->isVisible());
    }

    void showsTwoSlidersByDefault()
    {
        const Widget widget;
        QVERIFY(widget.m_pFaceDisplacementSlider->isHidden());
        QVERIFY(!widget.m_pGeometrySlider->isHidden());
        QVERIFY(!widget.m_pMeshesSlider->isHidden());
    }

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

    void setsItsTexts()
    {
        Panel panel;
        QCOMPARE(panel.windowTitle(), QStringLiteral("Rendering options"));
        const QVector<QPair<QWidget*, const char*>> texts = {
            {&panel, "windowTitle"},
            {panel.m_pHardwareRadioButton, "text"},
            {panel.m_pSoftwareRadioButton, "text"},
            {panel.m_pFaceDisplacementBox, "title"},
            {panel.m_pFaceDisplacementText, "text"},
            {panel.m_pGeometryLabel, "text"},
            {panel.m_pMeshesLabel, "text"}};
        const QString other = QStringLiteral("other");
        for (const auto& text : texts) {
            const QVariant before = text.first->property(text.second);
            text.first->setProperty(text.second, other);
            QCOMPARE(text.first->property(text.second).toString(), other);
            panel.languageChange();
            QCOMPARE(text.first->property(text.second), before);
        }
        defaultsButton(panel)->setText(other);
        panel.languageChange();
        QCOMPARE(defaultsButton(panel)->text(), other);
    }

    void signalsEachChangeOfASliderOnce_data()
    {
        QTest::addColumn<QString>("slider");
        for (const char* name :
             {"m_pGeometrySlider", "m_pMeshesSlider", "faceDisplacementSlider"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }

    void signalsEachChangeOfASliderOnce()
    {
        QFETCH(QString, slider);
        const Widget widget;
        const QSignalSpy changed(&widget, &Widget::renderingSettingsChanged);
        const QSignalSpy defaults(&widget, &Widget::useDefaults);
        auto* const moved = widget.findChild<QSlider*>(slider);
        moved->setValue(2);
        QCOMPARE(changed.size(), 0);
        moved->setValue(3);
        QCOMPARE(changed.size(), 1);
        QTest::keyClick(moved, Qt::Key_Right);
        QCOMPARE(moved->value(), 4);
        QCOMPARE(changed.size(), 2);
        moved->setValue(99);
        QCOMPARE(moved->value(), 32);
        moved->setValue(100);
        QCOMPARE(changed.size(), 3);
        QCOMPARE(defaults.size(), 0);
    }

    void aPanelMayDoSomethingElseWhenASliderMoves()
    {
        const Panel panel;
        const QSignalSpy changed(&panel, &Widget::renderingSettingsChanged);
        panel.m_pMeshesSlider->setValue(5);
        QCOMPARE(panel.changes, 1);
        QCOMPARE(changed.size(), 0);
    }

    void slotsCanBeCalledByName()
    {
        Widget widget;
        const QSignalSpy changed(&widget, &Widget::renderingSettingsChanged);
        const QSignalSpy defaults(&widget, &Widget::useDefaults);
        QVERIFY(QMetaObject::invokeMethod(&widget, "onWidgetChanged"));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(defaults.size(), 0);
        QVERIFY(QMetaObject::invokeMethod(&widget, "onDefaultsClicked"));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(defaults.size(), 1);
    }

    void theDefaultsButtonOnlyAsks()
    {
        Widget widget;
        widget.show();
        widget.m_pSoftwareRadioButton->click();
        const QVector<QSlider*> sliders = slidersOf(widget);
        for (QSlider* slider : sliders) {
            slider->setValue(17);
        }
        const State before = stateOf(widget);
        const QSignalSpy changed(&widget, &Widget::renderingSettingsChanged);
        const QSignalSpy defaults(&widget, &Widget::useDefaults);
        QTest::mouseClick(defaultsButton(widget), Qt::LeftButton);
        QCOMPARE(defaults.size(), 1);
        QCOMPARE(changed.size(), 0);
        QCOMPARE(stateOf(widget), before);
    }

    void choosingARenderingSignalsNothing()
    {
        Widget widget;
        widget.show();
        const QSignalSpy changed(&widget, &Widget::renderingSettingsChanged);
        const QSignalSpy defaults(&widget, &Widget::useDefaults);
        for (QRadioButton* button :
             {widget.m_pSoftwareRadioButton, widget.m_pHardwareRadioButton}) {
            QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, {8, button->height() / 2});
            QVERIFY(button->isChecked());
            QCOMPARE(widget.m_pHardwareRadioButton->isChecked(),
                     !widget.m_pSoftwareRadioButton->isChecked());
        }
        QCOMPARE(changed.size(), 0);
        QCOMPARE(defaults.size(), 0);
    }

    void hasNoButtonGroup()
    {
        const Widget widget;
        QVERIFY(!widget.m_pButtonGroup);
        QVERIFY(widget.findChildren<QButtonGroup*>().isEmpty());
        QVERIFY(!widget.m_pHardwareRadioButton->group());
        QVERIFY(!widget.m_pSoftwareRadioButton->group());
    }

    // A connection from the group that is never made would be refused with a warning each time.
    void isMadeWithoutAWarning()
    {
        warnings = 0;
        const QtMessageHandler before = qInstallMessageHandler(countWarnings);
        for (const int mode : {1, 2}) {
            const Widget widget(nullptr, nullptr, {}, mode);
        }
        qWarning("one");
        qInstallMessageHandler(before);
        QCOMPARE(warnings, 1);
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
    tst_common_RenderingSettingsWidget test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_RenderingSettingsWidget.moc"
