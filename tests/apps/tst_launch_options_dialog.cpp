// SPDX-License-Identifier: MIT
#include "LaunchOptionsStage.h"

#include <SettingsFolders.h>

#include <LaunchOptionTable.h>
#include <LaunchOptionsDialog.h>
#include <LaunchOptionsFile.h>
#include <NumberBox.h>

#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSet>
#include <QSettings>
#include <QtTest>

#include <algorithm>
#include <memory>

namespace {

// Another value than the one that is there, and one that nothing is wrong with.
QString otherValue(const common_PropertyMetaData& metaData, const QString& value)
{
    if (metaData.type() == common_PropertyMetaData::Boolean) {
        return value == text("true") ? text("false") : text("true");
    }
    const QVector<EnumType> members = metaData.getEnumList();
    for (const EnumType& member : members) {
        if (QString::number(member.value) != value) {
            return QString::number(member.value);
        }
    }
    return metaData.name() == text("EnvironmentVariables") ? text("A=7\n\nB=c d") : text("7");
}

QString stored(const QString& name)
{
    const auto options = Options::create(ReadOnlyAccess);
    return (*options)[name].castToQString();
}

bool isKept(const QString& name)
{
    return (common_PropertyFactory::getMetaData(name).flags() &
            common_PropertyMetaData::Transient) == 0;
}

QSet<QChar> mnemonics(const QString& label)
{
    QSet<QChar> result;
    for (int i = label.indexOf(QLatin1Char('&')); i >= 0;
         i = label.indexOf(QLatin1Char('&'), i + 2)) {
        result.insert(label.at(i + 1).toLower());
    }
    return result;
}

} // namespace

