// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QWidget;

/// Lets the user choose existing files. If the user cancels the dialog, files that it could not
/// list are reported: Qt omits files whose names are not UTF-8.
namespace OpenDialog {

/// The chosen file or files; empty if the user cancels.
QString file(QWidget* parent, const QString& title, const QString& folder, const QString& filter);
QStringList files(QWidget* parent, const QString& title, const QString& folder,
                  const QString& filter);

} // namespace OpenDialog
