// SPDX-License-Identifier: MIT
#include "WindowTest.h"

#include <SystemSkips.h>
#include <Unprivileged.h>

#include <QDropEvent>
#include <QFileDialog>
#include <QListWidget>
#include <QMimeData>
#include <QScreen>

#include <csignal>

// Which model the window has, and what it keeps from session to session.
class tst_window_models : public WindowTest
{
    Q_OBJECT

private:
    // A program that has just begun does not handle the signal yet, and is killed by it.
    static bool handlesRequestToEnd(const QProcess& program)
    {
        QFile status(text("/proc/%1/status").arg(program.processId()));
        const QByteArray lines = status.open(QIODevice::ReadOnly) ? status.readAll() : QByteArray();
        const QByteArray name = "SigCgt:";
        const int line = lines.indexOf(name);
        const QByteArray bits =
            lines.mid(line + name.size(), lines.indexOf('\n', line) - line - name.size());
        return line >= 0 && (bits.trimmed().toULongLong(nullptr, 16) >> (SIGTERM - 1) & 1) != 0;
    }

    static void requestEnd(const QProcess& program)
    {
        QTRY_VERIFY_WITH_TIMEOUT(handlesRequestToEnd(program), longTime);
        QCOMPARE(::kill(static_cast<pid_t>(program.processId()), SIGTERM), 0);
    }

