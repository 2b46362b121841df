// SPDX-License-Identifier: MIT
#pragma once

#include "ApplicationOption.h"

#include <QSize>
#include <QVector>

class QCommandLineParser;

/// The options --output and --size of an application that writes a picture without a window.
struct PictureOptions
{
    QString outputHelp; ///< help text of --output, with the default file
    QSize usualSize;    ///< in pixels, within the limits below
    int leastSide;
    int greatestSide;

    QVector<ApplicationOption> options() const;

    /// The value of --output; empty if it is not given.
    static QString output(const QCommandLineParser& parser);
    static bool hasOutput(const QCommandLineParser& parser);

    /// Why the size is invalid, or empty.
    QString sizeProblem(const QCommandLineParser& parser) const;

    /// The given size or the usual one. sizeProblem() must be empty.
    static QSize size(const QCommandLineParser& parser);
};
