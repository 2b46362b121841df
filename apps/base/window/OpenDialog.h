#pragma once

#include <QStringList>

class QWidget;

/// Lets the user choose files that are there. If the user closes the dialog without a choice, files
/// that it could not list are reported: Qt leaves out those whose names are not UTF-8.
namespace OpenDialog {

/// Empty when the user has chosen none.
QString file(QWidget* parent, const QString& title, const QString& folder, const QString& filter);
QStringList files(QWidget* parent, const QString& title, const QString& folder,
                  const QString& filter);

} // namespace OpenDialog
