// SPDX-License-Identifier: MIT
#include "TestLog.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

namespace {

using Outcome = TestCase::Outcome;

// As QtTest writes it for the function in which a program gives up or crashes.
QString fatalError()
{
    return QStringLiteral("Received a fatal error.");
}

Outcome outcomeOf(const QString& type)
{
    if (type == QLatin1String("skip")) {
        return Outcome::Skipped;
    }
    return type == QLatin1String("pass") ? Outcome::Survived : Outcome::Lost;
}

/// The place of a failure, for its message.
QString placeOf(const QXmlStreamReader& xml)
{
    const QString file = xml.attributes().value(QLatin1String("file")).toString();
    const QString line = xml.attributes().value(QLatin1String("line")).toString();
    return file.isEmpty() ? QString()
                          : QStringLiteral("%1:%2: ").arg(QFileInfo(file).fileName(), line);
}

/// Reads the incident or message that the reader is at, to its end.
TestCase readCase(QXmlStreamReader& xml, const QString& function, const QString& type)
{
    TestCase result;
    result.function = function;
    result.outcome = outcomeOf(type);
    result.message = placeOf(xml);
    while (xml.readNextStartElement()) {
        const bool isTag = xml.name() == QLatin1String("DataTag");
        const QString text = xml.readElementText();
        (isTag ? result.row : result.message) += text;
    }
    return result;
}

/// Reads the function that the reader is at, as far as it got.
void readFunction(QXmlStreamReader& xml, TestLog& log)
{
    const QString function = xml.attributes().value(QLatin1String("name")).toString();
    bool isFatal = false;
    while (xml.readNextStartElement()) {
        const QString element = xml.name().toString();
        const QString type = xml.attributes().value(QLatin1String("type")).toString();
        if (element != QLatin1String("Incident") && element != QLatin1String("Message")) {
            xml.skipCurrentElement();
            continue;
        }
        const TestCase read = readCase(xml, function, type);
        if (element == QLatin1String("Incident") && read.message.endsWith(fatalError())) {
            isFatal = true;
        } else if (element == QLatin1String("Incident") || type == QLatin1String("skip")) {
            log.cases.append(read);
        } else if (type == QLatin1String("qfatal")) {
            log.lastWords = read.message;
        }
    }
    if (isFatal || xml.hasError()) {
        log.endedIn = function;
    }
}

} // namespace

TestLog TestLog::read(const QString& path)
{
    TestLog log;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return log;
    }
    QXmlStreamReader xml(&file);
    xml.readNextStartElement(); // the program
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("TestFunction")) {
            readFunction(xml, log);
        } else {
            xml.skipCurrentElement();
        }
    }
    return log;
}