    bool drop(QWidget* target, const QMimeData& data) const
    {
        const QPoint place = target->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &enter);
        if (!enter.isAccepted()) {
            return false;
        }
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &event);
        return true;
    }

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void windowIsAsItWasAtTheNextStart()
    {
        const QString first = m_stage->model("first & best.nec", "valid");
        const QString second = m_stage->model("second.nec", "valid");
        m_stage->window().openModel(first);
        m_stage->window().openModel(second);
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("optkest"));
        m_stage->window().showNormal();
        m_stage->window().setGeometry(40, 50, 500, 400);
        const QPoint place = m_stage->window().pos();
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        m_stage->open();
        QCOMPARE(m_stage->window().pos(), place);
        QCOMPARE(m_stage->window().size(), QSize(500, 400));
        QVERIFY(!m_stage->window().isMaximized());
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), second);
        QCOMPARE(m_stage->find<QComboBox>("componentBox")->currentText(), text("optkest"));
        QVERIFY(m_stage->window().windowTitle().startsWith(text("second.nec (")));
        QString shownFirst = first;
        shownFirst.replace(QLatin1Char('&'), text("&&"));
        QCOMPARE(recentTexts(), QStringList({text("&1 ") + second, text("&2 ") + shownFirst}));
    }

    void lastModelIsNotOpenedWhereTheUserDoesNotWantItAndIsKept()
    {
        const QString model = m_stage->model("m.nec", "valid");
        m_stage->window().openModel(model);
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        for (const bool wanted : {false, true}) {
            m_stage->setPreference("openLastModel", wanted);
            m_stage->open();
            QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), wanted ? model : QString());
            QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        }
    }

    void titleTellsWindowsOfTheSameNameApart()
    {
        const QString model = m_stage->model("m.nec", "valid");
        m_stage->window().openModel(model);
        const QString folder = QFileInfo(model).absolutePath();
        const QString tail = text(" - runkest - kestdesk");
        const QString title = m_stage->window().windowTitle();
        QVERIFY2(title.startsWith(text("m.nec (")) && title.endsWith(tail), qPrintable(title));
        QVERIFY2(title.contains(folder.right(20)), qPrintable(title));
        m_stage->find<QComboBox>("componentBox")->setCurrentText(text("prekest"));
        QCOMPARE(m_stage->window().windowTitle(),
                 QString(title).replace(text("runkest"), text("prekest")));
    }

    void maximisedWindowIsMaximisedAgain()
    {
        m_stage->window().showMaximized();
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        m_stage->open();
        QVERIFY(m_stage->window().isMaximized());
    }

    void lastModelIsLeftOutWhereTheSettingsSaySo()
    {
        QCOMPARE(m_stage->window().windowTitle(), text("kestdesk"));
        m_stage->window().openModel(m_stage->model("m.nec", "valid"));
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        m_stage->close();
        const QString file = m_stage->desk().path("user/kestdesk.ini");
        QByteArray settings = contentOf(file);
        QVERIFY(settings.contains("recentSession=true"));
        writeFile(file, settings.replace("recentSession=true", "recentSession=false"));
        m_stage->open();
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
        QCOMPARE(m_stage->window().windowTitle(), text("kestdesk"));
        QCOMPARE(recentTexts().size(), 1);
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QVERIFY(contentOf(file).contains("recentSession=true"));
    }

    void componentOfTheLastSessionThatIsNotKnownChangesNothing()
    {
        m_stage->close();
        QSettings settings(m_stage->desk().path("user/kestdesk.ini"), QSettings::IniFormat);
        settings.setValue(text("session/component"), text("gonekest"));
        settings.sync();
        m_stage->open();
        QCOMPARE(m_stage->find<QComboBox>("componentBox")->currentText(), text("runkest"));
    }

    void modelOfTheLastSessionThatIsGoneIsTold()
    {
        const QString model = m_stage->model("m.nec", "valid");
        m_stage->window().openModel(model);
        QVERIFY(WindowStage::quits([this] { m_stage->window().close(); }));
        QFile::remove(model);
        m_stage->open();
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
        QCOMPARE(m_stage->outcomeText(), text("The model of the last session is gone: ") + model);
    }

    void windowOffEveryScreenIsBroughtBack_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QSize>("size");
        QTest::newRow("far right") << QPoint(90000, 10) << QSize(500, 400);
        QTest::newRow("far left") << QPoint(-90000, 10) << QSize(500, 400);
        QTest::newRow("title bar above") << QPoint(10, -300) << QSize(500, 400);
        QTest::newRow("below") << QPoint(10, 90000) << QSize(500, 400);
        QTest::newRow("beyond all numbers")
            << QPoint(2147483647, -2147483647) << QSize(2147483647, 1);
    }

    void windowOffEveryScreenIsBroughtBack()
    {
        QFETCH(QPoint, place);
        QFETCH(QSize, size);
        m_stage->close();
        QSettings settings(m_stage->desk().path("user/kestdesk.ini"), QSettings::IniFormat);
        settings.setValue(text("geometry/x_pos"), place.x());
        settings.setValue(text("geometry/y_pos"), place.y());
        settings.setValue(text("geometry/width"), size.width());
        settings.setValue(text("geometry/height"), size.height());
        settings.setValue(text("geometry/isMaximised"), false);
        settings.sync();
        m_stage->open();
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        const QRect shown = m_stage->window().geometry();
        QVERIFY2(screen.contains(shown), qPrintable(text("%1 %2 %3 %4")
                                                        .arg(shown.x())
                                                        .arg(shown.y())
                                                        .arg(shown.width())
                                                        .arg(shown.height())));
        QVERIFY(m_stage->window().width() >= 200);
    }

    void recentFileIsOpenedFromTheMenu()
    {
        QCOMPARE(recentTexts(), QStringList(text("No recent files")));
        QVERIFY(!m_stage->find<QMenu>("recentMenu")->actions().constFirst()->isEnabled());
        const QString first = m_stage->model("first.nec", "valid");
        m_stage->window().openModel(first);
        m_stage->window().openModel(m_stage->model("second.nec", "valid"));
        QCOMPARE(recentTexts().size(), 2);
        m_stage->find<QMenu>("recentMenu")->actions().value(1)->trigger();
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), first);
        QVERIFY(m_stage->window().windowTitle().startsWith(text("first.nec (")));
        QCOMPARE(recentTexts().constFirst(), text("&1 ") + first);
    }

    void modelThatMayNotBeReadIsTold()
    {
        SKIP_WITHOUT_OTHER_USERS();
        const QString model = m_stage->model("m.nec", "valid");
        QVERIFY(QFile::setPermissions(model, {}));
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        {
            const Unprivileged user; // to an administrator every file is open
            m_stage->window().openModel(model);
        }
        QCOMPARE(reader.texts.size(), 1);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
    }

    void folderIsNoModel()
    {
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->window().openModel(m_stage->desk().path("models"));
        QCOMPARE(reader.texts.size(), 1);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
    }

    void modelIsChosenInADialog_data()
    {
        QTest::addColumn<QString>("way");
        for (const char* const way : {"button", "menu", "key"}) {
            QTest::newRow(way) << text(way);
        }
    }

    void modelIsChosenInADialog()
    {
        QFETCH(QString, way);
        const QString model = m_stage->model("chosen.nec", "valid");
        m_stage->window().openModel(m_stage->model("m.nec", "valid"));
        QStringList folders;
        const ModalVisitor chooser([&](QDialog& dialog) {
            if (auto* const files = qobject_cast<QFileDialog*>(&dialog)) {
                folders.append(files->directory().path());
                auto* const name = files->findChild<QLineEdit*>(text("fileNameEdit"));
                QTest::keyClicks(name, text("chosen.nec"));
                QTest::keyClick(name, Qt::Key_Return);
            }
        });
        if (way == text("button")) {
            QTest::mouseClick(m_stage->find<QPushButton>("openButton"), Qt::LeftButton);
        } else if (way == text("menu")) {
            m_stage->find<QAction>("openAction")->trigger();
        } else {
            m_stage->press(Qt::Key_O, Qt::ControlModifier);
        }
        QCOMPARE(folders, QStringList(QFileInfo(model).path()));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), model);
    }

    void choosingNoModelChangesNothing()
    {
        const QString model = m_stage->model("m.nec", "valid");
        m_stage->window().openModel(model);
        int count = 0;
        const ModalVisitor unwilling([&count](QDialog& dialog) {
            ++count;
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        m_stage->press(Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(count, 1);
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), model);
    }

    void recentFileThatHasGoneIsTold()
    {
        const QString model = m_stage->model("m.nec", "valid");
        const QString other = m_stage->model("other.nec", "valid");
        m_stage->window().openModel(model);
        m_stage->window().openModel(other);
        QFile::remove(model);
        recentTexts();
        const BoxAnswerer reader(WindowStage::pressing(Qt::Key_Escape));
        m_stage->find<QMenu>("recentMenu")->actions().value(1)->trigger();
        QCOMPARE(reader.texts,
                 QStringList(text("There is no model that can be read at\n") + model + text(".")));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), other);
    }

    void modelIsDroppedOnTheWindow()
    {
        const QString model = m_stage->model("a model.nec", "valid");
        QMimeData data;
        data.setUrls({QUrl(text("https://example.org/m.nec")), QUrl::fromLocalFile(model)});
        QVERIFY(drop(&m_stage->window(), data));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), model);
        QVERIFY(m_stage->find<QPushButton>("runButton")->hasFocus());
        QVERIFY(m_stage->window().acceptDrops());
    }

    void ofSeveralDroppedModelsTheFirstIsOpenedAndAllWaitInTheQueue()
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const char* const name : {"b.nec", "a.nec", "c.nec"}) {
            urls.append(QUrl::fromLocalFile(m_stage->model(name, "valid")));
        }
        data.setUrls(urls);
        QVERIFY(drop(&m_stage->window(), data));
        QVERIFY(m_stage->find<QLineEdit>("modelEdit")->text().endsWith(text("/b.nec")));
        QCOMPARE(m_stage->outcomeText(),
                 text("Held in the queue until you press \"Run all\" there: b.nec, a.nec, c.nec"));
        QCOMPARE(m_stage->find<QListWidget>("queueList")->count(), 3);
        QTest::qWait(200);
        QCOMPARE(m_stage->runCount(), 0);
    }

    void fieldLeavesDroppedFilesToTheWindow()
    {
        QVERIFY(!m_stage->find<QLineEdit>("modelEdit")->acceptDrops());
    }

    void onlyLocalFilesCanBeDropped()
    {
        QMimeData address;
        address.setUrls({QUrl(text("https://example.org/m.nec"))});
        QVERIFY(!drop(&m_stage->window(), address));
        QMimeData words;
        words.setText(text("m.nec"));
        QVERIFY(!drop(&m_stage->window(), words));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
    }

    void programTellsOfAModelThatIsNotThere()
    {
        m_stage->close();
        Desk desk;
        desk.set("QT_QPA_PLATFORM", text("offscreen"));
        QProcess program;
        desk.start(program, {text("gone.nec")});
        QVERIFY(!program.waitForFinished(1500));
        requestEnd(program);
        QCOMPARE(Desk::resultOf(program).exitCode, 0);
    }

    // Whoever looks at them waits for ever, and then no request to end is heard.
    void programStartsWhereTheLastFilesDoNotAnswer()
    {
        SKIP_WITHOUT_SILENT_FILES();
        m_stage->close();
        Desk desk;
        const QString silent = desk.path("models/silent/m.nec");
        {
            QSettings settings(desk.path("user/kestdesk.ini"), QSettings::IniFormat);
            settings.setValue(text("session/model"), silent);
            settings.setValue(text("recentFiles/fileList"), QStringList{silent});
            settings.setValue(text("recentFiles/recentSession"), true);
        }
        desk.set("QT_QPA_PLATFORM", text("offscreen"));
        desk.set("LD_PRELOAD", text(KEST_SILENT_FILES));
        desk.set("ASAN_OPTIONS", text("verify_asan_link_order=0:detect_leaks=0"));
        QProcess program;
        desk.start(program, {});
        QVERIFY(!program.waitForFinished(5000));
        requestEnd(program);
        QCOMPARE(Desk::resultOf(program).exitCode, 0);
        const QSettings settings(desk.path("user/kestdesk.ini"), QSettings::IniFormat);
        QCOMPARE(settings.value(text("recentFiles/fileList")).toStringList(), QStringList(silent));
    }
};

QTEST_MAIN(tst_window_models)

#include "tst_window_models.moc"
