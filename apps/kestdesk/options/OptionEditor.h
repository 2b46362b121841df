// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class QWidget;

/// Edits one launch option as the text of its property.
class OptionEditor : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The parent of this object.
    virtual QWidget* widget() const = 0;

    virtual QString text() const = 0;
    virtual void setText(const QString& text) = 0;

    /// Whether the page shows a label before the editor. Otherwise the editor has its own.
    virtual bool needsLabel() const { return true; }

Q_SIGNALS:
    void edited();
};
