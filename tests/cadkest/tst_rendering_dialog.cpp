// SPDX-License-Identifier: MIT
#include "RenderingStage.h"

#include <SmallScreen.h>
#include <Text.h>

#include <RenderingDialog.h>

#include <common_CommonSettingsSet.h>
#include <common_RenderingSettingsWidget.h>
#include <common_geometry_settings.h>
#include <common_recent_file_settings.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QtTest>

#include <memory>

/// The settings about rendering, and the dialog in which they are made.
class tst_rendering_dialog : public QObject
{
    Q_OBJECT

private:
    RenderingDialog& open()
    {
        m_dialog = std::make_unique<RenderingDialog>(m_stage->window.view(), &m_stage->settings,
                                                     &m_stage->window);
        m_dialog->show();
        return *m_dialog;
    }

    common_RenderingSettingsWidget& panel() const
    {
        return *m_dialog->findChild<common_RenderingSettingsWidget*>();
    }

    QSlider& slider() const { return *panel().m_pFaceDisplacementSlider; }

    void press(QDialogButtonBox::StandardButton button) const
    {
        QTest::mouseClick(m_dialog->findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
    }

    int shownDisplacement() const
    {
        return m_stage->window.view()->frame({100, 100}).faceDisplacement;
    }

    std::unique_ptr<RenderingStage> m_stage;
    std::unique_ptr<RenderingDialog> m_dialog;

private Q_SLOTS:
    void init()
    {
        m_stage = std::make_unique<RenderingStage>();
        m_stage->settings.faceDisplacement = 7;
        m_stage->window.view()->setFaceDisplacement(7);
    }

    void cleanup()
    {
        m_dialog.reset();
        m_stage.reset();
    }

    void dialogFitsASmallScreen() { QCOMPARE(SmallScreen::excess(open()), QString()); }

    void showsTheSettings_data()
    {
        QTest::addColumn<bool>("isHardware");
        QTest::newRow("hardware") << true;
        QTest::newRow("software") << false;
    }

    void showsTheSettings()
    {
        QFETCH(bool, isHardware);
        m_stage->settings.rendering = isHardware ? Rendering::Hardware : Rendering::Software;
        open();
        QCOMPARE(panel().m_pHardwareRadioButton->isChecked(), isHardware);
        QCOMPARE(panel().m_pSoftwareRadioButton->isChecked(), !isHardware);
        QVERIFY(slider().isVisible());
        QVERIFY(!panel().m_pMeshesSlider->isVisible());
        QCOMPARE(slider().value(), 7);
    }

    void theViewFollowsTheSlider()
    {
        open();
        slider().setValue(20);
        QCOMPARE(shownDisplacement(), 20);
        QTest::keyClick(&slider(), Qt::Key_Right);
        QCOMPARE(shownDisplacement(), 21);
        QCOMPARE(m_stage->settings.faceDisplacement, 7);
        QVERIFY(!QFile::exists(m_stage->file()));
    }

    void cancellingChangesNothing_data()
    {
        QTest::addColumn<bool>("isByKey");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }

    void cancellingChangesNothing()
    {
        QFETCH(bool, isByKey);
        RenderingDialog& dialog = open();
        const QSignalSpy applied(&dialog, &RenderingDialog::applied);
        slider().setValue(20);
        panel().m_pHardwareRadioButton->setChecked(true);
        if (isByKey) {
            QTest::keyClick(&dialog, Qt::Key_Escape);
        } else {
            press(QDialogButtonBox::Cancel);
        }
        QVERIFY(!dialog.isVisible());
        QCOMPARE(applied.size(), 0);
        QCOMPARE(shownDisplacement(), 7);
        QCOMPARE(m_stage->settings.faceDisplacement, 7);
        QCOMPARE(m_stage->settings.rendering, Rendering::Software);
        QVERIFY(!m_stage->settings.wasAsked);
        QVERIFY(!QFile::exists(m_stage->file()));
    }

    void whatIsAppliedIsWritten_data()
    {
        QTest::addColumn<bool>("isClosed");
        QTest::addColumn<bool>("isHardware");
        QTest::newRow("Apply, hardware") << false << true;
        QTest::newRow("Apply, software") << false << false;
        QTest::newRow("OK, hardware") << true << true;
    }

    void whatIsAppliedIsWritten()
    {
        QFETCH(bool, isClosed);
        QFETCH(bool, isHardware);
        m_stage->settings.rendering = isHardware ? Rendering::Software : Rendering::Hardware;
        m_stage->settings.isUnproven = true;
        RenderingDialog& dialog = open();
        QString whenApplied;
        connect(&dialog, &RenderingDialog::applied, this,
                [&] { whenApplied = m_stage->saved("FaceDisplacement"); });
        slider().setValue(20);
        (isHardware ? panel().m_pHardwareRadioButton : panel().m_pSoftwareRadioButton)->click();
        press(isClosed ? QDialogButtonBox::Ok : QDialogButtonBox::Apply);
        QCOMPARE(dialog.isVisible(), !isClosed);
        QCOMPARE(whenApplied, text("20"));
        QCOMPARE(m_stage->saved("HardwareRendering"), isHardware ? text("true") : text("false"));
        QCOMPARE(m_stage->saved("HardwareRenderingAsked"), text("true"));
        QCOMPARE(m_stage->saved("HardwareRenderingUnproven"), text("false"));
        QCOMPARE(m_stage->settings.faceDisplacement, 20);
        QCOMPARE(shownDisplacement(), 20);
    }

    void cancellingGoesBackToWhatWasApplied()
    {
        open();
        slider().setValue(20);
        press(QDialogButtonBox::Apply);
        slider().setValue(30);
        press(QDialogButtonBox::Cancel);
        QCOMPARE(shownDisplacement(), 20);
        QCOMPARE(m_stage->saved("FaceDisplacement"), text("20"));
    }

    void theDefaultsAreShownAndNotYetApplied()
    {
        m_stage->settings.rendering = Rendering::Hardware;
        m_stage->settings.wasAsked = true;
        open();
        QTest::mouseClick(m_dialog->findChild<QPushButton*>(text("DefaultsButton")),
                          Qt::LeftButton);
        QVERIFY(panel().m_pSoftwareRadioButton->isChecked());
        QCOMPARE(slider().value(), 2);
        QCOMPARE(shownDisplacement(), 2);
        QCOMPARE(m_stage->settings.rendering, Rendering::Hardware);
        QCOMPARE(m_stage->settings.faceDisplacement, 7);
        QVERIFY(!QFile::exists(m_stage->file()));
        press(QDialogButtonBox::Ok);
        QCOMPARE(m_stage->saved("HardwareRendering"), text("false"));
        QCOMPARE(m_stage->saved("FaceDisplacement"), text("2"));
        QCOMPARE(m_stage->saved("HardwareRenderingAsked"), text("true"));
    }

    void settingsMakeTheRoundTrip_data()
    {
        QTest::addColumn<int>("rendering");
        QTest::addColumn<int>("displacement");
        QTest::addColumn<bool>("wasAsked");
        QTest::addColumn<bool>("isUnproven");
        QTest::newRow("defaults") << 0 << 2 << false << false;
        QTest::newRow("hardware") << 1 << 0 << false << false;
        QTest::newRow("asked") << 0 << 32 << true << false;
        QTest::newRow("unproven") << 0 << 31 << false << true;
        QTest::newRow("all") << 1 << 17 << true << true;
    }

    void settingsMakeTheRoundTrip()
    {
        QFETCH(int, rendering);
        QFETCH(int, displacement);
        QFETCH(bool, wasAsked);
        QFETCH(bool, isUnproven);
        RenderingSettings written(m_stage->file());
        written.rendering = Rendering(rendering);
        written.faceDisplacement = displacement;
        written.wasAsked = wasAsked;
        written.isUnproven = isUnproven;
        written.writeSettings();
        RenderingSettings read(m_stage->file());
        read.rendering = Rendering(1 - rendering);
        read.wasAsked = !wasAsked;
        read.isUnproven = !isUnproven;
        read.readSettings();
        QCOMPARE(int(read.rendering), rendering);
        QCOMPARE(read.faceDisplacement, displacement);
        QCOMPARE(read.wasAsked, wasAsked);
        QCOMPARE(read.isUnproven, isUnproven);
        read.restoreDefaults();
        QCOMPARE(read.rendering, Rendering::Software);
        QCOMPARE(read.faceDisplacement, 2);
        QVERIFY(!read.wasAsked);
        QVERIFY(!read.isUnproven);
    }

    void aDamagedFileGivesUsableSettings_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("displacement");
        QTest::newRow("none") << QByteArray() << 2;
        QTest::newRow("another group") << QByteArray("[other]\nFaceDisplacement=9\n") << 2;
        QTest::newRow("too much") << QByteArray("[rendering]\nFaceDisplacement=99\n") << 32;
        QTest::newRow("too little") << QByteArray("[rendering]\nFaceDisplacement=-99\n") << 0;
        QTest::newRow("huge") << QByteArray("[rendering]\nFaceDisplacement=1e99\n") << 0;
        QTest::newRow("words") << QByteArray("[rendering]\nFaceDisplacement=a, b\n"
                                             "HardwareRendering=a, b\n")
                               << 0;
        QTest::newRow("noise") << QByteArray("\0\xff[[=\n\x01", 8) << 2;
    }

