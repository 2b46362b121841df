// SPDX-License-Identifier: MIT
#include "RunOptionWords.h"

#include <QCoreApplication>

const QVector<RunOptionWord>& RunOptionWords::rows()
{
    // clang-format off
    static const QVector<RunOptionWord> table = {
        {"parallel", common_RunWrapper::Parallel, QT_TRANSLATE_NOOP("RunOptionWords", "Run in parallel on the hosts of the machines file.")},
        {"remote",   common_RunWrapper::Remote,   QT_TRANSLATE_NOOP("RunOptionWords", "Run on the remote host of the launch options.")},
        {"farm-out", common_RunWrapper::FarmOut,  QT_TRANSLATE_NOOP("RunOptionWords", "Farm the optimiser's runs out to the hosts of the machines file.")},
    };
    // clang-format on
    return table;
}

QString RunOptionWords::shown(const RunOptionWord& row)
{
    return QCoreApplication::translate("RunOptionWords", row.meaning);
}

QStringList RunOptionWords::of(common_RunWrapper::RunOptions options)
{
    QStringList words;
    for (const RunOptionWord& row : rows()) {
        if (options.testFlag(row.option)) {
            words.append(QLatin1String(row.word));
        }
    }
    return words;
}

common_RunWrapper::RunOptions RunOptionWords::options(const QStringList& words)
{
    common_RunWrapper::RunOptions result;
    for (const RunOptionWord& row : rows()) {
        result.setFlag(row.option, words.contains(QLatin1String(row.word)));
    }
    return result;
}
