// SPDX-License-Identifier: MIT
#include "OptionRules.h"

#include "EnvironmentRule.h"

#include <RemoteHost.h>

#include <common_PropertyMetaData.h>

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(OptionRules)
};

constexpr int mostProcesses = 4096;
constexpr int mostRuns = 1000000;
constexpr int mostGpus = 999999;
constexpr double largestFrequency = 1e15; // MHz
constexpr int longestText =
    100000; // bytes; a word of a command line or an environment holds 128 KB
constexpr int anyNumber = std::numeric_limits<int>::max();

bool isWholeNumber(const QString& text)
{
    bool fits = false;
    text.toInt(&fits);
    return fits && std::all_of(text.cbegin(), text.cend(), [](QChar character) {
               return character >= QLatin1Char('0') && character <= QLatin1Char('9');
           });
}

QString anyTextProblem(const QString& /*text*/)
{
    return QString();
}

QString gpuCountProblem(const QString& text)
{
    return text.isEmpty() || (isWholeNumber(text) && text.toInt() > 0 && text.toInt() <= mostGpus &&
                              !text.startsWith(QLatin1Char('0')))
               ? QString()
               : Texts::tr("Give a whole number from 1 to %1, or leave it empty.").arg(mostGpus);
}

QString gpuListProblem(const QString& text)
{
    if (text.isEmpty()) {
        return QString();
    }
    const QStringList numbers = text.split(QLatin1Char(','));
    if (!std::all_of(numbers.cbegin(), numbers.cend(), isWholeNumber)) {
        return Texts::tr("Give numbers with commas between them and no blanks, such as 0,1.");
    }
    QSet<int> different;
    for (const QString& number : numbers) {
        different.insert(number.toInt());
    }
    return different.size() < numbers.size() ? Texts::tr("A GPU is in the list twice.") : QString();
}

QString hostProblem(const QString& text)
{
    if (text != text.simplified()) {
        return Texts::tr("There must be one blank between two words, and none around them.");
    }
    const QString error = text.isEmpty() ? QString() : suite::RemoteHost(text).error();
    return error.isEmpty() ? QString() : error + QLatin1Char('.');
}

QString frequencyProblem(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("\\A\\+?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?\\z"));
    const double frequency = number.match(text).hasMatch() ? text.toDouble() : 0;
    return text.isEmpty() || (frequency > 0 && frequency <= largestFrequency)
               ? QString()
               : Texts::tr("Give a positive number with a decimal point, such as 14.2, up to %1.")
                     .arg(largestFrequency);
}

struct RangeRow
{
    const char* key;
    OptionRules::Range range;
};

struct TextRow
{
    const char* key;
    QString (*problem)(const QString& text);
    const char* accepted;
    bool mayHaveLines;
    const char* emptyProblem;
};

// clang-format off
constexpr RangeRow rangeRows[] = {
    {"Kest.NumberOfParallelProcesses", {1, mostProcesses}},
    {"Kest.ParallelEnvOptions",        {0, anyNumber}},
    {"Adaptkest.AnalysisNumber",       {1, mostRuns}},
    {"Optkest.SolverRun",              {1, mostRuns}},
    {"Optkest.NumberOfFarmProcesses",  {2, mostProcesses}},
    {"Amrkest.MaximumIterations",      {1, mostRuns}},
};

constexpr TextRow textRows[] = {
    {"Kest.NumberOfGPUs",    gpuCountProblem,          QT_TRANSLATE_NOOP("OptionRules", "a whole number from 1, or nothing for all"), false, ""},
    {"Kest.GPUsList",        gpuListProblem,           QT_TRANSLATE_NOOP("OptionRules", "numbers with commas between them, such as 0,1, or nothing for any"), false, ""},
    {"Kest.RemoteHost",      hostProblem,              QT_TRANSLATE_NOOP("OptionRules", "a host as [user@]HOST [user=NAME] [port=NUMBER] [home=FOLDER], or nothing"), false, ""},
    {"Amrkest.Frequency",    frequencyProblem,         QT_TRANSLATE_NOOP("OptionRules", "a positive number in MHz, such as 14.2, or nothing"), false, QT_TRANSLATE_NOOP("OptionRules", "Give a frequency, or do not specify one.")},
    {"EnvironmentVariables", EnvironmentRule::problem, QT_TRANSLATE_NOOP("OptionRules", "NAME=VALUE, one a line, with no further \"=\""), true, ""},
};
// clang-format on

