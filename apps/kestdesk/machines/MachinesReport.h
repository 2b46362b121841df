#pragma once

#include "Terminal.h"

#include <MachinesFile.h>

#include <common_MachineFileFinder.h>

/// What there is to say about the machines file in use.
class MachinesReport
{
public:
    /// Looks for the file and reads it.
    MachinesReport();

    bool isFound() const { return m_finder.isValid(); }

    /// Where there is no file: an empty one.
    const suite::MachinesFile& file() const { return m_file; }

    /// For people: of many hosts or findings only the first, and how many more there are.
    void write(Terminal& terminal) const;

    /// For programs.
    QByteArray json() const;

    /// One for each finding of the file, of many only the first.
    static void writeFindings(const suite::MachinesFile& file, Terminal& terminal);

private:
    void writeSearch(Terminal& terminal) const;
    void writeEntries(Terminal& terminal) const;

    common_MachineFileFinder m_finder;
    suite::MachinesFile m_file;
};