class tst_launch_options_dialog : public QObject, protected LaunchOptionsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folders = std::make_unique<SettingsFolders>(); }

    void cleanup() { tearDown(); }

    void everyOptionMakesTheRoundTrip_data()
    {
        const SettingsFolders folders;
        QTest::addColumn<QString>("name");
        for (const QString& name : allNames()) {
            QTest::newRow(qPrintable(name)) << name;
        }
    }

    void everyOptionMakesTheRoundTrip()
    {
        QFETCH(QString, name);
        open();
        QVERIFY2(editor(name) != nullptr, "there is no editor");
        const common_PropertyMetaData& metaData = common_PropertyFactory::getMetaData(name);
        const QString before = stored(name);
        QCOMPARE(shown(editor(name)), before);
        if (!isKept(name)) {
            QVERIFY(!editor(name)->isEnabled());
            return;
        }
        const QString value = otherValue(metaData, before);
        type(editor(name), value);
        QVERIFY(m_dialog->save());
        QSettings file(m_folders->userFile(), QSettings::IniFormat);
        QCOMPARE(file.value(text("options/") + name).toString(), value);
        m_dialog.reset();
        open();
        QCOMPARE(shown(editor(name)), value);
        for (const QString& other : allNames()) {
            if (other != name) {
                QCOMPARE(shown(editor(other)), stored(other));
            }
        }
    }

    void theTableHasEveryOptionOnce()
    {
        QStringList keys;
        for (const LaunchOptionRow& row : LaunchOptionTable::rows()) {
            keys.append(QString::fromLatin1(row.key));
            QVERIFY2(*row.label != '\0' && !row.spokenName().isEmpty() && *row.hint != '\0',
                     row.key);
        }
        QStringList names = allNames();
        std::sort(keys.begin(), keys.end());
        std::sort(names.begin(), names.end());
        QCOMPARE(keys, names);
        QCOMPARE(keys.size(), 41);
    }

    void registeredLabelsAreShownAndNotRepeated()
    {
        QStringList registered;
        for (const LaunchOptionRow& row : LaunchOptionTable::rows()) {
            const QString label = row.metaData().label();
            if (label.isEmpty()) {
                QCOMPARE(row.text(), text(row.label));
                continue;
            }
            registered.append(row.metaData().name());
            QCOMPARE(row.spokenName(), label);
            QVERIFY2(text(row.label).remove(QLatin1Char('&')) != label, row.key);
            // Its group is called "Parallel runs".
            QCOMPARE(row.plainText(), label == text("Parallel authentication method")
                                          ? text("Authentication method")
                                          : label);
            QCOMPARE(mnemonics(row.text()).size(), 1);
        }
        registered.sort();
        QCOMPARE(registered, QStringList({text("FarmOut"), text("Kest.ParallelAuthenticMethod"),
                                          text("Kest.ProcessPriority"), text("RunDetailsShown"),
                                          text("RunParallel"), text("RunRemote")}));
    }

    void labelsCarryTheirMnemonicInTheRightPlace_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("spoken");
        // clang-format off
        QTest::newRow("registered")      << "RunRemote"              << "Run the Kest Solver on a &remote machine"           << "Run the Kest Solver on a remote machine";
        QTest::newRow("inside a word")   << "RunDetailsShown"        << "Show the details on the Kest Solver run d&ialog"    << "Show the details on the Kest Solver run dialog";
        QTest::newRow("own")             << "Kest.CheckGeometryOnly" << "Check the &geometry only"                           << "Check the geometry only";
        QTest::newRow("spoken in full")  << "Kest.AdvancedOptions"   << "Ad&vanced options"                                  << "Advanced options of the solver";
        // clang-format on
    }

    void labelsCarryTheirMnemonicInTheRightPlace()
    {
        QFETCH(QString, key);
        QFETCH(QString, label);
        open();
        QString caption;
        if (const auto* const box = qobject_cast<QCheckBox*>(editor(key))) {
            caption = box->text();
        }
        const QList<QLabel*> labels = m_dialog->findChildren<QLabel*>();
        for (const QLabel* const each : labels) {
            caption += each->buddy() == editor(key) ? each->text() : QString();
        }
        QCOMPARE(caption, label);
        QTEST(editor(key)->accessibleName(), "spoken");
    }

    void editorsSuitTheTypesOfTheOptions()
    {
        open();
        for (const QString& name : allNames()) {
            const common_PropertyMetaData& metaData = common_PropertyFactory::getMetaData(name);
            const QWidget* const widget = editor(name);
            const bool isNumber = metaData.type() == common_PropertyMetaData::Integer;
            const bool hasMembers = !metaData.getEnumList().isEmpty();
            const bool hasLines = name == text("EnvironmentVariables");
            QCOMPARE(qobject_cast<const QCheckBox*>(widget) != nullptr,
                     metaData.type() == common_PropertyMetaData::Boolean);
            QCOMPARE(qobject_cast<const QComboBox*>(widget) != nullptr, isNumber && hasMembers);
            QCOMPARE(qobject_cast<const NumberBox*>(widget) != nullptr, isNumber && !hasMembers);
            QCOMPARE(qobject_cast<const QPlainTextEdit*>(widget) != nullptr, hasLines);
            QCOMPARE(qobject_cast<const QLineEdit*>(widget) != nullptr,
                     metaData.type() == common_PropertyMetaData::String && !hasLines);
        }
    }

    void tabsAndButtonsAreCalledAsMessagesCallThem()
    {
        open();
        QCOMPARE(m_dialog->windowTitle(), text("Component launch options"));
        QStringList titles;
        for (int i = 0; i < tabs()->count(); ++i) {
            titles.append(tabs()->tabText(i));
        }
        QCOMPARE(titles, QStringList({text("Kest Solver"), text("Pre-processor"), text("Utilities"),
                                      text("AMR"), text("Environment")}));
        for (const char* const title : {"Kest Solver", "Utilities"}) {
            const auto buttons = page(title)->findChildren<QPushButton*>();
            QCOMPARE(buttons.size(), 1);
            QCOMPARE(buttons.first()->text(), text("Configure"));
        }
    }

    void configureOpensTheMachinesFile()
    {
        open();
        QStringList titles;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&titles] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr) {
                titles.append(dialog->objectName());
                dialog->reject();
            }
        });
        timer.start(2);
        for (const char* const title : {"Kest Solver", "Utilities"}) {
            page(title)->findChild<QPushButton*>()->click();
        }
        QCOMPARE(titles, QStringList({text("machinesDialog"), text("machinesDialog")}));
    }

    void enumerationsHaveTheTextsOfTheirMembers()
    {
        open();
        int count = 0;
        for (const QString& name : allNames()) {
            const QVector<EnumType> members =
                common_PropertyFactory::getMetaData(name).getEnumList();
            if (members.isEmpty()) {
                continue;
            }
            ++count;
            const auto* const box = qobject_cast<QComboBox*>(editor(name));
            QVERIFY(box != nullptr);
            QCOMPARE(box->count(), members.size());
            for (int i = 0; i < members.size(); ++i) {
                QCOMPARE(box->itemText(i), members[i].text);
                QCOMPARE(box->itemData(i).toInt(), members[i].value);
            }
        }
        QCOMPARE(count, 4);
    }

    void thePreviewShowsWhatTheOptionsComeTo()
    {
        open();
        const auto preview = [this](const char* title) {
            tabs()->setCurrentWidget(page(title));
            return m_dialog->findChild<QLineEdit*>(text("preview"))->text();
        };
        QCOMPARE(preview("Kest Solver"), text("runkest --use-gpu 0"));
        QCOMPARE(preview("Utilities"), text("adaptkest   |   optkest -NP 2"));
        QCOMPARE(preview("Environment"), text("KEST_MPISTATISTICS=0"));
        type(editor(text("Kest.AdvancedOptions")), text("  "));
        QCOMPARE(preview("Kest Solver"), text("runkest --use-gpu 0 \"\""));
        type(editor(text("Kest.AdvancedOptions")), QString());
        type(editor(text("RunParallel")), text("true"));
        type(editor(text("RunRemote")), text("true"));
        type(editor(text("Kest.RemoteHost")), text("a port=2"));
        type(editor(text("Kest.UseGPUforNVIDIA")), text("true"));
        type(editor(text("Kest.GPUsList")), text("0,1"));
        QCOMPARE(preview("Kest Solver"), text("runkest --parallel-authenticate sspi --use-gpu :0,1 "
                                              "--remote-use-mpi --remote-host \"a port=2\""));
        type(editor(text("Prekest.ContinueWithErrors")), text("true"));
        QCOMPARE(preview("Pre-processor"), text("prekest --ignore-errors"));
        type(editor(text("Amrkest.SkipFinalSolve")), text("true"));
        QCOMPARE(preview("AMR"), text("amrkest --skip-final-solve"));
        type(editor(text("EnvironmentVariables")), text("A=1\n"));
        QCOMPARE(preview("Environment"), text("KEST_MPISTATISTICS=0   A=1"));
        QVERIFY(!QFile::exists(m_folders->userFile()));
    }

    void everythingIsReachedByTheTabKey_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < LaunchOptionTable::tabs().size(); ++i) {
            QTest::newRow(qPrintable(LaunchOptionTable::tabs().at(i))) << i;
        }
    }

    void everythingIsReachedByTheTabKey()
    {
        QFETCH(int, index);
        open();
        switchAllOn();
        tabs()->setCurrentIndex(index);
        m_dialog->show();
        QApplication::setActiveWindow(m_dialog.get());
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
        QSet<QWidget*> reached;
        for (int i = 0; i < 100; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            reached.insert(QApplication::focusWidget());
        }
        int count = 0;
        const auto widgets = m_dialog->findChildren<QWidget*>();
        for (QWidget* const widget : widgets) {
            const QByteArray kind = widget->metaObject()->className();
            const bool isEditor = !widget->objectName().startsWith(text("qt_")) &&
                                  (qobject_cast<QAbstractButton*>(widget) != nullptr ||
                                   qobject_cast<QLineEdit*>(widget) != nullptr ||
                                   qobject_cast<QSpinBox*>(widget) != nullptr ||
                                   qobject_cast<QComboBox*>(widget) != nullptr ||
                                   qobject_cast<QPlainTextEdit*>(widget) != nullptr);
            if (isEditor && widget->isVisible() && widget->isEnabled() && kind != "QToolButton") {
                ++count;
                QVERIFY2(reached.contains(widget), qPrintable(widget->objectName()));
            }
        }
        QVERIFY(count >= 6);
    }

    void noMnemonicMeansTwoThings_data() { everythingIsReachedByTheTabKey_data(); }
    void noMnemonicMeansTwoThings()
    {
        QFETCH(int, index);
        open();
        QList<QWidget*> widgets = tabs()->widget(index)->findChildren<QWidget*>();
        for (const char* const name : {"ok", "cancel", "apply", "restoreDefaults"}) {
            widgets.append(button(name));
        }
        QSet<QChar> taken;
        for (QWidget* const widget : qAsConst(widgets)) {
            const auto* const label = qobject_cast<QLabel*>(widget);
            const auto* const control = qobject_cast<QAbstractButton*>(widget);
            const auto* const group = qobject_cast<QGroupBox*>(widget);
            const QString caption = label != nullptr     ? label->text()
                                    : control != nullptr ? control->text()
                                    : group != nullptr   ? group->title()
                                                         : QString();
            const QSet<QChar> found = mnemonics(caption);
            QVERIFY2(!taken.intersects(found), qPrintable(caption));
            taken.unite(found);
        }
    }

    void everyOptionHasAMnemonicAndALabel()
    {
        open();
        const QList<QLabel*> labels = m_dialog->findChildren<QLabel*>();
        for (const QString& name : allNames()) {
            if (!isKept(name)) {
                continue;
            }
            QWidget* const widget = editor(name);
            QString caption;
            if (const auto* const box = qobject_cast<QCheckBox*>(widget)) {
                caption = box->text();
            }
            for (const QLabel* const label : labels) {
                caption += label->buddy() == widget ? label->text() : QString();
            }
            QVERIFY2(mnemonics(caption).size() == 1, qPrintable(name + caption));
        }
    }

    void aMnemonicLeadsToItsOption()
    {
        open();
        m_dialog->show();
        QApplication::setActiveWindow(m_dialog.get());
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
        QTest::keyClick(m_dialog.get(), Qt::Key_H, Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget(), editor(text("Kest.RemoteHost")));
        QTest::keyClick(m_dialog.get(), Qt::Key_P, Qt::AltModifier);
        QTRY_COMPARE(shown(editor(text("RunParallel"))), text("true"));
    }

private:
    QWidget* page(const char* title) const
    {
        for (int i = 0; i < tabs()->count(); ++i) {
            if (tabs()->tabText(i) == text(title)) {
                return tabs()->widget(i);
            }
        }
        return nullptr;
    }
};

QTEST_MAIN(tst_launch_options_dialog)
#include "tst_launch_options_dialog.moc"