constexpr TextRow anyText = {"", anyTextProblem,
                             QT_TRANSLATE_NOOP("OptionRules", "any text in one line"), false, ""};

const TextRow& textRow(const common_PropertyMetaData& metaData)
{
    const auto* const row =
        std::find_if(std::cbegin(textRows), std::cend(textRows), [&metaData](const TextRow& each) {
            return metaData.name() == QLatin1String(each.key);
        });
    return row == std::cend(textRows) ? anyText : *row;
}

bool isText(const common_PropertyMetaData& metaData)
{
    return metaData.type() == common_PropertyMetaData::String;
}

// Why the characters cannot be in a command line, as a sentence.
QString characterProblem(const QString& text, bool mayHaveLines)
{
    const bool hasControls = std::any_of(text.cbegin(), text.cend(), [mayHaveLines](QChar each) {
        return each.category() == QChar::Other_Control && each != QLatin1Char('\t') &&
               !(mayHaveLines && each == QLatin1Char('\n'));
    });
    if (hasControls) {
        return mayHaveLines ? Texts::tr("Control characters are not allowed.")
                            : Texts::tr("Line breaks and other control characters are not "
                                        "allowed.");
    }
    if (!text.isValidUtf16() || text.contains(QChar(QChar::ReplacementCharacter))) {
        return Texts::tr("There is a character that could not be read as UTF-8.");
    }
    return text.toUtf8().size() > longestText
               ? Texts::tr("The text is longer than %1 bytes.").arg(longestText)
               : QString();
}

QString textProblem(const TextRow& row, const QString& text)
{
    const QString problem = characterProblem(text, row.mayHaveLines);
    return problem.isEmpty() ? row.problem(text) : problem;
}

QString numberProblem(const OptionRules::Range& range, const QString& text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber) {
        return Texts::tr("Give a whole number.");
    }
    if (number >= range.smallest && number <= range.largest) {
        return QString();
    }
    return range.largest == anyNumber
               ? Texts::tr("Give a number from %1 on.").arg(range.smallest)
               : Texts::tr("Give a number from %1 to %2.").arg(range.smallest).arg(range.largest);
}

} // namespace

OptionRules::Range OptionRules::range(const common_PropertyMetaData& metaData)
{
    for (const RangeRow& row : rangeRows) {
        if (metaData.name() == QLatin1String(row.key)) {
            return row.range;
        }
    }
    return {std::numeric_limits<int>::min(), anyNumber};
}

QString OptionRules::problem(const common_PropertyMetaData& metaData, const QString& text)
{
    if (isText(metaData)) {
        return textProblem(textRow(metaData), text);
    }
    const bool isNumber =
        metaData.type() == common_PropertyMetaData::Integer && metaData.getEnumList().isEmpty();
    return isNumber ? numberProblem(range(metaData), text) : QString();
}

QString OptionRules::emptyProblem(const common_PropertyMetaData& metaData)
{
    const char* const problem = isText(metaData) ? textRow(metaData).emptyProblem : "";
    return *problem == '\0' ? QString() : Texts::tr(problem);
}

bool OptionRules::mayHaveLines(const common_PropertyMetaData& metaData)
{
    return isText(metaData) && textRow(metaData).mayHaveLines;
}

QString OptionRules::accepted(const common_PropertyMetaData& metaData)
{
    if (isText(metaData)) {
        return Texts::tr(textRow(metaData).accepted);
    }
    const Range limits = range(metaData);
    return limits.largest == anyNumber
               ? Texts::tr("an integer from %1").arg(limits.smallest)
               : Texts::tr("an integer from %1 to %2").arg(limits.smallest).arg(limits.largest);
}
