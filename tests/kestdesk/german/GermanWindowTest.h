// SPDX-License-Identifier: MIT
#pragma once

#include "RecordsWindowTest.h"

#include <GermanTexts.h>
#include <ShownTexts.h>
#include <pathPattern.h>

#include <Translations.h>

/// kestdesk's window as a German user has it, and what of it is not in German.
class GermanWindowTest : public RecordsWindowTest
{
protected:
    static void install()
    {
        Translations::install();
        QLocale::setDefault(QLocale(QLocale::German)); // dates follow the system's settings
        QCOMPARE(MainWindow::tr("Run ended"), text("Lauf beendet"));
    }

    void setUpGerman()
    {
        qputenv("USER", "anna");
        setUpRecords();
        m_stage->open();
    }

    /// Ends also the runs that a test has left running.
    void tearDownGerman()
    {
        m_stage->endRuns(SIGKILL);
        m_records.reset();
        tearDown();
    }

    /// The texts of a window that are not German, a line each; empty if there are none.
    QString foreign(const QWidget& window) const
    {
        const QList<QMenu*> menus = window.findChildren<QMenu*>();
        for (QMenu* const menu : menus) {
            Q_EMIT menu->aboutToShow();
        }
        const QStringList shown = ShownTexts::of(window);
        return shown.size() > 1 ? m_german.untranslated(shown, allowed()).join(QLatin1Char('\n'))
                                : text("hardly any text");
    }

    /// Opens a dialog by an action, looks at it, and closes it. False if none comes up.
    bool visit(const char* action, const std::function<void(QDialog& dialog)>& look) const
    {
        bool isVisited = false;
        const ModalVisitor visitor([&](QDialog& dialog) {
            isVisited = true;
            look(dialog);
            dialog.reject();
        });
        m_stage->find<QAction>(action)->trigger();
        return isVisited;
    }

    /// Runs a model until it is in that state.
    void runUntil(const char* state, const QByteArray& word, const char* model = "m.nec") const
    {
        const int run = m_stage->runCount();
        m_stage->run(m_stage->model(model, word));
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->runCount(), run + 1, longTime);
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->cell(run, "Zustand"), text(state), longTime);
        QTRY_VERIFY_WITH_TIMEOUT(!m_stage->cell(run, "Nr.").isEmpty(), longTime);
    }

    void selectRun(int row = 0) const { list()->selectRow(row); }

    /// Letters that two of the texts have for the Alt key, each with these texts.
    static QStringList sharedLetters(const QStringList& texts)
    {
        QMap<QString, QStringList> letters;
        for (const QString& each : texts) {
            const QString letter = QKeySequence::mnemonic(each).toString();
            if (!letter.isEmpty()) {
                letters[letter].append(each);
            }
        }
        QStringList result;
        for (const QStringList& sharers : qAsConst(letters)) {
            if (sharers.size() > 1) {
                result.append(sharers.join(QLatin1Char('|')));
            }
        }
        return result;
    }

private:
    // Patterns of texts that have no translation.
    static QStringList allowed()
    {
        struct Row
        {
            const char* pattern;
            const char* reason;
        };
        // clang-format off
        static constexpr Row rows[] = {
            {"kestdesk|(run|pre|opt|amr|cad|post|edit)kest",               "names of programs"},
            {"kestdesk [0-9.]+",                                           "the name and the version"},
            {"nec2c( .*)?|Qt [0-9.]+",                                     "the same of others"},
            {R"([a-z]+(-run[0-9]+)?\.(nec|csv|partial))",                    "names of files"},
            {"/[^ ]*/a folder(/[^ ]*)?|/[^ ]*",                            "paths"},
            {R"([0-9] /[^ ]*/a folder/models/[a-z]+\.nec)",                  "a recent file"},
            {R"([a-z]+\.nec \([^ ]*/a folder/models\) - runkest - kestdesk)", "the title with a model"},
            {R"(\w+tag, [0-9]+\. \w+ [0-9]{4} .*)",                        "the locale's date"},
            {"SIG[A-Z]+",                                                  "names of signals"},
            {R"((Fehler|Warnungen|Hinweise|Dateien) \([0-9]+\))",           "titles with a number"},
            {".* mit [0-9]+ Kernen",                                       "the computer"},
            {"anna",                                                       "the user"},
            {"SHA-256 [0-9a-f]+",                                          "a checksum"},
            {"[-+] .*",                                                    "a line of a model"},
            {"up|2101: unknown card 'QX'.*",                               "what a component says"},
            {"the host 'b' cannot be reached any more by ssh",             "what a component says"},
            {"(localhost|b|# b)(:[0-9]+)?",                                "lines of the machines file"},
            {R"(it names no host|"x" is no number of processes \(.*)",     "findings are not translated"},
            {R"(the host stands in line 2 already \(localhost:1\))",        "findings are not translated"},
        };
        // clang-format on
        QStringList result;
        for (const Row& row : rows) {
            result.append(pathPattern(text(row.pattern)));
        }
        return result;
    }

    const GermanTexts m_german{{text("base"), text("kestdesk")}};
};
