#pragma once

#include <QByteArray>
#include <QString>

/// One line of a machines file: "host" or "host:count", or nothing.
struct MachinesLine
{
    QByteArray host; ///< empty where the line names none, or is wrong
    int processes = 0;
    QString error; ///< empty when the line is right

    /// The line without its end.
    static MachinesLine parse(const QByteArray& line);

    /// What is wrong with the name of a host, or with an address of IPv6 in brackets; empty when
    /// nothing is.
    static QString hostError(const QByteArray& host);
};
