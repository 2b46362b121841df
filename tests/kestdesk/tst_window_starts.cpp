// SPDX-License-Identifier: MIT
#include "WindowTest.h"

#include <ProgramName.h>

#include <QPlainTextEdit>
#include <QThread>

// How runs are started in the window.
class tst_window_starts : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void pathMayBeRelativeAndHaveBlanksAround()
    {
        const QString model = m_stage->model("m.nec", "valid");
        const QString relative = QDir::current().relativeFilePath(model);
        QVERIFY(QFileInfo(relative).isRelative());
        m_stage->window().openModel(relative);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QDir::toNativeSeparators(model));
        m_stage->run(text("  ") + relative + text(" "));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QDir::toNativeSeparators(model));
        QCOMPARE(recentTexts(), QStringList(text("&1 ") + QDir::toNativeSeparators(model)));
        const QAbstractItemModel* const runs = m_stage->find<QTableView>("runList")->model();
        QCOMPARE(runs->index(0, 0).data(Qt::ToolTipRole).toString(),
                 QDir::toNativeSeparators(model));
    }

    void boxesThatMeanNothingToTheComponentDoNotCount()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        m_stage->find<QCheckBox>("parallelBox")->click();
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("prekest"));
        QVERIFY(m_stage->find<QCheckBox>("parallelBox")->isChecked());
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        const QByteArray seen = contentOf(m_stage->desk().path("models/m.nec.seen"));
        QVERIFY(!seen.isEmpty());
        QVERIFY(!seen.contains("--machines-file"));
    }

    void optimisationIsFarmedOutWhereThatIsTicked()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("optkest"));
        const QString model = m_stage->model("m.nec", "valid");
        const QString seen = m_stage->desk().path("models/m.nec.seen");
        m_stage->run(model);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(0), text("valid"), longTime);
        QVERIFY(!contentOf(seen).contains("--machines-file"));
        m_stage->find<QAction>("farmOutAction")->trigger();
        m_stage->run(model);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(1), text("valid"), longTime);
        QVERIFY(contentOf(seen).contains("--machines-file"));
    }

    void componentsHaveTheOptionsThatMeanSomethingToThem_data()
    {
        QTest::addColumn<QString>("component");
        QTest::addColumn<bool>("parallel");
        QTest::addColumn<bool>("farmed");
        QTest::newRow("runkest") << text("runkest") << true << false;
        QTest::newRow("prekest") << text("prekest") << false << false;
        QTest::newRow("optkest") << text("optkest") << true << true;
        QTest::newRow("amrkest") << text("amrkest") << true << false;
    }

    void componentsHaveTheOptionsThatMeanSomethingToThem()
    {
        QFETCH(QString, component);
        QFETCH(bool, parallel);
        QFETCH(bool, farmed);
        m_stage->find<QComboBox>("componentBox")->setCurrentText(component);
        QCOMPARE(m_stage->find<QCheckBox>("parallelBox")->isEnabled(), parallel);
        QCOMPARE(m_stage->find<QCheckBox>("remoteBox")->isEnabled(), parallel);
        QCOMPARE(m_stage->find<QAction>("farmOutAction")->isEnabled(), farmed);
        m_stage->run(m_stage->model("m.nec", "valid"));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        QCOMPARE(m_stage->cell(0, "Component"), component);
    }

    void failedStartIsToldOnceAndLeavesTheWindowReady_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("told");
        QTest::newRow("no model") << text("no model") << text("There is no model");
        QTest::newRow("folder") << text("folder") << text("is a folder and not a model.");
        QTest::newRow("no program") << text("no program") << text("There is no component runkest");
        QTest::newRow("no format") << text("no format") << text("could not be started");
        QTest::newRow("no format, with a machines file")
            << text("no format, parallel") << text("could not be started");
        QTest::newRow("no host") << text("no host") << text("remote host");
        QTest::newRow("no machines")
            << text("no machines") << text("No machines file could be found.");
    }

    void failedStartIsToldOnceAndLeavesTheWindowReady()
    {
        QFETCH(QString, way);
        QFETCH(QString, told);
        const QString model = m_stage->model("m.nec", "valid");
        const QString program = m_stage->program("runkest") + text(ProgramName::suffix());
        if (way == text("no model")) {
            QFile::remove(model);
        } else if (way == text("folder")) {
            QFile::remove(model);
            QDir().mkpath(model);
        } else if (way == text("no host")) {
            m_stage->find<QCheckBox>("remoteBox")->click();
        } else if (way == text("no machines")) {
            m_stage->find<QCheckBox>("parallelBox")->click();
        } else {
            QFile::remove(program);
        }
        if (way == text("no format, parallel")) {
            writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
            m_stage->find<QCheckBox>("parallelBox")->click();
        }
        if (way.startsWith(text("no format"))) {
            writeFile(program, "\x7f"
                               "ELF no program");
            QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
        }
        const QStringList recentBefore = recentTexts();
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->run(model);
        QCOMPARE(reader.texts.size(), 1);
        const QString complaint = reader.texts.constFirst();
        QVERIFY2(complaint.contains(told), qPrintable(complaint));
        QVERIFY2(!complaint.at(0).isLower() && complaint.trimmed().endsWith(QLatin1Char('.')),
                 qPrintable(complaint));
        QCOMPARE(m_stage->state(), text("not started"));
        QTRY_VERIFY(m_stage->dialogs().isEmpty());
        QCOMPARE(temporaryFiles(), QStringList());
        QCOMPARE(recentTexts(), recentBefore);
        QVERIFY(m_stage->find<QPushButton>("runButton")->isEnabled());
        QVERIFY(!m_stage->find<QPushButton>("stopButton")->isEnabled());
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
    }

    void copyOfTheMachinesFileGoesWithTheRun()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        QTest::mouseClick(m_stage->find<QCheckBox>("parallelBox"), Qt::LeftButton, {}, {5, 10});
        QVERIFY(m_stage->find<QCheckBox>("parallelBox")->isChecked());
        startWaitingRun("stubborn");
        QCOMPARE(temporaryFiles().size(), 2); // the copy, and whose it is
        // By force, and it is gone all the same: cleanup() looks.
        QVERIFY(WindowStage::quits([this] {
            m_stage->window().quit();
            m_stage->window().quit();
        }));
    }

    void machinesFileWithoutHostsIsOffered_data()
    {
        QTest::addColumn<QString>("button"); // empty: Escape
        QTest::newRow("this machine") << text("&Use this machine");
        QTest::newRow("cancelled") << QString();
        QTest::newRow("configured") << text("&Configure...");
        QTest::newRow("not configured") << text("&Configure...!");
    }

    void machinesFileWithoutHostsIsOffered()
    {
        QFETCH(QString, button);
        const QString file = m_stage->desk().path("user/machines.kest");
        writeFile(file, "# host:count\n");
        m_stage->find<QCheckBox>("parallelBox")->click();
        QStringList texts;
        const bool isSaved = !button.endsWith(QLatin1Char('!'));
        button.remove(QLatin1Char('!'));
        const ModalVisitor visitor([&](QDialog& dialog) {
            auto* const box = qobject_cast<QMessageBox*>(&dialog);
            if (box == nullptr) { // the dialog of the machines file
                if (isSaved) {
                    dialog.findChild<QPlainTextEdit*>(text("machinesText"))
                        ->setPlainText(text("localhost:3\n"));
                }
                dialog.findChild<QPushButton*>(isSaved ? text("save") : text("cancel"))->click();
                return;
            }
            texts.append(box->text());
            const QList<QAbstractButton*> buttons = box->buttons();
            for (QAbstractButton* const each : buttons) {
                if (each->text() == button) {
                    each->click();
                    return;
                }
            }
            QTest::keyClick(box, Qt::Key_Escape);
        });
        m_stage->run(m_stage->model("m.nec", "valid"));
        const bool isRun = !button.isEmpty() && isSaved;
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), isRun ? text("valid") : text("not started"),
                                  longTime);
        QCOMPARE(texts.size(), 1);
        QVERIFY2(
            texts.constFirst().startsWith(text("The machines file %1 names no host.").arg(file)),
            qPrintable(texts.constFirst()));
        const QByteArray line =
            "localhost:" + QByteArray::number(qMax(QThread::idealThreadCount(), 1)) + '\n';
        const QByteArray content = contentOf(file);
        if (!isRun) {
            QCOMPARE(content, QByteArray("# host:count\n"));
        } else {
            QCOMPARE(content, button.startsWith(text("&U")) ? "# host:count\n" + line
                                                            : QByteArray("localhost:3\n"));
            QCOMPARE(contentOf(m_stage->desk().path("models/m.nec.machines")), content);
        }
    }

    void nothingRunsWithoutAModel()
    {
        QVERIFY(!m_stage->find<QPushButton>("runButton")->isEnabled());
        QVERIFY(!m_stage->find<QAction>("runAction")->isEnabled());
        m_stage->pressRun();
        QTest::keyClick(m_stage->find<QLineEdit>("modelEdit"), Qt::Key_Return);
        QCOMPARE(m_stage->runCount(), 0);
    }

    void enterInTheFieldOfTheModelRunsIt()
    {
        m_stage->typeModel(m_stage->model("m.nec", "valid"));
        m_stage->pressFocused(Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
    }

    void spaceOnTheButtonsRunsAndStops()
    {
        m_stage->window().openModel(m_stage->model("m.nec", "wait"));
        m_stage->pressFocused(Qt::Key_Space);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("running"), longTime);
        const BoxAnswerer willing(WindowStage::agreeing());
        m_stage->find<QPushButton>("stopButton")->setFocus();
        m_stage->pressFocused(Qt::Key_Space);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("stopped"), longTime);
    }

