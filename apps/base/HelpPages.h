// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <optional>

class QUrl;

/// The help pages: Markdown files in one folder, and the pictures beside them. Nothing outside of
/// the folder is ever read.
class HelpPages
{
    Q_DECLARE_TR_FUNCTIONS(HelpPages)

public:
    explicit HelpPages(QString directory);

    /// The address of a page, which is named without its ".md".
    static QUrl address(const QString& page);

    /// Whether the address can be one of these pages at all.
    static bool isOwn(const QUrl& address);

    /// What stands at the address; nothing when there is no such file in the folder.
    std::optional<QByteArray> content(const QUrl& address) const;

    /// The text to show in place of a page that is missing.
    QString missingPage(const QUrl& address) const;

private:
    QString m_directory;
};