    void aDamagedFileGivesUsableSettings()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, displacement);
        QVERIFY(SettingsFolders::write(m_stage->file(), content));
        RenderingSettings read(m_stage->file());
        read.readSettings();
        QCOMPARE(read.faceDisplacement, displacement);
        QCOMPARE(read.rendering, Rendering::Software);
        QVERIFY(!read.wasAsked);
    }

    // Both are in the application's file, and neither writes over the other.
    void theSettingsSetAndTheseShareAFile()
    {
        QVERIFY(SettingsFolders::write(m_stage->folders.defaultFile(), ""));
        common_CommonSettingsSet set(m_stage->folders.info.userSettings, text("cadkest"));
        QCOMPARE(QDir::fromNativeSeparators(set.getFullFilename()), m_stage->file());
        set.readSettings();
        set.geometry()->set_width(777);
        m_stage->settings.rendering = Rendering::Hardware;
        m_stage->settings.writeSettings();
        set.writeSettings();
        m_stage->settings.faceDisplacement = 9;
        m_stage->settings.writeSettings();

        common_CommonSettingsSet again(m_stage->folders.info.userSettings, text("cadkest"));
        again.readSettings();
        QCOMPARE(again.geometry()->width(), 777);
        RenderingSettings read(again.getFullFilename());
        read.readSettings();
        QCOMPARE(read.rendering, Rendering::Hardware);
        QCOMPARE(read.faceDisplacement, 9);
    }
};

QTEST_MAIN(tst_rendering_dialog)
#include "tst_rendering_dialog.moc"
