// SPDX-License-Identifier: MIT
#include "WindowTest.h"

#include <KestdeskSettings.h>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

// What the user sets for kestdesk itself, in the window.
class tst_preferences_dialog : public WindowTest
{
    Q_OBJECT

private:
    using Deed = std::function<void(QDialog& dialog)>;

    static void press(const QDialog& dialog, QDialogButtonBox::StandardButton button)
    {
        dialog.findChild<QDialogButtonBox*>()->button(button)->click();
    }

    template <typename Editor>
    static Editor* editor(const QDialog& dialog, const char* key)
    {
        return dialog.findChild<Editor*>(text(key));
    }

    // Opens the dialog from the menu, as often as there are deeds; returns how often it came.
    int edit(const Deed& deed) const
    {
        int times = 0;
        const ModalVisitor visitor([&](QDialog& dialog) {
            ++times;
            deed(dialog);
        });
        m_stage->find<QAction>("preferencesAction")->trigger();
        return times;
    }

    QString settingsFile() const { return m_stage->desk().path("user/kestdesk.ini"); }

private Q_SLOTS:
    void init()
    {
        setUp();
        QVERIFY(QFile::remove(settingsFile())); // the file of somebody who has changed nothing
    }

    void cleanup() { tearDown(); }

    void eachSettingHasAnEditorThatShowsItsValue()
    {
        m_stage->setPreference("archiveDays", 7);
        m_stage->setPreference("notifications", false);
        QCOMPARE(edit([](QDialog& dialog) {
                     const KestdeskSettings settings = KestdeskSettings::read();
                     for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
                         const auto* const box = editor<QCheckBox>(dialog, row.key);
                         const auto* const number = editor<QSpinBox>(dialog, row.key);
                         QCOMPARE(box != nullptr, row.isSwitch);
                         QCOMPARE(number != nullptr, !row.isSwitch);
                         QCOMPARE(box ? int(box->isChecked()) : number->value(),
                                  settings.value(row.setting));
                     }
                     QVERIFY(!editor<QCheckBox>(dialog, "notifications")->isChecked());
                     QCOMPARE(editor<QSpinBox>(dialog, "archiveDays")->text(), text("7 days"));
                     dialog.reject();
                 }),
                 1);
    }

    void whatIsChangedIsKept()
    {
        m_stage->setPreference("archiveDays", 7);
        edit([](QDialog& dialog) {
            editor<QCheckBox>(dialog, "openLastModel")->click();
            editor<QSpinBox>(dialog, "runsAtOnce")->setValue(3);
            press(dialog, QDialogButtonBox::Ok);
        });
        const KestdeskSettings settings = KestdeskSettings::read();
        QVERIFY(!settings.opensLastModel());
        QCOMPARE(settings.runsAtOnce(), 3);
        QCOMPARE(settings.archiveDays(), 7);
        QVERIFY(settings.notifies());
    }

    void whatIsCancelledIsNot()
    {
        edit([](QDialog& dialog) {
            editor<QSpinBox>(dialog, "runsAtOnce")->setValue(3);
            press(dialog, QDialogButtonBox::Cancel);
        });
        QCOMPARE(KestdeskSettings::read().runsAtOnce(), 1);
        QVERIFY(!QFile::exists(settingsFile()));
    }

    void defaultsComeBackAndAreKeptWithOk()
    {
        m_stage->setPreference("archiveMegabytes", 5);
        m_stage->setPreference("notifications", false);
        edit([](QDialog& dialog) {
            press(dialog, QDialogButtonBox::RestoreDefaults);
            QCOMPARE(editor<QSpinBox>(dialog, "archiveMegabytes")->value(), 1000);
            QVERIFY(editor<QCheckBox>(dialog, "notifications")->isChecked());
            press(dialog, QDialogButtonBox::Ok);
        });
        QCOMPARE(KestdeskSettings::read().archiveMegabytes(), 1000);
        QVERIFY(KestdeskSettings::read().notifies());
    }

    void timeUntilAQuestionNeedsTheQuestion()
    {
        edit([](QDialog& dialog) {
            auto* const seconds = editor<QSpinBox>(dialog, "askAfterSeconds");
            QVERIFY(seconds->isEnabled());
            editor<QCheckBox>(dialog, "askBeforeStopping")->click();
            QVERIFY(!seconds->isEnabled());
            QVERIFY(editor<QSpinBox>(dialog, "runsAtOnce")->isEnabled());
            press(dialog, QDialogButtonBox::RestoreDefaults);
            QVERIFY(seconds->isEnabled());
            dialog.reject();
        });
    }

    void fileThatCannotBeWrittenIsToldAndTheChangesStay()
    {
        QVERIFY(QDir().mkpath(settingsFile()));
        QString shown;
        int value = 0;
        bool isOpen = false;
        edit([&](QDialog& dialog) {
            const BoxAnswerer reader([&shown](QMessageBox& box) {
                shown = box.text();
                box.reject();
            });
            editor<QSpinBox>(dialog, "runsAtOnce")->setValue(3);
            press(dialog, QDialogButtonBox::Ok); // returns when the box has gone
            value = editor<QSpinBox>(dialog, "runsAtOnce")->value();
            isOpen = dialog.isVisible();
            dialog.reject();
        });
        QVERIFY2(shown.startsWith(text("The preferences cannot be saved: ")), qPrintable(shown));
        QVERIFY(isOpen);
        QCOMPARE(value, 3);
        QVERIFY(QDir().rmdir(settingsFile()));
    }

    void dialogFitsASmallScreen()
    {
        edit([](QDialog& dialog) {
            QVERIFY(dialog.minimumSizeHint().width() <= 1240);
            QVERIFY(dialog.minimumSizeHint().height() <= 640);
            dialog.reject();
        });
    }
};

QTEST_MAIN(tst_preferences_dialog)

#include "tst_preferences_dialog.moc"