#ifdef KEST_SUITE
    void modelIsRunByTheRealSolver()
    {
        qputenv("KEST_HOME", KEST_SUITE);
        const QString model = m_stage->desk().path("models/dipole.nec");
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/dipole.nec"), model));
        m_stage->run(model);
        QCOMPARE(m_stage->dialogs().size(), 1);
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        QVERIFY(dialog->isVisible());
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        auto* const ok = WindowStage::inDialog<QPushButton>(dialog, "buttonOk");
        QCOMPARE(ok->property("squishValue").toString(), text("valid"));
        QCOMPARE(m_stage->cell(0, "Model"), text("dipole.nec"));
        QCOMPARE(m_stage->cell(0, "Component"), text("runkest"));
        QCOMPARE(m_stage->cell(0, "Progress"), text("100 %"));
        QCOMPARE(m_stage->cell(0, "Remaining"), QString());
        QCOMPARE(m_stage->outcomeText(), text("runkest of dipole.nec: valid"));
        QVERIFY(m_stage->window().windowTitle().startsWith(text("dipole.nec (")));
        QVERIFY(QFile::exists(m_stage->desk().path("models/dipole.csv")));
    }

    void faultOfAModelIsShown()
    {
        qputenv("KEST_HOME", KEST_SUITE);
        const QString model = m_stage->desk().path("models/mistakes.nec");
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/mistakes.nec"), model));
        m_stage->run(model);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("fault, exit code 1"), longTime);
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        auto* const ok = WindowStage::inDialog<QPushButton>(dialog, "buttonOk");
        QCOMPARE(ok->property("squishValue").toString(), text("fault"));
    }

    void variablesThatPrekestPrintsAreOutput()
    {
        m_stage->setOption("Prekest.ExportVariablesToStdOut", text("true"));
        qputenv("KEST_HOME", KEST_SUITE);
        const QString model = m_stage->desk().path("models/tune.nec");
        QVERIFY(QFile::copy(text(KEST_SUITE "/models/tune.nec"), model));
        m_stage->find<QComboBox>("componentBox")->setFocus();
        QTest::keyClicks(m_stage->find<QComboBox>("componentBox"), text("p"));
        QCOMPARE(m_stage->find<QComboBox>("componentBox")->currentText(), text("prekest"));
        m_stage->run(model);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->state(), text("valid"), longTime);
        const common_KestProcessDialog* const dialog = m_stage->dialogs().constFirst();
        auto* const output = qobject_cast<QTextEdit*>(dialog->findChild<QTabWidget*>()->widget(0));
        QVERIFY2(output->toPlainText().contains(text("LENGTH = 0.5")),
                 qPrintable(output->toPlainText()));
    }
#endif

    // On a slow disk the record comes later than the user's key.
    void recordIsShownAsSoonAsItIsOnTheDisk()
    {
        m_stage->run(m_stage->model("m.nec", "valid"));
        delete m_stage->dialogs().constFirst();
        auto* const list = m_stage->find<QTableView>("runList");
        QApplication::setActiveWindow(&m_stage->window());
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Return);
        QVERIFY(m_stage->find<QDialog>("recordWindow") == nullptr);
        QTRY_VERIFY_WITH_TIMEOUT(m_stage->find<QDialog>("recordWindow") != nullptr, longTime);
        QTRY_COMPARE(m_stage->find<QDialog>("recordWindow")->windowTitle(), text("Run 1: m.nec"));
    }
};

QTEST_MAIN(tst_window_starts)

#include "tst_window_starts.moc"
