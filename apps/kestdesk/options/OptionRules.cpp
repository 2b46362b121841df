#include "OptionRules.h"

#include "OptionValue.h"

#include <common_PropertyMetaData.h>

#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

bool isWholeNumber(const QString& text)
{
    bool fits = false;
    text.toInt(&fits);
    return fits && std::all_of(text.cbegin(), text.cend(), [](QChar character) {
               return character >= QLatin1Char('0') && character <= QLatin1Char('9');
           });
}

QString gpuCountComplaint(const QString& text)
{
    return text.isEmpty() || (isWholeNumber(text) && text.toInt() > 0)
               ? QString()
               : QStringLiteral("Give a whole number from 1, or leave it empty.");
}

QString gpuListComplaint(const QString& text)
{
    if (text.isEmpty()) {
        return QString();
    }
    QStringList numbers = text.split(QLatin1Char(','));
    if (!std::all_of(numbers.cbegin(), numbers.cend(), isWholeNumber)) {
        return QStringLiteral("Give numbers with commas between them and no blanks, such as 0,1.");
    }
    return numbers.removeDuplicates() > 0 ? QStringLiteral("A GPU is in the list twice.")
                                          : QString();
}

QString frequencyComplaint(const QString& text)
{
    bool isNumber = false;
    const double frequency = QLocale::c().toDouble(text, &isNumber);
    if (text.isEmpty()) {
        return QStringLiteral("Give a frequency, or do not specify one.");
    }
    return isNumber && std::isfinite(frequency) && frequency > 0 &&
                   !text.contains(QLatin1Char(',')) && text == text.trimmed()
               ? QString()
               : QStringLiteral("Give a positive number with a decimal point, such as 14.2.");
}

bool isControlCharacter(QChar character)
{
    return character.category() == QChar::Other_Control;
}

QString remoteHostComplaint(const QString& text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    for (const QString& word : words) {
        if (word.startsWith(QLatin1Char('-'))) {
            return QStringLiteral("\"%1\" begins with \"-\" and would be taken for an option.")
                .arg(word);
        }
    }
    return std::any_of(text.cbegin(), text.cend(), isControlCharacter)
               ? QStringLiteral("Tabs and other control characters are not allowed.")
               : QString();
}

QString environmentComplaint(const QString& text)
{
    static const QRegularExpression assignment(
        QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*=[^\\0\\r]*$"));
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        if (!lines[i].isEmpty() && !assignment.match(lines[i]).hasMatch()) {
            return QStringLiteral("Line %1 is not NAME=VALUE.").arg(i + 1);
        }
    }
    return QString();
}

QString numberComplaint(const common_PropertyMetaData& metaData, const QString& text)
{
    const std::optional<int> minimum = OptionValue::minimum(metaData);
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber) {
        return QStringLiteral("Give a whole number.");
    }
    return minimum && number < *minimum ? QStringLiteral("Give a number from %1 on.").arg(*minimum)
                                        : QString();
}

struct Rule
{
    const char* key;
    QString (*complaint)(const QString& text);
};

// Texts. What is no text is a number or one of its choices.
constexpr Rule rules[] = {
    {"Kest.NumberOfGPUs", gpuCountComplaint},       {"Kest.GPUsList", gpuListComplaint},
    {"Kest.RemoteHost", remoteHostComplaint},       {"Amrkest.Frequency", frequencyComplaint},
    {"EnvironmentVariables", environmentComplaint},
};

} // namespace

QString OptionRules::complaint(const common_PropertyMetaData& metaData, const QString& text)
{
    if (metaData.type() == common_PropertyMetaData::Integer && metaData.getEnumList().isEmpty()) {
        return numberComplaint(metaData, text);
    }
    const auto* const rule =
        std::find_if(std::cbegin(rules), std::cend(rules), [&metaData](const Rule& row) {
            return metaData.name() == QLatin1String(row.key);
        });
    return rule == std::cend(rules) ? QString() : rule->complaint(text);
}
