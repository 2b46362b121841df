// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QPair>
#include <QTextCharFormat>
#include <QVector>

class QString;

/// The formats that the tags of rich text give to characters. They are taken from QTextDocument, to
/// which the tag alone is given, so that tags mean the same as elsewhere in Qt. Results are cached.
class common_MarkupFormats
{
public:
    /// How blanks are treated.
    enum class Blanks {
        Inherited, ///< the same as outside the tag; outside of all tags there is one for several
        Unbroken,  ///< one for several, and lines do not break there
        Kept       ///< all of them stay
    };

    struct TagFormat
    {
        QTextCharFormat format;
        Blanks blanks = Blanks::Inherited;
    };

    using Attributes = QVector<QPair<QString, QString>>;

    /// The format of a tag with attributes. Sizes are limited; attributes that do not concern
    /// characters, and anything that names a file, are ignored.
    TagFormat of(const QString& tag, const Attributes& attributes);

private:
    QHash<QString, TagFormat> m_known; ///< by the tag with its attributes
};
