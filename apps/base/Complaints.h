#pragma once

#include <QString>

/// What an application has to say on standard error, behind its name. Names in the text are made
/// visible.
namespace Complaints {

void print(const QString& text);

/// Of a command line that cannot be followed; says where to read more. The hint may be empty.
void printRefusal(const QString& text, const QString& hint);

} // namespace Complaints
