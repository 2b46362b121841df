// SPDX-License-Identifier: MIT
#include "RenderingQuestion.h"

#include <ChildRun.h>

#include <common_HelpClient.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class tst_common_InitialRenderingSettingsDialog_confirmation : public QObject,
                                                               protected RenderingQuestion
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { m_services.reset(); }

    void asksForConfirmationWithoutWaiting()
    {
        Dialog dialog(nullptr, place, true);
        dialog.Keep();
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.windowTitle(), QStringLiteral("3D rendering test confirmation"));
        QCOMPARE(testButton(dialog)->text(), QStringLiteral("Keep hardware rendering"));
        QCOMPARE(softwareButton(dialog)->text(), QStringLiteral("Use software rendering"));
        QCOMPARE(dialog.text(), confirmationText);
    }

    void theConfirmationAnswersThroughTheBox_data()
    {
        QTest::addColumn<bool>("keep");
        QTest::newRow("keep") << true;
        QTest::newRow("use software") << false;
    }

    void theConfirmationAnswersThroughTheBox()
    {
        QFETCH(bool, keep);
        Dialog dialog(nullptr, place, true);
        QVERIFY(ask(dialog, [](QMessageBox& box) { testButton(box)->click(); }));
        const QSignalSpy finished(&dialog, &QDialog::finished);
        QList<QAbstractButton*> clicked;
        connect(&dialog, &QMessageBox::buttonClicked, &dialog,
                [&clicked](QAbstractButton* button) { clicked.append(button); });
        const QSignalSpy accepted(&dialog, &QDialog::accepted);
        const QSignalSpy rejected(&dialog, &QDialog::rejected);
        dialog.Keep();
        QVERIFY(dialog.isVisible());
        QCOMPARE(finished.size(), 0);
        QAbstractButton* const answer = keep ? testButton(dialog) : softwareButton(dialog);
        QTest::mouseClick(answer, Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(clicked, QList<QAbstractButton*>{answer});
        QCOMPARE(finished.size(), 1);
        QCOMPARE(finished.first().first().toInt(), keep ? 0 : 1);
        QCOMPARE(dialog.result(), keep ? 0 : 1);
        QCOMPARE(dialog.clickedButton(), answer);
        QCOMPARE(accepted.size(), keep ? 1 : 0);
        QCOMPARE(rejected.size(), keep ? 0 : 1);
    }

    void theViewStaysUsableUnderTheConfirmation()
    {
        QWidget window;
        window.show();
        Dialog dialog(&window, place, true);
        dialog.Keep();
        QVERIFY(!QApplication::activeModalWidget());
    }

    void theConfirmationHasTheSameTitleBar()
    {
        Dialog dialog(nullptr, place, true);
        ask(dialog, [](QMessageBox&) {});
        dialog.setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowContextHelpButtonHint |
                              Qt::WindowMinimizeButtonHint);
        dialog.Keep();
        QCOMPARE(dialog.windowFlags() & ~Qt::WindowFlags(Qt::WindowSystemMenuHint),
                 Qt::Dialog | Qt::WindowTitleHint | Qt::WindowMinimizeButtonHint |
                     Qt::CustomizeWindowHint);
        QVERIFY(dialog.isVisible());
        dialog.Keep();
        QVERIFY(dialog.isVisible());
    }

    void canAskAgainAfterTheConfirmation()
    {
        Dialog dialog(nullptr, place, true);
        QCOMPARE(textOf(dialog, true), confirmationText);
        QCOMPARE(textOf(dialog, false), questionText);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("3D rendering test"));
        QCOMPARE(testButton(dialog)->text(), QStringLiteral("Test hardware rendering"));
    }
};

int main(int argc, char* argv[])
{
    if (!ChildRun::taskOfThisRun().isEmpty()) {
        return answerWithoutAsking(argc, argv);
    }
    // Qt warns where the desktop has not set it, also in the runs whose output is compared.
    const QTemporaryDir runtimeDirectory;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));
    const QApplication application(argc, argv);
    tst_common_InitialRenderingSettingsDialog_confirmation test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_InitialRenderingSettingsDialog_confirmation.moc"
