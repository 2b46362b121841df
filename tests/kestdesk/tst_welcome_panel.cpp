// SPDX-License-Identifier: MIT
#include "WindowTest.h"

#include <SystemSkips.h>

#include <QFileInfo>

// What a window without a model says.
class tst_welcome_panel : public WindowTest
{
    Q_OBJECT

private:
    QWidget* panel() const { return m_stage->find<QWidget>("welcomePanel"); }

    QList<QAction*> samples() const
    {
        auto* const menu = m_stage->find<QMenu>("samplesMenu");
        Q_EMIT menu->aboutToShow();
        return menu->actions();
    }

    void addSample(const char* name) const
    {
        QVERIFY(QDir().mkpath(m_stage->desk().path("home/models")));
        writeFile(m_stage->desk().path(text("home/models/") + text(name)), "valid");
    }

    // The user's documents are in the home folder of the test.
    QString copyOf(const char* name) const
    {
        return m_stage->desk().path("home of the user/Documents/Kest samples/") + text(name);
    }

    QByteArray m_home;

private Q_SLOTS:
    void init()
    {
        setUp();
        m_home = qgetenv("HOME");
        QVERIFY(QDir().mkpath(m_stage->desk().path("home of the user")));
        qputenv("HOME", QFile::encodeName(m_stage->desk().path("home of the user")));
    }

    void cleanup()
    {
        qputenv("HOME", m_home);
        tearDown();
    }

    void isThereAsLongAsThereIsNoModel()
    {
        QVERIFY(panel()->isVisible());
        m_stage->window().openModel(m_stage->model("m.nec", "valid"));
        QVERIFY(!panel()->isVisible());
        m_stage->find<QLineEdit>("modelEdit")->clear();
        QVERIFY(panel()->isVisible());
    }

    void buttonOpensAModel()
    {
        QString title;
        const ModalVisitor visitor([&title](QDialog& dialog) {
            title = dialog.windowTitle();
            dialog.reject();
        });
        m_stage->find<QPushButton>("welcomeOpenButton")->click();
        QCOMPARE(title, text("Open models"));
    }

    void sampleIsCopiedForTheUser()
    {
        SKIP_ON_WINDOWS("the folder of documents is one of the system, not of HOME");
        addSample("b.nec");
        addSample("a.nec");
        QCOMPARE(textsOf(samples()), QStringList({text("a.nec"), text("b.nec")}));
        samples().at(1)->trigger();
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), copyOf("b.nec"));
        QCOMPARE(contentOf(copyOf("b.nec")), QByteArray("valid"));
        QVERIFY(QFileInfo(copyOf("b.nec")).isWritable());
    }

    void copyThatTheUserHasChangedStays()
    {
        SKIP_ON_WINDOWS("the folder of documents is one of the system, not of HOME");
        addSample("a.nec");
        samples().constFirst()->trigger();
        writeFile(copyOf("a.nec"), "mine");
        samples().constFirst()->trigger();
        QCOMPARE(contentOf(copyOf("a.nec")), QByteArray("mine"));
    }

    void copyThatCannotBeMadeIsTold()
    {
        SKIP_ON_WINDOWS("the folder of documents is one of the system, not of HOME");
        addSample("a.nec");
        writeFile(m_stage->desk().path("home of the user/Documents"), "in the way");
        samples().constFirst()->trigger();
        QVERIFY2(m_stage->outcomeText().startsWith(text("The sample is not opened: the folder ")),
                 qPrintable(m_stage->outcomeText()));
        QCOMPARE(m_stage->find<QLineEdit>("modelEdit")->text(), QString());
    }

    void installationWithoutSamplesSaysSo()
    {
        QCOMPARE(samples().size(), 1);
        QVERIFY(!samples().constFirst()->isEnabled());
    }
};

QTEST_MAIN(tst_welcome_panel)

#include "tst_welcome_panel.moc"
