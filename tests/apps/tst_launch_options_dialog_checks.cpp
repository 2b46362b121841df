// SPDX-License-Identifier: MIT
#include "LaunchOptionsStage.h"

#include <SettingsFolders.h>

#include <LaunchOptionTable.h>
#include <LaunchOptionsDialog.h>
#include <LaunchOptionsFile.h>
#include <NumberBox.h>

#include <common_PropertyFactory.h>

#include <QLabel>
#include <QScrollArea>
#include <QSettings>
#include <QtTest>

#include <climits>
#include <memory>
#include <vector>

namespace {

// What may be typed for an option, and what may not.
struct TypedValues
{
    const char* key;
    std::vector<const char*> accepted;
    std::vector<const char*> refused;
};

const std::vector<TypedValues>& typedValues()
{
    static const std::vector<TypedValues> rows = {
        {"Kest.NumberOfGPUs",
         {"", "1", "16"},
         {"0", "-1", "two", "1.5", " 1", "1 ", "+1", "01", "1000000", "99999999999"}},
        {"Kest.GPUsList",
         {"", "0", "0,1", "3,1,12"},
         {",", "0,", ",0", "0,,1", "0 ,1", "0-3", "a", "-1", "1,1", "1,01", "0;1"}},
        {"Amrkest.Frequency",
         {"14.2", "1e3", "300", "0.001", "+5", ".5", "1e15"},
         {"", "0", "-1", "14,2", "1,000", "14.2 MHz", "fast", "inf", "nan", "1e999", "1e16", "0x10",
          "1e", " 1"}},
        {"Kest.RemoteHost",
         {"", "node1", "user@host", "a-b", "a_b.c", "fe80::1", "node1 port=22",
          "node1 user=me home=/opt/kest"},
         {"-oProxyCommand=x",
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
          "a x=1"}},
        {"EnvironmentVariables",
         {"", "A=1", "A=", "_b2=x y", "A=1\nB=2\n", "\nA=1"},
         {"A", "=1", "1A=2", "A B=1", "A=1\nB", " A=1", "A-B=1", "A==", "A=b=c", "A=1  2", "A= 1",
          "A=1\t", "A=1\nA=2", "A=\x1b"}},
        {"Kest.AdvancedOptions",
         {"", "--a  \"b\"", "-x", "--a\t-b"},
         {"a\x1b[0m", "a\x7f", "a\xef\xbf\xbd"}},
    };
    return rows;
}

struct NumberRange
{
    const char* key;
    qint64 smallest;
    qint64 largest;
};

constexpr NumberRange numberRanges[] = {
    {"Kest.NumberOfParallelProcesses", 1, 4096}, {"Kest.ParallelEnvOptions", 0, INT_MAX},
    {"Adaptkest.AnalysisNumber", 1, 1000000},    {"Optkest.SolverRun", 1, 1000000},
    {"Optkest.NumberOfFarmProcesses", 2, 4096},  {"Amrkest.MaximumIterations", 1, 1000000},
};

void addValue(const char* key, const QString& value, bool isRight)
{
    QTest::newRow(qPrintable(text("%1=%2").arg(text(key), value))) << text(key) << value << isRight;
}

void addValues(const TypedValues& row)
{
    for (const char* const value : row.accepted) {
        addValue(row.key, text(value), true);
    }
    for (const char* const value : row.refused) {
        addValue(row.key, text(value), false);
    }
}

void addValues(const NumberRange& row)
{
    for (const qint64 number : {row.smallest, row.largest}) {
        addValue(row.key, QString::number(number), true);
    }
    for (const qint64 number : {row.smallest - 1, row.largest + 1, qint64(INT_MIN)}) {
        if (number <= INT_MAX) {
            addValue(row.key, QString::number(number), false);
        }
    }
}

} // namespace

class tst_launch_options_dialog_checks : public QObject, protected LaunchOptionsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folders = std::make_unique<SettingsFolders>(); }

    void cleanup() { tearDown(); }

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
        for (const TypedValues& row : typedValues()) {
            addValues(row);
        }
        for (const NumberRange& row : numberRanges) {
            addValues(row);
        }
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
    QWidget* pageOf(const QString& key) const
    {
        for (int i = 0; i < tabs()->count(); ++i) {
            if (tabs()->widget(i)->isAncestorOf(editor(key))) {
                return tabs()->widget(i);
            }
        }
        return nullptr;
    }
};

QTEST_MAIN(tst_launch_options_dialog_checks)
#include "tst_launch_options_dialog_checks.moc"
