// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// What this program tells the test in a file beside it, of its own name with ".told" added.
namespace ToldFile {

/// A line more, in UTF-8.
void add(const std::string& line);

/// The arguments of this program, each in angle brackets on a line.
void addArguments();

/// Makes the file appear with all its lines, in one step.
void publish();

} // namespace ToldFile
