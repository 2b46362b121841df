// SPDX-License-Identifier: MIT
#include "ReasonText.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QVector>

#include <algorithm>

namespace {

struct Row
{
    const char* text;          ///< in English
    bool isLastAlsoTranslated; ///< whether the last argument is such a text, too
};

/// The texts, specific ones before those that match more.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ReasonText)

public:
    // clang-format off
    static constexpr Row rows[] = {
        {QT_TR_NOOP("running"), false},
        {QT_TR_NOOP("interrupted"), false},
        {QT_TR_NOOP("valid"), false},
        {QT_TR_NOOP("fault"), false},
        {QT_TR_NOOP("could not start"), false},
        {QT_TR_NOOP("stopped"), false},
        {QT_TR_NOOP("damaged"), false},
        {QT_TR_NOOP("not started"), false},
        {QT_TR_NOOP("window"), false},
        {QT_TR_NOOP("terminal"), false},
        {QT_TR_NOOP("output"), false},
        {QT_TR_NOOP("line feed"), false},
        {QT_TR_NOOP("percentage"), false},
        {QT_TR_NOOP("total percentage"), false},
        {QT_TR_NOOP("error"), false},
        {QT_TR_NOOP("warning"), false},
        {QT_TR_NOOP("notice"), false},
        {QT_TR_NOOP("file"), false},
        {QT_TR_NOOP("variable"), false},
        {QT_TR_NOOP("same"), false},
        {QT_TR_NOOP("different"), false},
        {QT_TR_NOOP("only left"), false},
        {QT_TR_NOOP("only right"), false},
        {QT_TR_NOOP("unknown"), false},
        {QT_TR_NOOP("the user"), false},
        {QT_TR_NOOP("kestdesk, which was asked to end"), false},
        {QT_TR_NOOP("another process"), false},
        {QT_TR_NOOP("this machine"), false},
        {QT_TR_NOOP("its terminal or session was closed"), false},
        {QT_TR_NOOP("somebody interrupted it, as Ctrl+C does"), false},
        {QT_TR_NOOP("somebody asked it to end: a user, the system as it shuts down, or the time limit of a job scheduler"), false},
        {QT_TR_NOOP("usually the system ran out of memory, or an administrator or a job scheduler killed it"), false},
        {QT_TR_NOOP("somebody ended it, as Ctrl+\\ does"), false},
        {QT_TR_NOOP("it used memory that it does not have, which is a fault of the program"), false},
        {QT_TR_NOOP("usually a disk or the shared memory is full, or a file that it used was cut"), false},
        {QT_TR_NOOP("it gave up because of an error that it could not handle"), false},
        {QT_TR_NOOP("a calculation was impossible, such as a division of an integer by zero"), false},
        {QT_TR_NOOP("usually it was built for another processor"), false},
        {QT_TR_NOOP("it was not allowed to call the system"), false},
        {QT_TR_NOOP("it stopped for a debugger that is not there"), false},
        {QT_TR_NOOP("nobody read what it wrote any more"), false},
        {QT_TR_NOOP("it used up the processor time that it is allowed (ulimit -t)"), false},
        {QT_TR_NOOP("it wrote a file larger than it is allowed (ulimit -f)"), false},
        {QT_TR_NOOP("a time limit of its own passed"), false},
        {QT_TR_NOOP("a program that it needs could not be executed"), false},
        {QT_TR_NOOP("a program or a library that it needs was not found"), false},
        {QT_TR_NOOP("killed"), false},
        {QT_TR_NOOP("another program killed it"), false},
        {QT_TR_NOOP("its stack overflowed, which is a fault of the program"), false},
        {QT_TR_NOOP("the system ran out of memory"), false},
        {QT_TR_NOOP("a calculation was impossible: a division of an integer by zero"), false},
        {QT_TR_NOOP("a library that it needs was not found"), false},
        {QT_TR_NOOP("fault, exit code %1"), false},
        {QT_TR_NOOP("fault, %1"), true},
        {QT_TR_NOOP("was cut off: kestdesk, which followed it, was killed, or the computer was switched off"), false},
        {QT_TR_NOOP("ended by itself, but reported only %1 % of the run as done"), false},
        {QT_TR_NOOP("was ended by %1 (signal %2): %3"), true},
        {QT_TR_NOOP("was ended by %1 (exception %2): %3"), true},
        {QT_TR_NOOP("was killed (exception %1): %2"), true},
        {QT_TR_NOOP("was ended by signal %1"), false},
        {QT_TR_NOOP("was ended by exception %1"), false},
        {QT_TR_NOOP("ended with exit code %1, which stands for %2: %3"), true},
        {QT_TR_NOOP("ended with exit code %1: %2"), true},
        {QT_TR_NOOP("ended with exit code %1"), false},
        {QT_TR_NOOP("signal %1"), false},
        {QT_TR_NOOP("exception %1"), false},
        {QT_TR_NOOP("%1 is being run already, by %2"), true},
        {QT_TR_NOOP("process %1 on %2"), true},
        {QT_TR_NOOP("%1 cannot be ended and goes on"), false},
        {QT_TR_NOOP("cannot start %1: %2"), false},
        {QT_TR_NOOP("the model %1 cannot be run: the path of its folder has %2 characters, and this system starts no program in a folder whose path has more than %3; move the model to a shorter path"), false},
        {QT_TR_NOOP("the model %1 cannot be run: %2"), false},
        {QT_TR_NOOP("there is no model %1"), false},
        {QT_TR_NOOP("%1 is a folder and not a model"), false},
        {QT_TR_NOOP("there is no component %1 in %2 (KEST_HOME names the installation)"), false},
        {QT_TR_NOOP("the machines file cannot be copied: other runs use its copies gui_tmp_machfile_0 to gui_tmp_machfile_999 in %1, or have left them; remove those when no other run is going on"), false},
        {QT_TR_NOOP("the machines file cannot be copied to %1"), false},
        {QT_TR_NOOP("the machines file %1 names no host; %2 lets it name this machine, \"kestdesk machines edit\" changes it"), false},
        {QT_TR_NOOP("the machines file %1 names no host"), false},
        {QT_TR_NOOP("%1 was not started; %2 makes a machines file that names this machine"), false},
        {QT_TR_NOOP("%1 was not started"), false},
        {QT_TR_NOOP("%1, which the run was started with, is no longer there"), false},
        {QT_TR_NOOP("the folder %1, in which the run was started, is no longer there"), false},
        {QT_TR_NOOP("the record of run %1 has no copy of the machines file"), false},
        {QT_TR_NOOP("the record of run %1 has no model"), false},
        {QT_TR_NOOP("the model cannot be written to %1: %2"), false},
        {QT_TR_NOOP("too many copies of the model are in %1"), false},
        {QT_TR_NOOP("the folder %1 cannot be made"), false},
        {QT_TR_NOOP("nothing can be written into %1"), false},
        {QT_TR_NOOP("no folder can be added to %1"), false},
        {QT_TR_NOOP("the copy in the record of run %1 cannot be read: %2"), false},
        {QT_TR_NOOP("the messages of run %1 cannot be read"), false},
        {QT_TR_NOOP("%1 is no longer what run %2 has written"), false},
        {QT_TR_NOOP("%1 is no lock file and must be removed"), false},
        {QT_TR_NOOP("%1 cannot be used: %2"), false},
        {QT_TR_NOOP("%1 cannot be written: %2"), false},
        {QT_TR_NOOP("%1 cannot be removed"), false},
        {QT_TR_NOOP("%1 cannot be read"), false},
    };
    // clang-format on
};

