#pragma once

class QProcess;

/// What names of programs end in.
const char* common_executableSuffix();

/// Lets the process, which is set up and not started yet, open in a console of its own, where the
/// platform has one.
void common_openInConsole(QProcess& process);
