// SPDX-License-Identifier: MIT
#include "RenderingQuestion.h"

#include <ChildRun.h>

#include <common_HelpClient.h>
#include <common_InitialRenderingSettingsDialog.h>

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

Qt::WindowFlags prescribedFlags()
{
    const Qt::WindowFlags without = Qt::WindowContextHelpButtonHint | Qt::WindowCloseButtonHint;
    return (QMessageBox().windowFlags() & ~without) | Qt::Dialog | Qt::CustomizeWindowHint;
}

} // namespace

class tst_common_InitialRenderingSettingsDialog : public QObject, protected RenderingQuestion
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { m_services.reset(); }

    void declaresNoMethod()
    {
        const QMetaObject& meta = Dialog::staticMetaObject;
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(QString::fromLatin1(meta.className()),
                 QStringLiteral("common_InitialRenderingSettingsDialog"));
        QCOMPARE(meta.superClass(), &QMessageBox::staticMetaObject);
    }

    void hasTwoButtons()
    {
        const Dialog dialog(nullptr, place, false);
        QCOMPARE(dialog.buttons().size(), 2);
        // Its children are in the order in which they were added.
        const auto added = dialog.findChildren<QPushButton*>();
        QCOMPARE(added.size(), 2);
        QCOMPARE(added.at(0)->text(), QString());
        QCOMPARE(dialog.buttonRole(added.at(0)), QMessageBox::AcceptRole);
        QCOMPARE(added.at(1)->text(), QStringLiteral("Use software rendering"));
        QCOMPARE(dialog.buttonRole(added.at(1)), QMessageBox::RejectRole);
    }

    void isAnInformation()
    {
        const Dialog dialog(nullptr, place, false);
        QCOMPARE(dialog.icon(), QMessageBox::Information);
        QVERIFY(!dialog.isVisible());
    }

    void belongsToItsParent()
    {
        QWidget window;
        QCOMPARE(Dialog(&window, place, true).parentWidget(), &window);
        QVERIFY(!Dialog(nullptr, place, true).parentWidget());
    }

    void isModalOrNot_data()
    {
        QTest::addColumn<bool>("nonModal");
        QTest::addColumn<int>("modality");
        QTest::newRow("non-modal") << true << int(Qt::NonModal);
        QTest::newRow("as every box") << false << int(QMessageBox().windowModality());
    }

    void isModalOrNot()
    {
        QFETCH(bool, nonModal);
        QFETCH(int, modality);
        Dialog dialog(nullptr, place, nonModal);
        QCOMPARE(int(dialog.windowModality()), modality);
        bool asked = false;
        ask(dialog, [&asked](QMessageBox& box) { asked = box.isModal(); });
        QVERIFY(asked);
        QCOMPARE(int(dialog.windowModality()), modality);
        dialog.Keep();
        QCOMPARE(int(dialog.windowModality()), modality);
        QCOMPARE(dialog.isModal(), !nonModal);
    }

    void hasATitleBarWithoutButtons()
    {
        const Dialog dialog(nullptr, place, false);
        QCOMPARE(dialog.windowFlags(), prescribedFlags());
        QCOMPARE(dialog.windowType(), Qt::Dialog);
        QVERIFY(dialog.windowFlags() & Qt::CustomizeWindowHint);
        QVERIFY(dialog.windowFlags() & Qt::WindowTitleHint);
        QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
        QVERIFY(!(dialog.windowFlags() & Qt::WindowCloseButtonHint));
    }

    void registersItsHelpPageOnce()
    {
        Dialog dialog(nullptr, place, true);
        ask(dialog, [](QMessageBox&) {});
        dialog.Keep();
        const auto& pages = m_services->help.pages;
        QCOMPARE(pages.size(), 1);
        QCOMPARE(pages.first().first, &dialog);
        QCOMPARE(pages.first().second, QStringLiteral("online_InitialRenderingSettingsDialog"));
    }

    void asksTheQuestion()
    {
        Dialog dialog(nullptr, place, true);
        QStringList seen;
        ask(dialog, [&seen](QMessageBox& box) {
            seen = QStringList{box.windowTitle(), testButton(box)->text(),
                               softwareButton(box)->text(), box.text()};
        });
        QCOMPARE(seen, (QStringList{QStringLiteral("3D rendering test"),
                                    QStringLiteral("Test hardware rendering"),
                                    QStringLiteral("Use software rendering"), questionText}));
    }

    void takesNamesAndPlacesAsTheyAre_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("location");
        const auto row = [](const char* title, const char* name, const char* location) {
            QTest::newRow(title) << QString::fromUtf8(name) << QString::fromUtf8(location);
        };
        row("both empty", "", "");
        row("places in both", "a %1 b", "c %1 %2 d");
        row("place followed by a digit", "%", "1");
        row("markup", "<b>A</b> & <i>B", "C &amp; <u>D</u>");
        row("other scripts", "\u00dcber \u03b1", "\u8bbe\u7f6e");
    }

    void takesNamesAndPlacesAsTheyAre()
    {
        QFETCH(QString, name);
        QFETCH(QString, location);
        m_services->info.name = name;
        Dialog dialog(nullptr, location, true);
        for (const bool confirmation : {false, true}) {
            const QString text = confirmation ? confirmationText : questionText;
            const QStringList around = text.split(QStringLiteral("Kest Viewer"));
            QCOMPARE(around.size(), confirmation ? 2 : 3);
            QString expected = around.last();
            expected.replace(expected.indexOf(place), place.size(), location);
            expected = (around.mid(0, around.size() - 1) << expected).join(name);
            QCOMPARE(textOf(dialog, confirmation), expected);
        }
    }

    void anEmptyPlaceLeavesTheFullStop()
    {
        Dialog dialog(nullptr, QString(), true);
        for (const bool confirmation : {false, true}) {
            QVERIFY(textOf(dialog, confirmation)
                        .endsWith(QStringLiteral(
                            "<p>If needed, the rendering settings can be changed via .</p>")));
        }
    }

    void takesTheNameAtTheTimeOfAsking()
    {
        Dialog dialog(nullptr, place, true);
        m_services->info.name = QStringLiteral("Another");
        QVERIFY(textOf(dialog, false).startsWith(QStringLiteral("<p>Another is currently")));
    }

    void theAnswerIsTheButton()
    {
        Dialog dialog(nullptr, place, true);
        QVERIFY(ask(dialog, [](QMessageBox& box) { testButton(box)->click(); }));
        QVERIFY(!ask(dialog, [](QMessageBox& box) { softwareButton(box)->click(); }));
        QVERIFY(ask(dialog, [](QMessageBox& box) { testButton(box)->click(); }));
    }

    void theAnswerIsYesExactlyWhenTheResultIs0_data()
    {
        QTest::addColumn<int>("result");
        for (const int result : {-1, 0, 1, 2}) {
            QTest::addRow("%d", result) << result;
        }
    }

    void theAnswerIsYesExactlyWhenTheResultIs0()
    {
        QFETCH(int, result);
        Dialog dialog(nullptr, place, true);
        QCOMPARE(ask(dialog, [result](QMessageBox& box) { box.done(result); }), result == 0);
    }

    void escapeMeansSoftwareRendering_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("the Escape key") << true;
        QTest::newRow("closing") << false;
    }

    void escapeMeansSoftwareRendering()
    {
        QFETCH(bool, byKey);
        Dialog dialog(nullptr, place, true);
        QVERIFY(!ask(dialog, [byKey](QMessageBox& box) {
            if (byKey) {
                QTest::keyClick(&box, Qt::Key_Escape);
            } else {
                box.close();
            }
        }));
        QCOMPARE(dialog.clickedButton(), softwareButton(dialog));
        QCOMPARE(dialog.buttonRole(dialog.clickedButton()), QMessageBox::RejectRole);
    }

    void survivesItsParentsEndWhileItAsks()
    {
        auto* const window = new QWidget;
        window->show();
        const QPointer<Dialog> dialog = new Dialog(window, place, false);
        QTimer::singleShot(0, window, [window] { delete window; });
        dialog->Test();
        QVERIFY(!dialog);
    }

    void aNonInteractiveApplicationIsNotAsked()
    {
        const ChildRun child(QStringLiteral("non-interactive"));
        QVERIFY(child.hasEndedWell());
        QCOMPARE(child.output(),
                 QStringLiteral("Defaulting to software rendering for non-interactive mode\n"
                                "000\n"));
        QCOMPARE(child.error(), QString());
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
    tst_common_InitialRenderingSettingsDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_InitialRenderingSettingsDialog.moc"
