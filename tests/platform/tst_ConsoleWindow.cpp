// SPDX-License-Identifier: MIT
#include <ConsoleWindow.h>

#include <QProcess>
#include <QtTest>

#include <windows.h>

class tst_ConsoleWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What Qt fills in before, in a program with and without a console.
    void changesTheCreationArguments_data()
    {
        QTest::addColumn<quint32>("flags");
        QTest::newRow("with a console") << quint32(CREATE_UNICODE_ENVIRONMENT);
        QTest::newRow("without a console")
            << quint32(CREATE_UNICODE_ENVIRONMENT | CREATE_NO_WINDOW);
    }

    void changesTheCreationArguments()
    {
        QFETCH(quint32, flags);
        QProcess process;
        ConsoleWindow::openFor(process);
        STARTUPINFOW startup = {};
        startup.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
        startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
        QProcess::CreateProcessArguments arguments = {nullptr, nullptr, nullptr, nullptr,  TRUE,
                                                      flags,   nullptr, nullptr, &startup, nullptr};
        QVERIFY(process.createProcessArgumentsModifier());
        process.createProcessArgumentsModifier()(&arguments);
        QCOMPARE(arguments.inheritHandles, FALSE);
        QCOMPARE(quint32(arguments.flags), quint32(0x410));
        QCOMPARE(quint32(startup.dwFlags), quint32(STARTF_USESHOWWINDOW));
        QVERIFY(startup.hStdInput == nullptr && startup.hStdOutput == nullptr &&
                startup.hStdError == nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_ConsoleWindow)
#include "tst_ConsoleWindow.moc"
