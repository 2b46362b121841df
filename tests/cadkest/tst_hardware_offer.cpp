// SPDX-License-Identifier: MIT
#include "OpenGlDisplay.h"
#include "RenderingStage.h"

#include <Text.h>

#include <HardwareOffer.h>
#include <RenderingSwitch.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

constexpr int longTime = 60000;

const char* const testHardware = "Test hardware rendering";
const char* const keepHardware = "Keep hardware rendering";
const char* const useSoftware = "Use software rendering";

QMessageBox* shownBox()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        auto* const box = qobject_cast<QMessageBox*>(window);
        if (box && box->isVisible()) {
            return box;
        }
    }
    return nullptr;
}

// By the button with that text, or by Escape.
void answer(QMessageBox& box, const char* choice)
{
    const QList<QAbstractButton*> buttons = box.buttons();
    for (QAbstractButton* const button : buttons) {
        if (button->text() == QLatin1String(choice)) {
            button->click();
            return;
        }
    }
    QTest::keyClick(&box, Qt::Key_Escape);
}

} // namespace

class tst_hardware_offer : public QObject
{
    Q_OBJECT

private:
    // Makes the offer and answers its question. Returns whether there was one.
    bool offer(const QByteArray& prober, const char* choice)
    {
        m_offer.reset();
        m_switch = std::make_unique<RenderingSwitch>(&m_stage->window, &m_stage->settings,
                                                     m_stage->program(prober));
        m_offer =
            std::make_unique<HardwareOffer>(&m_stage->window, &m_stage->settings, m_switch.get());
        m_question.clear();
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (QMessageBox* const box = shownBox()) {
                timer.stop();
                m_question = box->text();
                answer(*box, choice);
            }
        });
        timer.start(2);
        m_offer->make();
        return !m_question.isEmpty();
    }

    // As the next start of the program does.
    bool isAskedAgain()
    {
        m_stage->settings.restoreDefaults();
        m_stage->settings.readSettings();
        return offer("exit 1", useSoftware);
    }

    void compareSaved(const char* hardware)
    {
        QCOMPARE(m_stage->saved("HardwareRenderingAsked"), text("true"));
        QCOMPARE(m_stage->saved("HardwareRendering"), text(hardware));
    }

    std::unique_ptr<RenderingStage> m_stage;
    std::unique_ptr<RenderingSwitch> m_switch;
    std::unique_ptr<HardwareOffer> m_offer;
    QString m_question;