struct Pattern
{
    Row row;
    QRegularExpression expression; ///< captures the arguments
};

// A text with its arguments as groups. They are numbered in the order of the text.
QRegularExpression expressionOf(const char* text)
{
    QString pattern = QRegularExpression::escape(QLatin1String(text));
    for (const char* const argument : {"\\%1", "\\%2", "\\%3"}) {
        pattern.replace(QLatin1String(argument), QLatin1String("(.+?)"));
    }
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::DotMatchesEverythingOption);
}

const QVector<Pattern>& patterns()
{
    static const QVector<Pattern> all = [] {
        QVector<Pattern> result;
        for (const Row& row : Texts::rows) {
            result.append({row, expressionOf(row.text)});
        }
        return result;
    }();
    return all;
}

// All arguments at once, so that a path with a per cent sign stays as it is.
QString filled(const QString& text, const QStringList& arguments)
{
    switch (arguments.size()) {
    case 0:
        return text;
    case 1:
        return QString(text).replace(QLatin1String("%1"), arguments.at(0));
    case 2:
        return text.arg(arguments.at(0), arguments.at(1));
    default:
        return text.arg(arguments.at(0), arguments.at(1), arguments.at(2));
    }
}

bool isTranslated()
{
    const char* const any = Texts::rows[0].text;
    return Texts::tr(any) != QLatin1String(any);
}

} // namespace

QString ReasonText::shown(const QString& english)
{
    if (english.isEmpty() || !isTranslated()) {
        return english;
    }
    for (const Pattern& pattern : patterns()) {
        const QRegularExpressionMatch match = pattern.expression.match(english);
        if (match.hasMatch()) {
            QStringList arguments = match.capturedTexts().mid(1);
            if (pattern.row.isLastAlsoTranslated) {
                arguments.last() = shown(arguments.last());
            }
            return filled(Texts::tr(pattern.row.text), arguments);
        }
    }
    return english;
}
