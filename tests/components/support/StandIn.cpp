// SPDX-License-Identifier: MIT
#include "StandIn.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

StandIn::StandIn(const QString& folder, const QString& name) : m_path(QDir(folder).filePath(name))
{
    const QFileInfo original(QStringLiteral(KEST_STAND_IN_PROGRAM));
    m_program =
        original.suffix() == QLatin1String("exe") ? m_path + QStringLiteral(".exe") : m_path;
    QFile::copy(original.filePath(), m_program);
}

bool StandIn::setPlan(const Plan& plan) const
{
    QJsonObject object = {{QStringLiteral("record"), file("call")},
                          {QStringLiteral("program"), plan.program},
                          {QStringLiteral("delay"), plan.delay},
                          {QStringLiteral("failsWith"), plan.failsWith},
                          {QStringLiteral("error"), plan.error}};
    if (plan.passedOn >= 0) {
        object.insert(QStringLiteral("passedOn"), plan.passedOn);
    }
    QFile out(file("json"));
    const QByteArray content = QJsonDocument(object).toJson();
    return out.open(QIODevice::WriteOnly) && out.write(content) == content.size();
}

QStringList StandIn::calls() const
{
    QStringList result;
    const QFileInfoList all = records();
    for (const QFileInfo& info : all) {
        QFile in(info.filePath());
        result.append(in.open(QIODevice::ReadOnly) ? QString::fromUtf8(in.readAll()) : QString());
    }
    return result;
}

void StandIn::removeCalls() const
{
    const QFileInfoList all = records();
    for (const QFileInfo& info : all) {
        QFile::remove(info.filePath());
    }
}

QFileInfoList StandIn::records() const
{
    const QFileInfo self(m_path);
    return self.dir().entryInfoList({self.fileName() + QStringLiteral(".call*")}, QDir::Files,
                                    QDir::Name);
}

QString StandIn::file(const char* suffix) const
{
    return m_path + QLatin1Char('.') + QLatin1String(suffix);
}
