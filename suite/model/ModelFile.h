// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace suite {

/// The model that a component was asked to work on, and the files that belong to it.
class ModelFile
{
public:
    /// The argument is a path, absolute or relative; the suffix ".nec" may be left out.
    explicit ModelFile(const QString& argument);

    /// Absolute path of the deck.
    [[nodiscard]] QString path() const { return m_path; }

    /// File name of the deck, for messages.
    [[nodiscard]] QString name() const;

    /// Absolute path of a result beside the deck: its name with another suffix ("out", "csv").
    [[nodiscard]] QString resultPath(const QString& suffix) const;

    /// The same with any other ending behind the name ("_opt.nec").
    [[nodiscard]] QString pathWithEnding(const QString& ending) const;

private:
    QString m_path;
};

} // namespace suite
