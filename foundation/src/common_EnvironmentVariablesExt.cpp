#include <common_EnvironmentVariablesExt.h>

#include <QByteArray>
#include <QRegularExpression>
#include <QStringList>

namespace {

QString expanded(const QString& value, const QStringList& enclosing);

QString variableExpanded(const QString& name, const QStringList& enclosing)
{
    if (enclosing.contains(name)) {
        return QString();
    }
    return expanded(qEnvironmentVariable(name.toLocal8Bit().constData()), QStringList(enclosing)
                                                                              << name);
}

// enclosing has the names of the variables that are being expanded around this value.
QString expanded(const QString& value, const QStringList& enclosing)
{
    static const QRegularExpression reference(
        QStringLiteral(R"(\$\{([A-Za-z_]\w*)\}|\$([A-Za-z_]\w*)|%([A-Za-z_]\w*)%)"));

    QString result;
    int copied = 0;
    QRegularExpressionMatchIterator matches = reference.globalMatch(value);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        result.append(value.constData() + copied, match.capturedStart() - copied);
        result += variableExpanded(match.captured(match.lastCapturedIndex()), enclosing);
        copied = match.capturedEnd();
    }
    return result + value.mid(copied);
}

} // namespace

QString common_EnvironmentVariablesExt::getVariableExpanded(const char* name)
{
    return variableExpanded(QString::fromLocal8Bit(name), QStringList());
}
