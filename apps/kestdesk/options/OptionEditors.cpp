// SPDX-License-Identifier: MIT
#include "OptionEditors.h"

#include "LaunchOptionTable.h"
#include "LaunchOptionsFile.h"
#include "NumberBox.h"
#include "OptionEditor.h"
#include "OptionRules.h"

#include <common_PropertyMetaData.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace {

/// Translates the texts of this file, and those that the library has registered for the members of
/// options.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(OptionEditors)

public:
    // clang-format off
    [[maybe_unused]] static constexpr const char* members[] = {
        QT_TR_NOOP("Idle"),
        QT_TR_NOOP("Low"),
        QT_TR_NOOP("Normal"),
        QT_TR_NOOP("High"),
        QT_TR_NOOP("Highest"),
        QT_TR_NOOP("ssh/rsh (must be installed on remote and local machine)"),
        QT_TR_NOOP("MPI (Windows only)"),
        QT_TR_NOOP("Use SSPI (Active Directory) integration (Windows only, requires domain)"),
        QT_TR_NOOP("Local run only (no authentication required)"),
        QT_TR_NOOP("Default (rsh/ssh for UNIX, PowerShell remoting for Windows)"),
        QT_TR_NOOP("High (fewer iterations and resources)"),
        QT_TR_NOOP("Normal (default)"),
        QT_TR_NOOP("Low (more iterations and resources)"),
    };
    // clang-format on
};

constexpr int longestLine = 1 << 20;
constexpr int linesOfTextEdit = 6;

class CheckEditor : public OptionEditor
{
public:
    CheckEditor(const LaunchOptionRow& row, QWidget* parent)
        : CheckEditor(row, new QCheckBox(row.text(), parent))
    {}

    QWidget* widget() const override { return m_box; }
    bool needsLabel() const override { return false; }
    QString text() const override
    {
        return m_box->isChecked() ? QStringLiteral("true") : QStringLiteral("false");
    }
    void setText(const QString& text) override { m_box->setChecked(text == QLatin1String("true")); }

private:
    CheckEditor(const LaunchOptionRow& row, QCheckBox* box) : OptionEditor(box), m_box(box)
    {
        m_box->setEnabled(LaunchOptionsFile::isKept(row.metaData()));
        connect(m_box, &QCheckBox::toggled, this, &OptionEditor::edited);
    }

    QCheckBox* m_box;
};

// A narrow combo box whose list is as wide as its texts. Without the focus it leaves the wheel to
// the page.
class ComboBox : public QComboBox
{
public:
    explicit ComboBox(QWidget* parent) : QComboBox(parent)
    {
        setFocusPolicy(Qt::StrongFocus);
        setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        setMinimumContentsLength(12);
    }

    void showPopup() override
    {
        view()->setMinimumWidth(view()->sizeHintForColumn(0));
        QComboBox::showPopup();
    }

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus()) {
            QComboBox::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

class ComboEditor : public OptionEditor
{
public:
    ComboEditor(const common_PropertyMetaData& metaData, QWidget* parent)
        : ComboEditor(metaData, new ComboBox(parent))
    {}

    QWidget* widget() const override { return m_box; }
    QString text() const override { return m_box->currentData().toString(); }

    // A value that is not a member is shown as it is, and kept until another one is chosen.
    void setText(const QString& text) override
    {
        if (m_box->findData(text) < 0) {
            m_box->addItem(Texts::tr("%1 (none of these)").arg(text), text);
        }
        m_box->setCurrentIndex(m_box->findData(text));
    }

private:
    ComboEditor(const common_PropertyMetaData& metaData, QComboBox* box)
        : OptionEditor(box), m_box(box)
    {
        const QVector<EnumType> members = metaData.getEnumList();
        for (const EnumType& member : members) {
            m_box->addItem(Texts::tr(member.text.toLatin1().constData()),
                           QString::number(member.value));
        }
        connect(m_box, qOverload<int>(&QComboBox::currentIndexChanged), this,
                &OptionEditor::edited);
    }

    QComboBox* m_box;
};

class NumberEditor : public OptionEditor
{
public:
    NumberEditor(const common_PropertyMetaData& metaData, QWidget* parent)
        : NumberEditor(new NumberBox(OptionRules::range(metaData).smallest,
                                     OptionRules::range(metaData).largest, parent))
    {}

    QWidget* widget() const override { return m_box; }
    QString text() const override { return m_box->cleanText(); }
    void setText(const QString& text) override { m_box->setValue(text.toInt()); }

private:
    explicit NumberEditor(NumberBox* box) : OptionEditor(box), m_box(box)
    {
        connect(m_box, &NumberBox::edited, this, &OptionEditor::edited);
    }

    NumberBox* m_box;
};

class LineEditor : public OptionEditor
{
public:
    explicit LineEditor(QWidget* parent) : LineEditor(new QLineEdit(parent)) {}

    QWidget* widget() const override { return m_line; }
    QString text() const override { return m_line->text(); }
    void setText(const QString& text) override { m_line->setText(text); }

private:
    explicit LineEditor(QLineEdit* line) : OptionEditor(line), m_line(line)
    {
        m_line->setMaxLength(longestLine);
        connect(m_line, &QLineEdit::textChanged, this, &OptionEditor::edited);
    }

    QLineEdit* m_line;
};

class TextEditor : public OptionEditor
{
public:
    explicit TextEditor(QWidget* parent) : TextEditor(new QPlainTextEdit(parent)) {}

    QWidget* widget() const override { return m_text; }
    QString text() const override { return m_text->toPlainText(); }
    void setText(const QString& text) override { m_text->setPlainText(text); }

private:
    explicit TextEditor(QPlainTextEdit* text) : OptionEditor(text), m_text(text)
    {
        m_text->setTabChangesFocus(true);
        m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
        m_text->setMinimumHeight(m_text->fontMetrics().lineSpacing() * linesOfTextEdit);
        connect(m_text, &QPlainTextEdit::textChanged, this, &OptionEditor::edited);
    }

    QPlainTextEdit* m_text;
};

OptionEditor* madeFor(const LaunchOptionRow& row, QWidget* parent)
{
    const common_PropertyMetaData& metaData = row.metaData();
    if (metaData.type() == common_PropertyMetaData::Boolean) {
        return new CheckEditor(row, parent);
    }
    if (!metaData.getEnumList().isEmpty()) {
        return new ComboEditor(metaData, parent);
    }
    if (metaData.type() == common_PropertyMetaData::Integer) {
        return new NumberEditor(metaData, parent);
    }
    if (OptionRules::mayHaveLines(metaData)) {
        return new TextEditor(parent);
    }
    return new LineEditor(parent);
}

} // namespace

OptionEditor* OptionEditors::make(const LaunchOptionRow& row, QWidget* parent)
{
    OptionEditor* const editor = madeFor(row, parent);
    QWidget* const widget = editor->widget();
    widget->setObjectName(QString::fromLatin1(row.key));
    widget->setAccessibleName(row.spokenName());
    widget->setToolTip(row.hintText());
    return editor;
}
