#pragma once

#include <QObject>
#include <QString>

class QWidget;

/// What one launch option is changed in, as text: that of the property.
class OptionEditor : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The parent of this.
    virtual QWidget* widget() const = 0;

    virtual QString text() const = 0;
    virtual void setText(const QString& text) = 0;

    /// Whether a label stands before it; it has its own otherwise.
    virtual bool needsLabel() const { return true; }

Q_SIGNALS:
    void edited();
};
