#include "BoxAnswerer.h"

#include <SettingsFolders.h>
#include <SpecialFile.h>

#include <LaunchOptionTable.h>
#include <LaunchOptionsDialog.h>
#include <LaunchOptionsFile.h>
#include <NumberBox.h>
#include <OptionRules.h>

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
#include <QScrollArea>
#include <QSet>
#include <QSettings>
#include <QTabWidget>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstdio>
#include <functional>
#include <memory>
#include <thread>

namespace {

using Options = common_ComponentsLaunchOptions;

QString text(const char* literal)
{
    return QString::fromUtf8(literal);
}

// In words for the dialog's editors, whatever kind they are of.
QString shown(const QWidget* editor)
{
    if (const auto* const box = qobject_cast<const QCheckBox*>(editor)) {
        return box->isChecked() ? text("true") : text("false");
    }
    if (const auto* const box = qobject_cast<const QComboBox*>(editor)) {
        return box->currentData().toString();
    }
    if (const auto* const box = qobject_cast<const QSpinBox*>(editor)) {
        return QString::number(box->value());
    }
    if (const auto* const edit = qobject_cast<const QPlainTextEdit*>(editor)) {
        return edit->toPlainText();
    }
    const auto* const line = qobject_cast<const QLineEdit*>(editor);
    return line != nullptr ? line->text() : text("no editor");
}

void type(QWidget* editor, const QString& value)
{
    if (auto* const box = qobject_cast<QCheckBox*>(editor)) {
        box->setChecked(value == text("true"));
    } else if (auto* const combo = qobject_cast<QComboBox*>(editor)) {
        combo->setCurrentIndex(combo->findData(value));
    } else if (auto* const number = qobject_cast<QSpinBox*>(editor)) {
        number->setValue(value.toInt());
    } else if (auto* const edit = qobject_cast<QPlainTextEdit*>(editor)) {
        edit->setPlainText(value);
    } else {
        qobject_cast<QLineEdit*>(editor)->setText(value);
    }
}

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

// Of all properties of the process those that are launch options.
const QStringList& allNames()
{
    static const QStringList names = [] {
        QStringList all = common_PropertyFactory::names();
        all.removeAll(text("3DMouseSensitivity"));
        return all;
    }();
    return names;
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

// Visits the launch options whenever they are the modal dialog.
class DialogVisitor
{
public:
    explicit DialogVisitor(const std::function<void(QDialog*)>& visit)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [visit] {
            if (auto* const dialog =
                    qobject_cast<LaunchOptionsDialog*>(QApplication::activeModalWidget())) {
                visit(dialog);
            }
        });
        m_timer.start(2);
    }

private:
    QTimer m_timer;
};

} // namespace

