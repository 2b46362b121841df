// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>
#include <QStringList>
#include <QVector>

class OptionEditor;
class QGridLayout;
class QGroupBox;
class QLabel;
class QVBoxLayout;
struct LaunchOptionRow;

/// One tab of launch options: their editors in groups, side by side where there is room.
class LaunchOptionsPage : public QScrollArea
{
    Q_OBJECT

public:
    LaunchOptionsPage(const QString& tab, QWidget* parent);

    QStringList keys() const;

    /// Puts the widgets of this page behind the given one in the tab order; returns the last.
    QWidget* continueTabOrder(QWidget* previous) const;

    QString text(const QString& key) const;
    void setText(const QString& key, const QString& text);

    /// Makes all editors read-only.
    void setReadOnly();

    /// Enables the editors whose switch is on, and marks invalid values with the reason beside
    /// them. Returns the first error as a sentence; empty if all values are valid.
    QString check();

Q_SIGNALS:
    void edited(const QString& key);
    void machinesRequested();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Field
    {
        const LaunchOptionRow* row;
        OptionEditor* editor;
        QLabel* label;   ///< may be null
        QLabel* unit;    ///< may be null
        QLabel* message; ///< hidden while all is right
    };

    QGroupBox* makeGroup(const QString& tab, const QString& name);
    void addField(const LaunchOptionRow& row, QGroupBox* group, QGridLayout* grid);
    void addMachines(QGroupBox* group, QGridLayout* grid) const;
    const Field& field(const QString& key) const;
    bool isAllowed(const Field& field) const;
    static QString problemOf(const Field& field);
    void mark(const Field& field, const QString& problem);
    void arrange(int columns);

    QVector<Field> m_fields;
    QVector<QGroupBox*> m_groups;
    QVector<QVBoxLayout*> m_columnLayouts;
    int m_columns = 0;
    bool m_readOnly = false;
};
