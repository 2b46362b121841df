// SPDX-License-Identifier: MIT
#include "GermanTexts.h"
#include "ShownTexts.h"

#include <ApplicationIdentity.h>
#include <BoxAnswerer.h>
#include <DeckEditor.h>
#include <EditorWindow.h>
#include <Services.h>
#include <Text.h>
#include <Translations.h>
#include <pathPattern.h>

#include <QLabel>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// The window of the editor, its menus and its questions have no English text left.
class tst_german_editkest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_german.count() > 50);
        Translations::install();
    }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("KEST_USER_HOME", m_folder->path().toLocal8Bit());
        qputenv("KEST_HOME", KEST_SUITE);
        QCoreApplication::setApplicationVersion(text("1.2.3"));
        m_services =
            std::make_unique<Services>(ApplicationIdentity{text("editkest"), QString()}, false);
        QFile file(model());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write(" GW 1 2\n") > 0);
        file.close();
        m_window = std::make_unique<EditorWindow>(model());
        m_window->show();
    }

    void cleanup()
    {
        m_window.reset();
        m_services.reset();
    }

    void windowIsGerman()
    {
        QTRY_VERIFY(list()->count() > 0);
        list()->setCurrentRow(0);
        showMenus();
        QCOMPARE(
            m_german.untranslated(ShownTexts::of(*m_window), allowed()).join(QLatin1Char('\n')),
            QString());
        QCOMPARE(ShownTexts::ambiguousMenus(*m_window), QStringList());
        const QStringList menus = {text("&Datei"), text("&Bearbeiten"), text("&Hilfe")};
        QStringList titles;
        const QList<QAction*> actions = m_window->menuBar()->actions();
        for (const QAction* const action : actions) {
            titles.append(action->text());
        }
        QCOMPARE(titles, menus);
    }

    void mendingIsGerman()
    {
        QTRY_VERIFY(list()->count() > 0);
        QStringList titles;
        for (int row = 0; row < list()->count(); ++row) {
            list()->setCurrentRow(row);
            titles.append(m_window->findChild<QAction*>(text("mendAction"))->text());
            QCOMPARE(
                m_german.untranslated(ShownTexts::of(*m_window), allowed()).join(QLatin1Char('\n')),
                QString());
        }
        QVERIFY2(titles.contains(text("&Leerzeichen entfernen")), qPrintable(titles.join(u'|')));
        QVERIFY2(titles.contains(text("GE &einfügen")), qPrintable(titles.join(u'|')));
    }

    void questionsAreGerman()
    {
        QStringList shown;
        const BoxAnswerer boxes([&shown](QMessageBox& box) {
            shown += ShownTexts::of(box);
            shown.append(box.text());
            box.reject();
        });
        editor()->setPlainText(text("CE\n"));
        editor()->document()->setModified(true);
        m_window->close();
        m_window->openDeck(m_folder->filePath(text("none.nec")));
        editor()->document()->setModified(false);
        m_window->openDeck(m_folder->filePath(text("none.nec")));
        QFile other(model());
        QVERIFY(other.open(QIODevice::Append));
        QVERIFY(other.write("EN\n") > 0);
        other.close();
        editor()->document()->setModified(true);
        m_window->findChild<QAction*>(text("saveAction"))->trigger();
        m_window->findChild<QAction*>(text("aboutAction"))->trigger();
        editor()->document()->setModified(false);
        QVERIFY2(boxes.texts.size() == 5, qPrintable(boxes.texts.join(u'|')));
        QCOMPARE(boxes.texts.at(0), text("Das Modell wurde geändert. Soll es gespeichert werden?"));
        QVERIFY2(boxes.texts.at(4).contains(text("Bearbeitet Modelle und prüft sie dabei.")),
                 qPrintable(boxes.texts.at(4)));
        QCOMPARE(m_german.untranslated(shown, allowed()).join(QLatin1Char('\n')), QString());
    }

    void helpIsGerman()
    {
        m_window->findChild<QAction*>(text("helpAction"))->trigger();
        const auto* const viewer = m_window->findChild<QWidget*>(text("helpViewer"));
        QVERIFY(viewer != nullptr);
        QCOMPARE(m_german.untranslated(ShownTexts::of(*viewer), allowed()).join(QLatin1Char('\n')),
                 QString());
        QVERIFY(ShownTexts::of(*viewer).contains(text("&Inhalt")));
    }

private:
    QString model() const { return m_folder->filePath(text("model.nec")); }
    DeckEditor* editor() const { return m_window->findChild<DeckEditor*>(); }
    QListWidget* list() const { return m_window->findChild<QListWidget*>(text("findingList")); }

    void showMenus() const
    {
        const QList<QMenu*> menus = m_window->findChildren<QMenu*>();
        for (QMenu* const menu : menus) {
            Q_EMIT menu->aboutToShow();
        }
    }

    // Why a file cannot be opened that is not there, in the language of the system or of Qt.
    static QString reasonOfTheSystem()
    {
        QFile missing(text("none.nec"));
        const bool isOpen = missing.open(QIODevice::ReadOnly);
        QString reason = isOpen ? text("it is there") : missing.errorString();
        reason.remove(QRegularExpression(text("\\.$")));
        return QRegularExpression::escape(reason);
    }

    // Findings are the suite's; the code of a message is the library's.
    static QStringList allowed()
    {
        return {text("[0-9]+: .*"),
                text("1 .*\\.nec"),
                text(".*\\.nec"),
                text("model.nec \\(.*editkest"),
                text("OK|Cancel|Abbrechen|Kest"),
                pathPattern(text("editkest|[A-Z]{2}( [0-9])*|/[^ ]*")),
                reasonOfTheSystem(),
                text("editkest .*")};
    }

    const GermanTexts m_german{{text("base"), text("editkest")}};
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Services> m_services;
    std::unique_ptr<EditorWindow> m_window;
};

QTEST_MAIN(tst_german_editkest)
#include "tst_german_editkest.moc"
