// SPDX-License-Identifier: MIT
#include "OutputCheck.h"

#include "OutputReport.h"
#include "PieceCheck.h"
#include "PieceText.h"
#include "Quoted.h"

#include <QCoreApplication>

namespace {

constexpr int complete = 100;
constexpr int longestEnd = 64;

bool isInRange(int percentage)
{
    return percentage >= 0 && percentage <= complete;
}

} // namespace

OutputCheck::OutputCheck(OutputReport& report)
    : m_report(report), m_lines([this](const SolverPiece& piece) { check(piece); })
{}

void OutputCheck::add(const QByteArray& bytes)
{
    m_lines.add(bytes);
}

void OutputCheck::finish()
{
    checkRest();
    checkTotalAtEnd();
    m_report.finish(m_summary);
}

void OutputCheck::check(const SolverPiece& piece)
{
    if (piece.number == 1) {
        m_beforeLine = m_summary;
        m_endBefore.clear();
    }
    CheckedPiece checked = PieceCheck::check(piece);
    if (piece.number > 1) {
        checked.remarks += PieceText::cutRemarks(m_endBefore, piece);
    }
    m_endBefore = PieceText::decode(piece).right(longestEnd);
    checkVariable(checked);
    checkOrder(checked);
    count(checked);
    m_report.add(checked);
}

void OutputCheck::count(const CheckedPiece& checked)
{
    m_summary.lines = checked.line;
    m_summary.remarks += checked.remarks.size();
    if (checked.isOnlyOne && checked.messages.isEmpty()) {
        ++m_summary.blankLines;
    }
    for (const CheckedMessage& message : checked.messages) {
        ++m_summary.messages[message.type];
    }
}

void OutputCheck::checkOrder(CheckedPiece& checked)
{
    const QVector<CheckedMessage> messages = checked.messages;
    for (const CheckedMessage& message : messages) {
        const int percentage = message.text.toInt();
        if (message.type == common_IProcessMessage::Percentage && isInRange(percentage)) {
            checkPhase(checked, percentage);
        } else if (message.type == common_IProcessMessage::TotalPercentage &&
                   isInRange(percentage)) {
            checkTotal(checked, percentage);
        }
    }
}

// A phase begins with 0, or after the one before was complete.
void OutputCheck::checkPhase(CheckedPiece& checked, int percentage)
{
    int& before = m_summary.phasePercentage;
    if (percentage < before && percentage != 0 && before != complete) {
        checked.remarks.append(
            {Remark::Kind::PercentageBackwards,
             QCoreApplication::translate(
                 "Remark", "the phase goes back from %1 % to %2 %; a new phase begins with 0 %")
                 .arg(before)
                 .arg(percentage)});
    }
    before = percentage;
}

void OutputCheck::checkTotal(CheckedPiece& checked, int percentage)
{
    int& before = m_summary.totalPercentage;
    if (percentage < before) {
        checked.remarks.append(
            {Remark::Kind::PercentageBackwards,
             QCoreApplication::translate("Remark", "the total goes back from %1 % to %2 %")
                 .arg(before)
                 .arg(percentage)});
    }
    before = percentage;
}

// Once is enough: it is the same for all of them.
void OutputCheck::checkVariable(CheckedPiece& checked)
{
    for (const CheckedMessage& message : qAsConst(checked.messages)) {
        if (message.type == common_IProcessMessage::Variable &&
            m_summary.messages[message.type] == 0) {
            checked.remarks.append(
                {Remark::Kind::Variable,
                 QCoreApplication::translate(
                     "Remark", "the library's process dialog ends the application at a variable, "
                               "unless the application handles it; kestdesk shows it as text")});
            return;
        }
    }
}

// What has no line end is never read, however much it is.
void OutputCheck::checkRest()
{
    const QByteArray rest = m_lines.rest();
    if (rest.isEmpty()) {
        return;
    }
    if (m_lines.isRestBegun()) {
        m_summary = m_beforeLine;
    }
    const QString text =
        m_lines.isRestBegun()
            ? QCoreApplication::translate(
                  "Remark", "line %1, which is longer than a megabyte, has no line end: all of it "
                            "is lost, also what is listed here")
                  .arg(m_lines.count() + 1)
            : QCoreApplication::translate("Remark",
                                          "the last line, %1, has no line end: it is lost")
                  .arg(quoted(QString::fromUtf8(rest)));
    remark({Remark::Kind::NoLineEnd, text});
}

// A component that reports an error is meant to be a fault.
void OutputCheck::checkTotalAtEnd()
{
    if (m_summary.totalPercentage != complete &&
        m_summary.messages[common_IProcessMessage::Error] == 0) {
        remark({Remark::Kind::NotComplete,
                m_summary.totalPercentage == OutputSummary::none
                    ? QCoreApplication::translate(
                          "Remark", "no total percentage is reported: the run is shown as a fault")
                    : QCoreApplication::translate(
                          "Remark", "the last total percentage is %1: the run is shown as a fault")
                          .arg(m_summary.totalPercentage)});
    }
}

void OutputCheck::remark(const Remark& remark)
{
    ++m_summary.remarks;
    m_report.add(remark);
}