private Q_SLOTS:
    void init()
    {
        m_stage = std::make_unique<RenderingStage>();
        m_stage->window.show();
    }

    void cleanup()
    {
        m_offer.reset();
        m_switch.reset();
        m_stage.reset();
    }

    void whoRefusesKeepsSoftware_data()
    {
        QTest::addColumn<bool>("isByEscape");
        QTest::newRow("button") << false;
        QTest::newRow("closed") << true;
    }

    void whoRefusesKeepsSoftware()
    {
        QFETCH(bool, isByEscape);
        QVERIFY(offer("exit 0", isByEscape ? "" : useSoftware));
        QVERIFY(m_question.contains(text("can be changed via Settings > Rendering.")));
        QVERIFY(!m_switch->probe().isRunning());
        QVERIFY(!shownBox());
        QVERIFY(m_stage->label("renderingMessage").isHidden());
        QVERIFY(m_stage->isUsable());
        compareSaved("false");
        QVERIFY(!isAskedAgain());
        QCOMPARE(m_stage->window.view()->rendering(), Rendering::Software);
    }

    void whoHasChosenIsNotAsked_data()
    {
        QTest::addColumn<bool>("isHardware");
        QTest::addColumn<bool>("wasAsked");
        QTest::newRow("hardware") << true << false;
        QTest::newRow("asked") << false << true;
    }

    void whoHasChosenIsNotAsked()
    {
        QFETCH(bool, isHardware);
        QFETCH(bool, wasAsked);
        m_stage->settings.rendering = isHardware ? Rendering::Hardware : Rendering::Software;
        m_stage->settings.wasAsked = wasAsked;
        QVERIFY(!offer("exit 0", testHardware));
        QVERIFY(!QFile::exists(m_stage->file()));
    }

    void aTestThatFailsLeavesSoftwareNowAndLater_data()
    {
        QTest::addColumn<QByteArray>("prober");
        QTest::newRow("crashes") << QByteArray("kill -SEGV $$");
        QTest::newRow("never answers") << QByteArray("exec sleep 1000");
        QTest::newRow("refuses") << QByteArray("exit 1");
    }

    void aTestThatFailsLeavesSoftwareNowAndLater()
    {
        QFETCH(QByteArray, prober);
        QTimer::singleShot(0, this, [this, prober] {
            m_switch->probe().setPatience(prober.contains("sleep") ? 300 : longTime);
        });
        QVERIFY(offer(prober, testHardware));
        const QSignalSpy answered(m_offer.get(), &HardwareOffer::answered);
        QTRY_COMPARE_WITH_TIMEOUT(answered.size(), 1, longTime);
        QVERIFY(!shownBox());
        QVERIFY(m_stage->label("renderingMessage").isVisible());
        QVERIFY(m_stage->isUsable());
        compareSaved("false");
        QVERIFY(!isAskedAgain());
        m_switch->start();
        QVERIFY(!m_switch->probe().isRunning());
        QVERIFY(m_stage->isUsable());
    }

    // Whatever ends the program now, the next start finds this.
    void theTestIsNotedBeforeItIsMade()
    {
        QVERIFY(offer("exec sleep 1000", testHardware));
        QVERIFY(m_switch->probe().isRunning());
        compareSaved("false");
        m_offer.reset();
        m_switch.reset();
        compareSaved("false");
        QVERIFY(!isAskedAgain());
    }

    void whoChoosesSoftwareMeanwhileGetsIt()
    {
        QVERIFY(offer("exec sleep 1000", testHardware));
        const QSignalSpy answered(m_offer.get(), &HardwareOffer::answered);
        m_switch->change(Rendering::Software);
        QCOMPARE(answered.size(), 1);
        QVERIFY(!shownBox());
        compareSaved("false");
        QVERIFY(m_stage->isUsable());
    }

    void theConfirmationDecides_data()
    {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<bool>("isKept");
        QTest::newRow("kept") << text(keepHardware) << true;
        QTest::newRow("refused") << text(useSoftware) << false;
        QTest::newRow("closed") << QString() << false;
    }

    void theConfirmationDecides()
    {
        QFETCH(QString, choice);
        QFETCH(bool, isKept);
        if (isSkipped(!hasOpenGl(), "needs OpenGL")) {
            return;
        }
        QVERIFY(offer("exit 0", testHardware));
        const QSignalSpy answered(m_offer.get(), &HardwareOffer::answered);
        QTRY_VERIFY_WITH_TIMEOUT(shownBox(), longTime);
        QVERIFY(shownBox()->text().contains(text("Please inspect and manipulate")));
        QCOMPARE(m_stage->window.view()->rendering(), Rendering::Hardware);
        QVERIFY(!QApplication::activeModalWidget());
        compareSaved("false"); // as long as it has not been kept
        QCOMPARE(answered.size(), 0);

        answer(*shownBox(), choice.toLatin1().constData());
        QCOMPARE(answered.size(), 1);
        QVERIFY(!shownBox());
        QCOMPARE(m_stage->window.view()->rendering(),
                 isKept ? Rendering::Hardware : Rendering::Software);
        compareSaved(isKept ? "true" : "false");
        QVERIFY(!isAskedAgain());
        QCOMPARE(m_stage->settings.rendering, isKept ? Rendering::Hardware : Rendering::Software);
    }

    void aConfirmationWithoutAnAnswerKeepsSoftware()
    {
        if (isSkipped(!hasOpenGl(), "needs OpenGL")) {
            return;
        }
        QVERIFY(offer("exit 0", testHardware));
        QTRY_VERIFY_WITH_TIMEOUT(shownBox(), longTime);
        m_offer.reset(); // the window was closed
        m_switch.reset();
        compareSaved("false");
        QVERIFY(!isAskedAgain());
        QCOMPARE(m_stage->settings.rendering, Rendering::Software);
    }

    void aDriverThatGivesUpIsNotKept()
    {
        if (isSkipped(!hasOpenGl(), "needs OpenGL")) {
            return;
        }
        QVERIFY(offer("exit 0", testHardware));
        const QSignalSpy answered(m_offer.get(), &HardwareOffer::answered);
        QTRY_VERIFY_WITH_TIMEOUT(shownBox(), longTime);
        Q_EMIT m_stage->window.view()->hardwareFailed(text("it fell asleep"));
        QCOMPARE(answered.size(), 1);
        QVERIFY(!shownBox());
        compareSaved("false");
    }

    void nobodyIsAskedWithoutAWindow()
    {
        m_stage->application.nonInteractive = true;
        QVERIFY(!offer("exit 0", testHardware));
        QVERIFY(!m_switch->probe().isRunning());
        QCOMPARE(m_stage->window.view()->rendering(), Rendering::Software);
    }
};

QTEST_MAIN(tst_hardware_offer)
#include "tst_hardware_offer.moc"
