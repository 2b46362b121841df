// SPDX-License-Identifier: MIT
#include <common_EnvironmentVariablesExt.h>

#include <EnvironmentVariable.h>

#include <QRegularExpression>
#include <QStringList>

namespace {

QString expanded(const QString& value, const QStringList& enclosing);

QString variableExpanded(const QString& name, const QStringList& enclosing)
{
    if (enclosing.contains(name, EnvironmentVariable::caseOfNames())) {
        return QString();
    }
    return expanded(EnvironmentVariable::value(name), QStringList(enclosing) << name);
}

// Other names, such as ProgramFiles(x86), are those of variables only if there are such variables.
bool isReference(const QString& name)
{
    static const QRegularExpression usualName(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    return EnvironmentVariable::exists(name) ||
           (!EnvironmentVariable::unknownReferencesStay() && usualName.match(name).hasMatch());
}

// enclosing has the names of the variables that are being expanded around this value.
QString expanded(const QString& value, const QStringList& enclosing)
{
    static const QRegularExpression reference(
        QStringLiteral(R"(\$\{([^\W\d]\w*)\}|\$([^\W\d]\w*)|%([^%=\r\n]+)%)"),
        QRegularExpression::UseUnicodePropertiesOption);

    QString result;
    int copied = 0;
    QRegularExpressionMatch match = reference.match(value);
    while (match.hasMatch()) {
        const QString name = match.captured(match.lastCapturedIndex());
        const bool isExpanded = isReference(name);
        const int end = isExpanded ? match.capturedEnd() : match.capturedStart() + 1;
        result.append(value.constData() + copied, match.capturedStart() - copied);
        if (isExpanded) {
            result += variableExpanded(name, enclosing);
        } else {
            result += value.at(end - 1);
        }
        copied = end;
        match = reference.match(value, copied);
    }
    return result + value.mid(copied);
}

} // namespace

QString common_EnvironmentVariablesExt::getVariableExpanded(const char* name)
{
    return variableExpanded(QString::fromLocal8Bit(name), QStringList());
}
