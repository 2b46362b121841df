// SPDX-License-Identifier: MIT
#include "EditorStage.h"

#include <BoxAnswerer.h>
#include <SmallScreen.h>

#include <QAction>
#include <QMenu>

// The editor's window without its text.
class tst_editor_window : public QObject, protected EditorStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { m_services.reset(); }

    void windowAndItsBoxFitASmallScreen()
    {
        EditorWindow window(m_path);
        window.show();
        QCOMPARE(SmallScreen::excess(window), QString());
        QStringList found;
        BoxAnswerer reader([&found](QMessageBox& box) {
            found.append(SmallScreen::excess(box));
            box.reject();
        });
        window.findChild<QAction*>(QStringLiteral("aboutAction"))->trigger();
        QCOMPARE(found, QStringList(QString()));
    }

    void recentFileThatIsGoneIsGrey()
    {
        EditorWindow window(m_path);
        auto* const menu = window.findChild<QMenu*>(QStringLiteral("recentMenu"));
        QVERIFY(menu != nullptr);
        const QString other = m_folder->filePath(QStringLiteral("other.nec"));
        write(other, goodDeck);
        QVERIFY(window.openDeck(other));
        QVERIFY(QFile::remove(m_path));
        Q_EMIT menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 2);
        QTRY_VERIFY(!menu->actions().at(1)->isEnabled());
        QVERIFY(menu->actions().at(0)->isEnabled());
        QVERIFY(window.openDeck(other));
        write(m_path, goodDeck);
        Q_EMIT menu->aboutToShow();
        QTRY_VERIFY(menu->actions().at(1)->isEnabled());
        menu->actions().at(1)->trigger();
        QVERIFY(window.windowTitle().startsWith(QStringLiteral("model.nec")));
    }
};

QTEST_MAIN(tst_editor_window)

#include "tst_editor_window.moc"