class tst_launch_options_dialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folders = std::make_unique<SettingsFolders>(); }

    void cleanup()
    {
        m_dialog.reset();
        m_folders.reset();
    }

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
            QVERIFY2(*row.label != '\0' && *row.accessibleName != '\0' && *row.hint != '\0',
                     row.key);
        }
        QStringList names = allNames();
        std::sort(keys.begin(), keys.end());
        std::sort(names.begin(), names.end());
        QCOMPARE(keys, names);
        QCOMPARE(keys.size(), 41);
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

    void aSwitchEnablesWhatDependsOnIt_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("switchKey");
        // clang-format off
        QTest::newRow("processes")  << "Kest.NumberOfParallelProcesses" << "Kest.SpecifyParallelProcesses";
        QTest::newRow("GPUs")       << "Kest.NumberOfGPUs"              << "Kest.UseGPUforNVIDIA";
        QTest::newRow("GPU list")   << "Kest.GPUsList"                  << "Kest.UseGPUforNVIDIA";
        QTest::newRow("analysis")   << "Adaptkest.AnalysisNumber"       << "Adaptkest.RestartAnalysisNumber";
        QTest::newRow("solver run") << "Optkest.SolverRun"              << "Optkest.RestartFromSolverRun";
        QTest::newRow("iterations") << "Amrkest.MaximumIterations"      << "Amrkest.SpecifyMaximumIterations";
        QTest::newRow("frequency")  << "Amrkest.Frequency"              << "Amrkest.SpecifyFrequency";
        // clang-format on
    }

    void aSwitchEnablesWhatDependsOnIt()
    {
        QFETCH(QString, key);
        QFETCH(QString, switchKey);
        open();
        QVERIFY(!editor(key)->isEnabled());
        type(editor(switchKey), text("true"));
        QVERIFY(editor(key)->isEnabled());
        type(editor(switchKey), text("false"));
        QVERIFY(!editor(key)->isEnabled());
    }

    void whatIsTypedIsChecked_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("right");
        const auto add = [](const char* key, const char* value, bool right) {
            QTest::newRow(qPrintable(text("%1=%2").arg(text(key), text(value))))
                << text(key) << text(value) << right;
        };
        for (const char* const value : {"", "1", "16"}) {
            add("Kest.NumberOfGPUs", value, true);
        }
        for (const char* const value :
             {"0", "-1", "two", "1.5", " 1", "1 ", "+1", "01", "1000000", "99999999999"}) {
            add("Kest.NumberOfGPUs", value, false);
        }
        for (const char* const value : {"", "0", "0,1", "3,1,12"}) {
            add("Kest.GPUsList", value, true);
        }
        for (const char* const value :
             {",", "0,", ",0", "0,,1", "0 ,1", "0-3", "a", "-1", "1,1", "1,01", "0;1"}) {
            add("Kest.GPUsList", value, false);
        }
        for (const char* const value : {"14.2", "1e3", "300", "0.001", "+5", ".5", "1e15"}) {
            add("Amrkest.Frequency", value, true);
        }
        for (const char* const value : {"", "0", "-1", "14,2", "1,000", "14.2 MHz", "fast", "inf",
                                        "nan", "1e999", "1e16", "0x10", "1e", " 1"}) {
            add("Amrkest.Frequency", value, false);
        }
        for (const char* const value : {"", "node1", "user@host", "a-b", "a_b.c", "fe80::1",
                                        "node1 port=22", "node1 user=me home=/opt/kest"}) {
            add("Kest.RemoteHost", value, true);
        }
        for (const char* const value : {"-oProxyCommand=x",
                                        "node1 -x",
                                        "  -x",
                                        "-",
                                        "a\x1b[0m",
                                        "node1 node2",
                                        " node1",
                                        "node1 ",
                                        "a  port=1",
                                        "a;b",
                                        "$(a)",
                                        "a`b`",
                                        "a|b",
                                        "a>b",
                                        "a'b",
                                        "a\\b",
                                        "@a",
                                        "a@",
                                        "-l@a",
                                        "a@b@c",
                                        "h\xc3\xb6st",
                                        "[fe80::1]",
                                        "node1:22",
                                        "cafe:22",
                                        "node1\tport=22",
                                        "a port=0",
                                        "a port=+1",
                                        "a home=x",
                                        "a x=1"}) {
            add("Kest.RemoteHost", value, false);
        }
        for (const char* const value : {"", "A=1", "A=", "_b2=x y", "A=1\nB=2\n", "\nA=1"}) {
            add("EnvironmentVariables", value, true);
        }
        for (const char* const value :
             {"A", "=1", "1A=2", "A B=1", "A=1\nB", " A=1", "A-B=1", "A==", "A=b=c", "A=1  2",
              "A= 1", "A=1\t", "A=1\nA=2", "A=\x1b"}) {
            add("EnvironmentVariables", value, false);
        }
        for (const char* const value : {"", "--a  \"b\"", "-x", "--a\t-b"}) {
            add("Kest.AdvancedOptions", value, true);
        }
        for (const char* const value : {"a\x1b[0m", "a\x7f", "a\xef\xbf\xbd"}) {
            add("Kest.AdvancedOptions", value, false);
        }
        const auto addRange = [&add](const char* key, qint64 smallest, qint64 largest) {
            for (const qint64 number : {smallest, largest}) {
                add(key, qPrintable(QString::number(number)), true);
            }
            for (const qint64 number : {smallest - 1, largest + 1, qint64(INT_MIN)}) {
                if (number <= INT_MAX) {
                    add(key, qPrintable(QString::number(number)), false);
                }
            }
        };
        addRange("Kest.NumberOfParallelProcesses", 1, 4096);
        addRange("Kest.ParallelEnvOptions", 0, INT_MAX);
        addRange("Adaptkest.AnalysisNumber", 1, 1000000);
        addRange("Optkest.SolverRun", 1, 1000000);
        addRange("Optkest.NumberOfFarmProcesses", 2, 4096);
        addRange("Amrkest.MaximumIterations", 1, 1000000);
    }

    void whatIsTypedIsChecked()
    {
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(bool, right);
        open();
        m_dialog->show();
        switchAllOn();
        type(editor(text("Amrkest.Frequency")), text("1"));
        tabs()->setCurrentWidget(pageOf(key));
        QVERIFY(button("ok")->isEnabled());
        type(editor(key), value);
        auto* const message = m_dialog->findChild<QLabel*>(key + text(".message"));
        auto* const reason = m_dialog->findChild<QLabel*>(text("reason"));
        QCOMPARE(button("ok")->isEnabled(), right);
        QCOMPARE(message->isVisible(), !right);
        QCOMPARE(reason->isVisible(), !right);
        QCOMPARE(message->text().isEmpty(), right);
        QCOMPARE(editor(key)->accessibleDescription(), message->text());
        if (!right) {
            QVERIFY(!button("apply")->isEnabled());
            QVERIFY(reason->text().contains(message->text()));
            QVERIFY(reason->text().startsWith(tabs()->tabText(tabs()->currentIndex())));
            QVERIFY(editor(key)->palette().color(QPalette::Base) !=
                    m_dialog->palette().color(QPalette::Base));
            m_dialog->accept();
            QVERIFY(m_dialog->isVisible());
            QVERIFY(!QFile::exists(m_folders->userFile()));
        } else {
            QCOMPARE(editor(key)->palette().color(QPalette::Base),
                     m_dialog->palette().color(QPalette::Base));
        }
    }

    void aMistakeThatIsPutRightIsForgotten()
    {
        open();
        m_dialog->show();
        type(editor(text("Kest.RemoteHost")), text("-x"));
        type(editor(text("EnvironmentVariables")), text("x"));
        auto* const reason = m_dialog->findChild<QLabel*>(text("reason"));
        QVERIFY(reason->text().startsWith(text("Kest Solver: Remote host: ")));
        type(editor(text("Kest.RemoteHost")), text("x"));
        QCOMPARE(reason->text(), text("Environment: Environment variables: Line 1 is not "
                                      "NAME=VALUE."));
        type(editor(text("EnvironmentVariables")), text("x=1"));
        QVERIFY(!reason->isVisible());
        QVERIFY(button("ok")->isEnabled());
    }

    void whatIsSwitchedOffIsNotChecked()
    {
        open();
        type(editor(text("Kest.UseGPUforNVIDIA")), text("true"));
        type(editor(text("Kest.NumberOfGPUs")), text("two"));
        QVERIFY(!button("ok")->isEnabled());
        type(editor(text("Kest.UseGPUforNVIDIA")), text("false"));
        QVERIFY(button("ok")->isEnabled());
    }

    void arrowsStopAtTheSmallestAndTheLargestNumber()
    {
        NumberBox box(2, 5, nullptr);
        box.setValue(3);
        box.stepDown();
        QCOMPARE(box.value(), 2);
        box.stepDown();
        QCOMPARE(box.value(), 2);
        box.setValue(-7);
        QCOMPARE(box.value(), -7);
        box.stepUp();
        QCOMPARE(box.value(), 2);
        box.stepBy(10);
        QCOMPARE(box.value(), 5);
        box.stepUp();
        QCOMPARE(box.value(), 5);
        box.setValue(7);
        QCOMPARE(box.value(), 7);
        box.stepUp();
        QCOMPARE(box.value(), 5);
    }

    void anEmptyNumberIsNone()
    {
        open();
        type(editor(text("Kest.SpecifyParallelProcesses")), text("true"));
        qobject_cast<QSpinBox*>(editor(text("Kest.NumberOfParallelProcesses")))->selectAll();
        QTest::keyClick(editor(text("Kest.NumberOfParallelProcesses")), Qt::Key_Delete);
        QVERIFY(!button("ok")->isEnabled());
    }

    void valuesThatTheEditorsCannotShowAreKept()
    {
        {
            QSettings file(m_folders->userFile(), QSettings::IniFormat);
            file.setValue(text("options/Kest.ProcessPriority"), 7);
            file.setValue(text("options/Kest.ParallelAuthenticMethod"), 0);
            file.setValue(text("options/Prekest.AdvancedOptions"), text("a\tb\nc"));
            file.setValue(text("options/EnvironmentVariables"), text("A=1\r\nB=\tx"));
        }
        open();
        QCOMPARE(shown(editor(text("Kest.ProcessPriority"))), text("7"));
        QVERIFY(!button("apply")->isEnabled());
        type(editor(text("RunParallel")), text("true"));
        QVERIFY(m_dialog->save());
        QSettings file(m_folders->userFile(), QSettings::IniFormat);
        QCOMPARE(file.value(text("options/Kest.ProcessPriority")).toInt(), 7);
        QCOMPARE(file.value(text("options/Kest.ParallelAuthenticMethod")).toInt(), 0);
        QCOMPARE(file.value(text("options/Prekest.AdvancedOptions")).toString(), text("a\tb\nc"));
        QCOMPARE(file.value(text("options/EnvironmentVariables")).toString(), text("A=1\r\nB=\tx"));
        QCOMPARE(file.value(text("options/RunParallel")).toBool(), true);
    }

    void cancelWritesNothing()
    {
        open();
        m_dialog->show();
        type(editor(text("RunParallel")), text("true"));
        button("cancel")->click();
        QVERIFY(!m_dialog->isVisible());
        QVERIFY(!QFile::exists(m_folders->userFile()));
    }

    void okWritesAndCloses()
    {
        open();
        m_dialog->show();
        type(editor(text("Kest.RemoteHost")), text("node1"));
        button("ok")->click();
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(m_dialog->result(), static_cast<int>(QDialog::Accepted));
        QVERIFY(SettingsFolders::read(m_folders->userFile()).contains("Kest.RemoteHost=node1"));
    }

    void okWithoutAChangeWritesNothing()
    {
        open();
        button("ok")->click();
        QVERIFY(!QFile::exists(m_folders->userFile()));
    }

    void applyWritesAndStays()
    {
        open();
        m_dialog->show();
        QVERIFY(!button("apply")->isEnabled());
        type(editor(text("Kest.RemoteHost")), text("node1"));
        QVERIFY(button("apply")->isEnabled());
        button("apply")->click();
        QVERIFY(m_dialog->isVisible());
        QVERIFY(!button("apply")->isEnabled());
        QVERIFY(SettingsFolders::read(m_folders->userFile()).contains("Kest.RemoteHost=node1"));
        type(editor(text("Kest.RemoteHost")), text("node2"));
        type(editor(text("Kest.RemoteHost")), text("node1"));
        QVERIFY(!button("apply")->isEnabled());
    }

    void whatCannotBeSavedStaysInTheDialog()
    {
        open();
        m_dialog->show();
        QVERIFY(QDir().mkdir(m_folders->userFile())); // a folder in the file's place
        type(editor(text("Kest.RemoteHost")), text("node1"));
        BoxAnswerer answers;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(text("kest.ini")));
        button("ok")->click();
        QCOMPARE(answers.texts.size(), 1);
        QVERIFY(answers.texts.first().contains(m_folders->userFile()));
        QVERIFY(answers.texts.first().contains(text(": it is a directory.")));
        QVERIFY(answers.details.first().contains(text("Kest.RemoteHost")));
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(shown(editor(text("Kest.RemoteHost"))), text("node1"));
        QVERIFY(button("apply")->isEnabled());
        QVERIFY(QDir().rmdir(m_folders->userFile()));
        button("ok")->click();
        QVERIFY(!m_dialog->isVisible());
        QVERIFY(SettingsFolders::read(m_folders->userFile()).contains("Kest.RemoteHost=node1"));
    }

    void doesNotOpenWhereTheFileIsNoFile()
    {
        QVERIFY(SpecialFile::make(S_IFIFO, m_folders->userFile()));
        BoxAnswerer answers;
        QVERIFY(!LaunchOptionsDialog::edit(nullptr));
        QCOMPARE(answers.texts.size(), 1);
        QVERIFY(answers.texts.first().contains(m_folders->userFile() +
                                               text(" cannot be used: it is a pipe.")));
        QCOMPARE(SpecialFile::kindOf(m_folders->userFile()), int(S_IFIFO));
    }

    void restoresNothingFromADefaultIniThatIsNoFile()
    {
        open();
        type(editor(text("Kest.RemoteHost")), text("node1"));
        QVERIFY(SpecialFile::make(S_IFIFO, m_folders->defaultFile()));
        BoxAnswerer answers;
        button("restoreDefaults")->click();
        QCOMPARE(answers.texts.size(), 1);
        QVERIFY(answers.texts.first().contains(m_folders->defaultFile()));
        QCOMPARE(shown(editor(text("Kest.RemoteHost"))), text("node1"));
    }

    void defaultsAreThoseOfTheInstallationAndSavedLater()
    {
        SettingsFolders::write(m_folders->defaultFile(), "[options]\nRunParallel=true\n");
        SettingsFolders::write(m_folders->userFile(), "[options]\nKest.RemoteHost=node1\n");
        const QByteArray before = SettingsFolders::read(m_folders->userFile());
        open();
        type(editor(text("Kest.ProcessPriority")), text("4"));
        BoxAnswerer answers({text("Cancel"), text("Restore &defaults")});
        button("restoreDefaults")->click();
        QCOMPARE(shown(editor(text("Kest.RemoteHost"))), text("node1"));
        QCOMPARE(shown(editor(text("Kest.ProcessPriority"))), text("4"));
        button("restoreDefaults")->click();
        QCOMPARE(answers.texts.size(), 2);
        QCOMPARE(shown(editor(text("RunParallel"))), text("true"));
        QCOMPARE(shown(editor(text("Kest.RemoteHost"))), QString());
        QCOMPARE(shown(editor(text("Kest.ProcessPriority"))), text("2"));
        QCOMPARE(SettingsFolders::read(m_folders->userFile()), before);
        QVERIFY(button("apply")->isEnabled());
        button("apply")->click();
        const QSettings file(m_folders->userFile(), QSettings::IniFormat);
        QCOMPARE(file.value(text("options/RunParallel")).toBool(), true);
        QCOMPARE(file.value(text("options/Kest.RemoteHost")).toString(), QString());
    }

    void anotherProcessKeepsTheFile()
    {
        QProcess other;
        Child::start(other, text("hold the lock"), m_folders->path());
        QVERIFY(other.waitForReadyRead());
        {
            BoxAnswerer answers({text("Cancel")});
            QVERIFY(!LaunchOptionsDialog::edit(nullptr));
            QCOMPARE(m_folders->session.shown.size(), 1);
            QCOMPARE(m_folders->session.shown.first().message->code(), text("17331"));
            QCOMPARE(answers.texts.size(), 1);
            QVERIFY(answers.texts.first().contains(text("process %1").arg(other.processId())));
        }
        QStringList enabled;
        bool hasOk = true;
        QString banner;
        {
            BoxAnswerer answers({text("&Look at them")});
            const DialogVisitor visitor([&](QDialog* dialog) {
                for (const QString& name : allNames()) {
                    if (dialog->findChild<QWidget*>(name)->isEnabled()) {
                        enabled.append(name);
                    }
                }
                hasOk = dialog->findChild<QWidget*>(text("ok")) != nullptr;
                banner = dialog->findChild<QLabel*>(text("banner"))->text();
                dialog->findChild<QPushButton*>(text("close"))->click();
            });
            QVERIFY(!LaunchOptionsDialog::edit(nullptr));
        }
        QCOMPARE(enabled, QStringList());
        QVERIFY(!hasOk);
        QVERIFY(banner.contains(text("process %1").arg(other.processId())));
        QVERIFY(!QFile::exists(m_folders->userFile()));
        other.closeWriteChannel();
        QVERIFY(other.waitForFinished());
    }

    // As while scripts take and give it back all the time.
    void lockFileThatComesAndGoesIsNoProblem()
    {
        const QString lock = m_folders->userFile() + text(".kestlock");
        std::atomic_bool isOver(false);
        std::thread others([&] {
            while (!isOver) {
                QFile(lock).open(QIODevice::WriteOnly);
                QFile::remove(lock);
            }
        });
        QString problem;
        for (int look = 0; look < 20000 && problem.isEmpty(); ++look) {
            problem = LaunchOptionsFile::lockProblem();
        }
        isOver = true;
        others.join();
        QCOMPARE(problem, QString());
    }

    void theFileIsLockedAsLongAsTheDialogLives()
    {
        open();
        QVERIFY(!Options::create(ReadWriteAccess));
        m_dialog.reset();
        QVERIFY(Options::create(ReadWriteAccess));
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

    void everythingHasANameForThoseWhoHearIt()
    {
        open();
        for (const QString& name : allNames()) {
            QVERIFY2(!editor(name)->accessibleName().isEmpty(), qPrintable(name));
            QVERIFY2(!editor(name)->toolTip().isEmpty(), qPrintable(name));
        }
        for (const char* const name : {"launchOptionsTabs", "preview", "configureMachines"}) {
            QVERIFY2(!m_dialog->findChild<QWidget*>(text(name))->accessibleName().isEmpty(), name);
        }
    }

    void fitsASmallScreen()
    {
        open();
        QVERIFY(m_dialog->minimumSizeHint().width() <= 640);
        QVERIFY(m_dialog->minimumSizeHint().height() <= 400);
        m_dialog->resize(640, 400);
        m_dialog->show();
        for (int i = 0; i < tabs()->count(); ++i) {
            tabs()->setCurrentIndex(i);
            QApplication::processEvents();
            const auto* const area = qobject_cast<QScrollArea*>(tabs()->widget(i));
            QVERIFY2(area->widget()->width() <= area->viewport()->width(),
                     qPrintable(tabs()->tabText(i))); // up and down only
        }
    }

private:
    void open()
    {
        m_dialog = std::make_unique<LaunchOptionsDialog>(Options::create(ReadWriteAccess),
                                                         ReadWriteAccess, nullptr);
    }

    QWidget* editor(const QString& key) const { return m_dialog->findChild<QWidget*>(key); }
    QPushButton* button(const char* name) const
    {
        return m_dialog->findChild<QPushButton*>(text(name));
    }
    QTabWidget* tabs() const { return m_dialog->findChild<QTabWidget*>(); }

    QWidget* page(const char* title) const
    {
        for (int i = 0; i < tabs()->count(); ++i) {
            if (tabs()->tabText(i) == text(title)) {
                return tabs()->widget(i);
            }
        }
        return nullptr;
    }

    QWidget* pageOf(const QString& key) const
    {
        for (int i = 0; i < tabs()->count(); ++i) {
            if (tabs()->widget(i)->isAncestorOf(editor(key))) {
                return tabs()->widget(i);
            }
        }
        return nullptr;
    }

    void switchAllOn() const
    {
        for (const LaunchOptionRow& row : LaunchOptionTable::rows()) {
            if (*row.switchKey != '\0') {
                type(editor(text(row.switchKey)), text("true"));
            }
        }
        type(editor(text("Amrkest.Frequency")), text("1"));
    }

    std::unique_ptr<SettingsFolders> m_folders;
    std::unique_ptr<LaunchOptionsDialog> m_dialog;
};

static int holdTheLock(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    FakeApplicationInfo info(Child::folder() + text("/user"));
    const auto options = Options::create(ReadWriteAccess);
    std::puts(options ? "locked" : "not locked");
    std::fflush(stdout);
    return std::getchar() == EOF ? 0 : 1;
}

int main(int argc, char* argv[])
{
    if (!Child::deed().isEmpty()) {
        return holdTheLock(argc, argv);
    }
    QApplication application(argc, argv);
    tst_launch_options_dialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_launch_options_dialog.moc"
