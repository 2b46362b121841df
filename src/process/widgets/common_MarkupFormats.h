#pragma once

#include <QHash>
#include <QPair>
#include <QTextCharFormat>
#include <QVector>

class QString;

/// What the tags of rich text make of the characters in them. QTextDocument is asked, with the tag
/// alone, so that the tag means the same as in any other text of Qt; answers are kept.
class common_MarkupFormats
{
public:
    /// What becomes of blanks.
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

    /// Of a tag by its name. Sizes are limited; attributes that do not concern characters and
    /// anything that names a file are ignored.
    TagFormat of(const QString& tag, const Attributes& attributes);

private:
    QHash<QString, TagFormat> m_known; ///< by the tag as it is asked for
};
