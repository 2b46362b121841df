#pragma once

#include "ApplicationOption.h"

#include <QSize>
#include <QVector>

class QCommandLineParser;

/// The options --output and --size of an application that writes a picture without a window.
struct PictureOptions
{
    QString outputHelp; ///< what --output names, and what is written without it
    QSize usualSize;    ///< in pixels, as the sides below
    int leastSide;
    int greatestSide;

    QVector<ApplicationOption> options() const;

    /// Empty when it is not given.
    static QString output(const QCommandLineParser& parser);
    static bool hasOutput(const QCommandLineParser& parser);

    /// Why the size cannot be used; empty when it can.
    QString sizeProblem(const QCommandLineParser& parser) const;

    /// That which is given, or the usual one. There must be no problem.
    static QSize size(const QCommandLineParser& parser);
};
