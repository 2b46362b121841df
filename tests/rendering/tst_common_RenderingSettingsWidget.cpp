// SPDX-License-Identifier: MIT
#include "RenderingPanel.h"

#include <common_RenderingSettingsWidget.h>

#include <QApplication>
#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QMetaMethod>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// A panel that says in which order its protected operations are called.
class Panel : public Widget
{
public:
    using Widget::languageChange;
    using Widget::Widget;

    void onWidgetChanged() override { ++changes; }

    int changes = 0;
};

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

int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext&, const QString&)
{
    warnings += type == QtDebugMsg || type == QtInfoMsg ? 0 : 1;
}

} // namespace

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
